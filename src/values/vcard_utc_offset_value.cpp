#include "cardwright/vcard_utc_offset_value.h"

#include "base/ascii.h"
#include "base/decimal.h"
#include "base/saturating.h"
#include "cardwright/vocabulary.h"
#include "values/source_text.h"

#include <algorithm>

namespace cardwright {

namespace {

/// Takes a whole number, with or without a sign, from the front of a text; nothing and 0 where
/// there is none.
std::int64_t takeInteger(TextView& rest) {
  const bool isSigned = rest.starts_with(u'-') || rest.starts_with(u'+');
  const bool isNegative = rest.starts_with(u'-');
  std::size_t end = isSigned ? 1 : 0;
  if (end == rest.size() || !isAsciiDigit(rest[end])) {
    return 0;
  }
  std::int64_t number = 0;
  for (; end < rest.size() && isAsciiDigit(rest[end]); ++end) {
    const int digit = rest[end] - u'0';
    number = saturatingAdd(saturatingMultiply(number, 10), isNegative ? -digit : digit);
  }
  rest.remove_prefix(end);
  return number;
}

} // namespace

std::optional<TextView> VCardUTCOffsetValue::type() const noexcept {
  return cVCardValue_UTC_OFFSET;
}

bool VCardUTCOffsetValue::parse(TextView text, VersionCode /*version*/,
                                DateFormatter* /*formatter*/) {
  changed();
  m_source.assign(isOrdinaryOffset(text) ? std::nullopt : std::optional(text));
  const auto firstDigit = std::find_if(text.begin(), text.end(), isAsciiDigit);
  const auto signLength = static_cast<std::size_t>(firstDigit - text.begin());
  const TextView sign = text.substr(0, signLength);

  TextView rest = text.substr(signLength);
  std::int64_t hours = takeInteger(rest);
  std::int64_t minutes = 0;
  const std::size_t digits = text.size() - signLength - rest.size();
  if (digits == 4 && text.find(u':') == TextView::npos) {
    minutes = hours % 100;
    hours /= 100;
  } else {
    rest.remove_prefix(std::min(rest.find_first_not_of(u':'), rest.size()));
    minutes = takeInteger(rest);
  }
  m_offset = saturatingAdd(saturatingMultiply(hours, 3600), saturatingMultiply(minutes, 60));
  if (sign == u"-") {
    m_offset = saturatingMultiply(m_offset, -1);
  }
  return true;
}

void VCardUTCOffsetValue::generate(Text& output, VersionCode version,
                                   DateFormatter* /*formatter*/) const {
  const bool isNegative = m_offset < 0;
  const auto offset = static_cast<std::uint64_t>(m_offset);
  const std::uint64_t seconds = isNegative ? 0 - offset : offset;
  output.push_back(isNegative ? u'-' : u'+');
  appendDecimal(output, seconds / 3600, 2);
  if (version < 4) {
    output.push_back(u':');
  }
  appendDecimal(output, seconds / 60 % 60, 2);
}

} // namespace cardwright
