#include "pages/pages.h"

namespace cardwright::tool {

namespace {

std::string joined(const std::vector<std::string>& words, std::string_view separator) {
  std::string text;
  for (const std::string& word : words) {
    text.append(text.empty() ? "" : separator).append(word);
  }
  return text;
}

/// What is offered for the value of an option.
std::string offerOf(const OptionRow& option) {
  std::string words;
  for (const std::string_view word : wordsFor(option)) {
    words.append(words.empty() ? "" : " ").append(word);
  }
  if (!words.empty()) {
    return std::string("COMPREPLY=($(compgen -W '").append(words).append("' -- \"$current\"))");
  }
  if (option.value == "NUMBER") {
    return ":";
  }
  return option.value == "DIR" ? "COMPREPLY=($(compgen -d -- \"$current\"))"
                               : "COMPREPLY=($(compgen -f -- \"$current\"))";
}

std::string allNames(const CommandRow& command) {
  std::vector<std::string> names;
  for (const OptionRow& option : command.options) {
    names.insert(names.end(), option.names.begin(), option.names.end());
  }
  return joined(names, " ");
}

} // namespace

std::string bashCompletion(const std::vector<CommandRow>& table) {
  std::string text = "# Made from the command line itself.\n"
                     "_cardwright() {\n"
                     "  local current=${COMP_WORDS[COMP_CWORD]}\n"
                     "  local previous=${COMP_WORDS[COMP_CWORD - 1]}\n"
                     "  local command= word options= takes_files=yes\n"
                     "  COMPREPLY=()\n"
                     "  if [[ $current == = ]]; then\n"
                     "    current=\n"
                     "  elif [[ $previous == = ]]; then\n"
                     "    previous=${COMP_WORDS[COMP_CWORD - 2]}\n"
                     "  fi\n"
                     "  for word in \"${COMP_WORDS[@]:1:COMP_CWORD - 1}\"; do\n"
                     "    if [[ $word != -* ]]; then\n"
                     "      command=$word\n"
                     "      break\n"
                     "    fi\n"
                     "  done\n"
                     "  case $command in\n";
  std::vector<std::string> commands;
  for (const CommandRow& command : table) {
    const bool isTool = &command == &table.front();
    if (!isTool) {
      commands.push_back(command.name);
    }
    text.append("  ").append(isTool ? "''" : command.name).append(")\n");
    text.append("    options='").append(allNames(command)).append("'\n");
    text.append(isTool || command.takesFiles ? "" : "    takes_files=\n");
    std::string cases;
    for (const OptionRow& option : command.options) {
      if (!option.value.empty() && !option.isValueOptional) {
        cases.append("    ").append(joined(option.names, " | ")).append(")\n");
        cases.append("      ").append(offerOf(option)).append("\n      return\n      ;;\n");
      }
    }
    if (!cases.empty()) {
      text.append("    case $previous in\n").append(cases).append("    esac\n");
    }
    text.append("    ;;\n");
  }
  text.append("  esac\n"
              "  if [[ $current == -* ]]; then\n"
              "    COMPREPLY=($(compgen -W \"$options\" -- \"$current\"))\n"
              "  elif [[ -z $command ]]; then\n"
              "    COMPREPLY=($(compgen -W '");
  text.append(joined(commands, " "));
  text.append("' -- \"$current\"))\n"
              "  elif [[ -n $takes_files ]]; then\n"
              "    local IFS=$'\\n'\n"
              "    COMPREPLY=($(compgen -f -- \"$current\"))\n"
              "  fi\n"
              "}\n"
              "complete -o filenames -F _cardwright cardwright\n");
  return text;
}

} // namespace cardwright::tool
