#include "cardwright/vcard_cleaner.h"
#include "support/colliding_texts.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <vector>

namespace cardwright {
namespace {

const Text kBegin = u"BEGIN:VCARD";
const Text kEnd = u"END:VCARD";
const Text kMember = u"X-ADDRESSBOOKSERVER-MEMBER:";

TextList inCard(TextList lines) {
  lines.insert(lines.begin(), kBegin);
  lines.push_back(kEnd);
  return lines;
}

struct Row {
  TextList lines;
  TextList kept;
};

/// The rules inside a card are the same with and without its first and last line.
void expectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(VCardCleaner::deduplicateSingularPropertiesWithinCard(row.lines), row.kept)
        << testing::PrintToString(row.lines);
    EXPECT_EQ(VCardCleaner::deduplicateSingularProperties(inCard(row.lines)), inCard(row.kept))
        << testing::PrintToString(row.lines);
  }
}

void expectUntouched(const std::vector<TextList>& rows) {
  for (const TextList& lines : rows) {
    expectRows({{lines, lines}});
  }
}

TEST(Duplicates, keepsTheLastOfASingularProperty) {
  expectRows({{{u"X-CREATED:2020", u"TEL:1", u"X-CREATED:2021"}, {u"TEL:1", u"X-CREATED:2021"}},
              {{u"item1.X-ABSHOWAS:COMPANY", u"X-ABSHOWAS:PERSON"}, {u"X-ABSHOWAS:PERSON"}},
              {{u"x-created:1", u"item3.X-CREATED:2", u"X-CREATED;VALUE=date-time:3"},
               {u"X-CREATED;VALUE=date-time:3"}},
              {{u"X-CREATED:1", u"X-CREATED:1"}, {u"X-CREATED:1"}},
              {{u"X-CREATED:1", u"X-ABSHOWAS:2", u"X-CREATED:3", u"X-ABSHOWAS:4", u"X-CREATED:5"},
               {u"X-ABSHOWAS:4", u"X-CREATED:5"}},
              {{u"VND-63-SENSITIVE-CONTENT-CONFIG:1", u"vnd-63-sensitive-content-config:2"},
               {u"vnd-63-sensitive-content-config:2"}}});
}

TEST(Duplicates, reducesEverySingularName) {
  ASSERT_EQ(VCardCleaner::singularPropertiesUpper().size(), 6U);
  for (const TextView name : VCardCleaner::singularPropertiesUpper()) {
    const Text first = Text(name) + u":1";
    const Text second = Text(name) + u":2";
    expectRows({{{first, u"FN:x", second}, {u"FN:x", second}}});
  }
}

TEST(Duplicates, keepsRepeatsOfOtherNames) {
  expectUntouched({{},
                   {u"TEL:1", u"TEL:1", u"EMAIL:a", u"EMAIL:a"},
                   {u"VND-64-SENSITIVE-CONTENT-CONFIG:1", u"VND-64-SENSITIVE-CONTENT-CONFIG:1"},
                   {u"X-CREATED", u"X-CREATED"},
                   {u"\"X-CREATED:1", u"\"X-CREATED:1"},
                   {u"X-CREATED:\u0301", u"X-CREATED:\u0301"},
                   {u"", u"", u":", u":"}});
}

TEST(Duplicates, keepsTheFirstOfAMember) {
  const Text withType = u"X-ADDRESSBOOKSERVER-MEMBER;TYPE=x:urn:uuid:A";
  const Text grouped = u"item1.x-addressbookserver-member:urn:uuid:A";
  expectRows(
      {{{kMember + u"urn:uuid:A", withType, kMember + u"urn:uuid:a", grouped},
        {kMember + u"urn:uuid:A", kMember + u"urn:uuid:a"}},
       {{withType, u"FN:x", kMember + u"urn:uuid:A"}, {withType, u"FN:x"}},
       {{kMember, kMember, kMember + u" "}, {kMember, kMember + u" "}},
       {{kMember + u"e\u0301", kMember + u"\u00E9"}, {kMember + u"e\u0301", kMember + u"\u00E9"}},
       {{u"X-CREATED:1", kMember + u"a", kMember + u"a", u"X-CREATED:2"},
        {kMember + u"a", u"X-CREATED:2"}}});
}

TEST(Duplicates, removesOnlyMembersByTheRuleForMembers) {
  EXPECT_EQ(VCardCleaner::deduplicateMemberDuplicatesWithinCard(
                {u"X-CREATED:1", kMember + u"a", u"X-CREATED:2", kMember + u"a", u"X-CREATED"}),
            (TextList{u"X-CREATED:1", kMember + u"a", u"X-CREATED:2", u"X-CREATED"}));
  EXPECT_EQ(VCardCleaner::deduplicateMemberDuplicatesWithinCard({}), TextList());
}

TEST(Duplicates, treatsEachCardByItself) {
  const TextList two = {kBegin, u"X-CREATED:1", kMember + u"a", kEnd,
                        kBegin, u"X-CREATED:1", kMember + u"a", kEnd};
  EXPECT_EQ(VCardCleaner::deduplicateSingularProperties(two), two);
  const TextList outside = {u"X-CREATED:1", u"X-CREATED:2", kBegin,
                            kEnd,           u"X-CREATED:1", u"X-CREATED:2",
                            kEnd,           kMember + u"a", kMember + u"a"};
  EXPECT_EQ(VCardCleaner::deduplicateSingularProperties(outside), outside);
}

TEST(Duplicates, findsCardsWithoutAnEnd) {
  EXPECT_EQ(VCardCleaner::deduplicateSingularProperties({kBegin, u"X-CREATED:1", u"X-CREATED:2",
                                                         u"begin:vcard;x", u"X-CREATED:3",
                                                         u"X-CREATED:4"}),
            (TextList{kBegin, u"X-CREATED:2", u"begin:vcard;x", u"X-CREATED:4"}));
  EXPECT_EQ(VCardCleaner::deduplicateSingularProperties({kBegin, u"X-CREATED:1", u" END:VCARD",
                                                         u"X-CREATED:2", u"End:VCard and more",
                                                         u"X-CREATED:3", u"X-CREATED:4"}),
            (TextList{kBegin, u" END:VCARD", u"X-CREATED:2", u"End:VCard and more", u"X-CREATED:3",
                      u"X-CREATED:4"}));
}

TEST(Duplicates, knowsWhetherThereIsAnythingToLookFor) {
  EXPECT_TRUE(VCardCleaner::containsSingularPropertyIn({u"FN:x", kMember + u"a"}));
  EXPECT_TRUE(VCardCleaner::containsSingularPropertyIn({u"item1.x-created;a=b:1"}));
  EXPECT_FALSE(VCardCleaner::containsSingularPropertyIn({u"FN:x", u"TEL:1", u"X-CREATED", u""}));
  EXPECT_FALSE(VCardCleaner::containsSingularPropertyIn({u"VND-64-SENSITIVE-CONTENT-CONFIG:1"}));
  EXPECT_FALSE(VCardCleaner::containsSingularPropertyIn({}));
}

TEST(Duplicates, areNotSlowedDownByMembersOfOneHash) {
  const std::vector<Text> values = collidingTexts(60'000);
  expectLinear(10'000, [&values](std::size_t size) {
    TextList members;
    for (std::size_t i = 0; i < size; ++i) {
      members.push_back(kMember + values[i]);
    }
    EXPECT_EQ(VCardCleaner::deduplicateMemberDuplicatesWithinCard(members).size(), size);
  });
}

} // namespace
} // namespace cardwright
