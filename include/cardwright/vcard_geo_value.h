#pragma once

#include "cardwright/detail/text_storage.h"
#include "cardwright/vcard_value.h"

namespace cardwright {

/// A geographic position as versions below 4 write it: two decimal degrees (RFC 2426,
/// section 3.4.2).
class [[gnu::visibility("default")]] VCardGeoValue final : public VCardValue {
 public:
  VCardGeoValue() = default;

  /// "Geo3.0".
  [[nodiscard]] std::optional<TextView> type() const noexcept override;

  [[nodiscard]] double latitude() const noexcept {
    return m_latitude;
  }
  void setLatitude(double degrees) noexcept {
    m_latitude = degrees;
    m_source = {};
  }
  [[nodiscard]] double longitude() const noexcept {
    return m_longitude;
  }
  void setLongitude(double degrees) noexcept {
    m_longitude = degrees;
    m_source = {};
  }

  /// Reads the leading numbers before and after the first ";" or ","; false, with nothing
  /// changed, when there is neither.
  bool parse(TextView text, VersionCode version, DateFormatter * formatter) override;
  /// Writes both with six decimals and ";" between them.
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;

 private:
  friend struct SourceText;

  detail::TextStorage m_source; ///< only of a text that would be written otherwise
  double m_latitude = 0;
  double m_longitude = 0;
};

} // namespace cardwright
