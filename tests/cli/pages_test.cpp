#include "cli/process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace cardwright::tool {
namespace {

std::string page(const std::string& path) {
  return fileContent(std::string(CARDWRIGHT_TOOL_PAGES "/").append(path));
}

/// The commands that the help lists.
std::vector<std::string> commands() {
  const std::string help = runTool({{"--help"}, ""}).output;
  std::istringstream lines(help.substr(help.find("Commands:\n")));
  std::vector<std::string> names;
  std::string line;
  std::getline(lines, line);
  while (std::getline(lines, line) && line.starts_with("  ")) {
    names.push_back(line.substr(2, line.find(' ', 2) - 2));
  }
  return names;
}

/// The options that the help of a command lists.
std::set<std::string> optionsOf(const std::string& command) {
  const std::string help = runTool({{command, "--help"}, ""}).output;
  std::istringstream lines(help.substr(help.find("Options:\n"), help.find("Examples:\n")));
  std::set<std::string> options;
  for (std::string line; std::getline(lines, line) && line != "Examples:";) {
    if (!line.starts_with("  -")) {
      continue;
    }
    std::istringstream names(line.substr(2, line.find(' ', 2) - 2));
    for (std::string name; std::getline(names, name, ',');) {
      options.insert(name.substr(0, name.find('=')));
    }
  }
  return options;
}

std::string between(const std::string& text, const std::string& from, const std::string& to) {
  const std::size_t begin = text.find(from);
  if (begin == std::string::npos) {
    return {};
  }
  return text.substr(begin, text.find(to, begin + from.size()) - begin);
}

/// What a command of the shell prints.
std::string printedBy(const std::string& command) {
  // NOLINTNEXTLINE(cert-env33-c): shells are what is asked
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), ::pclose);
  std::string text;
  for (int byte = std::fgetc(pipe.get()); byte != EOF; byte = std::fgetc(pipe.get())) {
    text.push_back(static_cast<char>(byte));
  }
  return text;
}

/// What bash offers for the last of these words.
std::set<std::string> offeredByBash(const std::string& words) {
  const std::string script = "source '" CARDWRIGHT_TOOL_PAGES "/bash/cardwright'; COMP_WORDS=(" +
                             words +
                             "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _cardwright; "
                             "printf \"%s\\n\" \"${COMPREPLY[@]}\"";
  std::string quoted = script;
  for (std::size_t at = 0; (at = quoted.find('\'', at)) != std::string::npos; at += 4) {
    quoted.replace(at, 1, "'\\''");
  }
  std::istringstream lines(printedBy("bash -c '" + quoted + "'"));
  std::set<std::string> offered;
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty()) {
      offered.insert(line);
    }
  }
  return offered;
}

TEST(Pages, tellOfEachCommandAndOption) {
  const std::string manual = page("man/cardwright.1");
  const std::string zsh = page("zsh/_cardwright");
  const std::string fish = page("fish/cardwright.fish");
  const std::vector<std::string> all = commands();
  EXPECT_GE(all.size(), 9U);
  for (const std::string& command : all) {
    const std::string section = between(manual, ".SS cardwright " + command + " ", "\n.S");
    const std::string zshCase = between(zsh, "\n    " + command + ")\n", ";;");
    const std::string fishLines =
        between(fish, " -a " + command + " ", "complete -c cardwright -n __fish_use");
    const std::set<std::string> options = optionsOf(command);
    EXPECT_GE(options.size(), 3U) << command;
    for (const std::string& option : options) {
      std::string escaped;
      for (const char byte : option) {
        escaped.append(byte == '-' ? "\\-" : std::string(1, byte));
      }
      EXPECT_NE(section.find("\\fB" + escaped + "\\fR"), std::string::npos)
          << command << " " << option;
      EXPECT_NE(zshCase.find(")" + option), std::string::npos) << command << " " << option;
      const bool isLong = option.starts_with("--");
      const std::string name = isLong ? " -l " + option.substr(2) : " -s " + option.substr(1);
      EXPECT_NE(fishLines.find(name + " "), std::string::npos) << command << " " << option;
    }
    EXPECT_EQ(offeredByBash("cardwright " + command + " -"), options) << command;
  }
}

TEST(Pages, completeCommandsAndValues) {
  const std::vector<std::string> all = commands();
  EXPECT_EQ(offeredByBash("cardwright ''"), std::set<std::string>(all.begin(), all.end()));
  EXPECT_EQ(offeredByBash("cardwright co"), (std::set<std::string>{"convert", "count"}));
  EXPECT_EQ(offeredByBash("cardwright convert --to ''"),
            (std::set<std::string>{"2.1", "3.0", "4.0"}));
  EXPECT_EQ(offeredByBash("cardwright show --color = a"),
            (std::set<std::string>{"always", "auto"}));
  EXPECT_FALSE(offeredByBash("cardwright show ''").empty());
  if (std::find(all.begin(), all.end(), "serve") != all.end()) { // not in every build
    EXPECT_TRUE(offeredByBash("cardwright serve ''").empty());
    EXPECT_TRUE(offeredByBash("cardwright serve --port ''").empty());
  }
}

TEST(Pages, areReadWithoutComplaints) {
  const auto complaintsOf = [](const std::string& program, const std::string& command) {
    const bool isThere = !printedBy("command -v " + program).empty();
    return isThere ? printedBy(command + " 2>&1") : std::string();
  };
  const std::string pages = CARDWRIGHT_TOOL_PAGES;
  EXPECT_EQ(complaintsOf("bash", "bash -n '" + pages + "/bash/cardwright'"), "");
  EXPECT_EQ(complaintsOf("zsh", "zsh -n '" + pages + "/zsh/_cardwright'"), "");
  EXPECT_EQ(complaintsOf("fish", "fish -n '" + pages + "/fish/cardwright.fish'"), "");
  EXPECT_EQ(complaintsOf("groff", "groff -man -Tutf8 -ww -z '" + pages + "/man/cardwright.1'"), "");
}

TEST(Help, teachesByExampleAndIsAlikeInAllCommands) {
  const std::string general = runTool({{"--help"}, ""}).output;
  for (const std::string& command : commands()) {
    EXPECT_NE(general.find("\n  cardwright " + command + " "), std::string::npos) << command;
    const std::string help = runTool({{command, "--help"}, ""}).output;
    EXPECT_NE(help.find("Examples:\n  cardwright " + command + " "), std::string::npos) << command;
    const bool readsFiles = command != "serve";
    EXPECT_EQ(help.find("Files to read; '-' or none is standard input") != std::string::npos,
              readsFiles)
        << command;
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);) {
      EXPECT_LE(line.size(), 80U) << line;
    }
    const std::set<std::string> options = optionsOf(command);
    for (const char* const option : {"--help", "--quiet", "-q"}) {
      EXPECT_TRUE(options.contains(option)) << command << " " << option;
    }
    EXPECT_EQ(options.contains("--encoding"), readsFiles) << command;
    const Outcome wrong = runTool({{command, "--nonsense"}, ""});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_EQ(wrong.errors, "cardwright: there is no option '--nonsense'; see 'cardwright " +
                                command + " --help'\n");
  }
}

} // namespace
} // namespace cardwright::tool
