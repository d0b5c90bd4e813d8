#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace cardwright {

/// A pattern of the cleaner: a regular expression in ICU's syntax together with what finds its
/// matches. No expression is ever compiled: each pattern is matched by a scanner of its own, in
/// time linear in the text for all matches together, and gives the matches that the expression
/// means.
///
/// Patterns may be used from several threads at once.
class [[gnu::visibility("default")]] CleanerPattern {
 public:
  /// What a pattern matches.
  enum class Kind {
    groupPrefix,
    danglingFragment,
    trailingHeaderFragment,
    allowedHeader,
    anyUpperHeader,
    numberedConfigName,
  };

  /// Ranges are in UTF-16 code units of the searched text.
  struct Match {
    TextRange range;                  ///< the whole match
    std::optional<TextRange> capture; ///< group 1, where the pattern has one

    /// Whether both are the same places.
    friend constexpr bool operator==(const Match&, const Match&) = default;
  };

  /// A pattern that matches what the kind says; the text of the expression is kept for pattern().
  CleanerPattern(Kind kind, Text pattern, bool ignoresCase);

  /// The text of the expression.
  [[nodiscard]] TextView pattern() const noexcept {
    return m_pattern;
  }
  /// Whether the expression is meant without regard to case beyond what its own text says.
  [[nodiscard]] bool ignoresCase() const noexcept {
    return m_ignoresCase;
  }
  /// 0 or 1.
  [[nodiscard]] std::size_t numberOfCaptureGroups() const noexcept;

  /// The leftmost match.
  [[nodiscard]] std::optional<Match> firstMatch(TextView text) const;
  /// All matches from left to right; none overlaps another.
  [[nodiscard]] std::vector<Match> matches(TextView text) const;

 private:
  Text m_pattern;
  Kind m_kind;
  bool m_ignoresCase;
};

} // namespace cardwright
