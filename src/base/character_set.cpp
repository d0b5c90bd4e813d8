#include "cardwright/character_set.h"

#include <algorithm>

namespace cardwright {

namespace {

constexpr char32_t kLastCodePoint = 0x10FFFF;

} // namespace

CharacterSet::CharacterSet(std::initializer_list<Range> ranges) {
  add(std::vector<Range>(ranges));
}

CharacterSet CharacterSet::fromCharacters(TextView characters) {
  std::vector<Range> ranges;
  ranges.reserve(characters.size());
  for (const char16_t unit : characters) {
    ranges.push_back({unit, unit});
  }
  CharacterSet set;
  set.add(std::move(ranges));
  return set;
}

CharacterSet CharacterSet::inverted() const {
  std::vector<Range> ranges;
  char32_t next = 0;
  for (const Range& range : m_ranges) {
    if (range.first > next) {
      ranges.push_back({next, range.first - 1});
    }
    next = range.last + 1;
  }
  if (next <= kLastCodePoint) {
    ranges.push_back({next, kLastCodePoint});
  }
  CharacterSet set;
  set.add(std::move(ranges));
  return set;
}

void CharacterSet::add(std::vector<Range> ranges) {
  std::sort(ranges.begin(), ranges.end(),
            [](const Range& a, const Range& b) { return a.first < b.first; });
  for (Range range : ranges) {
    range.last = std::min(range.last, kLastCodePoint);
    if (range.first > range.last) {
      continue;
    }
    if (!m_ranges.empty() && range.first <= m_ranges.back().last + 1) {
      m_ranges.back().last = std::max(m_ranges.back().last, range.last);
    } else {
      m_ranges.push_back(range);
    }
  }
  for (char32_t c = 0; c < 128; ++c) {
    if (isInRanges(c)) {
      m_ascii[c / 64] |= std::uint64_t{1} << (c % 64);
    }
  }
}

bool CharacterSet::isInRanges(char32_t codePoint) const noexcept {
  const auto behind =
      std::upper_bound(m_ranges.begin(), m_ranges.end(), codePoint,
                       [](char32_t c, const Range& range) { return c < range.first; });
  return behind != m_ranges.begin() && codePoint <= std::prev(behind)->last;
}

} // namespace cardwright
