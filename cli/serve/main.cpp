#include "serve/server.h"
#include "serve/token.h"
#include "tool.h"

#include <cstdlib>
#include <string>
#include <string_view>

namespace cardwright::tool {

namespace {

void servePage(int port, bool isQuiet, const Session& session) {
  const std::string token = randomToken();
  if (token.empty()) {
    session.diagnostics.error({}, "the system gives no random numbers");
    return;
  }
  const int error = serve(port, token, [&](const std::string& address) {
    if (!isQuiet) {
      session.diagnostics.note("open this address in a browser; Ctrl-C ends it");
    }
    session.output.write(address + "\n");
    session.output.flush();
    return session.output.isOpen();
  });
  if (error != 0) {
    session.diagnostics.error("port " + std::to_string(port), systemMessage(error));
  }
}

} // namespace

} // namespace cardwright::tool

/// What "cardwright serve" becomes once it has read its options: a port, and "quiet" or nothing.
int main(int argc, char** argv) {
  using namespace cardwright::tool;
  const int port = argc > 1 ? std::atoi(argv[1]) : 0; // NOLINT: made by the command
  const bool isQuiet = argc > 2 && std::string_view(argv[2]) == "quiet";
  return static_cast<int>(
      runSession([&](const Session& session) { servePage(port, isQuiet, session); }));
}
