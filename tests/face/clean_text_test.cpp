#include "cardwright/face.h"
#include "support/address_book.h"
#include "support/same_reading.h"
#include "support/seed.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

using namespace std::string_literals;

const std::string kDamaged =
    "BEGIN:VCARD\r\nFN:J\xC3\xBCrg\r\nTEL:+15550100EMAIL:x\r\nEND:VCARD\r\n";
const std::string kRepaired =
    "BEGIN:VCARD\r\nFN:J\xC3\xBCrg\r\nTEL:+15550100\r\nEMAIL:x\r\nEND:VCARD";

TEST(CleanText, givesTheRepairedText) {
  CleanReport report;
  EXPECT_EQ(cleanText(kDamaged, &report), kRepaired);
  EXPECT_EQ(report.summaries, std::vector<std::string>{"Split merged properties starting at TEL"});
  ASSERT_EQ(report.repairs.size(), 1U);
  EXPECT_EQ(report.repairs[0].kind, CleaningRepairKind::mergedProperties);
  EXPECT_EQ(report.repairs[0].place, (TextPlace{22, 3}));
  EXPECT_EQ(report.repairs[0].originalLine, u"TEL:+15550100EMAIL:x");
  EXPECT_EQ(report.repairs[0].replacement, (TextList{u"TEL:+15550100", u"EMAIL:x"}));
  EXPECT_FALSE(report.foreignLine);
}

TEST(CleanText, givesNothingForTextThatNeedsNothing) {
  for (const std::string& text : {kRepaired, "\xEF\xBB\xBF" + kRepaired, ""s}) {
    CleanReport report;
    EXPECT_FALSE(cleanText(text, &report));
    EXPECT_TRUE(report.summaries.empty());
    EXPECT_TRUE(report.repairs.empty());
    EXPECT_FALSE(report.foreignLine);
  }
}

TEST(CleanText, countsDroppedBytesAsARepair) {
  CleanReport report;
  EXPECT_EQ(cleanText("BEGIN:VCARD\r\nFN:J\xC3\xBCrg \xC3\xA9\xFF\r\nEND:VCARD\r\n", &report),
            "BEGIN:VCARD\r\nFN:J\xC3\xBCrg \xC3\xA9\r\nEND:VCARD\r\n");
  EXPECT_EQ(report.decoding.droppedBytes, 1U);
  EXPECT_TRUE(report.repairs.empty());
}

TEST(CleanText, readsTheEncodingThatIsNamed) {
  const std::string latin = "BEGIN:VCARD\r\nFN:J\xFCrg\r\nTEL:+15550100EMAIL:x\r\nEND:VCARD\r\n";
  EXPECT_EQ(cleanText(latin, nullptr, "iso-8859-1"), kRepaired);
}

TEST(CleanText, tellsWhichLineKeepsItFromRepairing) {
  CleanReport report;
  EXPECT_FALSE(cleanText(kDamaged + "\r\nexported by a program\r\n", &report));
  EXPECT_TRUE(report.repairs.empty());
  ASSERT_TRUE(report.foreignLine);
  EXPECT_EQ(report.foreignLine->place.line, 6U);
  EXPECT_EQ(report.foreignLine->text, "exported by a program");
}

TEST(CleanText, placesRepairsInTheFileAsItWas) {
  std::string doubled = "BEGIN:VCARD\r\r\nFN:a\r\r\nTEL:1EMAIL:x\r\r\nEND:VCARD\r\r\n";
  CleanReport report;
  ASSERT_TRUE(cleanText(doubled, &report));
  ASSERT_EQ(report.repairs.size(), 2U);
  EXPECT_EQ(report.repairs[0].kind, CleaningRepairKind::separators);
  EXPECT_EQ(report.repairs[1].place.offset, doubled.find("TEL"));
}

/// Expects what reading tells, of the text as it was and of what it became.
void expectReadingToldFrom(const std::string& bytes) {
  ReadReport told;
  CleanReport cleaning;
  const std::optional<std::string> cleaned = cleanText(bytes, &cleaning, std::nullopt, &told);
  EXPECT_EQ(cleaned, cleanText(bytes)) << "whatever is asked for";
  ReadReport read;
  static_cast<void>(readCards(bytes, &read));
  expectSameReading(told, read);
  EXPECT_EQ(told.summaries, cleaning.summaries);
}

TEST(CleanText, tellsWhatReadingWould) {
  expectReadingToldFrom("");
  expectReadingToldFrom(kRepaired);
  expectReadingToldFrom(kDamaged);
  expectReadingToldFrom(kDamaged + "\r\nexported by a program\r\n");
  expectReadingToldFrom("BEGIN:VCARD\r\r\nFN:a\r\r\nno colon\r\r\nEND:VCARD\r\r\n");
  expectReadingToldFrom("BEGIN:VCARD\nVERSION:x\nFN:a\n b\n:\nEND:VCARD\n\nTEL:1\nEND:VCARD\n");
  expectReadingToldFrom("BEGIN:VCARD\r\nFN:J\xC3\xBCrg \xC3\xA9\xFF\r\nEND:VCARD\r\n");
}

TEST(CleanText, tellsWhatReadingWouldOfAddressBooks) {
  AddressBookOptions options;
  options.cards = 300;
  options.seed = testSeed();
  const std::string sound = addressBook(options);
  expectReadingToldFrom(sound);
  expectReadingToldFrom(sound + "BEGIN:VCARD\r\nTEL:1EMAIL:x\r\nfolded\r\n:\r\nEND:VCARD\r\n");
}

} // namespace
} // namespace cardwright
