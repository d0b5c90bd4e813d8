#include "cardwright/vcard_cleaner.h"
#include "cleaner/segmentation.h"
#include "support/random_source.h"
#include "support/seed.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <vector>

namespace cardwright {
namespace {

struct Row {
  Text line;
  TextList pieces; ///< none when the line stays whole
};

void expectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    const TextList expected = row.pieces.empty() ? TextList{row.line} : row.pieces;
    EXPECT_EQ(VCardCleaner::segmentMergedLineIfSafe(row.line), expected)
        << testing::PrintToString(row.line);
  }
}

TEST(Segmentation, cutsBeforeCoreNames) {
  expectRows({{u"TEL:+15550100EMAIL:x", {u"TEL:+15550100", u"EMAIL:x"}},
              {u"TEL:1FN:JaneEMAIL:x", {u"TEL:1", u"FN:JaneEMAIL:x"}},
              {u"tel:1email:x", {u"tel:1", u"email:x"}},
              {u"TEL;TYPE=cell:1EMAIL;TYPE=home:x", {u"TEL;TYPE=cell:1", u"EMAIL;TYPE=home:x"}},
              {u"TEL:1,EMAIL:x", {u"TEL:1,", u"EMAIL:x"}},
              {u"EMAIL:a@b.c1 ;TEL:2", {u"EMAIL:a@b.c1 ;", u"TEL:2"}}});
}

TEST(Segmentation, leavesCoreNamesBehindSignsOfAValue) {
  for (const TextView sign : {u" ", u"\t", u"\n", u"\r", u"/", u":", u"@", u"?", u"#", u"+", u"\\",
                              u"=", u"a", u"\u00E9"}) {
    const Text line = Text(u"TITLE:1").append(sign).append(u"TEL:2");
    EXPECT_EQ(VCardCleaner::segmentMergedLineIfSafe(line), TextList{line})
        << testing::PrintToString(line);
  }
  expectRows({{u"URL:ftp/?EMAIL:x", {}}, {u"NOTE:call TEL:123", {}}});
}

TEST(Segmentation, takesSignsThatStandAloneOnly) {
  // A slash with a mark blocks nothing; a letter with a mark is a letter.
  expectRows({{u"TITLE:1/\u0301TEL:2", {u"TITLE:1/\u0301", u"TEL:2"}},
              {u"TITLE:1e\u0301TEL:2", {}},
              {u"TITLE:12\u0301TEL:2", {u"TITLE:12\u0301", u"TEL:2"}}});
}

TEST(Segmentation, cutsBeforeOtherAllowlistedNamesWhateverStandsThere) {
  expectRows({{u"NOTE:abcX-ABLABEL:x", {u"NOTE:abc", u"X-ABLABEL:x"}},
              {u"TEL:1 X-ABLABEL:x", {u"TEL:1", u"X-ABLABEL:x"}},
              {u"TEL:1/TITLE:x", {u"TEL:1/", u"TITLE:x"}},
              {u"FN:JaneTITLE:x", {u"FN:Jane", u"TITLE:x"}},
              {u"TEL:1aVND-12-SENSITIVE-CONTENT-CONFIG:x",
               {u"TEL:1a", u"VND-12-SENSITIVE-CONTENT-CONFIG:x"}}});
}

TEST(Segmentation, trustsUnknownExtensionsBehindDigitsBeforeAnAllowlistedName) {
  expectRows({{u"TEL:555X-CUSTOM:1", {}},
              {u"TEL:555X-CUSTOM:1EMAIL:x", {u"TEL:555", u"X-CUSTOM:1", u"EMAIL:x"}},
              {u"TEL:\u0665X-CUSTOM:1EMAIL:x", {u"TEL:\u0665", u"X-CUSTOM:1", u"EMAIL:x"}},
              // A number that is no digit.
              {u"TEL:\u00BDX-CUSTOM;A=b:1EMAIL:x", {u"TEL:\u00BDX-CUSTOM;A=b:1", u"EMAIL:x"}},
              {u"NOTE:abcX-CUSTOM:1", {}},
              {u"URL:555X-CUSTOM;A=b:1EMAIL:x", {u"URL:555X-CUSTOM;A=b:1", u"EMAIL:x"}}});
}

TEST(Segmentation, cutsBeforeUnknownNamesThatNoValueHolds) {
  expectRows({{u"TEL:5,VND-A;B=c:1EMAIL:x", {u"TEL:5,", u"VND-A;B=c:1", u"EMAIL:x"}},
              {u"TEL:5aVND-A;B=c:1EMAIL:x", {u"TEL:5aVND-A;B=c:1", u"EMAIL:x"}},
              {u"TEL:5=VND-A;B=c:1EMAIL:x", {u"TEL:5=VND-A;B=c:1", u"EMAIL:x"}},
              {u"TEL:5\\VND-A;B=c:1EMAIL:x", {u"TEL:5\\VND-A;B=c:1", u"EMAIL:x"}},
              {u"TEL:5:VND-A;B=c:1EMAIL:x", {u"TEL:5:VND-A;B=c:1", u"EMAIL:x"}}});
}

TEST(Segmentation, findsStructuredNamesBehindFormattedOnes) {
  expectRows({{u"FN:Jane DoeN:Doe;Jane;;;", {u"FN:Jane Doe", u"N:Doe;Jane;;;"}},
              {u"a.fn:Jane Doen:Doe;Jane;;;", {u"a.fn:Jane Doe", u"n:Doe;Jane;;;"}},
              {u"FN:Jane DoeN:Doe", {}},
              {u"FN:Jane DoeN:Doe;Jane;;", {}},
              {u"FN:Jane DoeN:Doe;Jane;;\\;", {}},
              {u"FN:Jane DoeN:Doe;Jane;;\\\\;", {u"FN:Jane Doe", u"N:Doe;Jane;;\\\\;"}},
              {u"NOTE:MoreN:x;y;z;w;v", {}},
              {u"FN:Jane DoeN:;;EMAIL:;;", {u"FN:Jane DoeN:;;", u"EMAIL:;;"}}});
}

TEST(Segmentation, cutsBeforeItemLabels) {
  expectRows({{u"item1.TEL:123item2.EMAIL:x", {u"item1.TEL:123", u"item2.EMAIL:x"}},
              {u"TEL:abcITEM2.EMAIL:x", {}},
              {u"item1.TEL:12aitem2.X-ABLABEL:x", {u"item1.TEL:12a", u"item2.X-ABLABEL:x"}},
              {u"TEL:1home.EMAIL:x", {u"TEL:1", u"home.EMAIL:x"}}});
}

TEST(Segmentation, cutsAtExtendedHeadersInsidePieces) {
  expectRows({{u"TEL:1EMAIL:xX-FOO:y", {u"TEL:1", u"EMAIL:x", u"X-FOO:y"}},
              {u"TEL:1EMAIL:x VND-FOO:y", {u"TEL:1", u"EMAIL:x ", u"VND-FOO:y"}},
              {u"TEL:1EMAIL:xX-FOO;A=b:y", {u"TEL:1", u"EMAIL:xX-FOO;A=b:y"}},
              {u"TEL:1EMAIL:x-ray:y", {u"TEL:1", u"EMAIL:x-ray:y"}},
              {u"TEL:1EMAIL:X-Men:y", {u"TEL:1", u"EMAIL:X-Men:y"}},
              {u"TEL:1EMAIL:xX-FOO", {u"TEL:1", u"EMAIL:xX-FOO"}}});
}

TEST(Segmentation, givesUpWhenAPieceWouldNotBeginWithAHeader) {
  // The bare prefix, and the letter that no name holds, are cut points but no headers.
  expectRows({{u"TEL:1EMAIL:xX-:y", {}},
              {u"TEL:1EMAIL:xX-\u00C4:y", {}},
              {u"TEL:1EMAIL:xX-\u00E4:y", {u"TEL:1", u"EMAIL:xX-\u00E4:y"}}});
}

TEST(Segmentation, leavesLinesThatDoNotBeginWithAHeader) {
  expectRows({{u"", {}},
              {u":", {}},
              {u"TEL", {}},
              {u"\"TEL:1EMAIL:x", {}},
              {u"UNKNOWN:1EMAIL:x", {}},
              {u" TEL:1EMAIL:x", {}}});
}

TEST(Segmentation, trimsThePieces) {
  expectRows({{u"TEL:1X-ABLABEL:x \u00A0", {u"TEL:1", u"X-ABLABEL:x"}},
              {u"TITLE:1 \t\u3000X-ABLABEL:", {u"TITLE:1", u"X-ABLABEL:"}}});
}

TEST(Segmentation, takesLoneSurrogatesForContent) {
  const Text surrogate(1, char16_t{0xD83D});
  expectRows({{Text(u"TEL:").append(surrogate).append(u"EMAIL:x"),
               {Text(u"TEL:").append(surrogate), u"EMAIL:x"}}});
}

TEST(Segmentation, takesDigitsOfAnyScriptBeforeAnExtension) {
  expectRows({{u"TEL:\u0663X-CUSTOM;A=b:1EMAIL:x", {u"TEL:\u0663", u"X-CUSTOM;A=b:1", u"EMAIL:x"}},
              // A number, but no decimal digit.
              {u"TEL:\u00BDX-CUSTOM;A=b:1EMAIL:x", {u"TEL:\u00BDX-CUSTOM;A=b:1", u"EMAIL:x"}}});
}

TEST(Segmentation, countsNumbersToTheNamesOfExtensions) {
  // The whole cut is given up for a piece that begins like an extension and is no header.
  expectRows({{u"TEL:1EMAIL:xX-A\u5341:y", {}},
              // A number that has an upper case of its own makes prose of it.
              {u"TEL:1EMAIL:xX-A\u2177:y", {u"TEL:1", u"EMAIL:xX-A\u2177:y"}}});
}

TEST(UncutUri, isLeftWhole) {
  constexpr std::array<TextView, 14> kPieces = {u"a",   u"1",      u"-",           u";",     u",",
                                                u"=",   u"N",      u"//",          u".",     u"X-",
                                                u"TEL", u"item1.", u"base64,/9j/", u"\u0301"};
  RandomSource random(testSeed());
  for (const TextView scheme : {u"urn:uuid:", u"tel:", u"https:", u"http:", u"mailto:", u"xmpp:",
                                u"sip:", u"geo:", u"data:"}) {
    for (const TextView header : {u"UID", u"FN", u"fn", u"item1.FN", u"TEL", u"N", u"URL", u"X-OWN",
                                  u"item1.IMPP", u"TEL;TYPE=\"a,b\"", u"GEO", u"NOTE", u"D"}) {
      for (int round = 0; round < 200; ++round) {
        Text value(scheme);
        for (std::size_t pieces = random.below(9); pieces > 0; --pieces) {
          value += random.oneOf(kPieces);
        }
        const Text line = Text(header) + u":" + value;
        const std::optional<Text> name = VCardCleaner::propertyNameUpper(line);
        ASSERT_TRUE(name);
        ASSERT_EQ(isUncutUri(*name, value), *name != u"FN");
        if (*name != u"FN") {
          ASSERT_EQ(VCardCleaner::segmentMergedLineIfSafe(line), TextList{line});
        }
      }
    }
  }
  // A structured name that lost its line break.
  EXPECT_EQ(VCardCleaner::segmentMergedLineIfSafe(u"FN:urN:a;b;c;d;e").size(), 2U);
  for (const TextView value : {u"urn:isbn:1", u"tel:1 EMAIL:a", u"TEL:1", u"", u"tel"}) {
    EXPECT_FALSE(isUncutUri(u"UID", value));
  }
}

} // namespace
} // namespace cardwright
