#pragma once

#include <cardwright/text.h>

#include <cstddef>

namespace cardwright::tool {

/// A few words to stand in a row: none is empty, none comes twice (ASCII case aside), and where
/// there are too many to read an ellipsis stands for the rest.
class WordList {
 public:
  static constexpr std::size_t kMost = 8;

  void add(TextView word);
  void add(const WordList& words);

  [[nodiscard]] const TextList& words() const noexcept { return m_words; }
  [[nodiscard]] bool isEmpty() const noexcept { return m_words.empty(); }

 private:
  TextList m_words;
};

} // namespace cardwright::tool
