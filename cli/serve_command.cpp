#include "command_options.h"
#include "commands.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <unistd.h>

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

/// The directory of this program's file; empty where the system does not tell.
std::filesystem::path ownDirectory() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

/// Becomes the server, a program of its own. Returns when that is not possible.
void becomeServer(const ServeOptions& options, const Session& session) {
  const std::filesystem::path directory = ownDirectory();
  const std::filesystem::path name = "cardwright-serve";
  std::string port = std::to_string(options.port);
  std::string quiet = options.isQuiet ? "quiet" : "";
  int error = ENOENT;
  for (const std::filesystem::path& place : {directory, directory / CARDWRIGHT_SERVER_DIRECTORY}) {
    const std::filesystem::path path = place / name;
    if (!path.is_absolute()) {
      continue; // Never a program that lies where somebody happens to be.
    }
    std::string program = path.string();
    std::array<char*, 4> arguments = {program.data(), port.data(), quiet.data(), nullptr};
    ::execv(program.c_str(), arguments.data());
    error = errno;
    if (error != ENOENT) {
      break;
    }
  }
  session.diagnostics.error(name.string(), systemMessage(error));
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
  command.setAction([options, session] { becomeServer(*options, session); });
}

} // namespace cardwright::tool
