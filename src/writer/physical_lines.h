#pragma once

#include "writer/folding.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <string_view>

namespace cardwright {

/// Gathers physical lines before they go into a string, for which each piece is a call.
template <typename Unit>
class PhysicalLines {
 public:
  using String = std::basic_string<Unit>;
  using View = std::basic_string_view<Unit>;

  explicit PhysicalLines(String& output) noexcept : m_output(output) {}
  PhysicalLines(const PhysicalLines&) = delete;
  PhysicalLines& operator=(const PhysicalLines&) = delete;
  ~PhysicalLines() { flush(); }

  void append(View piece) {
    if (m_units.size() - m_used < piece.size() + kEnd.size()) {
      flush();
      if (piece.size() > m_units.size() / 2) {
        m_output.append(piece).append(View(kEnd.data(), kEnd.size()));
        return;
      }
    }
    put(piece);
    put(View(kEnd.data(), kEnd.size()));
  }
  void appendContinuation(View piece) {
    if (m_used == m_units.size()) {
      flush();
    }
    m_units[m_used++] = Unit{' '};
    append(piece);
  }

 private:
  static constexpr std::array<Unit, 2> kEnd = {Unit{'\r'}, Unit{'\n'}};

  void put(View piece) noexcept {
    // The length of most lines is known to the compiler.
    constexpr std::size_t kMostOften = kLineBytes - 1;
    Unit* const units = m_units.data() + m_used;
    if (piece.size() == kMostOften) {
      std::memcpy(units, piece.data(), kMostOften * sizeof(Unit));
    } else {
      std::copy(piece.begin(), piece.end(), units);
    }
    m_used += piece.size();
  }

  void flush() {
    m_output.append(m_units.data(), m_used);
    m_used = 0;
  }

  String& m_output;
  std::size_t m_used = 0;
  std::array<Unit, 4096 / sizeof(Unit)> m_units; // NOLINT: filled as far as m_used tells
};

} // namespace cardwright
