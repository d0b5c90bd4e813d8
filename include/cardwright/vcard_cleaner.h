#pragma once

#include "cardwright/character_set.h"
#include "cardwright/cleaner_pattern.h"
#include "cardwright/cleaning_repair.h"
#include "cardwright/text.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cardwright {

/// The sanitiser: repairs damaged vCard text before it is read, and tells what it did in one line
/// for each repair.
///
/// Only text that is nothing but cards, white space around them aside, is touched at all. Lines
/// that need nothing stay as they are, and a text that needs nothing comes back as it came.
///
/// An object belongs to one thread at a time. The class operations are pure functions and may be
/// called from any thread. A *logical line* is a line after unfolding, without its line end; its
/// *header* is what stands before its first colon outside double quotes, and its *value* what
/// stands behind it. Positions are UTF-16 code units; names are handed out in upper case.
class [[gnu::visibility("default")]] VCardCleaner {
 public:
  VCardCleaner() = default;

  // Cleaning

  /// Repairs a text. Never fails: what cannot be repaired comes back as it was.
  Text clean(TextView vCardString);
  /// The same for UTF-8.
  std::string clean(std::string_view utf8);
  /// The same as clean, under the name that the reader uses.
  Text cleanWithVCardString(TextView vCardString);

  /// Whether the last run changed the text.
  [[nodiscard]] bool lastDidClean() const noexcept {
    return m_lastDidClean;
  }
  /// Sets what lastDidClean() tells until the next run.
  void setLastDidClean(bool didClean) noexcept {
    m_lastDidClean = didClean;
  }

  /// What the last run repaired, in the order of the repairs.
  [[nodiscard]] const TextList& lastCleaningSummaries() const noexcept {
    return m_lastCleaningSummaries;
  }
  /// Sets what lastCleaningSummaries() tells until the next run.
  void setLastCleaningSummaries(TextList summaries) {
    m_lastCleaningSummaries = std::move(summaries);
  }

  /// The same repairs with the lines they changed, in text order: a summary may stand for several,
  /// and the join of a soft break has none of its own.
  [[nodiscard]] const std::vector<CleaningRepair>& lastRepairs() const noexcept {
    return m_lastRepairs;
  }

  /// Whether each run counts its lines from zero. Nothing is logged either way.
  [[nodiscard]] bool debugLoggingEnabled() const noexcept {
    return m_debugLoggingEnabled;
  }
  /// Sets whether each run counts its lines from zero.
  void setDebugLoggingEnabled(bool enabled) noexcept {
    m_debugLoggingEnabled = enabled;
  }

  // Lines

  /// Joins folded lines. Any of CR LF, CR and LF ends a physical line; empty lines at the end are
  /// dropped.
  [[nodiscard]] static TextList unfoldLines(TextView text);
  /// Joins quoted-printable values that were cut at a soft break without an indentation.
  [[nodiscard]] static TextList mergeQuotedPrintableSoftBreaks(const TextList& lines);
  /// Cuts a logical line into physical lines of at most 75 bytes of UTF-8, behind white space where
  /// that is possible, and never inside a character.
  [[nodiscard]] static TextList foldLine75(TextView line);

  // What a line is

  /// The first colon outside double quotes, if any. Backslashes mean nothing here.
  [[nodiscard]] static std::optional<std::size_t> firstUnquotedColonIndex(TextView line);
  /// The property name of a line, without group label and parameters; absent without a colon.
  [[nodiscard]] static std::optional<Text> propertyNameUpper(TextView line);

  /// Whether the line holds the text, without regard to case. An empty text is in every line.
  [[nodiscard]] static bool fastContains(TextView line, TextView substring);
  /// Number of colons, inside quotes and values too.
  [[nodiscard]] static std::int64_t countColonsIn(TextView line);
  /// The line without white space and line breaks at its end: a view of it.
  [[nodiscard]] static TextView trimTrailingWhitespace(TextView line);
  /// Whether a name is on the allowlist: one of allowlistFixedUpper, exactly, or matched by one of
  /// allowlistPatternRegexes.
  [[nodiscard]] static bool isAllowlistedProperty(TextView name);
  /// Whether allowedHeaderRegex matches at the start of the line.
  [[nodiscard]] static bool startsWithAllowedHeader(TextView line);
  /// Whether anyUpperHeaderRegex matches at the start of the line.
  [[nodiscard]] static bool startsWithAnyHeader(TextView line);
  /// Whether the line's header says ENCODING=QUOTED-PRINTABLE.
  [[nodiscard]] static bool lineUsesQuotedPrintable(TextView line);
  /// Whether the line ends in "=", blanks aside.
  [[nodiscard]] static bool lineHasQuotedPrintableSoftBreak(TextView line);
  /// The line without blanks at its end and then without one "=": a view of it.
  [[nodiscard]] static TextView removeQuotedPrintableSoftBreakSuffixFrom(TextView line);
  /// Whether the line is a bare URI, which belongs to the value before it.
  [[nodiscard]] static bool lineLooksLikeStandaloneUriContinuation(TextView line);
  /// Whether what stands before the first colon outside quotes could be a header.
  [[nodiscard]] static bool isPlausiblePropertyHeader(TextView line);

  // Merged lines

  /// Cuts a line into which several properties were merged. A line that is not safe to cut comes
  /// back whole, as the only one.
  [[nodiscard]] static TextList segmentMergedLineIfSafe(TextView line);
  /// Repairs what a cut left on the wrong side, and the values of notes and members.
  [[nodiscard]] static TextList postProcessSegmentsAfterSplit(TextList segments);

  // Duplicates

  /// Whether any line is of a property that a card may hold only once, or a member.
  [[nodiscard]] static bool containsSingularPropertyIn(const TextList& lines);
  /// Removes repeats inside each card of the lines.
  [[nodiscard]] static TextList deduplicateSingularProperties(const TextList& lines);
  /// Removes repeats from the lines of one card: the last of a singular property stays.
  [[nodiscard]] static TextList deduplicateSingularPropertiesWithinCard(const TextList& lines);
  /// Removes repeated members from the lines of one card: the first of a value stays.
  [[nodiscard]] static TextList deduplicateMemberDuplicatesWithinCard(const TextList& lines);

  // Notes and members

  /// Cuts a member value at the line breaks that are written as numeric entities.
  [[nodiscard]] static TextList splitMemberNumericEntitiesWithHeader(TextView header,
                                                                     TextView value);
  /// Writes the line breaks of a note that are numeric entities as "\n".
  [[nodiscard]] static Text decodeNoteNumericEntitiesToEscapes(TextView value);
  /// The value without numeric entities of line breaks at its end: a view of it.
  [[nodiscard]] static TextView trimTrailingNoteSeparators(TextView value);
  /// The value without the name of an allowlisted extension that was glued to its end: a view of
  /// it.
  [[nodiscard]] static TextView trimDanglingExtendedFragmentsInValue(TextView value);
  /// Upper case under identifierLocale, letters beyond ASCII too.
  [[nodiscard]] static Text asciiUppercased(TextView text);
  /// Lower case under identifierLocale, letters beyond ASCII too.
  [[nodiscard]] static Text asciiLowercased(TextView text);

  // Vocabulary. Lists stand in their declared order, which means nothing.

  /// The line end of cleaned text.
  [[nodiscard]] static TextView CRLF() noexcept;
  /// Name of group members.
  [[nodiscard]] static TextView const_memberUpper() noexcept;
  /// The locale of all case mapping.
  [[nodiscard]] static std::string_view identifierLocale() noexcept;
  /// What may stand around cards: white space, line breaks, byte-order marks, zero-width spaces.
  [[nodiscard]] static const CharacterSet& envelopeTrimCharacterSet();
  /// Shortest name that counts as a torn-off header, in characters.
  [[nodiscard]] static std::int64_t minExtendedFragmentLength() noexcept;

  /// Names that are trusted to begin a property.
  [[nodiscard]] static std::span<const TextView> allowlistFixedUpper() noexcept;
  /// Names that are recognised as property names.
  [[nodiscard]] static std::span<const TextView> canonicalPropertyTokensUpper() noexcept;
  /// Names of which a card holds one property at most.
  [[nodiscard]] static std::span<const TextView> singularPropertiesUpper() noexcept;
  /// Allowlisted names that carry a number, as alternatives of a pattern.
  [[nodiscard]] static std::span<const TextView> allowlistPatternAlternations() noexcept;

  /// Each of allowlistPatternAlternations as a pattern for a whole name.
  [[nodiscard]] static std::span<const CleanerPattern> allowlistPatternRegexes();
  /// A group label and its dot at the start of a text.
  [[nodiscard]] static const CleanerPattern& groupPrefixRegex();
  /// The name of an extension at the end of a text.
  [[nodiscard]] static const CleanerPattern& danglingFragmentRegex();
  /// The same with parameters and blanks behind it.
  [[nodiscard]] static const CleanerPattern& trailingExtendedHeaderFragmentRegex();
  /// A header with an allowlisted name, group label and colon included, anywhere in a text.
  [[nodiscard]] static const CleanerPattern& allowedHeaderRegex();
  /// A header with a standard name or that of any extension; captures the name.
  [[nodiscard]] static const CleanerPattern& anyUpperHeaderRegex();

 private:
  /// Lets the tests see the counters, which are there for a debugger.
  friend struct VCardCleanerCounters;

  bool m_debugLoggingEnabled = false;
  std::int64_t m_debugTotalLines = 0;     ///< logical lines looked at
  std::int64_t m_debugFastPathLines = 0;  ///< of these, lines handed on as they were
  std::int64_t m_debugSanitizedLines = 0; ///< of these, lines that were repaired
  bool m_lastDidClean = false;
  TextList m_lastCleaningSummaries;
  std::vector<CleaningRepair> m_lastRepairs;
};

} // namespace cardwright
