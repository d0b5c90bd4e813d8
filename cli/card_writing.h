#pragma once

#include "commands.h"
#include "reading_options.h"

#include <cardwright/face.h>

#include <string>

namespace CLI {
class App;
}

namespace cardwright::tool {

/// What all commands that write cards can be told.
struct WritingOptions {
  ReadingOptions reading;
  VersionCode version = 0;
  std::string outputFile;
  std::string reportFile;
  bool isQuiet = false;
  bool converts = false; ///< to the version, which else is only the syntax
};

/// Adds all of them to a command.
/// @param options outlives the command line
/// @param versionHelp what "--to" means
void addWritingOptions(CLI::App& command, WritingOptions& options, const char* versionHelp);

/// Reads the cards of all files, writes them, and says what became of them.
void writeAllCards(const WritingOptions& options, const Session& session);

} // namespace cardwright::tool
