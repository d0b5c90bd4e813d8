#include "output_options.h"

#include "io/replacement.h"

namespace cardwright::tool {

Option addOutputFile(Command& command, OutputOptions& options) {
  return command.addOption("-o,--output", "FILE", options.outputFile,
                           "File to write, in one step; else standard output");
}

void addReportOptions(Command& command, OutputOptions& options, const Session& session) {
  command.addOption("--report", "FILE", options.reportFile,
                    "File for a report of each change, as JSON");
  command.addFlag(
      "-q,--quiet",
      [&options, session] {
        options.isQuiet = true;
        session.diagnostics.progress().hush();
      },
      "Tell neither the sums nor how far the work is");
}

void addQuietFlag(Command& command, const Session& session) {
  command.addFlag(
      "-q,--quiet", [session] { session.diagnostics.progress().hush(); },
      "Do not tell how far the work is");
}

bool writeOutput(const OutputOptions& options, const Session& session,
                 const std::function<void(Output&)>& write) {
  Diagnostics& diagnostics = session.diagnostics;
  if (options.outputFile.empty() || options.outputFile == "-") {
    write(session.output);
    session.output.flush();
    return session.output.isOpen();
  }
  Replacement replacement(options.outputFile, diagnostics);
  if (!replacement.isOpen()) {
    return false;
  }
  Output output(replacement.descriptor());
  write(output);
  output.flush();
  if (!output.isOpen()) {
    diagnostics.error(options.outputFile, systemMessage(output.error()));
    return false;
  }
  if (diagnostics.status() != ExitStatus::done) {
    diagnostics.note(options.outputFile, "left as it was, since not everything was read");
    return true;
  }
  return replacement.commit();
}

void tellSums(const OutputOptions& options, const Session& session, const std::string& report,
              const std::string& sums) {
  session.diagnostics.progress().end();
  if (!options.reportFile.empty()) {
    replaceFile(options.reportFile, report, session.diagnostics);
  }
  if (!options.isQuiet) {
    session.diagnostics.note(sums);
  }
}

} // namespace cardwright::tool
