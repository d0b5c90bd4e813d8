#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cardwright::tool {

/// An option, as the pages tell it.
struct OptionRow {
  std::vector<std::string> names; ///< with their dashes, short ones first
  std::string value;              ///< what its value is called; empty for a flag
  bool isValueOptional = false;   ///< then it is given behind "="
  std::string description;
};

/// A command; the first of a table is "cardwright" itself.
struct CommandRow {
  std::string name;
  std::string description;
  bool takesFiles = false;
  std::vector<OptionRow> options;
  std::vector<std::string> examples;
  std::vector<std::string> paragraphs; ///< what is said behind the examples
};

/// What the command line says about itself.
[[nodiscard]] std::vector<CommandRow> commandTable();

/// The words that a value can be; empty where it is anything.
[[nodiscard]] std::vector<std::string_view> wordsFor(const OptionRow& option);

/// The text with something in place of each of some characters.
[[nodiscard]] std::string replaced(std::string_view text, char character, std::string_view by);

} // namespace cardwright::tool
