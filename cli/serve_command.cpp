#include "command_options.h"
#include "commands.h"
#include "serve/server.h"
#include "serve/token.h"

#include <charconv>
#include <memory>
#include <string>
#include <system_error>

namespace cardwright::tool {

namespace {

struct ServeOptions {
  int port = 0;
  bool isQuiet = false;
};

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright serve                           open the address that it prints\n"
    "  cardwright serve --port 8080               always the same port\n"
    "\n"
    "Shows a page in a browser of this machine: drop a file on it, see its cards,\n"
    "what was repaired and what is wrong, and save it in any version. Nothing is\n"
    "stored and nothing leaves the machine. Ctrl-C ends it. docs/page.md tells more.";

int portNamed(const std::string& number) {
  constexpr int kMost = 65535;
  int port = 0;
  const char* const end = number.data() + number.size();
  const auto [last, error] = std::from_chars(number.data(), end, port);
  if (error != std::errc() || last != end || port < 1 || port > kMost) {
    throw WrongUsage("--port", "'" + number + "' is not a number from 1 to 65535");
  }
  return port;
}

void servePage(const ServeOptions& options, const Session& session) {
  const std::string token = randomToken();
  if (token.empty()) {
    session.diagnostics.error({}, "the system gives no random numbers");
    return;
  }
  const int error = serve(options.port, token, [&](const std::string& address) {
    if (!options.isQuiet) {
      session.diagnostics.note("open this address in a browser; Ctrl-C ends it");
    }
    session.output.write(address + "\n");
    session.output.flush();
    return session.output.isOpen();
  });
  if (error != 0) {
    session.diagnostics.error("port " + std::to_string(options.port), systemMessage(error));
  }
}

} // namespace

void addServeCommand(Command& app, const Session& session) {
  const auto options = std::make_shared<ServeOptions>();
  Command command = app.addCommand("serve", "Show a page to do all this in a browser", kExamples);
  command.addOption(
      "--port", "NUMBER",
      [options](const std::string& number) { options->port = portNamed(number); },
      "Port to listen on; without it, any that is free");
  command.addFlag("-q,--quiet", options->isQuiet, "Print nothing but the address");
  command.setAction([options, session] { servePage(*options, session); });
}

} // namespace cardwright::tool
