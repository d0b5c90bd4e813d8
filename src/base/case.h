#pragma once

#include "base/ascii.h"
#include "cardwright/text.h"

#include <array>
#include <cstddef>
#include <optional>

namespace cardwright {

// Case by Unicode's full mappings under a fixed locale, so that no result depends on the user's.
// ASCII never reaches ICU.

[[nodiscard]] Text upperCased(TextView text);
[[nodiscard]] Text lowerCased(TextView text);

/// The upper-cased form of a name for a look-up, without an allocation for ordinary names. Holds a
/// view of the name itself where that is upper case already, so the name must outlive it.
class UpperCasedName {
 public:
  explicit UpperCasedName(TextView name);
  UpperCasedName(const UpperCasedName&) = delete;
  UpperCasedName& operator=(const UpperCasedName&) = delete;
  ~UpperCasedName() = default;

  [[nodiscard]] TextView view() const noexcept { return m_view; }
  /// Whether the view is the name itself.
  [[nodiscard]] bool isOriginal() const noexcept { return m_isOriginal; }

 private:
  TextView m_view;
  bool m_isOriginal = false;
  std::array<char16_t, 48> m_buffer; // NOLINT: filled as far as the view reaches
  Text m_long;
};

/// The full case folding, so that equal results mean equality without regard to case.
[[nodiscard]] Text caseFolded(TextView text);

/// Equality by full case folding.
[[nodiscard]] bool equalIgnoringCase(TextView a, TextView b);

/// Part of a text that equals another text without regard to case.
struct FoldedMatch {
  std::size_t position;
  std::size_t length; ///< in units of the searched text: folding can change lengths
};

/// How many units of `text` from `position` on fold to all of `lowerAscii`; absent when they do
/// not. A character is matched whole or not at all.
[[nodiscard]] std::optional<std::size_t>
prefixLengthIgnoringCase(TextView text, std::size_t position, TextView lowerAscii);

/// The first place from `from` on where the text folds to `lowerAscii`, a lower-case ASCII text.
[[nodiscard]] std::optional<FoldedMatch> findIgnoringCase(TextView text, TextView lowerAscii,
                                                          std::size_t from = 0);

/// Whether the text holds `part`, both folded. A character is matched whole or not at all; an empty
/// part is in every text. Linear in both.
[[nodiscard]] bool containsIgnoringCase(TextView text, TextView part);

} // namespace cardwright
