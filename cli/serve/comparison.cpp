#include "serve/comparison.h"

#include <algorithm>
#include <cstddef>

namespace cardwright::tool {

namespace {

constexpr std::size_t kContext = 120; // units of what is alike
constexpr std::size_t kMostChanged = 2000;
constexpr TextView kEllipsis = u"…";

constexpr bool isHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool isLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

/// Whether a place lies within a character.
bool splits(TextView text, std::size_t at) {
  return at > 0 && at < text.size() && isHighSurrogate(text[at - 1]) && isLowSurrogate(text[at]);
}

/// The end of a long text.
Text endOf(TextView text, std::size_t mostUnits) {
  if (text.size() <= mostUnits) {
    return Text(text);
  }
  std::size_t from = text.size() - mostUnits;
  from += splits(text, from) ? 1 : 0;
  return Text(kEllipsis).append(text.substr(from));
}

Excerpt excerpt(TextView text, std::size_t alikeBefore, std::size_t alikeBehind) {
  const std::size_t changed = text.size() - alikeBefore - alikeBehind;
  return {endOf(text.substr(0, alikeBefore), kContext),
          beginningOf(text.substr(alikeBefore, changed), kMostChanged),
          beginningOf(text.substr(alikeBefore + changed), kContext)};
}

} // namespace

Text beginningOf(TextView text, std::size_t mostUnits) {
  if (text.size() <= mostUnits) {
    return Text(text);
  }
  return Text(text.substr(0, mostUnits - (splits(text, mostUnits) ? 1 : 0))).append(kEllipsis);
}

Comparison compared(TextView before, TextView after) {
  const std::size_t shorter = std::min(before.size(), after.size());
  std::size_t front = 0;
  while (front < shorter && before[front] == after[front]) {
    ++front;
  }
  front -= splits(before, front) || splits(after, front) ? 1 : 0;
  std::size_t back = 0;
  while (back < shorter - front &&
         before[before.size() - 1 - back] == after[after.size() - 1 - back]) {
    ++back;
  }
  back -= splits(before, before.size() - back) || splits(after, after.size() - back) ? 1 : 0;
  return {excerpt(before, front, back), excerpt(after, front, back)};
}

} // namespace cardwright::tool
