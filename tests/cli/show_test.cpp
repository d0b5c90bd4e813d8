#include "cli/process.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright::tool {
namespace {

std::string card(std::string_view lines) {
  return std::string("BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ada\r\n")
      .append(lines)
      .append("END:VCARD\r\n");
}

Outcome show(const std::string& text) {
  Outcome outcome = runTool({{"show"}, text});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "");
  return outcome;
}

TEST(Show, printsTheExampleAddressBook) {
  const Outcome outcome = runTool({{"show", sourcePath("examples/contacts.vcf")}, ""});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, fileContent(sourcePath("tests/cli/golden/contacts.txt")));
}

TEST(Show, printsTheNameFirstAndBookkeepingLast) {
  EXPECT_EQ(
      show(card("UID:1\r\nNOTE:Likes engines.\r\nX-BADGE:teal\r\nTEL:+1 555 0100\r\n")).output,
      "Ada\n"
      "  Phone          +1 555 0100\n"
      "  Note           Likes engines.\n"
      "  X-BADGE        teal\n"
      "  Identifier     1\n"
      "  vCard version  3.0\n");
}

TEST(Show, callsCardsWithoutNameByWhatElseTheyHold) {
  const auto heading = [](std::string_view lines) {
    const std::string text = std::string("BEGIN:VCARD\r\n").append(lines).append("END:VCARD\r\n");
    const std::string output = show(text).output;
    return output.substr(0, output.find('\n'));
  };
  EXPECT_EQ(heading("N:Lovelace;Ada\r\n"), "Ada Lovelace");
  EXPECT_EQ(heading("FN:\r\nNICKNAME:,Countess\r\n"), "Countess");
  EXPECT_EQ(heading("ORG:Engines;Research\r\nTEL:1\r\n"), "Engines, Research");
  EXPECT_EQ(heading("EMAIL:ada@example.org\r\n"), "ada@example.org");
  EXPECT_EQ(heading("TEL:+1 555 0100\r\n"), "+1 555 0100");
  EXPECT_EQ(heading("NOTE:x\r\n"), "(no name)");
  EXPECT_EQ(heading("VERSION:4.0\r\nFN;PREF=2:Second\r\nFN;PREF=1:First\r\n"), "First");
}

TEST(Show, joinsLabelsToWhatTheyDescribe) {
  EXPECT_EQ(show(card("item1.TEL;TYPE=WORK:1\r\nitem1.X-ABLabel:Boat\\, house\r\n"
                      "ITEM2.X-ABLabel:_$!<Home>!$_\r\nitem2.EMAIL:a@example.org\r\n"
                      "item3.ADR:;;Street 1;Town;;;\r\nitem3.X-ABADR:se\r\n"
                      "item3.X-ABLabel:_$!<HomePage>!$_\r\nwork.URL:http://example.org\r\n"
                      "X-ABLabel:stray\r\nitem4.X-ABLabel:_$!<Lonely>!$_\r\n"))
                .output,
            "Ada\n"
            "  Phone, work, Boat, house  1\n"
            "  Email, Home               a@example.org\n"
            "  Address, Home Page        Street 1\n"
            "                            Town\n"
            "  Address format            se\n"
            "  Website, work             http://example.org\n"
            "  Label                     stray\n"
            "  Label                     Lonely\n"
            "  vCard version             3.0\n");
}

TEST(Show, alignsWideLabels) {
  EXPECT_EQ(show(card("item1.TEL:1\r\nitem1.X-ABLabel:店面\r\nitem2.TEL:2\r\n"
                      "item2.X-ABLabel:👩🏽‍🚀👍\r\nitem3.TEL:3\r\nitem3.X-ABLabel:"
                      "Zoe\u0308s\r\n"))
                .output,
            "Ada\n"
            "  Phone, 店面    1\n"
            "  Phone, 👩🏽‍🚀👍    2\n"
            "  Phone, Zoe\u0308s    3\n"
            "  vCard version  3.0\n");
}

TEST(Show, givesLongLabelsALineOfTheirOwn) {
  EXPECT_EQ(
      show(card("item1.TEL:1\r\nitem1.X-ABLabel:the one in the attic\\nby the window\r\n")).output,
      "Ada\n"
      "  Phone, the one in the attic by the window\n"
      "                 1\n"
      "  vCard version  3.0\n");
}

TEST(Show, printsStructuredValuesAsPeopleWriteThem) {
  const std::string text =
      "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Ada\r\nN:Lovelace;Ada;King;Lady;\r\n"
      "GENDER:F;countess\r\nBDAY:--1210\r\nANNIVERSARY:18350708T1100Z\r\n"
      "GEO:geo:51.4,-0.2\r\nORG:Engines;Research\r\n"
      "TEL;VALUE=uri;TYPE=\"cell,text\";PREF=1:tel:+1-555-0100\r\n"
      "TZ;VALUE=utc-offset:-0530\r\nRELATED;TYPE=friend:urn:uuid:B\r\n"
      "CATEGORIES:maths,engines\r\nX-CUSTOM:Desk-=+=-12\r\nPHOTO:\r\n"
      "END:VCARD\r\nBEGIN:VCARD\r\nFN:Charles\r\nUID:urn:uuid:b\r\nEND:VCARD\r\n";
  const std::string output = show(text).output;
  EXPECT_EQ(output.substr(0, output.find("\n\n") + 1),
            "Ada\n"
            "  Full name              Lady Ada King Lovelace\n"
            "  Organisation           Engines, Research\n"
            "  Mobile, text messages  +1-555-0100 (preferred)\n"
            "  Birthday               10 December\n"
            "  Anniversary            8 July 1835, 11:00 UTC\n"
            "  Gender                 female, countess\n"
            "  Time zone              UTC-05:30\n"
            "  Position               51.4° N, 0.2° W\n"
            "  Related, friend        Charles\n"
            "  Categories             maths, engines\n"
            "  Photo                  (empty)\n"
            "  Custom, Desk           12\n"
            "  vCard version          4.0\n");
}

TEST(Show, printsPositionsAndOffsetsOfOlderVersions) {
  EXPECT_EQ(show(card("GEO:51.4;-0.2\r\nTZ:+01:00\r\nBDAY;X-APPLE-OMIT-YEAR=1604:1604-12-10\r\n"
                      "REV:nonsense\r\n"))
                .output,
            "Ada\n"
            "  Birthday       10 December\n"
            "  Time zone      UTC+01:00\n"
            "  Position       51.4° N, 0.2° W\n"
            "  Last changed   (no date)\n"
            "  vCard version  3.0\n");
}

TEST(Show, saysWhatIsNoPerson) {
  const auto heading = [](std::string_view lines) {
    const std::string output = show(card(lines)).output;
    return output.substr(0, output.find('\n'));
  };
  EXPECT_EQ(heading("KIND:org\r\n"), "Ada (organisation)");
  EXPECT_EQ(heading("X-ABSHOWAS:COMPANY\r\n"), "Ada (organisation)");
  EXPECT_EQ(heading("X-ADDRESSBOOKSERVER-KIND:group\r\n"
                    "X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\r\n"),
            "Ada (group, 1 member)");
  EXPECT_EQ(heading("KIND:Location\r\n"), "Ada (location)");
  EXPECT_EQ(heading("KIND:individual\r\n"), "Ada");
  EXPECT_NE(show(card("KIND:robot\r\n")).output.find("  Kind           robot\n"),
            std::string::npos);
}

TEST(Show, summarisesPictures) {
  const std::string photo(16384, 'A');
  EXPECT_EQ(show(card("PHOTO;ENCODING=b;TYPE=JPEG:/9j/" + photo + "\r\n")).output,
            "Ada\n"
            "  Photo          12 KB JPEG\n"
            "  vCard version  3.0\n");
}

TEST(Show, wrapsNotesToTheWidthOfTheTerminal) {
  const std::string text =
      card("NOTE:Keeps the spare key of the boat house.\\nSwims.\\n\\nURL:http://example.org/"
           "a-very-long-address\r\n");
  EXPECT_EQ(runTool({{"show"}, text, {{"COLUMNS", "40"}}}).output,
            "Ada\n"
            "  Note           Keeps the spare key of\n"
            "                 the boat house.\n"
            "                 Swims.\n"
            "\n"
            "                 URL:http://example.org/a-very-long-address\n"
            "  vCard version  3.0\n");
  const std::string wide = runTool({{"show"}, text, {{"COLUMNS", "nonsense"}}}).output;
  EXPECT_NE(wide.find("Keeps the spare key of the boat house.\n"), std::string::npos);
}

TEST(Show, letsNothingInACardSteerTheTerminal) {
  const std::string turn{'\xE2', '\x80', '\xAE'}; // right-to-left override
  const std::string text = card("NOTE:\x1B[31mred\x07 \xC2\x9B"
                                "31m " +
                                turn +
                                "abc\r\n"
                                "TEL;TYPE=\"\x1B[2J\":1\r\nX-\x1B]0;x:2\r\nORG:\x1B[0m;\x08\r\n"
                                "item1.EMAIL:3\r\nitem1.X-ABLABEL:\x1B[1m\r\nADR:;;\x1B(0;;;;\r\n"
                                "CATEGORIES:\x7F,\x0E\r\nX-SOCIALPROFILE;X-USER=\x1B[7m:4\r\n");
  for (const char* const color : {"never", "always"}) {
    const Outcome outcome = runTool({{"show", "--color", color}, "FN:\x1B[5m\r\n" + text});
    std::string bytes = outcome.output;
    for (const std::string_view own : {"\x1B[0m", "\x1B[1m", "\x1B[2m", "\x1B[36m"}) {
      if (std::string_view(color) == "never") {
        break;
      }
      for (std::size_t at = bytes.find(own); at != std::string::npos; at = bytes.find(own)) {
        bytes.erase(at, own.size());
      }
    }
    for (const char byte : bytes) {
      EXPECT_FALSE((byte >= 0 && byte < 0x20 && byte != '\n') || byte == 0x7F) << bytes;
    }
    EXPECT_EQ(bytes.find("\xC2\x9B"), std::string::npos);
    EXPECT_EQ(bytes.find(turn), std::string::npos);
    EXPECT_NE(bytes.find("␛[31mred␇ <U+009B>31m <U+202E>abc"), std::string::npos) << bytes;
  }
}

TEST(Show, coloursATerminalOnly) {
  if (!hasTerminals()) {
    GTEST_SKIP() << "there are no terminals";
  }
  const std::string text = card("TEL:1\r\n");
  const std::string coloured = "\x1B[1mAda\x1B[0m\r\n"
                               "  \x1B[36mPhone\x1B[0m          1\r\n"
                               "  \x1B[2mvCard version\x1B[0m  \x1B[2m3.0\x1B[0m\r\n";
  const std::string plain = "Ada\n  Phone          1\n  vCard version  3.0\n";
  constexpr unsigned short kColumns = 80;
  const std::pair<std::string, std::string> terminal{"TERM", "xterm"};

  EXPECT_EQ(runTool({{"show"}, text, {terminal}, kColumns}).output, coloured);
  EXPECT_EQ(runTool({{"show"}, text, {terminal}}).output, plain);
}

TEST(Show, respectsTheWishForNoColour) {
  if (!hasTerminals()) {
    GTEST_SKIP() << "there are no terminals";
  }
  const std::string text = card("TEL:1\r\n");
  constexpr unsigned short kColumns = 80;
  const auto hasColour = [&](const Invocation& invocation) {
    const Outcome outcome = runTool(invocation);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.output.find("Phone"), std::string::npos);
    return outcome.output.find('\x1B') != std::string::npos;
  };
  EXPECT_FALSE(hasColour({{"show"}, text, {{"NO_COLOR", "1"}}, kColumns}));
  EXPECT_TRUE(hasColour({{"show"}, text, {{"NO_COLOR", ""}}, kColumns}));
  EXPECT_FALSE(hasColour({{"show"}, text, {{"TERM", "dumb"}}, kColumns}));
  EXPECT_FALSE(hasColour({{"show", "--color=never"}, text, {}, kColumns}));
  EXPECT_TRUE(hasColour({{"show", "--color=auto"}, text, {}, kColumns}));
  EXPECT_FALSE(hasColour({{"show", "--color", "auto"}, text, {}}));
  EXPECT_TRUE(hasColour({{"show", "--color=always"}, text, {{"NO_COLOR", "1"}}}));
}

TEST(Show, usesTheWidthOfTheTerminal) {
  if (!hasTerminals()) {
    GTEST_SKIP() << "there are no terminals";
  }
  const std::string text = card("NOTE:one two three four five six seven eight\r\n");
  EXPECT_EQ(runTool({{"show", "--color=never"}, text, {{"COLUMNS", "100"}}, 44}).output,
            "Ada\r\n"
            "  Note           one two three four five six\r\n"
            "                 seven eight\r\n"
            "  vCard version  3.0\r\n");
}

} // namespace
} // namespace cardwright::tool
