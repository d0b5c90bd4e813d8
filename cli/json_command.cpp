#include "commands.h"
#include "io/card_source.h"
#include "json/card_json.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

namespace cardwright::tool {

namespace {

struct JsonOptions {
  std::vector<std::string> files;
  bool isPretty = false;
};

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright json contacts.vcf > contacts.json\n"
    "  cardwright json --pretty contacts.vcf\n"
    "  cardwright json *.vcf | jq -r '.cards[].properties[]\n"
    "                                 | select(.name == \"EMAIL\") | .value'\n"
    "\n"
    "One object comes out, however many files go in.";

void writeJson(const JsonOptions& options, const Session& session) {
  const auto writer = makeCardJsonWriter(session.output, options.isPretty);
  forEachCardFile(options.files, session.diagnostics, [&](const CardFile& file) {
    for (const auto& card : file.cards) {
      writer->writeCard(file.path, *card);
      if (!session.output.isOpen()) {
        return false;
      }
    }
    return true;
  });
  writer->finish();
}

} // namespace

void addJsonCommand(CLI::App& app, const Session& session) {
  const auto options = std::make_shared<JsonOptions>();
  CLI::App* const command = app.add_subcommand("json", "Write cards as JSON for programs");
  command->group(kCommandGroup);
  command->add_option("FILE", options->files, "Files to read; '-' or none is standard input")
      ->type_name("");
  command->add_flag("--pretty", options->isPretty, "Indent the output");
  command->footer(kExamples);
  command->callback([options, session] { writeJson(*options, session); });
}

} // namespace cardwright::tool
