#pragma once

#include "cardwright/cleaner_pattern.h"
#include "cardwright/text.h"

#include <unicode/uregex.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace cardwright {

/// A pattern as ICU's own engine compiles and matches it: what our scanners are held to.
class IcuPattern {
 public:
  using Match = CleanerPattern::Match;

  IcuPattern(TextView pattern, bool ignoresCase) {
    UErrorCode status = U_ZERO_ERROR;
    m_expression.reset(uregex_open(
        reinterpret_cast<const UChar*>(pattern.data()), static_cast<int32_t>(pattern.size()),
        ignoresCase ? uint32_t{UREGEX_CASE_INSENSITIVE} : 0U, nullptr, &status));
    m_groups = U_SUCCESS(status) ? uregex_groupCount(m_expression.get(), &status) : 0;
    if (U_FAILURE(status)) {
      throw std::runtime_error(u_errorName(status));
    }
  }
  explicit IcuPattern(const CleanerPattern& pattern)
      : IcuPattern(pattern.pattern(), pattern.ignoresCase()) {}

  [[nodiscard]] int32_t numberOfCaptureGroups() const noexcept { return m_groups; }

  /// All matches, or nothing when the engine gives up.
  [[nodiscard]] std::optional<std::vector<Match>> matches(TextView text) {
    URegularExpression* expression = m_expression.get();
    UErrorCode status = U_ZERO_ERROR;
    // A null pointer would not do for an empty text.
    const char16_t* data = text.empty() ? u"" : text.data();
    uregex_setText(expression, reinterpret_cast<const UChar*>(data),
                   static_cast<int32_t>(text.size()), &status);
    std::vector<Match> found;
    while (uregex_findNext(expression, &status) != 0) {
      Match match{rangeOf(0, status), std::nullopt};
      if (m_groups > 0) {
        match.capture = rangeOf(1, status);
      }
      found.push_back(match);
    }
    return U_SUCCESS(status) ? std::optional(std::move(found)) : std::nullopt;
  }

 private:
  [[nodiscard]] TextRange rangeOf(int32_t group, UErrorCode& status) const {
    const auto start = static_cast<std::size_t>(uregex_start(m_expression.get(), group, &status));
    const auto end = static_cast<std::size_t>(uregex_end(m_expression.get(), group, &status));
    return {start, end - start};
  }

  struct Close {
    void operator()(URegularExpression* expression) const { uregex_close(expression); }
  };

  std::unique_ptr<URegularExpression, Close> m_expression;
  int32_t m_groups = 0;
};

} // namespace cardwright
