#pragma once

#include "cardwright/detail/text_storage.h"
#include "cardwright/vcard_value.h"

#include <cstdint>

namespace cardwright {

/// An offset from UTC (RFC 6350, section 4.7).
class [[gnu::visibility("default")]] VCardUTCOffsetValue final : public VCardValue {
 public:
  VCardUTCOffsetValue() = default;

  /// "utc-offset".
  [[nodiscard]] std::optional<TextView> type() const noexcept override;

  /// Seconds east of UTC.
  [[nodiscard]] std::int64_t offset() const noexcept {
    return m_offset;
  }
  /// Sets the offset; a text that was not understood is forgotten.
  void setOffset(std::int64_t seconds) noexcept {
    changed();
    m_offset = seconds;
    m_source = {};
  }

  /// Reads hours and minutes, with or without ":". Always true.
  bool parse(TextView text, VersionCode version, DateFormatter * formatter) override;
  /// Writes "+0530" for version 4, "+05:30" for the others.
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;

 private:
  friend struct SourceText;

  detail::TextStorage m_source; ///< only of a text that would be written otherwise
  std::int64_t m_offset = 0;
};

} // namespace cardwright
