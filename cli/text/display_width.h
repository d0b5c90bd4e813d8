#pragma once

#include <cardwright/text.h>

#include <cstddef>

struct UBreakIterator;

namespace cardwright::tool {

/// Measures how many columns of a terminal texts take, character by character as a reader sees
/// them: East Asian wide characters take two, marks that combine with what stands before them none,
/// and an emoji two, however many code points it is made of.
class DisplayWidth {
 public:
  DisplayWidth() = default;
  DisplayWidth(const DisplayWidth&) = delete;
  DisplayWidth& operator=(const DisplayWidth&) = delete;
  ~DisplayWidth();

  [[nodiscard]] std::size_t columns(TextView text);

 private:
  UBreakIterator* m_characters = nullptr; ///< made when the first text needs it
};

/// Whether every character of a text that is not empty is an East Asian wide one, as in names and
/// addresses that are written from the large to the small and without blanks.
[[nodiscard]] bool isWideThroughout(TextView text);

} // namespace cardwright::tool
