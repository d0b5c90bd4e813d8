#include "card_writing.h"
#include "command_options.h"
#include "commands.h"

#include <memory>

namespace cardwright::tool {

namespace {

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright convert --to 4.0 contacts.vcf > contacts-4.vcf\n"
    "  cardwright convert --to 3.0 -o phone.vcf --report lost.json *.vcf\n"
    "\n"
    "What the version does not have is kept under a name that begins with X-, and\n"
    "comes back when the cards are converted back. docs/conversion.md tells what\n"
    "becomes of each property.";

} // namespace

void addConvertCommand(Command& app, const Session& session) {
  const auto options = std::make_shared<WritingOptions>();
  options->converts = true;
  Command command = app.addCommand("convert", "Turn cards into cards of a version", kExamples);
  addWritingOptions(command, *options, "Version of the cards to write: 2.1, 3.0 or 4.0", session);
  command.setAction([options, session] { writeAllCards(*options, session); });
}

} // namespace cardwright::tool
