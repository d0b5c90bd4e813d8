#include "card_writing.h"
#include "command_options.h"
#include "commands.h"

#include <memory>

namespace cardwright::tool {

namespace {

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright write --to 3.0 contacts.vcf > unfolded-and-refolded.vcf\n"
    "  cardwright write --to 4.0 -o contacts.vcf contacts.vcf\n"
    "\n"
    "Each card is read and written again in the syntax of the version: that is all.\n"
    "No VERSION is changed; 'convert' does that. What had to be changed so that the\n"
    "same card can be read again is told.";

} // namespace

void addWriteCommand(Command& app, const Session& session) {
  const auto options = std::make_shared<WritingOptions>();
  Command command =
      app.addCommand("write", "Read cards and write them in the syntax of a version", kExamples);
  addWritingOptions(command, *options, "Version whose syntax is written: 2.1, 3.0 or 4.0", session);
  command.setAction([options, session] { writeAllCards(*options, session); });
}

} // namespace cardwright::tool
