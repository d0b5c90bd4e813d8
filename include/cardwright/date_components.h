#pragma once

#include "cardwright/time_zone.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace cardwright {

/// Fields of a date and a time, each set or not, as partial dates have them (RFC 6350,
/// section 4.3).
struct DateComponents {
  std::optional<std::int64_t> year = std::nullopt;   ///< 0 is 1 BC
  std::optional<std::int64_t> month = std::nullopt;  ///< from 1
  std::optional<std::int64_t> day = std::nullopt;    ///< of the month, from 1
  std::optional<std::int64_t> hour = std::nullopt;   ///< from 0
  std::optional<std::int64_t> minute = std::nullopt; ///< from 0
  std::optional<std::int64_t> second = std::nullopt; ///< from 0
  std::optional<TimeZone> timeZone = std::nullopt;   ///< absent when none is stated

  /// Whether the same fields are set, to the same.
  friend bool operator==(const DateComponents&, const DateComponents&) = default;
};

/// The instant that components name in the Gregorian calendar, with the Julian calendar before
/// 15 October 1582. Fields out of range roll over into the next larger one; fields that are not
/// set count as the first of their kind, and an absent zone as UTC. A date that 64 bits of seconds
/// cannot hold gives the first or the last one that they can. May be called from any thread.
[[nodiscard]] [[gnu::visibility("default")]] std::chrono::sys_seconds
dateFromComponents(const DateComponents& components) noexcept;

/// The fields, year down to second, of an instant in a time zone, with that zone set. Year 0 is
/// 1 BC, as it is for dateFromComponents(). May be called from any thread.
[[nodiscard]] [[gnu::visibility("default")]] DateComponents
componentsFromDate(std::chrono::sys_seconds date, TimeZone zone) noexcept;

} // namespace cardwright
