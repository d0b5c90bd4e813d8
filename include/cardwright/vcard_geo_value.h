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

  /// Decimal degrees, north positive; 0 when nothing was read or set.
  [[nodiscard]] double latitude() const noexcept {
    return m_latitude;
  }
  /// Sets the latitude; a text that was not understood is forgotten.
  void setLatitude(double degrees) noexcept {
    changed();
    m_latitude = degrees;
    m_source = {};
  }
  /// Decimal degrees, east positive; 0 when nothing was read or set.
  [[nodiscard]] double longitude() const noexcept {
    return m_longitude;
  }
  /// Sets the longitude; a text that was not understood is forgotten.
  void setLongitude(double degrees) noexcept {
    changed();
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
