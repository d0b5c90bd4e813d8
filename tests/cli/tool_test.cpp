#include "cli/process.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <unistd.h>

namespace cardwright::tool {
namespace {

constexpr std::string_view kCard = "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ada\r\nEND:VCARD\r\n";
constexpr std::string_view kShown = "Ada\n  vCard version  3.0\n";

TEST(Tool, readsStandardInputWithoutFileAndForADash) {
  const std::string text(kCard);
  EXPECT_EQ(runTool({{"show"}, text}).output, kShown);
  EXPECT_EQ(runTool({{"show", "-"}, text}).output, kShown);
}

TEST(Tool, readsFilesOneAfterTheOther) {
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", kCard);
  const Outcome outcome = runTool({{"show", file, "-", file}, std::string(kCard)});
  EXPECT_EQ(outcome.status, 0);
  const std::string heading = "==> " + file + " <==\n\n";
  const std::string shown(kShown);
  EXPECT_EQ(outcome.output,
            heading + shown + "\n==> standard input <==\n\n" + shown + "\n" + heading + shown);
}

TEST(Tool, takesAByteOrderMarkForNoText) {
  EXPECT_EQ(runTool({{"show"}, "\xEF\xBB\xBF" + std::string(kCard)}).output, kShown);
}

TEST(Tool, tellsTheEncodingFromTheBytesOrIsTold) {
  const auto heading = [](const std::vector<std::string>& arguments, const std::string& text) {
    const Outcome outcome = runTool({arguments, text});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    return outcome.output.substr(0, outcome.output.find('\n'));
  };
  const std::string legacy = "BEGIN:VCARD\r\nFN:J\xFCrgen\r\nEND:VCARD\r\n";
  EXPECT_EQ(heading({"show"}, legacy), "Jürgen");
  EXPECT_EQ(heading({"show", "--encoding", "koi8-r"}, legacy), "JЭrgen");

  std::string wide = "\xFF\xFE";
  for (const char byte : kCard) {
    wide.append({byte, '\0'});
  }
  EXPECT_EQ(heading({"show"}, wide), "Ada");
}

TEST(Tool, leavesDamageWhenAsked) {
  const std::string text = "BEGIN:VCARD\r\nFN:Ada\r\nTEL:+1 555 0100EMAIL:x\r\nEND:VCARD\r\n";
  EXPECT_EQ(runTool({{"show"}, text}).output,
            "Ada\n  Phone          +1 555 0100\n  Email          x\n  vCard version  3.0\n");
  EXPECT_EQ(runTool({{"show", "--no-clean"}, text}).output,
            "Ada\n  Phone          +1 555 0100EMAIL:x\n  vCard version  3.0\n");
}

TEST(Tool, tellsWhatCannotBeReadAndGoesOn) {
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", kCard);
  // A way through a file leads nowhere, whoever asks.
  const std::string through = file + "/b.vcf";
  const std::string missing = folder.path() + "/missing.vcf";
  const Outcome outcome = runTool({{"show", folder.path(), missing, through, file}, ""});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors,
            "cardwright: " + folder.path() + ": Is a directory\ncardwright: " + missing +
                ": No such file or directory\ncardwright: " + through + ": Not a directory\n");
  EXPECT_EQ(outcome.output, "==> " + file + " <==\n\n" + std::string(kShown));
}

TEST(Tool, tellsWhatFailsWhileReading) {
  if (::access("/proc/self/mem", F_OK) != 0) {
    GTEST_SKIP() << "there is no /proc";
  }
  // Nothing is mapped where this file begins.
  const Outcome outcome = runTool({{"show", "/proc/self/mem"}, ""});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, "cardwright: /proc/self/mem: Input/output error\n");
}

TEST(Tool, tellsWhatMustNotBeRead) {
  if (::geteuid() == 0) {
    GTEST_SKIP() << "root may read everything";
  }
  const TemporaryFolder folder;
  const std::string file = folder.write("a.vcf", kCard);
  std::filesystem::permissions(file, std::filesystem::perms::none);
  const Outcome outcome = runTool({{"show", file}, ""});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, "cardwright: " + file + ": Permission denied\n");
}

TEST(Tool, showsControlCharactersOfFileNames) {
  const Outcome outcome = runTool({{"show", "\x1B[31m\n"}, ""});
  EXPECT_EQ(outcome.errors, "cardwright: ␛[31m␊: No such file or directory\n");
}

TEST(Tool, findsNoCardsInAnEmptyFile) {
  const TemporaryFolder folder;
  const std::string file = folder.write("empty.vcf", "");
  const Outcome outcome = runTool({{"show", file}, ""});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors, "cardwright: " + file + ": no cards in it\n");
}

TEST(Tool, bearsBinaryJunk) {
  std::string junk;
  unsigned state = 12345;
  for (int count = 0; count < 200'000; ++count) {
    state = state * 1664525U + 1013904223U;
    junk.push_back(static_cast<char>(state >> 24U));
  }
  for (const char* const command : {"show", "json"}) {
    const Outcome outcome = runTool({{command}, junk});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.errors.find("cardwright: standard input: "), std::string::npos);
  }
  std::erase(junk, ':');
  const Outcome outcome = runTool({{"show"}, junk});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors, "cardwright: standard input: no cards in it\n");
}

TEST(Tool, tellsWhichLinesWereLost) {
  const Outcome outcome = runTool(
      {{"show"}, "BEGIN:VCARD\r\nFN:Ada\r\nlost\r\nNOTE;X=:y\r\nEND:VCARD\r\n\r\nlost, too\r\n"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "cardwright: standard input: 2 lines could not be used: line 3 (no "
                            "colon before a value), line 4 (a parameter without a value)\n");
}

TEST(Tool, endsQuietlyWhenItsReaderHasSeenEnough) {
  std::string text;
  for (int count = 0; count < 20'000; ++count) {
    text += kCard;
  }
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"show"}, {"json"}, {"clean", "--quiet"}}) {
    Invocation invocation{command, text};
    invocation.readOnly = 10;
    const Outcome outcome = runTool(invocation);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
  }
}

TEST(Tool, tellsWhatCannotBeWritten) {
  for (const std::string command : {"show", "json", "--help"}) {
    Invocation invocation{{command}, std::string(kCard)};
    invocation.outputFile = "/dev/full";
    const Outcome outcome = runTool(invocation);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "cardwright: standard output: No space left on device\n");
  }
}

struct WrongUsage {
  std::vector<std::string> arguments;
  std::string_view message;
};

TEST(Tool, tellsWrongUsageFromFailure) {
  const WrongUsage kRows[] = {
      {{}, "cardwright: no command given; see 'cardwright --help'\n"},
      {{"sho"}, "cardwright: there is no command 'sho'; see 'cardwright --help'\n"},
      {{"--sho"}, "cardwright: there is no option '--sho'; see 'cardwright --help'\n"},
      {{"show", "--colour"},
       "cardwright: there is no option '--colour'; see 'cardwright show --help'\n"},
      {{"show", "--color=red"},
       "cardwright: --color: 'red' is not auto, always or never; see 'cardwright show --help'\n"},
      {{"json", "--encoding", "nix"},
       "cardwright: --encoding: no encoding is called 'nix'; see 'cardwright json --help'\n"},
      {{"json", "-p"}, "cardwright: there is no option '-p'; see 'cardwright json --help'\n"},
      {{"\x1B[31m"}, "cardwright: there is no command '␛[31m'; see 'cardwright --help'\n"},
  };
  for (const WrongUsage& row : kRows) {
    const Outcome outcome = runTool({row.arguments, ""});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.errors, row.message);
    EXPECT_EQ(outcome.output, "");
  }
}

TEST(Tool, readsFilesWhoseNamesBeginWithADash) {
  const Outcome outcome = runTool({{"show", "--", "--help"}, ""});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, "cardwright: --help: No such file or directory\n");
}

TEST(Tool, teachesByExample) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"--help"}, {"show", "--help"}, {"json", "-h"}}) {
    const Outcome outcome = runTool({arguments, ""});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_NE(outcome.output.find("Examples:\n  cardwright "), std::string::npos);
  }
}

TEST(Tool, tellsItsVersion) {
  const Outcome outcome = runTool({{"--version"}, ""});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "cardwright " CARDWRIGHT_VERSION "\n");
}

} // namespace
} // namespace cardwright::tool
