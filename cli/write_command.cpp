#include "commands.h"
#include "io/card_source.h"
#include "io/input.h"
#include "io/progress.h"
#include "io/replacement.h"
#include "reading_options.h"

#include <cardwright/face.h>

#include <CLI/CLI.hpp>

#include <map>
#include <memory>
#include <string>

namespace cardwright::tool {

namespace {

struct WriteCommandOptions {
  ReadingOptions reading;
  VersionCode version = 0;
  std::string outputFile;
};

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright write --to 3.0 contacts.vcf > unfolded-and-refolded.vcf\n"
    "  cardwright write --to 4.0 -o contacts.vcf contacts.vcf\n"
    "\n"
    "Each card is read and written again in the syntax of the version: that is all. No VERSION\n"
    "is changed. What had to be changed so that the same card can be read again is told.";

/// A change in one line: "g.TEL: name cleaned".
std::string writeNote(const WriteChange& change) {
  return change.property + ": " + std::string(writeChangeText(change.kind));
}

/// Writes the cards of all files until the output is closed.
void writeFiles(const WriteCommandOptions& options, Output& output, Diagnostics& diagnostics) {
  Progress progress("writing");
  forEachCardFile(options.reading, diagnostics, [&](const CardFile& file) {
    std::size_t done = 0;
    for (const auto& card : file.cards) {
      WriteReport report;
      output.write(writeCards({card}, &report, {options.version}));
      for (const WriteChange& change : report.changes) {
        diagnostics.note(displayName(file.path),
                         "card " + std::to_string(done + 1) + ", " + writeNote(change));
      }
      if (!output.isOpen()) {
        return false;
      }
      progress.show(++done, file.cards.size());
    }
    return true;
  });
}

void write(const WriteCommandOptions& options, const Session& session) {
  if (options.outputFile.empty() || options.outputFile == "-") {
    writeFiles(options, session.output, session.diagnostics);
    return;
  }
  Replacement replacement(options.outputFile, session.diagnostics);
  if (!replacement.isOpen()) {
    return;
  }
  Output output(replacement.descriptor());
  writeFiles(options, output, session.diagnostics);
  output.flush();
  if (!output.isOpen()) {
    session.diagnostics.error(options.outputFile, systemMessage(output.error()));
  } else if (session.diagnostics.status() != ExitStatus::done) {
    session.diagnostics.note(options.outputFile, "left as it was, since not everything was read");
  } else {
    replacement.commit();
  }
}

} // namespace

void addWriteCommand(CLI::App& app, const Session& session) {
  const auto options = std::make_shared<WriteCommandOptions>();
  CLI::App* const command =
      app.add_subcommand("write", "Read cards and write them in the syntax of a version");
  command->group(kCommandGroup);
  addReadingOptions(*command, options->reading);
  command
      ->add_option_function<std::string>(
          "--to",
          [options](const std::string& name) {
            static const std::map<std::string, VersionCode> kVersions = {
                {"2.1", 2}, {"3.0", 3}, {"4.0", 4}};
            const auto version = kVersions.find(name);
            if (version == kVersions.end()) {
              throw CLI::ValidationError("--to", "'" + name + "' is not 2.1, 3.0 or 4.0");
            }
            options->version = version->second;
          },
          "Version whose syntax is written: 2.1, 3.0 or 4.0")
      ->type_name("VERSION")
      ->required();
  command->add_option("-o,--output", options->outputFile, "File to write; it is replaced at once")
      ->type_name("FILE");
  command->footer(kExamples);
  command->callback([options, session] { write(*options, session); });
}

} // namespace cardwright::tool
