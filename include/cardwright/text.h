#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

/// Cardwright: reads, repairs and writes vCards 2.1, 3.0 (RFC 2426) and 4.0 (RFC 6350).
namespace cardwright {

/// Text inside the library: UTF-16, so that every position and length is a number of code units.
/// Lone surrogates are legal content.
using Text = std::u16string;

/// Borrowed text. A getter's view stays valid as long as its object lives and is not changed.
using TextView = std::u16string_view;

/// Texts in order, duplicates kept.
using TextList = std::vector<Text>;

/// A part of a text, in UTF-16 code units.
struct TextRange {
  /// The location that means "not found".
  static constexpr std::size_t kNotFound =
      static_cast<std::size_t>(std::numeric_limits<std::int64_t>::max());

  std::size_t location = kNotFound; ///< of the first code unit
  std::size_t length = 0;           ///< number of code units

  /// Whether both are the same part.
  friend constexpr bool operator==(const TextRange&, const TextRange&) = default;
};

/// Which vCard version a text is read or written as: 0 not known, 2, 3 and 4 for "2.1", "3.0"
/// and "4.0". Codes above 4 are treated like 4, 1 and negative codes like 0.
using VersionCode = std::int64_t;

} // namespace cardwright
