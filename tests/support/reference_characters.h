#pragma once

#include "cardwright/text.h"

#include <unicode/ubrk.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace cardwright {

/// Cuts texts into characters by ICU's iterator alone.
class ReferenceCharacters {
 public:
  ReferenceCharacters() {
    UErrorCode status = U_ZERO_ERROR;
    m_iterator.reset(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status));
  }

  std::vector<Text> of(TextView text) {
    UErrorCode status = U_ZERO_ERROR;
    ubrk_setText(m_iterator.get(), reinterpret_cast<const UChar*>(text.data()),
                 static_cast<int32_t>(text.size()), &status);
    std::vector<Text> characters;
    int32_t begin = 0;
    for (int32_t end = ubrk_next(m_iterator.get()); end != UBRK_DONE;
         end = ubrk_next(m_iterator.get())) {
      characters.emplace_back(
          text.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin)));
      begin = end;
    }
    return characters;
  }

 private:
  struct Close {
    void operator()(UBreakIterator* iterator) const { ubrk_close(iterator); }
  };

  std::unique_ptr<UBreakIterator, Close> m_iterator;
};

} // namespace cardwright
