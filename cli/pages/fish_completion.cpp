#include "pages/pages.h"

namespace cardwright::tool {

namespace {

std::string quoted(std::string_view text) {
  return std::string("'").append(replaced(replaced(text, '\\', "\\\\"), '\'', "\\'")).append("'");
}

void appendOption(std::string& text, const OptionRow& option, const std::string& condition) {
  text.append("complete -c cardwright -n ").append(condition);
  for (const std::string& name : option.names) {
    const bool isLong = name.starts_with("--");
    text.append(isLong ? " -l " : " -s ").append(name.substr(isLong ? 2 : 1));
  }
  if (!option.value.empty() && !option.isValueOptional) {
    std::string words;
    for (const std::string_view word : wordsFor(option)) {
      words.append(words.empty() ? "" : " ").append(word);
    }
    if (!words.empty()) {
      text.append(" -x -a ").append(quoted(words));
    } else if (option.value == "NUMBER") {
      text.append(" -x");
    } else {
      text.append(option.value == "DIR" ? " -x -a '(__fish_complete_directories)'" : " -r -F");
    }
  }
  text.append(" -d ").append(quoted(option.description)).append("\n");
}

} // namespace

std::string fishCompletion(const std::vector<CommandRow>& table) {
  std::string text = "# Made from the command line itself.\n";
  for (const OptionRow& option : table.front().options) {
    appendOption(text, option, "__fish_use_subcommand");
  }
  for (std::size_t at = 1; at < table.size(); ++at) {
    const CommandRow& command = table[at];
    text.append("complete -c cardwright -n __fish_use_subcommand -f -a ").append(command.name);
    text.append(" -d ").append(quoted(command.description)).append("\n");
    const std::string isGiven = quoted("__fish_seen_subcommand_from " + command.name);
    if (!command.takesFiles) {
      text.append("complete -c cardwright -n ").append(isGiven).append(" -f\n");
    }
    for (const OptionRow& option : command.options) {
      appendOption(text, option, isGiven);
    }
  }
  return text;
}

} // namespace cardwright::tool
