#pragma once

namespace cardwright::tool {

/// How the command ends.
enum class ExitStatus : int {
  done = 0,
  failed = 1,     ///< a file could not be read or written
  wrongUsage = 2, ///< the command line could not be understood
  found = 3,      ///< what was to be looked for was found
};

} // namespace cardwright::tool
