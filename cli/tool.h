#pragma once

#include "io/exit_status.h"

namespace cardwright::tool {

/// The whole command: reads the command line, does what it says, tells how it went.
[[nodiscard]] ExitStatus run(int argc, char** argv);

} // namespace cardwright::tool
