#include "cardwright/check.h"
#include "cardwright/codes.h"
#include "face/checking/check_table.h"
#include "support/corpus.h"
#include "support/repairs_page.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace cardwright {
namespace {

std::string withLineEnds(std::string_view text) {
  std::string result;
  for (const char byte : text) {
    result.append(byte == '\n' ? "\r" : "").push_back(byte);
  }
  return result;
}

std::string fileOf(std::string_view example) {
  const bool isWhole = example.starts_with("BEGIN");
  return withLineEnds((isWhole ? "" : "BEGIN:VCARD\n") + std::string(example) +
                      (isWhole ? "\n" : "\nEND:VCARD\n"));
}

std::set<std::string_view> codesIn(std::string_view text) {
  std::set<std::string_view> codes;
  for (const Finding& finding : checkText(text)) {
    codes.insert(finding.code);
  }
  return codes;
}

TEST(CheckTable, isInTheOrderOfItsChecks) {
  for (std::size_t at = 0; at < checkTable().size(); ++at) {
    EXPECT_EQ(static_cast<std::size_t>(checkTable()[at].check), at);
  }
}

TEST(CheckTable, namesRepairsAndLostLinesAsReportsDo) {
  for (int kind = 1; kind <= 8; ++kind) {
    const auto repair = static_cast<CleaningRepairKind>(kind);
    EXPECT_EQ(rowOf(checkOf(repair)).code, codeOf(repair));
  }
  for (int kind = 1; kind <= 7; ++kind) {
    const auto reason = static_cast<DropReason>(kind);
    EXPECT_EQ(rowOf(checkOf(reason)).code, codeOf(reason));
  }
}

TEST(CheckTable, hasStableCodes) {
  std::string codes;
  for (const CheckRow& row : checkTable()) {
    codes.append(row.code).append(" ");
  }
  EXPECT_EQ(codes,
            "dropped-bytes separators soft-break member-entities glued-note note-entities "
            "merged-properties torn-fragment repeated-property outside-card no-name no-colon "
            "empty-parameter-name empty-parameter-value version-no-text behind-end "
            "nested-card no-end other-version-property unknown-property "
            "other-version-parameter unknown-parameter other-version-type "
            "other-version-encoding unknown-encoding other-version-value missing-version "
            "missing-fn missing-n too-many bad-date bad-offset bad-position bad-base64 "
            "bad-quoted-printable lost-member equal-uid ");
}

TEST(CheckText, findsInEachExampleWhatItShowsAndNothingElse) {
  for (const CheckRow& row : checkTable()) {
    EXPECT_EQ(codesIn(fileOf(row.example)), std::set<std::string_view>{row.code}) << row.example;
  }
}

TEST(CheckText, findsNothingInSoundCards) {
  for (const char* text :
       {"",
        "BEGIN:VCARD\nVERSION:4.0\nFN:a\nGEO:geo:1,2\nTZ;VALUE=utc-offset:-0500\nBDAY:--0203\n"
        "REV:20240203T101112Z\nPHOTO:data:image/png;base64,AAAA\nEND:VCARD",
        "BEGIN:VCARD\nVERSION:3.0\nFN:a\nN:a;;;;\nGEO:1.5;2\nTZ:-05:00\nTZ;VALUE=text:EST\n"
        "BDAY:2024-02-29\nREV:2024-02-03T10:00:00.5Z\nPHOTO;ENCODING=b:AAAA\n"
        "item1.TEL;TYPE=CELL,pref:1\nitem1.X-ABLabel:b\nEND:VCARD\n\n",
        "BEGIN:VCARD\nVERSION:2.1\nN:a\nTEL;HOME;VOICE:1\n"
        "NOTE;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:a=3D=\n b\nEND:VCARD",
        "BEGIN:VCARD\nVERSION:4.0\nFN:g\nKIND:group\nMEMBER:urn:uuid:A\nMEMBER:mailto:a@b\n"
        "END:VCARD\nBEGIN:VCARD\nVERSION:4.0\nFN:a\nUID:a\nEND:VCARD",
        "BEGIN:VCARD\nVERSION:4.0\nFN:a\nN;ALTID=1;LANGUAGE=en:a;;;;\nN;ALTID=2:b;;;;\nEND:"
        "VCARD"}) {
    EXPECT_EQ(codesIn(withLineEnds(text)), std::set<std::string_view>{}) << text;
  }
}

TEST(CheckText, findsTheDamageOfTheRepairsPageAndNoneWhereThereIsNone) {
  const auto examples = repairExamples(CARDWRIGHT_DOCS "/repairs.md");
  ASSERT_GT(examples.size(), 12U);
  for (const RepairExample& example : examples) {
    std::size_t repairs = 0;
    for (const std::string_view code : codesIn(cardOf(example.before))) {
      for (int kind = 1; kind <= 8; ++kind) {
        repairs += code == codeOf(static_cast<CleaningRepairKind>(kind)) ? 1 : 0;
      }
    }
    EXPECT_EQ(repairs != 0, !example.told.empty()) << "docs/repairs.md:" << example.line;
  }
}

/// Text outside of the cards and frames that are broken keep the rest of a file from being
/// repaired, so they have a file of their own.
TEST(CheckText, findsEverythingInTheExamples) {
  std::set<std::string_view> all;
  for (const CheckRow& row : checkTable()) {
    all.insert(row.code);
  }
  std::set<std::string_view> found;
  for (const char* file : {"mistakes.vcf", "broken-frames.vcf"}) {
    found.merge(codesIn(bytesOf(std::string(CARDWRIGHT_DOCS "/../examples/") + file)));
  }
  EXPECT_EQ(found, all);
}

TEST(CheckText, tellsPlacesOfTheOriginalFile) {
  const auto findings = checkText("BEGIN:VCARD\r\nVERSION:4.0\r\nFN:a\r\nTEL:1EMAIL:b\r\n"
                                  "BDAY:x\r\nno colon\r\nEND:VCARD\r\n");
  ASSERT_EQ(findings.size(), 3U);
  EXPECT_EQ(findings[0].code, "merged-properties");
  EXPECT_EQ(findings[0].place, (TextPlace{37, 4}));
  EXPECT_EQ(findings[0].column, 6U);
  EXPECT_EQ(findings[1].code, "bad-date");
  EXPECT_EQ(findings[1].place.line, 5U);
  EXPECT_EQ(findings[1].column, 6U);
  EXPECT_EQ(findings[1].text, "a date that cannot be understood: BDAY");
  EXPECT_EQ(findings[2].place.line, 6U);
}

TEST(CheckText, tellsAMistakeOnceWithItsCountOrEachTime) {
  const std::string_view text =
      "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:a\r\nFOO:1\r\nfoo:2\r\nBAR:3\r\nEND:VCARD\r\n";
  const auto once = checkText(text);
  ASSERT_EQ(once.size(), 2U);
  EXPECT_EQ(once[0].count, 2U);
  EXPECT_EQ(once[0].place.line, 4U);
  EXPECT_EQ(once[1].count, 1U);
  CheckOptions options;
  options.all = true;
  const auto all = checkText(text, options);
  ASSERT_EQ(all.size(), 3U);
  EXPECT_EQ(all[1].place.line, 5U);
  EXPECT_EQ(all[1].count, 1U);
}

TEST(CheckText, tellsLostMembersAndEqualUidsOnceWhateverTheyAre) {
  const std::string file = fileOf("BEGIN:VCARD\nVERSION:4.0\nFN:a\nUID:1\nKIND:group\n"
                                  "MEMBER:urn:uuid:b\nMEMBER:urn:uuid:c\nEND:VCARD\n"
                                  "BEGIN:VCARD\nVERSION:4.0\nFN:d\nUID:2\nEND:VCARD\n"
                                  "BEGIN:VCARD\nVERSION:4.0\nFN:e\nUID:1\nEND:VCARD\n"
                                  "BEGIN:VCARD\nVERSION:4.0\nFN:f\nUID:2\nEND:VCARD");
  const std::vector<Finding> once = checkText(file);
  ASSERT_EQ(once.size(), 2U);
  EXPECT_EQ(once[0].text, "a member that is no card of the file: urn:uuid:b");
  EXPECT_EQ(once[0].count, 2U);
  EXPECT_EQ(once[1].text, "a UID that another card has: 1");
  EXPECT_EQ(once[1].count, 2U);
  CheckOptions options;
  options.all = true;
  EXPECT_EQ(checkText(file, options).size(), 4U);
}

TEST(CheckText, countsColumnsInCharacters) {
  const auto findings =
      checkText("\xE3\x80\x80 hello\r\nBEGIN:VCARD\r\nVERSION:4.0\r\nFN:a\r\nEND:VCARD\r\n");
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].code, "outside-card");
  EXPECT_EQ(findings[0].column, 3U);
}

} // namespace
} // namespace cardwright
