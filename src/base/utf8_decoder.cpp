#include "base/utf8_decoder.h"

#include "base/large_memory.h"
#include "base/processor.h"
#include "base/utf8_lanes.h"
#include "base/utf8_wide_lanes.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace cardwright {

namespace {

/// How many bytes of a word, whose high bits these are, stand before the first one beyond ASCII.
std::size_t asciiBytesBefore(std::uint64_t high) noexcept {
  const int bits =
      std::endian::native == std::endian::little ? std::countr_zero(high) : std::countl_zero(high);
  return static_cast<std::size_t>(bits) / 8;
}

/// Decodes one sequence, and moves both places on; false when it is not legal.
bool decodeSequence(std::string_view utf8, std::size_t& at, char16_t* output,
                    std::size_t& units) noexcept {
  const Utf8Sequence sequence = utf8SequenceAt(utf8, at);
  if (!sequence.isLegal) {
    return false;
  }
  if (sequence.codePoint < 0x10000) {
    output[units++] = static_cast<char16_t>(sequence.codePoint);
  } else {
    output[units++] = static_cast<char16_t>(0xD7C0U + (sequence.codePoint >> 10U));
    output[units++] = static_cast<char16_t>(0xDC00U + (sequence.codePoint & 0x3FFU));
  }
  at += sequence.length;
  return true;
}

} // namespace

Utf8Sequence utf8SequenceAt(std::string_view utf8, std::size_t at) noexcept {
  const auto byteAt = [utf8](std::size_t index) -> unsigned {
    return index < utf8.size() ? static_cast<unsigned char>(utf8[index]) : 0U;
  };
  const unsigned lead = byteAt(at);
  if (lead < 0x80) {
    return {lead, 1, true};
  }
  // The second byte of some leads has a narrower range: no overlong forms, no surrogates, nothing
  // above U+10FFFF.
  unsigned low = 0x80;
  unsigned high = 0xBF;
  std::size_t length = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    low = lead == 0xE0 ? 0xA0 : 0x80;
    high = lead == 0xED ? 0x9F : 0xBF;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    low = lead == 0xF0 ? 0x90 : 0x80;
    high = lead == 0xF4 ? 0x8F : 0xBF;
  } else {
    return {0, 1, false};
  }
  char32_t codePoint = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned byte = byteAt(at + i);
    if (byte < low || byte > high) {
      return {0, i, false};
    }
    codePoint = (codePoint << 6U) | (byte & 0x3FU);
    low = 0x80;
    high = 0xBF;
  }
  return {codePoint, length, true};
}

DecodedRun decodeSoundRun(std::string_view utf8, char16_t* output, std::size_t room) noexcept {
  std::size_t at = 0;
  std::size_t units = 0;
  while (canDecodeByLanes() && utf8.size() - at >= 2 * kByteLanes &&
         room - units >= 2 * kByteLanes) {
    const DecodedRun run = usesWideLanes
                               ? decodeByWideLanes(utf8.substr(at), output + units, room - units)
                               : decodeByLanes(utf8.substr(at), output + units, room - units);
    at += run.bytes;
    units += run.units;
    // What stopped them is a character that they do not know, or too little of anything.
    if (utf8.size() - at >= 2 * kByteLanes && room - units >= 2 * kByteLanes &&
        !decodeSequence(utf8, at, output, units)) {
      return {at, units};
    }
  }
  const DecodedRun rest = decodeSoundRunPlainly(utf8.substr(at), output + units, room - units);
  return {at + rest.bytes, units + rest.units};
}

DecodedRun decodeSoundRunPlainly(std::string_view utf8, char16_t* output,
                                 std::size_t room) noexcept {
  constexpr std::uint64_t kHighBits = 0x8080808080808080U;
  constexpr std::size_t kWord = sizeof kHighBits;
  const auto* bytes = reinterpret_cast<const unsigned char*>(utf8.data()); // NOLINT: as numbers
  std::size_t at = 0;
  std::size_t units = 0;
  // Whole words are read, so the last bytes are left to the careful way below.
  while (utf8.size() - at >= 2 * kWord && room - units > kAsciiBlock) {
    std::uint64_t words[2]; // NOLINT: filled at once
    std::memcpy(words, bytes + at, sizeof words);
    if (((words[0] | words[1]) & kHighBits) == 0) {
      const std::size_t ascii =
          widenAscii(utf8.data() + at, std::min(utf8.size() - at, room - units), output + units);
      at += ascii;
      units += ascii;
      continue;
    }
    const std::uint64_t high = words[0] & kHighBits;
    if (high == 0 || bytes[at] < 0x80) {
      // Widens the whole word, and takes of it what is ASCII.
      unsigned char block[kWord]; // NOLINT: filled at once
      std::memcpy(block, bytes + at, sizeof block);
      for (std::size_t i = 0; i < kWord; ++i) {
        output[units + i] = block[i];
      }
      const std::size_t ascii = high == 0 ? kWord : asciiBytesBefore(high);
      at += ascii;
      units += ascii;
      continue;
    }
    const unsigned lead = bytes[at];
    const unsigned second = bytes[at + 1] ^ 0x80U;
    const unsigned third = bytes[at + 2] ^ 0x80U;
    if (lead >= 0xC2 && lead < 0xE0 && second < 0x40) {
      output[units++] = static_cast<char16_t>(((lead & 0x1FU) << 6U) | second);
      at += 2;
    } else if (lead > 0xE0 && lead < 0xF0 && lead != 0xED && second < 0x40 && third < 0x40) {
      output[units++] = static_cast<char16_t>(((lead & 0xFU) << 12U) | (second << 6U) | third);
      at += 3;
    } else if (!decodeSequence(utf8, at, output, units)) {
      return {at, units};
    }
  }
  while (at < utf8.size() && room - units > kAsciiBlock &&
         decodeSequence(utf8, at, output, units)) {
  }
  return {at, units};
}

std::optional<Text> textFromSoundUtf8(std::string_view utf8) {
  std::optional<Text> text(std::in_place);
  reserveLarge(*text, utf8.size());
  bool isSound = true;
  decodeUtf8(*text, utf8, [&](TextGatherer&, std::size_t, std::size_t) {
    isSound = false;
    return utf8.size();
  });
  if (!isSound) {
    text.reset();
  }
  return text;
}

} // namespace cardwright
