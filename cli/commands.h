#pragma once

#include "io/diagnostics.h"
#include "io/output.h"

namespace CLI {
class App;
}

namespace cardwright::tool {

/// What every command works with. It outlives the command line.
struct Session {
  Output& output;
  Diagnostics& diagnostics;
};

/// Heading of the commands in the help.
inline constexpr const char* kCommandGroup = "Commands";

// Each adds one command, which runs when the command line has been read.

void addShowCommand(CLI::App& app, const Session& session);
void addJsonCommand(CLI::App& app, const Session& session);
void addWriteCommand(CLI::App& app, const Session& session);
void addConvertCommand(CLI::App& app, const Session& session);
void addCheckCommand(CLI::App& app, const Session& session);
void addCleanCommand(CLI::App& app, const Session& session);
void addCountCommand(CLI::App& app, const Session& session);
void addSplitCommand(CLI::App& app, const Session& session);
void addJoinCommand(CLI::App& app, const Session& session);
void addServeCommand(CLI::App& app, const Session& session);

} // namespace cardwright::tool
