#include "command_options.h"
#include "commands.h"
#include "io/card_source.h"
#include "json/card_json.h"
#include "output_options.h"
#include "reading_options.h"

#include <memory>

namespace cardwright::tool {

namespace {

struct JsonOptions {
  ReadingOptions reading;
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
  forEachCardFile(options.reading, session.diagnostics, [&](CardFile& file) {
    const auto write = [&](const std::shared_ptr<VCard>& card, std::size_t /*number*/) {
      writer->writeCard(file.path, *card);
      return session.output.isOpen();
    };
    if (!takeCards(file, "writing", session.diagnostics.progress(), write)) {
      return false;
    }
    writer->addRepairs(file.path, file.repairs);
    return true;
  });
  writer->finish();
}

} // namespace

void addJsonCommand(Command& app, const Session& session) {
  const auto options = std::make_shared<JsonOptions>();
  Command command = app.addCommand("json", "Write cards as JSON for programs", kExamples);
  addReadingOptions(command, options->reading);
  command.addFlag("--pretty", options->isPretty, "Indent the output");
  addQuietFlag(command, session);
  command.setAction([options, session] { writeJson(*options, session); });
}

} // namespace cardwright::tool
