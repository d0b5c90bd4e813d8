#include "command_options.h"
#include "commands.h"
#include "io/input.h"
#include "json/json_text.h"
#include "output_options.h"
#include "reading_options.h"
#include "text/printable.h"

#include <cardwright/check.h>
#include <cardwright/utf8.h>

#include <memory>
#include <string>
#include <vector>

namespace cardwright::tool {

namespace {

struct CheckCommandOptions {
  ReadingOptions reading; ///< of which only the files are asked for
  CheckOptions check;
  bool isJson = false;
};

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright check contacts.vcf\n"
    "  cardwright check --all *.vcf | grep -c bad-date\n"
    "  cardwright check --json contacts.vcf | jq -r '.findings[].code'\n"
    "\n"
    "One line for each mistake: FILE:LINE:COLUMN: severity: text [code].\n"
    "docs/checks.md lists the codes. The exit status is 3 when there is a finding.";

const char* wordOf(Severity severity) {
  return severity == Severity::error ? "error" : "warning";
}

/// A finding as compilers tell it. What a file holds can never steer the terminal.
std::string lineOf(std::string_view file, const Finding& finding) {
  std::string text(displayName(file));
  text.append(":").append(std::to_string(finding.place.line));
  text.append(":").append(std::to_string(finding.column));
  text.append(": ").append(wordOf(finding.severity)).append(": ").append(finding.text);
  if (finding.count > 1) {
    text.append(" (").append(std::to_string(finding.count)).append(" times)");
  }
  text.append(" [").append(finding.code).append("]");
  return utf8FromText(printable(textFromUtf8(text))) + "\n";
}

/// The findings of all files as one JSON object.
class FindingsJson {
 public:
  FindingsJson() {
    m_json.writer().StartObject();
    m_json.key("findings");
    m_json.writer().StartArray();
  }

  void add(std::string_view file, const Finding& finding) {
    m_json.writer().StartObject();
    m_json.string("file", file);
    m_json.number("line", finding.place.line);
    m_json.number("column", finding.column);
    m_json.number("offset", finding.place.offset);
    m_json.string("severity", wordOf(finding.severity));
    m_json.string("code", finding.code);
    m_json.string("text", finding.text);
    m_json.number("count", finding.count);
    m_json.writer().EndObject();
  }

  [[nodiscard]] std::string finish() {
    m_json.writer().EndArray();
    m_json.writer().EndObject();
    return m_json.line();
  }

 private:
  JsonText m_json;
};

void check(const CheckCommandOptions& options, const Session& session) {
  FindingsJson json;
  for (const std::string& path : options.reading.inputs()) {
    const std::optional<std::string> bytes = readFile(path, session.diagnostics);
    if (!bytes) {
      continue;
    }
    session.diagnostics.progress().begin("checking");
    const std::vector<Finding> findings = checkText(*bytes, options.check);
    session.diagnostics.progress().end();
    for (const Finding& finding : findings) {
      session.diagnostics.found();
      if (options.isJson) {
        json.add(path, finding);
      } else {
        session.output.write(lineOf(path, finding));
      }
    }
    if (!session.output.isOpen()) {
      return;
    }
  }
  if (options.isJson) {
    session.output.write(json.finish());
  }
}

} // namespace

void addCheckCommand(Command& app, const Session& session) {
  const auto options = std::make_shared<CheckCommandOptions>();
  Command command = app.addCommand("check", "Tell what is wrong with cards", kExamples);
  addFiles(command, options->reading.files);
  addEncodingOption(command, options->check.encoding);
  command.addFlag("--all", options->check.all, "Tell a mistake each time that it is made");
  command.addFlag("--json", options->isJson, "Write JSON for programs");
  addQuietFlag(command, session);
  command.setAction([options, session] { check(*options, session); });
}

} // namespace cardwright::tool
