#pragma once

#include "cardwright/text.h"
#include "cardwright/time_zone.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace cardwright {

/// Writes instants by a pattern (Unicode Technical Standard 35). One is handed down through every
/// parse and generate operation of a card. It belongs to one thread at a time.
///
/// The calendar is always the Gregorian one. Patterns of plain numbers under "en_US_POSIX", as
/// dates of vCards have them, cost next to nothing; all others set up ICU for each date.
class [[gnu::visibility("default")]] DateFormatter {
 public:
  /// A formatter without locale, pattern and time zone of its own.
  DateFormatter() = default;
  /// A formatter for a locale such as "en_US_POSIX".
  explicit DateFormatter(std::string_view locale) : m_locale(locale) {}

  /// Absent means the locale of the environment.
  [[nodiscard]] const std::optional<std::string>& locale() const noexcept {
    return m_locale;
  }
  /// Sets the locale; absent for that of the environment.
  void setLocale(std::optional<std::string_view> locale) {
    m_locale = locale;
  }

  /// The pattern; empty as long as none was set, which writes nothing.
  [[nodiscard]] TextView dateFormat() const noexcept {
    return m_dateFormat;
  }
  /// Sets the pattern.
  void setDateFormat(TextView pattern) {
    m_dateFormat = pattern;
  }

  /// Absent means UTC, so that no host's daylight saving moves a date.
  [[nodiscard]] std::optional<TimeZone> timeZone() const noexcept {
    return m_timeZone;
  }
  /// Sets the zone in which instants are written; absent for UTC.
  void setTimeZone(std::optional<TimeZone> zone) noexcept {
    m_timeZone = zone;
  }

  /// The instant in the formatter's pattern, locale and time zone; nothing for a pattern with
  /// letters that mean nothing.
  [[nodiscard]] Text stringFromDate(std::chrono::sys_seconds date) const;
  /// The same, appended to `output`.
  void appendDate(Text & output, std::chrono::sys_seconds date) const;

 private:
  std::optional<std::string> m_locale;
  Text m_dateFormat;
  std::optional<TimeZone> m_timeZone;
};

} // namespace cardwright
