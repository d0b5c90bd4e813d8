#pragma once

#include "commands.h"
#include "output_options.h"
#include "reading_options.h"

#include <cardwright/face.h>

namespace cardwright::tool {

/// What all commands that write cards can be told.
struct WritingOptions {
  ReadingOptions reading;
  OutputOptions output;
  VersionCode version = 0;
  bool converts = false; ///< to the version, which else is only the syntax
};

/// Adds all of them to a command.
/// @param options outlives the command line
/// @param versionHelp what "--to" means
void addWritingOptions(Command& command, WritingOptions& options, const char* versionHelp,
                       const Session& session);

/// Reads the cards of all files, writes them, and says what became of them.
void writeAllCards(const WritingOptions& options, const Session& session);

} // namespace cardwright::tool
