#include "tool.h"

#include "command_line.h"
#include "io/interruption.h"

#include <csignal>
#include <new>
#include <unistd.h>

namespace cardwright::tool {

ExitStatus runSession(const std::function<void(const Session&)>& work) {
  // Whoever reads our output may stop at any time; that shows when writing, and kills nobody.
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));

  catchInterruptions();

  Output output(STDOUT_FILENO);
  Diagnostics diagnostics(output);
  if (::isatty(STDOUT_FILENO) != 0) {
    output.sharesTerminalWith(diagnostics.progress());
  }
  try {
    work({output, diagnostics});
  } catch (const std::bad_alloc&) {
    diagnostics.error({}, "not enough memory");
  }
  output.flush();
  if (output.error() != 0) {
    diagnostics.error("standard output", systemMessage(output.error()));
  }
  return diagnostics.status();
}

ExitStatus run(int argc, char** argv) {
  return runSession([&](const Session& session) { runCommandLine(argc, argv, session); });
}

} // namespace cardwright::tool
