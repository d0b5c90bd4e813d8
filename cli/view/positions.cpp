#include "view/positions.h"

#include "text/words.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <system_error>

namespace cardwright::tool {

namespace {

/// A number as it leads a text; absent when there is none.
std::optional<double> number(TextView text) {
  constexpr std::size_t kLongest = 40;
  text = trimmed(text);
  if (!text.empty() && text.front() == u'+') {
    text.remove_prefix(1);
  }
  std::string digits;
  for (const char16_t unit : text.substr(0, kLongest)) {
    digits.push_back(unit < 0x80 ? static_cast<char>(unit) : '?');
  }
  double result = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), result);
  return error == std::errc() ? std::optional(result) : std::nullopt;
}

/// "48.2082° N"
Text degreesText(double degrees, char16_t positive, char16_t negative) {
  constexpr double kLargest = 1000;
  constexpr int kDecimals = 6;
  std::array<char, 32> buffer{};
  const double size = std::fabs(degrees);
  // What lies outside the globe is shown, but need not be pretty.
  const auto [end, error] = size < kLargest
                                ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), size,
                                                std::chars_format::fixed, kDecimals)
                                : std::to_chars(buffer.data(), buffer.data() + buffer.size(), size);
  Text text(buffer.data(), end);
  if (size < kLargest) {
    text.erase(text.find_last_not_of(u'0') + 1);
    if (text.back() == u'.') {
      text.pop_back();
    }
  }
  text += u"° ";
  text += std::signbit(degrees) && degrees != 0 ? negative : positive;
  return text;
}

} // namespace

Text positionText(double latitude, double longitude) {
  return concat({degreesText(latitude, u'N', u'S'), u", ", degreesText(longitude, u'E', u'W')});
}

Text positionText(TextView uri) {
  constexpr TextView kScheme = u"geo:";
  const std::size_t comma = uri.find(u',');
  if (!startsWithIgnoringCase(uri, kScheme) || comma == TextView::npos) {
    return Text(uri);
  }
  const auto latitude = number(uri.substr(kScheme.size(), comma - kScheme.size()));
  const auto longitude = number(uri.substr(comma + 1));
  return latitude && longitude ? positionText(*latitude, *longitude) : Text(uri);
}

} // namespace cardwright::tool
