#pragma once

#include "base/readable_text.h"
#include "writer/unchanged/header.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace cardwright {

/// Remembers how headers are rewritten: the lines of an address book have a few dozen different
/// ones, and what is long to find out is quickly looked up. Each thread has one.
class HeaderMemory {
 public:
  struct Found {
    LineHeader header; ///< only its name where it was not rewritten
    bool isRewritten;  ///< false where only the property can tell
  };

  /// The same as nameOf and rewriteHeader, and appends nothing where that fails.
  /// @returns what the memory holds until the next call; null where nameOf finds no name
  [[nodiscard]] const Found* rewrite(Bytes& output, const ReadableText& line,
                                     const HeaderTask& task);

 private:
  /// Longer headers are rewritten each time.
  static constexpr std::size_t kLongest = 64;
  static constexpr std::size_t kLongestWritten = 96;
  /// So many are remembered; with the next one, all are forgotten.
  static constexpr std::size_t kMost = 250;
  static constexpr std::size_t kPlaces = 1024;
  /// Headers that would share more places are not remembered.
  static constexpr std::size_t kProbes = 8;

  /// The front of a line up to its colon, a byte for each unit, zero behind it.
  struct Key {
    std::array<std::uint64_t, kLongest / sizeof(std::uint64_t)> words;

    friend bool operator==(const Key& a, const Key& b) noexcept {
      std::uint64_t difference = 0;
      for (std::size_t i = 0; i < a.words.size(); ++i) {
        difference |= a.words[i] ^ b.words[i];
      }
      return difference == 0;
    }
  };

  struct Entry {
    Key key{}; ///< of zeros for none
    HeaderTask task{};
    Found found{};
    std::size_t size = 0; ///< of what is written
    std::array<char, kLongestWritten + kBeyondBytes> written{};
  };

  [[nodiscard]] const Found* rewriteAfresh(Bytes& output, TextView line, const HeaderTask& task);
  void remember(std::size_t place, const Entry& entry);
  [[nodiscard]] static bool keyOf(const ReadableText& line, Key& key) noexcept;
  [[nodiscard]] static std::size_t placeOf(const Key& key, const HeaderTask& task) noexcept;

  std::vector<Entry> m_entries;
  /// Number of an entry, and one more, at its hash or a place behind it; 0 for none.
  std::array<std::uint8_t, kPlaces> m_places{};
  Found m_fresh{}; ///< of the last header that was not looked up
};

} // namespace cardwright
