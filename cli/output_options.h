#pragma once

#include "command_options.h"
#include "commands.h"

#include <functional>
#include <string>

namespace cardwright::tool {

/// What all commands that write files of cards can be told.
struct OutputOptions {
  std::string outputFile;
  std::string reportFile;
  bool isQuiet = false;
};

/// Adds --output to a command.
/// @param options outlives the command line, here and below
Option addOutputFile(Command& command, OutputOptions& options);
/// Adds --report and --quiet to a command that tells sums.
void addReportOptions(Command& command, OutputOptions& options, const Session& session);
/// Adds --quiet to a command that tells none.
void addQuietFlag(Command& command, const Session& session);

/// Hands on standard output or the file that takes the place of the wanted one; that is left as it
/// was when anything went wrong. The sums are to be told afterwards.
/// @returns whether all was written, and somebody was there to read it
bool writeOutput(const OutputOptions& options, const Session& session,
                 const std::function<void(Output&)>& write);

/// Writes the report, if one is wanted, and tells the sums.
void tellSums(const OutputOptions& options, const Session& session, const std::string& report,
              const std::string& sums);

} // namespace cardwright::tool
