#pragma once

#include "cardwright/text.h"

#include <cstdint>
#include <optional>

namespace cardwright {

/// A time zone as vCards know them: the universal zone, or an offset from it. An offset of zero
/// is not the universal zone. A plain value, which several threads may read at once.
class TimeZone {
 public:
  /// The universal zone, named "Universal".
  [[nodiscard]] static constexpr TimeZone universal() noexcept { return {true, 0}; }

  /// The zone of a number of seconds east of UTC; absent beyond 18 hours either way.
  [[nodiscard]] static constexpr std::optional<TimeZone>
  withSecondsFromUtc(std::int64_t seconds) noexcept {
    constexpr std::int64_t kLimit = std::int64_t{18} * 3600;
    if (seconds < -kLimit || seconds > kLimit) {
      return std::nullopt;
    }
    return TimeZone(false, static_cast<std::int32_t>(seconds));
  }

  /// Whether it is the universal zone.
  [[nodiscard]] constexpr bool isUniversal() const noexcept { return m_universal; }
  /// "Universal", or empty for an offset.
  [[nodiscard]] constexpr TextView name() const noexcept {
    return m_universal ? TextView(u"Universal") : TextView();
  }
  /// Seconds east of UTC.
  [[nodiscard]] constexpr std::int32_t secondsFromUtc() const noexcept { return m_seconds; }

  /// Whether both are universal, or have the same offset.
  friend constexpr bool operator==(const TimeZone&, const TimeZone&) noexcept = default;

 private:
  constexpr TimeZone(bool universal, std::int32_t seconds) noexcept
      : m_seconds(seconds), m_universal(universal) {}

  std::int32_t m_seconds;
  bool m_universal;
};

} // namespace cardwright
