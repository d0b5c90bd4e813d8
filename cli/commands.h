#pragma once

#include "io/diagnostics.h"
#include "io/output.h"

namespace cardwright::tool {

class Command;

/// What every command works with. It outlives the command line.
struct Session {
  Output& output;
  Diagnostics& diagnostics;
};

// Each adds one command, which runs when the command line has been read.

void addShowCommand(Command& app, const Session& session);
void addJsonCommand(Command& app, const Session& session);
void addWriteCommand(Command& app, const Session& session);
void addConvertCommand(Command& app, const Session& session);
void addCheckCommand(Command& app, const Session& session);
void addCleanCommand(Command& app, const Session& session);
void addCountCommand(Command& app, const Session& session);
void addSplitCommand(Command& app, const Session& session);
void addJoinCommand(Command& app, const Session& session);
void addServeCommand(Command& app, const Session& session);

} // namespace cardwright::tool
