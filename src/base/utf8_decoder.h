#pragma once

#include "base/ascii_lanes.h"
#include "cardwright/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace cardwright {

/// One byte sequence of a UTF-8 text.
struct Utf8Sequence {
  char32_t codePoint; ///< meaningless when the sequence is not legal
  std::size_t length; ///< bytes; of an illegal one, its longest part that could begin a character
  bool isLegal;
};

/// Reads the sequence that begins at `at`, which is below the text's size.
[[nodiscard]] Utf8Sequence utf8SequenceAt(std::string_view utf8, std::size_t at) noexcept;

/// Gathers decoded text in a block before it goes into a string: a string cannot grow without
/// clearing what it grows by.
class TextGatherer {
 public:
  explicit TextGatherer(Text& text) noexcept : m_text(text) {}
  TextGatherer(const TextGatherer&) = delete;
  TextGatherer& operator=(const TextGatherer&) = delete;
  ~TextGatherer() { flush(); }

  void append(char32_t codePoint) {
    if (m_units.size() - m_used < 2) {
      flush();
    }
    if (codePoint < 0x10000) {
      m_units[m_used++] = static_cast<char16_t>(codePoint);
    } else {
      m_units[m_used++] = static_cast<char16_t>(0xD7C0U + (codePoint >> 10U));
      m_units[m_used++] = static_cast<char16_t>(0xDC00U + (codePoint & 0x3FFU));
    }
  }

  /// Appends the ASCII bytes that `bytes` begins with, or some of them.
  /// @returns how many
  std::size_t appendAscii(std::string_view bytes) {
    if (m_units.size() - m_used < kAsciiBlock) {
      flush();
    }
    const std::size_t room = std::min(bytes.size(), m_units.size() - m_used);
    const std::size_t count = widenAscii(bytes.data(), room, m_units.data() + m_used);
    m_used += count;
    return count;
  }

 private:
  void flush() {
    m_text.append(m_units.data(), m_used);
    m_used = 0;
  }

  Text& m_text;
  std::size_t m_used = 0;
  std::array<char16_t, 2048> m_units; // NOLINT: filled as far as m_used tells
};

/// Appends decoded UTF-8.
/// @param onIllegal is called with the gatherer, the place and the length of each byte sequence
///   that is no UTF-8, and returns the place to go on from
template <typename OnIllegal>
void decodeUtf8(Text& text, std::string_view utf8, OnIllegal onIllegal) {
  TextGatherer gatherer(text);
  for (std::size_t at = 0; at < utf8.size();) {
    if (static_cast<unsigned char>(utf8[at]) < 0x80) {
      at += gatherer.appendAscii(utf8.substr(at));
      continue;
    }
    const Utf8Sequence sequence = utf8SequenceAt(utf8, at);
    if (sequence.isLegal) {
      gatherer.append(sequence.codePoint);
      at += sequence.length;
    } else {
      at = onIllegal(gatherer, at, sequence.length);
    }
  }
}

/// The decoded text; absent when anything in it is no UTF-8.
[[nodiscard]] std::optional<Text> textFromSoundUtf8(std::string_view utf8);

} // namespace cardwright
