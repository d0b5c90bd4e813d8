#include "io/progress.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace cardwright::tool {

Progress::Progress(std::string_view doing)
    : m_doing(doing),
      m_isTerminal(::isatty(STDERR_FILENO) != 0),
      m_next(Clock::now() + std::chrono::seconds(1)) {}

Progress::~Progress() {
  if (m_isShown) {
    std::fputs("\r\x1B[K", stderr);
  }
}

void Progress::show(std::size_t done, std::size_t all) {
  // The clock is asked only now and then: cards are small.
  constexpr std::size_t kStep = 256;
  if (!m_isTerminal || done % kStep != 0 || Clock::now() < m_next) {
    return;
  }
  m_next = Clock::now() + std::chrono::milliseconds(100);
  m_isShown = true;
  const std::size_t percent = done * 100 / std::max<std::size_t>(all, 1);
  std::fprintf(stderr, "\r%.*s: %zu %%\x1B[K", static_cast<int>(m_doing.size()), m_doing.data(),
               percent);
}

} // namespace cardwright::tool
