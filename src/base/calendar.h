#pragma once

#include <chrono>
#include <cstdint>

namespace cardwright {

/// What calendar and clock on the wall show. Year 0 is 1 BC.
struct WallClock {
  std::int64_t year;
  int month;
  int day;
  int hour;
  int minute;
  int second;
};

/// The fields of an instant in the Gregorian calendar, with the Julian calendar before
/// 15 October 1582, in a zone of so many seconds east of UTC.
[[nodiscard]] WallClock wallClockAt(std::chrono::sys_seconds date,
                                    std::int32_t secondsFromUtc) noexcept;

} // namespace cardwright
