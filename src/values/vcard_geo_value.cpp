#include "cardwright/vcard_geo_value.h"

#include "base/numbers.h"
#include "cardwright/vocabulary.h"
#include "values/source_text.h"

#include <array>
#include <charconv>

namespace cardwright {

namespace {

void appendWithSixDecimals(Text& output, double number) {
  // The longest double has 309 digits before the point.
  std::array<char, 330> buffer; // NOLINT: filled as far as it is read
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                    std::chars_format::fixed, 6);
  output.append(buffer.data(), result.ptr);
}

} // namespace

std::optional<TextView> VCardGeoValue::type() const noexcept {
  return cVCardValue_Geo3_0;
}

bool VCardGeoValue::parse(TextView text, VersionCode /*version*/, DateFormatter* /*formatter*/) {
  changed();
  m_source.assign(isOrdinaryPosition(text) ? std::nullopt : std::optional(text));
  const std::size_t separator = text.find_first_of(u";,");
  if (separator == TextView::npos) {
    return false;
  }
  m_latitude = leadingNumber(text.substr(0, separator));
  m_longitude = leadingNumber(text.substr(separator + 1));
  return true;
}

void VCardGeoValue::generate(Text& output, VersionCode /*version*/,
                             DateFormatter* /*formatter*/) const {
  appendWithSixDecimals(output, m_latitude);
  output.push_back(u';');
  appendWithSixDecimals(output, m_longitude);
}

} // namespace cardwright
