#include "face/decimal_pair.h"

#include "base/ascii.h"
#include "base/whitespace.h"

namespace cardwright {

namespace {

/// Whether a text is a number without an exponent.
bool isDecimal(TextView text) noexcept {
  if (text.starts_with(u'-') || text.starts_with(u'+')) {
    text.remove_prefix(1);
  }
  const std::size_t point = text.find(u'.');
  const TextView whole = text.substr(0, point);
  const TextView fraction = point == TextView::npos ? u"0" : text.substr(point + 1);
  const auto isNumber = [](TextView digits) {
    return !digits.empty() && trimmed(digits, isAsciiDigit).empty();
  };
  return isNumber(whole) && isNumber(fraction);
}

} // namespace

std::pair<TextView, TextView> decimalPair(TextView pair, TextView separators) {
  const std::size_t cut = pair.find_first_of(separators);
  if (cut == TextView::npos) {
    return {};
  }
  const TextView latitude = trimWhitespace(pair.substr(0, cut));
  const TextView longitude = trimWhitespace(pair.substr(cut + 1));
  return isDecimal(latitude) && isDecimal(longitude) ? std::pair(latitude, longitude)
                                                     : std::pair<TextView, TextView>();
}

} // namespace cardwright
