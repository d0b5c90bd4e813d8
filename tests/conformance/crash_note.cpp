#include "conformance/crash_note.h"

#include <algorithm>
#include <array>
#include <csignal>
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

void writeNote(int signal) {
  [[maybe_unused]] const auto written = write(STDERR_FILENO, g_note.data(), g_noteLength);
  std::signal(signal, SIG_DFL); // NOLINT(cert-err33-c): nothing is left to be done about an error
  std::raise(signal);           // NOLINT(cert-err33-c)
}

} // namespace

void installCrashNote() {
  for (const int signal : {SIGABRT, SIGSEGV, SIGFPE, SIGILL, SIGBUS, SIGTERM, SIGALRM}) {
    std::signal(signal, writeNote); // NOLINT(cert-err33-c)
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
