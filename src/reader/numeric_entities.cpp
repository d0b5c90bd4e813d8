#include "reader/numeric_entities.h"

#include "base/ascii.h"
#include "cardwright/vcard.h"
#include "reader/repair_patterns.h"

#include <limits>

namespace cardwright {

namespace {

/// The digit's value; 16 and more for what is no digit in any radix.
unsigned digitValue(char16_t unit) noexcept {
  if (isAsciiDigit(unit)) {
    return unit - static_cast<unsigned>(u'0');
  }
  const char16_t upper = asciiUpper(unit);
  return upper >= u'A' && upper <= u'F' ? upper - static_cast<unsigned>(u'A') + 10U : 16U;
}

std::optional<Text> characterOf(const NumericEntity& entity) {
  const std::optional<std::uint64_t> number =
      VCard::numberFromString(entity.digits, entity.isHexadecimal ? 16 : 10);
  return number ? VCard::stringFromUnicodeScalar(*number) : std::nullopt;
}

} // namespace

std::optional<std::uint64_t> VCard::numberFromString(TextView digits, int radix) {
  if (digits.empty() || (radix != 10 && radix != 16)) {
    return std::nullopt;
  }
  constexpr std::uint64_t kLargest = std::numeric_limits<std::uint64_t>::max();
  const auto base = static_cast<std::uint64_t>(radix);
  std::uint64_t number = 0;
  for (const char16_t unit : digits) {
    const std::uint64_t digit = digitValue(unit);
    if (digit >= base) {
      return std::nullopt;
    }
    number = number > (kLargest - digit) / base ? kLargest : number * base + digit;
  }
  return number;
}

std::optional<Text> VCard::stringFromUnicodeScalar(std::uint64_t scalar) {
  if (scalar == 0 || scalar > 0x10FFFF) {
    return std::nullopt;
  }
  if (scalar < 0x10000) {
    return Text(1, static_cast<char16_t>(scalar));
  }
  const std::uint64_t offset = scalar - 0x10000;
  return Text{static_cast<char16_t>((offset >> 10U) + 0xD800),
              static_cast<char16_t>((scalar & 0x3FFU) + 0xDC00)};
}

std::optional<Text> decodedNumericEntities(TextView text) {
  std::optional<Text> decoded;
  std::size_t copied = 0;
  NumericEntity entity{};
  for (std::size_t from = 0; findNumericEntity(text, from, entity); from = entity.end) {
    if (const std::optional<Text> character = characterOf(entity)) {
      if (!decoded) {
        decoded.emplace();
        decoded->reserve(text.size());
      }
      decoded->append(text.substr(copied, entity.begin - copied));
      decoded->append(*character);
      copied = entity.end;
    }
  }
  if (decoded) {
    decoded->append(text.substr(copied));
  }
  return decoded;
}

std::optional<Text>
VCard::normalizedStringByDecodingNumericEntitiesFromString(std::optional<TextView> text) {
  if (!text) {
    return std::nullopt;
  }
  std::optional<Text> decoded = decodedNumericEntities(*text);
  return decoded ? std::move(decoded) : Text(*text);
}

} // namespace cardwright
