#include "pages/pages.h"

namespace cardwright::tool {

namespace {

/// Text between single quotes, in which brackets and colons mean something to _arguments.
std::string quoted(std::string_view text) {
  std::string safe = replaced(replaced(text, '\\', "\\\\"), '\'', "'\\''");
  for (const char* const character : {"[", "]", ":"}) {
    safe = replaced(safe, *character, std::string("\\").append(character));
  }
  return safe;
}

std::string valueOf(const OptionRow& option) {
  if (option.value.empty()) {
    return {};
  }
  std::string words;
  for (const std::string_view word : wordsFor(option)) {
    words.append(words.empty() ? "" : " ").append(word);
  }
  std::string action;
  if (!words.empty()) {
    action.append("(").append(words).append(")");
  } else if (option.value == "NUMBER") {
    action.append(" ");
  } else {
    action.append(option.value == "DIR" ? "_files -/" : "_files");
  }
  return std::string(option.isValueOptional ? "::" : ":")
      .append(option.value)
      .append(":")
      .append(action);
}

/// One entry for each name; each excludes the others.
void appendOptions(std::string& text, const CommandRow& command, std::string_view indent) {
  for (const OptionRow& option : command.options) {
    std::string names;
    for (const std::string& name : option.names) {
      names.append(names.empty() ? "" : " ").append(name);
    }
    for (const std::string& name : option.names) {
      const bool takesEquals = !option.value.empty() && name.starts_with("--");
      text.append(indent).append("'(").append(names).append(")").append(name);
      text.append(takesEquals ? (option.isValueOptional ? "=-" : "=") : "");
      text.append("[").append(quoted(option.description)).append("]");
      text.append(valueOf(option)).append("' \\\n");
    }
  }
}

} // namespace

std::string zshCompletion(const std::vector<CommandRow>& table) {
  std::string text = "#compdef cardwright\n"
                     "# Made from the command line itself.\n"
                     "_cardwright() {\n"
                     "  local curcontext=$curcontext state line\n"
                     "  local -a commands=(\n";
  for (std::size_t at = 1; at < table.size(); ++at) {
    text.append("    '").append(table[at].name).append(":");
    text.append(quoted(table[at].description)).append("'\n");
  }
  text.append("  )\n"
              "  _arguments -C \\\n");
  appendOptions(text, table.front(), "    ");
  text.append("    '1:command:->command' \\\n"
              "    '*::argument:->argument'\n"
              "  case $state in\n"
              "  command)\n"
              "    _describe command commands\n"
              "    ;;\n"
              "  argument)\n"
              "    case $line[1] in\n");
  for (std::size_t at = 1; at < table.size(); ++at) {
    text.append("    ").append(table[at].name).append(")\n      _arguments \\\n");
    appendOptions(text, table[at], "        ");
    text.append(table[at].takesFiles ? "        '*:file:_files'\n" : "        '*: :'\n");
    text.append("      ;;\n");
  }
  text.append("    esac\n"
              "    ;;\n"
              "  esac\n"
              "}\n"
              "_cardwright \"$@\"\n");
  return text;
}

} // namespace cardwright::tool
