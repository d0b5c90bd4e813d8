#include "command_options.h"
#include "commands.h"
#include "io/text_source.h"
#include "output_options.h"
#include "reading_options.h"
#include "report/piece_sums.h"

#include <memory>

namespace cardwright::tool {

namespace {

struct JoinOptions {
  ReadingOptions reading;
  OutputOptions output;
};

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright join -o all.vcf family.vcf friends.vcf\n"
    "  cardwright join phone.vcf mail.vcf | cardwright convert --to 4.0 > all.vcf\n"
    "  cardwright join --no-clean -o all.vcf people/*.vcf\n"
    "\n"
    "Cards are written as they stand in the files, in UTF-8 and with line ends\n"
    "alike, and nothing is left out. Each file is repaired by itself first. The\n"
    "output may be one of the files.";

void joinTo(Output& output, const JoinOptions& options, PieceSums& sums, Diagnostics& diagnostics) {
  forEachTextFile(options.reading, diagnostics, [&](const TextFile& file) {
    const auto write = [&](const TextPiece& piece) {
      output.write(piece.text);
      sums.add(piece);
      return output.isOpen();
    };
    const bool goesOn = forEachPiece(file, "writing", diagnostics.progress(), write);
    sums.addFile(file, !options.output.reportFile.empty());
    return goesOn;
  });
}

void join(const JoinOptions& options, const Session& session) {
  PieceSums sums;
  const bool isWritten = writeOutput(options.output, session, [&](Output& output) {
    joinTo(output, options, sums, session.diagnostics);
  });
  if (isWritten) {
    tellSums(options.output, session, sums.report(), sums.sums().line());
  }
}

} // namespace

void addJoinCommand(Command& app, const Session& session) {
  const auto options = std::make_shared<JoinOptions>();
  Command command = app.addCommand("join", "Write the cards of all files to one", kExamples);
  addReadingOptions(command, options->reading);
  addOutputFile(command, options->output);
  addReportOptions(command, options->output, session);
  command.setAction([options, session] { join(*options, session); });
}

} // namespace cardwright::tool
