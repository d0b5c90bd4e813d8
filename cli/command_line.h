#pragma once

#include "commands.h"

#include <memory>

namespace CLI {
class App;
}

namespace cardwright::tool {

/// The whole command line: all commands with their options, examples and deeds.
/// @param session outlives it
[[nodiscard]] std::unique_ptr<CLI::App> makeCommandLine(const Session& session);

/// Reads a command line and does what it says; the status is that of the diagnostics.
void runCommandLine(int argc, char** argv, const Session& session);

} // namespace cardwright::tool
