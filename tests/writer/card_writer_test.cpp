#include "base/case.h"
#include "cardwright/date_formatter.h"
#include "cardwright/text_scanner.h"
#include "cardwright/vcard.h"
#include "cardwright/vcard_utilities.h"
#include "support/colliding_texts.h"
#include "support/text_printer.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <vector>

namespace cardwright {
namespace {

std::shared_ptr<VCard> cardOf(std::initializer_list<TextView> lines) {
  Text text = u"BEGIN:VCARD\r\n";
  for (const TextView line : lines) {
    text.append(line).append(u"\r\n");
  }
  TextScanner scanner(text + u"END:VCARD\r\n");
  return VCard::vCardFromScanner(&scanner);
}

Text written(const VCard& card, VersionCode version = 3) {
  DateFormatter formatter("en_US_POSIX");
  Text output;
  card.generate(output, version, &formatter);
  return output;
}

Text framed(std::initializer_list<TextView> lines) {
  Text text = u"BEGIN:VCARD\r\n";
  for (const TextView line : lines) {
    text.append(line).append(u"\r\n");
  }
  return text + u"END:VCARD\r\n";
}

TEST(CardWriter, writesTheFrameOfAnEmptyCard) {
  EXPECT_EQ(written(VCard()), u"BEGIN:VCARD\r\nEND:VCARD\r\n");
}

TEST(CardWriter, writesPropertiesInOrder) {
  EXPECT_EQ(
      written(*cardOf({u"X-FOO:x", u"NOTE:n", u"EMAIL:e", u"N:a;b", u"FN:f", u"VERSION:3.0"})),
      framed({u"VERSION:3.0", u"FN:f", u"N:a;b;;;", u"EMAIL:e", u"NOTE:n", u"X-FOO:x"}));
  EXPECT_EQ(written(*cardOf({u"VERSION:3.0", u"TEL:2", u"TEL:1", u"tel:3"})),
            framed({u"VERSION:3.0", u"TEL:2", u"TEL:1", u"TEL:3"}));
}

TEST(CardWriter, writesTheVersionThatTheCardHoldsAndNoOther) {
  const auto card = cardOf({u"VERSION:3.0", u"TEL;TYPE=home:1"});
  EXPECT_EQ(written(*card, 2), framed({u"VERSION:3.0", u"TEL;HOME:1"}));
  card->removePropertiesWithName(u"VERSION");
  EXPECT_EQ(written(*card, 4), framed({u"TEL;TYPE=HOME:1"}));
}

TEST(CardWriter, writesALabelBehindTheProperty) {
  EXPECT_EQ(written(*cardOf({u"VERSION:3.0", u"item1.X-ABLabel:Desk", u"item1.EMAIL:e", u"TEL:1"})),
            framed({u"VERSION:3.0", u"item1.EMAIL:e", u"item1.X-ABLABEL:Desk", u"TEL:1"}));
}

TEST(CardWriter, writesLabelsAndThenFormatsBehindAnAddress) {
  EXPECT_EQ(
      written(*cardOf({u"VERSION:3.0", u"g.X-ABADR:de", u"g.X-ABADR:at", u"g.X-ABLabel:b",
                       u"g.X-ABLabel:a", u"g.adr:;;x", u"g.TEL:1"})),
      framed({u"VERSION:3.0", u"g.TEL:1", u"g.X-ABLABEL:b", u"g.X-ABLABEL:a", u"g.ADR:;;x;;;;",
              u"g.X-ABLABEL:b", u"g.X-ABLABEL:a", u"g.X-ABADR:de", u"g.X-ABADR:at"}));
}

TEST(CardWriter, repeatsLabelsForEachPropertyOfTheGroup) {
  EXPECT_EQ(
      written(*cardOf({u"VERSION:3.0", u"g.TEL:1", u"g.TEL:2", u"g.EMAIL:e", u"g.X-ABLabel:a"})),
      framed({u"VERSION:3.0", u"g.EMAIL:e", u"g.X-ABLABEL:a", u"g.TEL:1", u"g.X-ABLABEL:a",
              u"g.TEL:2", u"g.X-ABLABEL:a"}));
}

TEST(CardWriter, comparesGroupsWithoutRegardToCase) {
  EXPECT_EQ(written(*cardOf({u"VERSION:3.0", u"ITEM1.TEL:1", u"item1.X-ABLabel:a",
                             u"Stra\u00DFe.EMAIL:e", u"STRASSE.X-ABLabel:b"})),
            framed({u"VERSION:3.0", u"Stra\u00DFe.EMAIL:e", u"STRASSE.X-ABLABEL:b", u"ITEM1.TEL:1",
                    u"item1.X-ABLABEL:a"}));
}

TEST(CardWriter, takesAnEmptyGroupForAGroup) {
  EXPECT_EQ(written(*cardOf({u"VERSION:3.0", u".TEL:1", u"EMAIL:e", u".X-ABLabel:a"})),
            framed({u"VERSION:3.0", u"EMAIL:e", u".TEL:1", u".X-ABLABEL:a"}));
}

TEST(CardWriter, leavesOutCompanionsOfNobody) {
  EXPECT_EQ(written(*cardOf({u"VERSION:3.0", u"X-ABLabel:a", u"g.X-ABLabel:b", u"X-ABADR:de",
                             u"h.X-ABADR:de", u"h.TEL:1"})),
            framed({u"VERSION:3.0", u"h.TEL:1"}));
}

TEST(CardWriter, knowsCompanionsByTheirNamesInAnyCase) {
  VCard card;
  const auto add = [&card](TextView name, TextView text) {
    const auto property = VCardProperty::propertyWithName(name, text);
    property->setGroup(u"g");
    card.addProperty(property);
  };
  add(u"x-AbLabel", u"a");
  add(u"x-aBadr", u"de");
  add(u"adr", u"x");
  EXPECT_EQ(written(card), framed({u"g.adr:x", u"g.x-AbLabel:a", u"g.x-aBadr:de"}));
}

TEST(CardWriter, leavesOutPhotosWithoutText) {
  EXPECT_EQ(written(*cardOf({u"VERSION:3.0", u"PHOTO:", u"PHOTO:AAAA", u"PHOTO;VALUE=date:1996",
                             u"LOGO:", u"g.PHOTO:", u"g.X-ABLabel:a"})),
            framed({u"VERSION:3.0", u"LOGO:", u"PHOTO:AAAA"}));

  // The name is compared exactly.
  VCard card;
  card.addProperty(VCardProperty::propertyWithName(u"Photo", TextView(u"")));
  card.addProperty(VCardProperty::propertyWithName(u"PHOTO", TextView(u"")));
  EXPECT_EQ(written(card), framed({u"Photo:"}));
}

TEST(CardWriter, appendsToTheBuffer) {
  Text output = u"before\r\n";
  DateFormatter formatter;
  VCard().generate(output, 4, &formatter);
  EXPECT_EQ(output, u"before\r\nBEGIN:VCARD\r\nEND:VCARD\r\n");
}

TEST(CardWriter, describesACardForNoVersion) {
  const auto card = cardOf({u"VERSION:2.1", u"NOTE:a;b", u"TEL;HOME:1"});
  EXPECT_EQ(card->description(), framed({u"VERSION:2.1", u"TEL;TYPE=HOME:1", u"NOTE:a;b"}));
}

TEST(CardWriter, takesEveryVersionCode) {
  const auto card =
      cardOf({u"VERSION:3.0", u"TEL;TYPE=home:1", u"NOTE:a\\;b", u"BDAY:1996-04-15", u"TZ:+05:30"});
  for (const VersionCode version : {-1, 0, 1, 4, 5, 99}) {
    EXPECT_EQ(written(*card, version),
              framed({u"VERSION:3.0", u"TEL;TYPE=HOME:1", u"BDAY:19960415", u"NOTE:a;b",
                      version >= 4 ? TextView(u"TZ:+0530") : TextView(u"TZ:+05:30")}))
        << version;
  }
  EXPECT_EQ(written(*card, 2),
            framed({u"VERSION:3.0", u"TEL;HOME:1", u"BDAY:19960415", u"NOTE:a;b", u"TZ:+05:30"}));
  EXPECT_EQ(written(*card, 3), framed({u"VERSION:3.0", u"TEL;TYPE=HOME:1", u"BDAY:1996-04-15",
                                       u"NOTE:a\\;b", u"TZ:+05:30"}));
}

TEST(CardWriter, isNotSlowedDownByGroupsOfOneHash) {
  std::vector<Text> groups = collidingTexts(60'000);
  std::erase_if(groups, [](const Text& group) { return caseFolded(group) != group; });
  ASSERT_GT(groups.size(), 40'000U);
  expectLinear(10'000, [&groups](std::size_t size) {
    VCard card;
    for (std::size_t i = 0; i < size; ++i) {
      for (const TextView name : {u"X-ABLABEL", u"TEL"}) {
        const auto property = VCardProperty::propertyWithName(name, TextView(u"1"));
        property->setGroup(groups[i]);
        card.addProperty(property);
      }
    }
    EXPECT_EQ(written(card).size(), 24 + size * 38);
  });
}

TEST(AppendCrLf, appendsTextAndLineEnd) {
  Text buffer;
  VCardUtilities::appendCRLF(buffer, u"a");
  VCardUtilities::appendCRLF(buffer, u"");
  EXPECT_EQ(buffer, u"a\r\n\r\n");
}

} // namespace
} // namespace cardwright
