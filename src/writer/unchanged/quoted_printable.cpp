#include "writer/unchanged/quoted_printable.h"

#include "base/ascii.h"
#include "base/processor.h"
#include "base/utf8_decoder.h"
#include "values/valid_xml.h"
#include "writer/unchanged/quoted_printable_lanes.h"

#include <array>
#include <cstdint>

namespace cardwright {

namespace {

constexpr std::uint16_t kNone = 0x100;

/// The value of each digit of ASCII, shifted beyond a byte where it is none.
constexpr auto kDigits = [] {
  std::array<std::uint16_t, 128> digits{};
  digits.fill(kNone);
  for (std::uint16_t value = 0; value < 16; ++value) {
    digits[static_cast<unsigned char>("0123456789ABCDEF"[value])] = value;
  }
  return digits;
}();

constexpr std::size_t kCodeLength = 3; // "=", two digits

/// The byte that the "=" at `at` begins; kNone or more where it begins none.
unsigned byteAt(TextView value, std::size_t at) noexcept {
  if (value.size() - at < kCodeLength || value[at] != u'=' || !isAscii(value[at + 1]) ||
      !isAscii(value[at + 2])) {
    return kNone;
  }
  const unsigned high = kDigits[value[at + 1]];
  return high << 4U | kDigits[value[at + 2]];
}

/// Appends the character beyond ASCII whose first byte is at `at`.
/// @returns how many units of the value it takes, 0 where it is none
std::size_t appendCharacter(Bytes& output, TextView value, std::size_t at) noexcept {
  std::array<char, 4> bytes{};
  std::size_t count = 0;
  for (; count < bytes.size() && at + count * kCodeLength < value.size(); ++count) {
    const unsigned byte = byteAt(value, at + count * kCodeLength);
    if (byte >= kNone || (count != 0 && byte >> 6U != 2)) {
      break;
    }
    bytes[count] = static_cast<char>(byte);
  }
  const Utf8Sequence character = utf8SequenceAt({bytes.data(), count}, 0);
  if (count == 0 || !character.isLegal || !isValidInXml(character.codePoint)) {
    return 0;
  }
  for (std::size_t i = 0; i < character.length; ++i) {
    output.push_back(static_cast<unsigned char>(bytes[i]));
  }
  return character.length * kCodeLength;
}

/// The same for the character, of whatever kind, of which the "=" at `at` begins the code.
std::size_t appendDecoded(Bytes& output, TextView value, std::size_t at) noexcept {
  const unsigned byte = byteAt(value, at);
  if (byte >= 0x80) {
    return byte < kNone ? appendCharacter(output, value, at) : 0;
  }
  switch (byte) {
  case '\0':
    return 0; // The rest does not count.
  case '\r':
    // The line feed writes the line break.
    return byteAt(value, at + kCodeLength) == '\n' ? kCodeLength : 0;
  case '\n':
    output.append(u"\\n");
    return kCodeLength;
  case ',':
  case ';':
  case '\\':
    output.push_back(u'\\');
    [[fallthrough]];
  default:
    output.push_back(static_cast<char16_t>(byte));
    return kCodeLength;
  }
}

} // namespace

bool appendWithoutQuotedPrintable(Bytes& output, TextView value) noexcept {
  for (std::size_t at = 0; at < value.size();) {
    if (usesWideLanes) {
      const QuotedPrintableRun run = decodeByWideLanes(value.substr(at), output.end());
      output.setEnd(output.end() + run.bytes);
      at += run.units;
      if (at == value.size()) {
        break;
      }
    }
    const char16_t unit = value[at];
    if (unit == u'=') {
      const std::size_t length = appendDecoded(output, value, at);
      if (length == 0) {
        return false;
      }
      at += length;
    } else if (isAscii(unit) && unit != u'\\' && unit != u'\0') {
      output.push_back(unit);
      ++at;
    } else {
      return false;
    }
  }
  return true;
}

} // namespace cardwright
