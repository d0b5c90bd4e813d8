#include "io/progress.h"

#include "io/output.h"

#include <algorithm>
#include <string>
#include <unistd.h>

namespace cardwright::tool {
namespace {

void draw(std::string_view text) {
  Output standardError(STDERR_FILENO);
  standardError.write(text);
  standardError.flush();
}

} // namespace

Progress::Progress(std::string_view doing)
    : m_doing(doing),
      m_isTerminal(::isatty(STDERR_FILENO) != 0),
      m_next(Clock::now() + std::chrono::seconds(1)) {}

Progress::~Progress() {
  if (m_isShown) {
    draw("\r\x1B[K");
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
  std::string line = "\r";
  line.append(m_doing).append(": ").append(std::to_string(percent)).append(" %\x1B[K");
  draw(line);
}

} // namespace cardwright::tool
