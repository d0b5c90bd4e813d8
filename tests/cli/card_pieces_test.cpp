#include "support/random_source.h"
#include "text/card_pieces.h"

#include <cardwright/face.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace cardwright::tool {
namespace {

std::vector<std::string> piecesOf(std::string_view text) {
  std::vector<std::string> pieces;
  CardPieces cut(text);
  for (std::string_view piece; cut.next(piece);) {
    pieces.emplace_back(piece);
  }
  EXPECT_EQ(cut.position(), text.size());
  return pieces;
}

using Pieces = std::vector<std::string>;

TEST(CardPieces, endBehindTheLineThatEndsACard) {
  EXPECT_EQ(piecesOf(""), Pieces{});
  EXPECT_EQ(piecesOf("\n \r\n"), Pieces{});
  EXPECT_EQ(piecesOf("BEGIN:VCARD\nEND:VCARD\r\n\r\nBEGIN:VCARD\rEND:VCARD"),
            (Pieces{"BEGIN:VCARD\nEND:VCARD", "BEGIN:VCARD\rEND:VCARD"}));
  EXPECT_EQ(piecesOf("a\nend:vCard \t\nb\n"), (Pieces{"a\nend:vCard", "b"}));
}

TEST(CardPieces, keepWhatStandsBeforeACardAndBehindTheLast) {
  EXPECT_EQ(piecesOf("hello\n\nBEGIN:VCARD\nEND:VCARD\nbye\n\n"),
            (Pieces{"hello\n\nBEGIN:VCARD\nEND:VCARD", "bye"}));
}

TEST(CardPieces, passOverLinesThatOnlyLookLikeAnEnd) {
  for (const std::string text :
       {"NOTE:a\n END:VCARD\nEND:VCARD", "END:VCARD\n b\nEND:VCARD", "END:VCARDS\nX:END:VCARD",
        "FN:a\n \nEND:VCARD\nb", "END:VCARD\n \nb\nEND:VCARD"}) {
    EXPECT_EQ(piecesOf(text), Pieces{text});
  }
}

TEST(CardPieces, endBehindAnEndThatIsFoldedOrFollowedByBlanks) {
  EXPECT_EQ(piecesOf("FN:a\nEND:V\n\n CARD\n \t \nb"), (Pieces{"FN:a\nEND:V\n\n CARD", "b"}));
  EXPECT_EQ(piecesOf("END:VCARD\n\n \t  \n"), Pieces{"END:VCARD"});
  EXPECT_EQ(piecesOf("END:VCARD \n "), Pieces{"END:VCARD"});
}

TEST(CardPieces, tellWhetherTheyEndACard) {
  for (const std::string_view text : {"END:VCARD", "a\r\nend:vcard ", "END:\n VCARD"}) {
    CardPieces pieces(text);
    std::string_view piece;
    EXPECT_TRUE(pieces.next(piece));
    EXPECT_TRUE(pieces.endsCard()) << text;
  }
  for (const std::string_view text : {"a", "a\n END:VCARD", "END:VCARD\n b", "END:"}) {
    CardPieces pieces(text);
    std::string_view piece;
    EXPECT_TRUE(pieces.next(piece));
    EXPECT_FALSE(pieces.endsCard()) << text;
  }
}

struct Found {
  std::size_t cards = 0;
  std::size_t properties = 0;
  bool operator==(const Found&) const = default;
};

Found foundIn(const std::string& text) {
  ReadOptions options;
  options.encoding = "UTF-8";
  options.clean = false;
  ReadReport report;
  static_cast<void>(readCards(text, &report, options));
  return {report.cards, report.properties};
}

TEST(CardPieces, holdWhatTheTextHolds) {
  const std::string_view kParts[] = {
      "BEGIN:VCARD", "END:VCARD", "end:", "vcard", "\n",
      "\r\n",        "\n",        "\n ",  "\n\t",  " ",
      "FN:a",        "no colon",  "=",    "\r",    "NOTE;ENCODING=QUOTED-PRINTABLE:b"};
  RandomSource random(7);
  for (int round = 0; round < 20'000; ++round) {
    std::string text;
    for (std::size_t count = random.below(16) + 1; count > 0; --count) {
      text += kParts[random.below(std::size(kParts))];
    }
    Found found;
    CardPieces pieces(text);
    for (std::string_view piece; pieces.next(piece);) {
      const Found more = foundIn(withAlikeLineEnds(piece));
      found.cards += more.cards;
      found.properties += more.properties;
    }
    ASSERT_EQ(found, foundIn(text)) << testing::PrintToString(text);
  }
}

TEST(LineEnds, areMadeAlike) {
  EXPECT_EQ(withAlikeLineEnds(""), "");
  EXPECT_EQ(withAlikeLineEnds("a"), "a\r\n");
  EXPECT_EQ(withAlikeLineEnds("a\nb\rc\r\nd\r\n"), "a\r\nb\r\nc\r\nd\r\n");
  EXPECT_EQ(withAlikeLineEnds("a\r\r\nb\r\rc\n\nd"), "a\r\nb\r\n\r\nc\r\n\r\nd\r\n");
}

} // namespace
} // namespace cardwright::tool
