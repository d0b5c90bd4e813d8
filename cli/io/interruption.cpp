#include "io/interruption.h"

#include <array>
#include <atomic>
#include <climits>
#include <csignal>
#include <cstring>
#include <unistd.h>

namespace cardwright::tool {

namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

/// All that a signal handler may look at: no memory that somebody else moves about.
struct UnfinishedFile {
  std::atomic<bool> isThere = false;
  std::array<char, PATH_MAX> path{};
};
static_assert(std::atomic<bool>::is_always_lock_free);

std::array<UnfinishedFile, 4> unfinishedFiles; // NOLINT: signal handlers know nothing else

void endBy(int signal) {
  for (const UnfinishedFile& file : unfinishedFiles) {
    if (file.isThere) {
      ::unlink(file.path.data());
    }
  }
  // It is waiting until this returns.
  static_cast<void>(std::signal(signal, SIG_DFL));
  static_cast<void>(::raise(signal));
}

sigset_t signalSet() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : kSignals) {
    sigaddset(&set, signal);
  }
  return set;
}

} // namespace

void catchInterruptions() {
  for (const int signal : kSignals) {
    struct sigaction action {};
    if (::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN) {
      continue;
    }
    action = {};
    action.sa_handler = endBy;
    action.sa_mask = signalSet();
    ::sigaction(signal, &action, nullptr);
  }
}

UninterruptedMoment::UninterruptedMoment() {
  const sigset_t set = signalSet();
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

UninterruptedMoment::~UninterruptedMoment() {
  const sigset_t set = signalSet();
  pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

int rememberUnfinished(const std::string& path) {
  for (std::size_t at = 0; at < unfinishedFiles.size(); ++at) {
    UnfinishedFile& file = unfinishedFiles[at];
    if (!file.isThere && path.size() < file.path.size()) {
      std::memcpy(file.path.data(), path.c_str(), path.size() + 1);
      file.isThere = true;
      return static_cast<int>(at);
    }
  }
  return -1;
}

void forgetUnfinished(int remembered) {
  if (remembered >= 0) {
    unfinishedFiles[static_cast<std::size_t>(remembered)].isThere = false;
  }
}

} // namespace cardwright::tool
