#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace cardwright {

/// What a piece of work took.
struct Cost {
  std::size_t inputBytes = 0; ///< length of what the work was done on
  double seconds = 0;         ///< processor time
  std::size_t peakBytes = 0;  ///< the most memory at once, beyond that of an idle process
};

/// A piece of work with its preparation, which makes what it needs.
class Work {
 public:
  Work() = default;
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;
  virtual ~Work();

  /// @returns the length of what the work is done on
  virtual std::size_t prepare() = 0;
  virtual void run() = 0;
};

/// Does the work in a process of its own, so that nothing of what was before counts. It is done a
/// few times, and the shortest time is told: that of a process that has its memory already. The
/// time of preparing does not count; what memory is left of it does.
/// @returns absent when the process broke, for lack of memory say
[[nodiscard]] std::optional<Cost> costInChild(Work& work);

/// Runs a program, whose words go nowhere. The time is the shortest of a few runs, and the memory
/// all that it has.
/// @returns absent when it failed
[[nodiscard]] std::optional<Cost> costOfCommand(const std::vector<std::string>& words);

} // namespace cardwright
