#include "tool.h"

#include "command_line.h"
#include "io/interruption.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <new>
#include <string>
#include <unistd.h>
#include <vector>

namespace cardwright::tool {

namespace {

/// Where to read on: the page of help of the command that was meant.
std::string helpHint(const CLI::App& app) {
  std::string command = "cardwright";
  for (const CLI::App* const subcommand : app.get_subcommands()) {
    command += " " + subcommand->get_name();
  }
  return "; see '" + command + " --help'";
}

/// What is wrong with the command line, in our words where they are clearer.
std::string usageProblem(const CLI::App& app, const CLI::Error& error) {
  const bool hasCommand = !app.get_subcommands().empty();
  const std::vector<std::string> unexpected = app.remaining(true);
  if (unexpected.empty()) {
    return hasCommand ? error.what() : "no command given";
  }
  const std::string& word = unexpected.front();
  if (word.starts_with('-')) {
    return "there is no option '" + word + "'";
  }
  return hasCommand ? error.what() : "there is no command '" + word + "'";
}

void parse(CLI::App& app, int argc, char** argv, const Session& session) {
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForVersion&) {
    session.output.write(app.version());
    session.output.put('\n');
  } catch (const CLI::Success&) {
    session.output.write(app.help());
  } catch (const CLI::Error& error) {
    session.diagnostics.wrongUsage(usageProblem(app, error) + helpHint(app));
  }
}

} // namespace

ExitStatus run(int argc, char** argv) {
  // Whoever reads our output may stop at any time; that shows when writing, and kills nobody.
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));

  catchInterruptions();

  Output output(STDOUT_FILENO);
  Diagnostics diagnostics(output);
  if (::isatty(STDOUT_FILENO) != 0) {
    output.sharesTerminalWith(diagnostics.progress());
  }
  const Session session{output, diagnostics};
  try {
    const auto app = makeCommandLine(session);
    parse(*app, argc, argv, session);
  } catch (const std::bad_alloc&) {
    diagnostics.error({}, "not enough memory");
  }
  output.flush();
  if (output.error() != 0) {
    diagnostics.error("standard output", systemMessage(output.error()));
  }
  return diagnostics.status();
}

} // namespace cardwright::tool
