#pragma once

#include <chrono>
#include <cstddef>
#include <string_view>

namespace cardwright::tool {

/// Tells somebody who waits at a terminal how far the work is. Says nothing in the first second,
/// and nothing at all where standard error is no terminal.
class Progress {
 public:
  explicit Progress(std::string_view doing);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  /// Wipes the line.
  ~Progress();

  /// @param done how much of `all` is done, in any unit
  void show(std::size_t done, std::size_t all);

 private:
  using Clock = std::chrono::steady_clock;

  std::string_view m_doing;
  bool m_isTerminal;
  bool m_isShown = false;
  Clock::time_point m_next;
};

} // namespace cardwright::tool
