#include "cardwright/face.h"
#include "support/address_book.h"
#include "support/same_writing.h"
#include "support/seed.h"
#include "support/strange_cards.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

// Cards that nobody changed are written from their lines, as if there were none.

VCardList cardOf(const std::string& lines) {
  ReadOptions options;
  options.clean = false;
  return readCards("BEGIN:VCARD\r\n" + lines + "END:VCARD\r\n", nullptr, options);
}

TEST(UnchangedCards, areWrittenSafelyAsTheirPropertiesAre) {
  for (const char* const lines :
       {"VERSION:3.0\r\nFN:A\r\nN:B;A;;;\r\nBDAY:1980-01-02\r\nTZ:+01:00\r\nGEO:1.5;2.5\r\n",
        "VERSION:4.0\r\nFN:A;b\r\nGENDER:F\r\nTZ:Europe/Berlin\r\nGEO:geo:1,2\r\nURL:a\\,b\r\n",
        "VERSION:2.1\r\nFN;ENCODING=QUOTED-PRINTABLE:=41\r\nPHOTO;ENCODING=BASE64:AAAA\r\n\r\n",
        "VERSION:3.0\r\nORG: a;b\r\nORG:a\\n;b\r\nORG:a ;b\r\nORG:\\na\r\nORG:a,b\\n\r\n",
        "VERSION:3.0\r\nADR:;;\\na;b\\n;;;\r\nN:\\nA;b\r\nN:a\\n,b;c\r\nN:\xC2\xA0;b\r\n",
        "VERSION:3.0\r\nCATEGORIES:a, b\r\nCATEGORIES:\\na,b\\n\r\nNICKNAME:a\\;b;c\r\n",
        "VERSION:3.0\r\nNOTE:a\tb\r\nNOTE:\\n\r\nNOTE:\r\nURL:\r\nPHOTO:\r\nPHOTO;VALUE=uri:a\r\n",
        "VERSION:3.0\r\nTEL;TYPE=\"a,b\":1\r\nTEL;TYPE=BASE64:1\r\nX-A;VALUE=b:c\r\nX-A;B=:c\r\n",
        "VERSION:3.0\r\nBEGIN:b\r\nEND:b\r\nX-begin:c\r\nfn:d\r\nFN;CHARSET=UTF-8:e\r\n",
        "PHOTO:a\r\nGEO:1;2\r\nVERSION:4.0\r\nPHOTO:b\r\nFN:a\r\n", "FN:a\r\n",
        "VERSION:3.0\r\nVERSION:4.0\r\nPHOTO:a\r\n", "VERSION: 3.0\r\nFN:a\r\n",
        "VERSION:2.1\r\nb.FN;QUOTED-PRINTABLE:=41\r\nZ;ENCODING=quoted-printable:=42\r\nb.A;"
        "ENCODING=QUOTED-PRINTABLE:=43\r\nFN;ENCODING=QUOTED-PRINTABLE:=4\r\n",
        "VERSION:3.0\r\na.Z;ENCODING=QUOTED-PRINTABLE:=41\r\na.X-ABLABEL:b\r\nFN;ENCODING=quoted-"
        "printable:=42\r\n",
        "VERSION:4.0\r\nBDAY;VALUE=date:1980-01-02\r\nTEL;VALUE=uri:tel:1,2\r\nGENDER:M;a;b\r\n",
        "a.VERSION:4.0\r\nPHOTO:a\r\n", "VERSION:5.0\r\nVERSION:3.0\r\nPHOTO:a\r\n"}) {
    expectSameWritingWithoutLines(cardOf(lines));
  }
}

TEST(UnchangedCards, stateTheVersionThatIsReadOfWhatIsWritten) {
  // A NUL ends the version that is read, and is left out of what is written.
  const std::string hidden("VERSION:\0"
                           "2.1\r\n",
                           14);
  for (const std::string& lines :
       {"GEO:1;2\r\n" + hidden + "VERSION:4.0\r\n", "GEO:1;2\r\nitem." + hidden + "VERSION:4.0\r\n",
        std::string("GEO:1;2\r\nversion:x\r\nVERSION:4.0\r\n"),
        std::string("GEO:1;2\r\nVERSION:4.0\r\n")}) {
    expectSameWritingWithoutLines(readCards("BEGIN:VCARD\r\n" + lines + "END:VCARD\r\n"));
  }
}

TEST(UnchangedCards, keepLabelsAndFormatsAsTheirPropertiesDo) {
  for (const char* const lines :
       {"a.TEL:1\r\na.X-ABLABEL:b\r\n", "a.TEL:1\r\na.EMAIL:c\r\na.X-ABLABEL:b\r\n",
        "X-ABLABEL:b\r\nTEL:1\r\n", "a.X-ABLABEL:b\r\nTEL:1\r\n",
        "a.TEL:1\r\na.X-ABLABEL:b\r\na.X-ABLABEL:b\r\n",
        "a.TEL:1\r\na.X-ABLABEL:b\r\nA.X-ABLABEL:c\r\n", "a.TEL:1\r\nA.X-ABLABEL:c\r\n",
        "a.ADR:;;b\r\na.X-ABADR:de\r\na.X-ABLABEL:c\r\n", "a.TEL:1\r\na.X-ABADR:de\r\n",
        "a.ADR:;;b\r\na.TEL:1\r\na.X-ABADR:de\r\n", "a.ADR:;;b\r\na.ADR:;;c\r\na.X-ABADR:de\r\n",
        "a.TEL;VALUE=x:1\r\na.X-ABLABEL:b\r\n", "a.TEL:1\r\na.X-ABLABEL;A=B:b\r\n",
        "a.TEL:1\r\na.X-ABLABEL;ENCODING=QUOTED-PRINTABLE:=41\r\nNOTE:b\r\n",
        "a.ADR:;;b\r\nb.ADR:;;b\r\na.X-ABADR:de\r\nb.X-ABADR:fr\r\nb.X-ABLABEL:c\r\n"}) {
    expectSameWritingWithoutLines(cardOf("VERSION:3.0\r\n" + std::string(lines)));
  }
}

TEST(UnchangedCards, areWrittenSafelyAsTheirPropertiesAreInAnAddressBook) {
  AddressBookOptions options;
  options.cards = 2'000;
  options.seed = testSeed();
  expectSameWritingWithoutLines(readCards(addressBook(options)));
}

TEST(UnchangedCards, areWrittenSafelyAsTheirPropertiesAreHoweverStrange) {
  const std::uint64_t seed = testSeed();
  StrangeCards cards(seed);
  for (int i = 0; i < 5'000; ++i) {
    const Text text = cards.card();
    expectSameWritingWithoutLines(*VCard::vCardsFromString(TextView(text)));
    ASSERT_FALSE(testing::Test::HasFailure())
        << "card " << i << ", seed " << seed << ": " << testing::PrintToString(text);
  }
}

} // namespace
} // namespace cardwright
