#include "pages/command_table.h"

#include "command_line.h"

#include <CLI/CLI.hpp>

#include <sstream>
#include <unistd.h>

namespace cardwright::tool {

namespace {

OptionRow rowOf(const CLI::Option& option) {
  OptionRow row;
  for (const std::string& name : option.get_snames()) {
    row.names.push_back(std::string("-").append(name));
  }
  for (const std::string& name : option.get_lnames()) {
    row.names.push_back(std::string("--").append(name));
  }
  if (option.get_items_expected_max() > 0) {
    row.value = option.get_type_name();
    row.isValueOptional = option.get_items_expected_min() == 0;
  }
  row.description = option.get_description();
  return row;
}

/// A footer has examples, indented, and then paragraphs.
void takeFooter(const std::string& footer, CommandRow& row) {
  constexpr std::string_view kIndent = "  ";
  std::istringstream lines(footer);
  bool isNew = true;
  for (std::string line; std::getline(lines, line);) {
    if (line.empty()) {
      isNew = true;
    } else if (line == "Examples:") {
      continue;
    } else if (line.starts_with(kIndent)) {
      row.examples.push_back(line.substr(kIndent.size()));
    } else if (isNew) {
      row.paragraphs.push_back(line);
      isNew = false;
    } else {
      row.paragraphs.back().append(" ").append(line);
    }
  }
}

CommandRow rowOf(const CLI::App& command) {
  CommandRow row;
  row.name = command.get_name();
  row.description = command.get_description();
  for (const CLI::Option* const option : command.get_options()) {
    if (option->get_positional()) {
      row.takesFiles = true;
    } else {
      row.options.push_back(rowOf(*option));
    }
  }
  takeFooter(command.get_footer(), row);
  return row;
}

} // namespace

std::vector<CommandRow> commandTable() {
  Output output(STDOUT_FILENO);
  Diagnostics diagnostics(output);
  const auto app = makeCommandLine({output, diagnostics});
  std::vector<CommandRow> table{rowOf(*app)};
  for (const CLI::App* const command : app->get_subcommands([](const CLI::App*) { return true; })) {
    table.push_back(rowOf(*command));
  }
  return table;
}

std::vector<std::string_view> wordsFor(const OptionRow& option) {
  if (option.value == "VERSION") {
    return {"2.1", "3.0", "4.0"};
  }
  if (option.value == "WHEN") {
    return {"auto", "always", "never"};
  }
  if (option.value == "NAME") {
    return {"utf-8",     "utf-16", "iso-8859-1", "windows-1252", "windows-1251", "koi8-r",
            "shift_jis", "euc-jp", "euc-kr",     "gb18030",      "big5"};
  }
  return {};
}

std::string replaced(std::string_view text, char character, std::string_view by) {
  std::string result;
  for (const char each : text) {
    if (each == character) {
      result.append(by);
    } else {
      result.push_back(each);
    }
  }
  return result;
}

} // namespace cardwright::tool
