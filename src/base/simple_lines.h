#pragma once

#include "base/large_memory.h"
#include "cardwright/text.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace cardwright {

/// A physical line that is a content line by itself, or the boundary of a card: nothing in it has
/// to be decoded, joined or cut before it is read.
class SimpleLine {
 public:
  enum class Kind : std::uint8_t {
    property, ///< a property of sound form, not VERSION
    other,    ///< a line whose form has still to be checked
    cardBegin,
    cardEnd
  };

  static constexpr std::uint32_t kLongest = std::numeric_limits<std::uint32_t>::max() >> 2U;

  SimpleLine(std::uint32_t begin, std::uint32_t size, Kind kind) noexcept
      : m_begin(begin), m_sizeAndKind((size << 2U) | static_cast<std::uint32_t>(kind)) {}

  [[nodiscard]] std::size_t begin() const noexcept { return m_begin; }
  [[nodiscard]] std::size_t size() const noexcept { return m_sizeAndKind >> 2U; }
  [[nodiscard]] std::size_t end() const noexcept { return begin() + size(); }
  [[nodiscard]] Kind kind() const noexcept { return static_cast<Kind>(m_sizeAndKind & 3U); }

 private:
  std::uint32_t m_begin;
  std::uint32_t m_sizeAndKind;
};

/// The simple lines of a text, noted by who went over it before the reader.
class SimpleLines {
 public:
  /// Makes room for the lines of a text of ordinary cards.
  void reserveFor(std::size_t textSize) { reserveLarge(m_lines, textSize / kOrdinaryLine + 1); }
  /// Lines that lie too far behind to be noted are left out.
  void add(std::size_t begin, std::size_t end, SimpleLine::Kind kind) {
    if (end <= std::numeric_limits<std::uint32_t>::max() && end - begin <= SimpleLine::kLongest) {
      m_lines.emplace_back(static_cast<std::uint32_t>(begin),
                           static_cast<std::uint32_t>(end - begin), kind);
    }
  }
  void clear() { m_lines = {}; }

  [[nodiscard]] std::span<const SimpleLine> lines() const noexcept { return m_lines; }

 private:
  static constexpr std::size_t kOrdinaryLine = 24;

  std::vector<SimpleLine> m_lines;
};

/// Finds the simple lines of a text at ascending places.
class SimpleLineCursor {
 public:
  explicit SimpleLineCursor(std::span<const SimpleLine> lines) noexcept : m_lines(lines) {}

  /// The simple line that begins at the location, or null.
  [[nodiscard]] const SimpleLine* at(std::size_t location) noexcept {
    while (!m_lines.empty() && m_lines.front().begin() < location) {
      m_lines = m_lines.subspan(1);
    }
    return !m_lines.empty() && m_lines.front().begin() == location ? &m_lines.front() : nullptr;
  }

  /// Whether nothing but a line end can stand between the line last found and the next simple one.
  [[nodiscard]] bool isNextBehindLineEnd() const noexcept {
    constexpr std::size_t kLineEnd = 2;
    return m_lines.size() > 1 && m_lines[1].begin() - m_lines.front().end() <= kLineEnd;
  }
  [[nodiscard]] std::size_t beginOfNext() const noexcept { return m_lines[1].begin(); }

 private:
  std::span<const SimpleLine> m_lines;
};

} // namespace cardwright
