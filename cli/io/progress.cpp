#include "io/progress.h"

#include <algorithm>
#include <csignal>
#include <unistd.h>

namespace cardwright::tool {

namespace {

constexpr std::chrono::seconds kPatience{1};
constexpr std::chrono::milliseconds kPause{200};

/// One write; when it fails there is nobody to tell.
void put(std::string_view text) {
  const ssize_t ignored = ::write(STDERR_FILENO, text.data(), text.size());
  static_cast<void>(ignored);
}

/// A thread that takes no signals: they are for the one that does the work.
template <typename Body>
std::thread quietThread(Body body) {
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  std::thread thread(body);
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return thread;
}

} // namespace

Progress::Progress() : m_isWanted(::isatty(STDERR_FILENO) != 0) {}

Progress::~Progress() {
  hush();
}

void Progress::hush() {
  m_isWanted = false;
  if (m_thread.joinable()) {
    {
      const std::lock_guard lock(m_mutex);
      wipe();
      m_isOver = true;
    }
    m_wake.notify_one();
    m_thread.join();
  }
}

void Progress::begin(std::string_view doing, std::size_t all) {
  if (!m_isWanted) {
    return;
  }
  const std::lock_guard lock(m_mutex);
  m_done = 0;
  m_doing = doing;
  m_all = all;
  m_begin = Clock::now();
  if (!m_thread.joinable()) {
    m_first = m_begin + kPatience;
    m_thread = quietThread([this] { run(); });
  }
}

void Progress::end() {
  if (m_isWanted) {
    const std::lock_guard lock(m_mutex);
    m_doing = {};
    wipe();
  }
}

void Progress::stepAside() {
  if (m_isWanted) {
    const std::lock_guard lock(m_mutex);
    wipe();
  }
}

void Progress::run() {
  std::unique_lock lock(m_mutex);
  while (!m_wake.wait_for(lock, kPause, [this] { return m_isOver; })) {
    if (!m_doing.empty() && Clock::now() >= m_first) {
      draw();
    }
  }
}

void Progress::draw() {
  put(std::string("\r").append(line()).append("\x1B[K"));
  m_isShown = true;
}

void Progress::wipe() {
  if (m_isShown) {
    put("\r\x1B[K");
    m_isShown = false;
  }
}

std::string Progress::line() const {
  constexpr std::size_t kColumns = 30;
  constexpr std::size_t kMoving = 3; // of a bar that only moves

  const auto elapsed = Clock::now() - m_begin;
  std::size_t filledFrom = 0;
  std::size_t filled = kMoving;
  std::string amount;
  if (m_all != 0) {
    const std::size_t done = std::min(m_done.load(std::memory_order_relaxed), m_all);
    const double share = static_cast<double>(done) / static_cast<double>(m_all);
    filled = static_cast<std::size_t>(share * kColumns);
    amount = std::to_string(static_cast<std::size_t>(share * 100)).append(" %");
  } else {
    filledFrom = static_cast<std::size_t>(elapsed / kPause) % (kColumns - kMoving + 1);
    amount = std::to_string(std::chrono::duration_cast<std::chrono::seconds>(elapsed).count())
                 .append(" s");
  }
  std::string text(m_doing);
  text.append(" [").append(filledFrom, '.').append(filled, '#');
  text.append(kColumns - filledFrom - filled, '.').append("] ").append(amount);
  return text;
}

} // namespace cardwright::tool
