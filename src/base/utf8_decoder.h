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

/// How far a decoding call came.
struct DecodedRun {
  std::size_t bytes; ///< how many were read
  std::size_t units; ///< how many were written
};

/// Decodes the sound UTF-8 that `utf8` begins with, as long as there is room for a block of ASCII;
/// so much may be written behind the last unit too.
[[nodiscard]] DecodedRun decodeSoundRun(std::string_view utf8, char16_t* output,
                                        std::size_t room) noexcept;

/// The same without vectors of the processor.
[[nodiscard]] DecodedRun decodeSoundRunPlainly(std::string_view utf8, char16_t* output,
                                               std::size_t room) noexcept;

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

  /// Appends the sound UTF-8 that `utf8` begins with.
  /// @returns how many bytes that are
  std::size_t appendSound(std::string_view utf8) {
    std::size_t done = 0;
    for (;;) {
      const DecodedRun run =
          decodeSoundRun(utf8.substr(done), m_units.data() + m_used, m_units.size() - m_used);
      m_used += run.units;
      done += run.bytes;
      if (m_units.size() - m_used > kLeastRoom) {
        return done; // No lack of room ended it.
      }
      flush();
    }
  }

  /// So much room a run needs to go on.
  static constexpr std::size_t kLeastRoom = kAsciiBlock;

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
  for (std::size_t at = gatherer.appendSound(utf8); at < utf8.size();
       at += gatherer.appendSound(utf8.substr(at))) {
    at = onIllegal(gatherer, at, utf8SequenceAt(utf8, at).length);
  }
}

/// The decoded text; absent when anything in it is no UTF-8.
[[nodiscard]] std::optional<Text> textFromSoundUtf8(std::string_view utf8);

} // namespace cardwright
