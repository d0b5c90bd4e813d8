#pragma once

#include "commands.h"
#include "io/exit_status.h"

#include <functional>

namespace cardwright::tool {

/// Does something with the streams of the process, and tells how it went.
[[nodiscard]] ExitStatus runSession(const std::function<void(const Session&)>& work);

/// The whole command: reads the command line, does what it says, tells how it went.
[[nodiscard]] ExitStatus run(int argc, char** argv);

} // namespace cardwright::tool
