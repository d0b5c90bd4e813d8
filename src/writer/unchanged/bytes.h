#pragma once

#include "base/ascii.h"
#include "cardwright/text.h"

#include <cstddef>
#include <cstring>
#include <string_view>

namespace cardwright {

/// Operations on Bytes may write and read this many behind what they append.
inline constexpr std::size_t kBeyondBytes = 32;

/// Takes bytes of UTF-8 into memory, without a look at whether they fit: who appends knows from
/// the line that they come from how many there may be at most.
class Bytes {
 public:
  Bytes(char* memory, std::size_t size) noexcept
      : m_begin(memory), m_end(memory), m_roomEnd(memory + size) {}

  /// Appends a text of ASCII.
  void append(TextView text) noexcept {
    for (const char16_t unit : text) {
      push_back(unit);
    }
  }
  void appendUpper(TextView word) noexcept {
    for (const char16_t unit : word) {
      push_back(asciiUpper(unit));
    }
  }
  void append(std::size_t count, char byte) noexcept {
    std::memset(m_end, byte, count);
    m_end += count;
  }
  /// @param unit of ASCII
  void push_back(char16_t unit) noexcept { *m_end++ = static_cast<char>(unit); }
  /// Appends a text that may be followed by kBeyondBytes that are only read.
  void appendBlocks(std::string_view text) noexcept {
    constexpr std::size_t kBlock = 32;
    static_assert(kBlock <= kBeyondBytes);
    for (std::size_t at = 0; at < text.size(); at += kBlock) {
      std::memcpy(m_end + at, text.data() + at, kBlock);
    }
    m_end += text.size();
  }

  [[nodiscard]] char* end() noexcept { return m_end; }
  /// Takes over what was written to end().
  void setEnd(char* end) noexcept { m_end = end; }
  /// How many bytes there is room for.
  [[nodiscard]] std::size_t room() const noexcept {
    return static_cast<std::size_t>(m_roomEnd - m_end);
  }
  [[nodiscard]] std::size_t size() const noexcept {
    return static_cast<std::size_t>(m_end - m_begin);
  }
  void resize(std::size_t size) noexcept { m_end = m_begin + size; }
  [[nodiscard]] std::string_view view() const noexcept { return {m_begin, size()}; }

 private:
  char* m_begin;
  char* m_end;
  char* m_roomEnd;
};

} // namespace cardwright
