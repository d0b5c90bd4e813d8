#include "pages/pages.h"

namespace cardwright::tool {

namespace {

/// Text that the formatter takes for nothing but text.
std::string troff(std::string_view text) {
  std::string safe = replaced(replaced(text, '\\', "\\e"), '-', "\\-");
  if (safe.starts_with('.') || safe.starts_with('\'')) {
    safe.insert(0, "\\&");
  }
  return safe;
}

std::string namesOf(const OptionRow& option) {
  std::string names;
  for (const std::string& name : option.names) {
    names.append(names.empty() ? "" : ", ").append("\\fB").append(troff(name)).append("\\fR");
  }
  if (!option.value.empty()) {
    names.append(option.isValueOptional ? "[=" : " ");
    names.append("\\fI").append(option.value).append("\\fR");
    names.append(option.isValueOptional ? "]" : "");
  }
  return names;
}

void appendOptions(std::string& page, const CommandRow& command) {
  for (const OptionRow& option : command.options) {
    page.append(".TP\n").append(namesOf(option)).append("\n");
    page.append(troff(option.description)).append(".\n");
  }
}

void appendExamples(std::string& page, const CommandRow& command) {
  page.append(".PP\n.nf\n.RS 4\n");
  for (const std::string& line : command.examples) {
    page.append(troff(line)).append("\n");
  }
  page.append(".RE\n.fi\n");
}

} // namespace

std::string manualPage(const std::vector<CommandRow>& table) {
  const CommandRow& tool = table.front();
  std::string page =
      ".\\\" Made from the command line itself.\n"
      ".TH CARDWRIGHT 1 \"\" \"cardwright " CARDWRIGHT_TOOL_VERSION "\" \"User Commands\"\n"
      ".SH NAME\ncardwright \\- read, repair and write vCards\n"
      ".SH SYNOPSIS\n\\fBcardwright\\fR \\fICOMMAND\\fR [\\fIOPTION\\fR]... "
      "[\\fIFILE\\fR]...\n"
      ".SH DESCRIPTION\n";
  page.append(troff(tool.description)).append("\n");
  page.append("Without a file, and for \\(aq\\-\\(aq, standard input is read.\n.SH OPTIONS\n");
  appendOptions(page, tool);
  page.append(".SH COMMANDS\n");
  for (std::size_t at = 1; at < table.size(); ++at) {
    const CommandRow& command = table[at];
    page.append(".SS cardwright ").append(command.name).append(" [OPTION]...");
    page.append(command.takesFiles ? " [FILE]...\n" : "\n");
    page.append(troff(command.description)).append(".\n");
    for (const std::string& paragraph : command.paragraphs) {
      page.append(".PP\n").append(troff(paragraph)).append("\n");
    }
    appendOptions(page, command);
    appendExamples(page, command);
  }
  page.append(".SH EXAMPLES\n");
  appendExamples(page, tool);
  page.append(".SH EXIT STATUS\n");
  for (const std::string& paragraph : tool.paragraphs) {
    page.append(troff(paragraph)).append("\n");
  }
  page.append(".SH SIGNALS\n"
              "SIGINT, SIGTERM and SIGHUP end the command as usual; a file that was not finished\n"
              "by then is left as it was. Who closes a pipe early ends it quietly, with status 0.\n"
              ".SH ENVIRONMENT\n"
              ".TP\n\\fBNO_COLOR\\fR\nWhen set, \\fBshow\\fR uses no colour by itself.\n"
              ".TP\n\\fBCOLUMNS\\fR\nColumns to write for where there is no terminal.\n");
  return page;
}

} // namespace cardwright::tool
