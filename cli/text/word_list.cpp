#include "text/word_list.h"

#include "text/words.h"

#include <algorithm>

namespace cardwright::tool {

void WordList::add(TextView word) {
  const auto isSame = [&](const Text& other) { return equalsIgnoringCase(other, word); };
  if (word.empty() || m_words.size() > kMost ||
      std::any_of(m_words.begin(), m_words.end(), isSame)) {
    return;
  }
  m_words.emplace_back(m_words.size() < kMost ? word : TextView(u"…"));
}

void WordList::add(const WordList& words) {
  for (const Text& word : words.m_words) {
    add(word);
  }
}

} // namespace cardwright::tool
