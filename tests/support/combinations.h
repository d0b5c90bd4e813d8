#pragma once

#include <cstddef>
#include <vector>

namespace cardwright {

/// Calls `test` with every string over the alphabet that has at most `longest` letters.
template <typename String, typename Test>
void forEachCombination(const String& alphabet, std::size_t longest, Test test) {
  String text;
  std::vector<std::size_t> letters;
  for (std::size_t length = 0; length <= longest; ++length) {
    letters.assign(length, 0);
    text.assign(length, alphabet[0]);
    for (;;) {
      test(text);
      std::size_t i = 0;
      while (i < length && letters[i] + 1 == alphabet.size()) {
        letters[i] = 0;
        text[i] = alphabet[0];
        ++i;
      }
      if (i == length) {
        break;
      }
      ++letters[i];
      text[i] = alphabet[letters[i]];
    }
  }
}

/// A random string over the alphabet.
template <typename String, typename Random>
String randomString(const String& alphabet, std::size_t length, Random& random) {
  String text;
  for (std::size_t i = 0; i < length; ++i) {
    text.push_back(alphabet[random() % alphabet.size()]);
  }
  return text;
}

} // namespace cardwright
