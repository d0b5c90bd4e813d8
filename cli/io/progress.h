#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace cardwright::tool {

/// Tells somebody who waits at a terminal how far the work is, in one line of standard error: what
/// is being done, a bar, and how much of it is done or, where nobody knows, for how long. Says
/// nothing in the first second, and nothing at all where standard error is no terminal.
///
/// A thread of its own draws the line, for some steps are one long call.
class Progress {
 public:
  Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  /// Wipes the line.
  ~Progress();

  /// Says nothing from now on.
  void hush();

  /// Begins a step.
  /// @param doing of static storage: "reading"
  /// @param all   how much there is to do, in any unit; 0 where nobody knows
  void begin(std::string_view doing, std::size_t all = 0);
  /// @param done how much of the step
  void show(std::size_t done) noexcept { m_done.store(done, std::memory_order_relaxed); }
  /// Ends the step and wipes the line.
  void end();
  /// Wipes the line, so that something else can be written; it comes back by itself.
  void stepAside();

 private:
  using Clock = std::chrono::steady_clock;

  void run();
  void draw();
  void wipe();
  [[nodiscard]] std::string line() const;

  bool m_isWanted;
  std::atomic<std::size_t> m_done = 0;

  std::mutex m_mutex; ///< of all that follows
  std::condition_variable m_wake;
  std::string_view m_doing; ///< empty between steps
  std::size_t m_all = 0;
  Clock::time_point m_begin;
  Clock::time_point m_first; ///< when the line may show up
  bool m_isShown = false;
  bool m_isOver = false;
  std::thread m_thread; ///< started with the first step
};

} // namespace cardwright::tool
