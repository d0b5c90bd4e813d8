#include "conformance/crash_note.h"

#include <algorithm>
#include <array>
#include <signal.h> // NOLINT(modernize-deprecated-headers): sigaction is not in <csignal>
#include <unistd.h>

namespace cardwright::conformance {
namespace {

// A signal handler may touch nothing that allocates, so the line stands ready.
std::array<char, 256> g_note{};
std::size_t g_noteLength = 0;

void append(std::string_view part) {
  const std::size_t length = std::min(part.size(), g_note.size() - g_noteLength);
  std::copy_n(part.begin(), length, g_note.begin() + static_cast<std::ptrdiff_t>(g_noteLength));
  g_noteLength += length;
}

// What handled each signal before, such as the report of a sanitizer.
std::array<struct sigaction, NSIG> g_previous{};

void writeNote(int signal) {
  [[maybe_unused]] const auto written = write(STDERR_FILENO, g_note.data(), g_noteLength);
  sigaction(signal, &g_previous[static_cast<std::size_t>(signal)], nullptr);
  if (signal == SIGTERM) {
    static_cast<void>(raise(signal));
  }
  // Any other signal comes again by itself, now to its previous handler.
}

} // namespace

void installCrashNote() {
  for (const int signal : {SIGABRT, SIGFPE, SIGSEGV, SIGTERM}) {
    struct sigaction action {};
    action.sa_handler = writeNote;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, &g_previous[static_cast<std::size_t>(signal)]);
  }
}

void setRunningCase(std::string_view id, std::string_view operation) {
  g_noteLength = 0;
  append("conformance: ended in ");
  append(id);
  append(" ");
  append(operation);
  append("\n");
}

} // namespace cardwright::conformance
