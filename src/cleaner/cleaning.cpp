#include "cleaner/cleaning.h"

#include "base/large_memory.h"
#include "base/scan_lanes.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard_cleaner.h"
#include "cleaner/duplicates.h"
#include "cleaner/envelope.h"
#include "cleaner/folding.h"
#include "cleaner/line_name.h"
#include "cleaner/line_repair.h"
#include "cleaner/separators.h"
#include "cleaner/soft_breaks.h"
#include "cleaner/vocabulary.h"

#include <algorithm>
#include <deque>
#include <iterator>

namespace cardwright {

namespace {

constexpr TextView kSeparatorsSummary = u"Normalized malformed CRCRLF separators";
constexpr TextView kDuplicatesSummary = u"Removed duplicate metadata properties";
constexpr TextView kGeneralSummary = u"Performed vCard normalization";

/// What is to be changed in the logical lines of a text.
struct Edits {
  struct Replacement {
    std::size_t line;   ///< number of the logical line
    std::size_t repair; ///< number of the repair whose lines take its place
  };

  std::vector<Replacement> replacements;
  std::vector<std::size_t> repeats; ///< numbers of the lines left out, after replacing
  bool hasMerged = false;

  [[nodiscard]] bool areEmpty() const noexcept {
    return replacements.empty() && repeats.empty() && !hasMerged;
  }
};

SimpleLine::Kind simpleKindOf(const PlainLook& look) noexcept {
  if (look.kind == PlainLine::property) {
    return look.isSoundProperty ? SimpleLine::Kind::property : SimpleLine::Kind::other;
  }
  return look.kind == PlainLine::cardBegin ? SimpleLine::Kind::cardBegin
                                           : SimpleLine::Kind::cardEnd;
}

/// Looks for what has to be repaired.
class Inspection {
 public:
  Inspection(TextView text, Cleaning& cleaning, SimpleLines* simpleLines)
      : m_text(text),
        m_cleaning(cleaning),
        m_simpleLines(simpleLines),
        m_duplicates(m_edits.repeats) {}

  /// What is to be changed, whatever the line ends are.
  Edits run() {
    static_cast<void>(goOver(false));
    return std::move(m_edits);
  }
  /// The same; absent as soon as a CR stands before a CR, for then line ends are to be repaired
  /// first, if they can be. Plain lines end in no such pair, so it is looked for beside them only.
  std::optional<Edits> runUntilDoubledCr() {
    return goOver(true) ? std::optional(std::move(m_edits)) : std::nullopt;
  }

 private:
  bool goOver(bool stopsAtDoubledCr) {
    LogicalLines lines(m_text);
    UnfoldedLine line;
    PlainLook plain{};
    for (std::size_t number = 0;; ++number) {
      const std::size_t begin = lines.location();
      if (lines.passPlainLine(plain)) {
        ++m_cleaning.totalLines;
        ++m_outputLines;
        m_duplicates.pass(plain.kind);
        if (m_simpleLines != nullptr && plain.isSimple) {
          m_simpleLines->add(begin, plain.end, simpleKindOf(plain));
        }
        continue;
      }
      const bool hasLine = lines.next(line);
      if (stopsAtDoubledCr && holdsDoubledCr(begin, hasLine ? lines.location() : m_text.size())) {
        return false;
      }
      if (!hasLine) {
        break;
      }
      ++m_cleaning.totalLines;
      if (lines.wasMerged()) {
        m_edits.hasMerged = true;
        m_cleaning.repairs.push_back({CleaningRepairKind::softBreak,
                                      {line.begin, 1},
                                      Text(m_text.substr(line.begin, line.end - line.begin)),
                                      {Text(line.text)}});
      }
      if (std::optional<LineRepair> repair = repairLine(line.text)) {
        ++m_cleaning.repairedLines;
        m_cleaning.summaries.push_back(std::move(repair->summary));
        m_edits.replacements.push_back({number, m_cleaning.repairs.size()});
        m_cleaning.repairs.push_back(
            {repair->kind, {line.begin, 1}, Text(line.text), std::move(repair->lines)});
        for (const Text& replacement : m_cleaning.repairs.back().replacement) {
          lookForRepeat(replacement);
        }
      } else {
        lookForRepeat(line.isJoined && DuplicateFinder::isRemembered(line.text)
                          ? TextView(m_kept.emplace_back(line.text))
                          : line.text);
      }
    }
    m_duplicates.finishCard();
    if (!m_edits.repeats.empty()) {
      m_cleaning.summaries.emplace_back(kDuplicatesSummary);
    }
    return true;
  }

  [[nodiscard]] bool holdsDoubledCr(std::size_t begin, std::size_t end) const {
    return findDoubleCr(m_text.substr(begin, end + 1 - begin)) != TextView::npos;
  }

  void lookForRepeat(TextView line) { m_duplicates.take(line, m_outputLines++); }

  TextView m_text;
  Cleaning& m_cleaning;
  SimpleLines* m_simpleLines;
  Edits m_edits;
  DuplicateFinder m_duplicates;
  std::deque<Text> m_kept; ///< joined lines that may be asked for again
  std::size_t m_outputLines = 0;
};

/// Gives the lines of the cleaned text: those of the text with the edits made.
class EditedLines {
 public:
  /// @param repairs those that the edits speak of; others may be appended on the way
  EditedLines(TextView text, const Edits& edits, const std::vector<CleaningRepair>& repairs)
      : m_edits(edits), m_repairs(repairs), m_lines(text) {}

  /// @param repeats receives the lines that are left out on the way, when somebody wants them
  bool next(TextView& line, std::size_t& begin, std::vector<CleaningRepair>* repeats = nullptr) {
    while (nextBeforeRemoval(line)) {
      begin = m_line.begin;
      const bool isRepeat =
          m_repeat < m_edits.repeats.size() && m_edits.repeats[m_repeat] == m_outputNumber;
      ++m_outputNumber;
      if (!isRepeat) {
        return true;
      }
      ++m_repeat;
      if (repeats != nullptr) {
        repeats->push_back({CleaningRepairKind::duplicate, {begin, 1}, Text(line), {}});
      }
    }
    return false;
  }

 private:
  bool nextBeforeRemoval(TextView& line) {
    while (m_pending.empty()) {
      if (!m_lines.next(m_line)) {
        return false;
      }
      const bool isReplaced = m_replacement < m_edits.replacements.size() &&
                              m_edits.replacements[m_replacement].line == m_lineNumber;
      ++m_lineNumber;
      if (!isReplaced) {
        line = m_line.text;
        return true;
      }
      m_pending = m_repairs[m_edits.replacements[m_replacement++].repair].replacement;
    }
    line = m_pending.front();
    m_pending = m_pending.subspan(1);
    return true;
  }

  const Edits& m_edits;
  const std::vector<CleaningRepair>& m_repairs;
  LogicalLines m_lines;
  UnfoldedLine m_line;
  std::size_t m_lineNumber = 0;
  std::size_t m_replacement = 0;
  std::span<const Text> m_pending; ///< lines of a replacement that are still to be given
  std::size_t m_outputNumber = 0;
  std::size_t m_repeat = 0;
};

bool anyUsesQuotedPrintable(TextView text, const Edits& edits,
                            const std::vector<CleaningRepair>& repairs) {
  EditedLines lines(text, edits, repairs);
  TextView line;
  std::size_t begin = 0;
  while (lines.next(line, begin)) {
    if (VCardCleaner::lineUsesQuotedPrintable(line)) {
      return true;
    }
  }
  return false;
}

void appendFoldedLine(Text& output, TextView line) {
  std::size_t budget = kFirstFoldBytes;
  if (fitsOnOneLine(line)) {
    output.append(line);
    return;
  }
  while (!line.empty()) {
    if (budget != kFirstFoldBytes) {
      output.append(u"\r\n ");
    }
    output.append(takeFoldedLine(line, budget));
    budget = kLaterFoldBytes;
  }
}

Text joined(TextView text, const Edits& edits, Cleaning& cleaning) {
  // Folding would break the structure of quoted-printable soft breaks.
  const bool isFolded = !anyUsesQuotedPrintable(text, edits, cleaning.repairs);
  Text output;
  reserveLarge(output, text.size() + text.size() / 16);
  EditedLines lines(text, edits, cleaning.repairs);
  TextView line;
  std::size_t begin = 0;
  while (lines.next(line, begin, &cleaning.repairs)) {
    if (!cleaning.origins.empty()) {
      output.append(VCardCleaner::CRLF());
    }
    cleaning.origins.push_back({output.size(), begin});
    if (isFolded) {
      appendFoldedLine(output, line);
    } else {
      output.append(line);
    }
  }
  std::stable_sort(cleaning.repairs.begin(), cleaning.repairs.end(),
                   [](const CleaningRepair& a, const CleaningRepair& b) {
                     return a.place.offset < b.place.offset;
                   });
  return output;
}

/// Makes the places those of the text before its line ends were repaired.
void translatePlaces(TextView original, TextView repaired, Cleaning& cleaning) {
  std::vector<std::size_t> offsets;
  for (const CleaningRepair& repair : cleaning.repairs) {
    offsets.push_back(repair.place.offset);
  }
  placesBeforeSeparatorRepair(original, repaired, offsets);
  for (std::size_t i = 0; i < offsets.size(); ++i) {
    cleaning.repairs[i].place.offset = offsets[i];
  }
  offsets.clear();
  for (const LineOrigin& origin : cleaning.origins) {
    offsets.push_back(origin.original);
  }
  placesBeforeSeparatorRepair(original, repaired, offsets);
  for (std::size_t i = 0; i < offsets.size(); ++i) {
    cleaning.origins[i].original = offsets[i];
  }
}

} // namespace

Cleaning clean(TextView text, SimpleLines* simpleLines) {
  Cleaning cleaning;
  cleaning.isEnvelope = isEnvelopeOfCards(text);
  if (!cleaning.isEnvelope) {
    return cleaning;
  }
  if (simpleLines != nullptr) {
    simpleLines->reserveFor(text.size());
  }
  TextView source = text;
  std::optional<Text> separated;
  std::optional<Edits> found = Inspection(text, cleaning, simpleLines).runUntilDoubledCr();
  if (!found) {
    separated = repairedSeparators(text);
    source = separated ? TextView(*separated) : text;
    cleaning = Cleaning();
    cleaning.isEnvelope = true;
    found = Inspection(source, cleaning, nullptr).run();
    if (simpleLines != nullptr) {
      simpleLines->clear();
    }
  }
  const Edits& edits = *found;
  if (!edits.areEmpty()) {
    cleaning.text = joined(source, edits, cleaning);
  }
  if (simpleLines != nullptr && cleaning.text) {
    simpleLines->clear();
  }
  if (separated) {
    translatePlaces(text, source, cleaning);
    cleaning.summaries.emplace(cleaning.summaries.begin(), kSeparatorsSummary);
    cleaning.repairs.insert(cleaning.repairs.begin(),
                            {CleaningRepairKind::separators, {}, Text(), {}});
    if (!cleaning.text) {
      cleaning.text = std::move(separated);
    }
  } else if (cleaning.text && cleaning.summaries.empty()) {
    cleaning.summaries.emplace_back(kGeneralSummary);
  }
  return cleaning;
}

void translateToOriginal(const Cleaning& cleaning, TextView original,
                         std::span<std::size_t> offsets) {
  if (!cleaning.text) {
    return;
  }
  if (cleaning.origins.empty()) {
    placesBeforeSeparatorRepair(original, *cleaning.text, offsets);
    return;
  }
  auto origin = cleaning.origins.begin();
  for (std::size_t& offset : offsets) {
    while (std::next(origin) != cleaning.origins.end() && std::next(origin)->cleaned <= offset) {
      ++origin;
    }
    offset = origin->original;
  }
}

Text VCardCleaner::clean(TextView vCardString) {
  Cleaning cleaning = ::cardwright::clean(vCardString);
  if (cleaning.isEnvelope) {
    if (m_debugLoggingEnabled) {
      m_debugTotalLines = 0;
      m_debugFastPathLines = 0;
      m_debugSanitizedLines = 0;
    }
    m_debugTotalLines += cleaning.totalLines;
    m_debugSanitizedLines += cleaning.repairedLines;
    m_debugFastPathLines += cleaning.totalLines - cleaning.repairedLines;
  }
  m_lastDidClean = cleaning.text.has_value();
  // Before the last results go: the text may be one of them.
  Text cleaned = cleaning.text ? std::move(*cleaning.text) : Text(vCardString);
  m_lastCleaningSummaries = std::move(cleaning.summaries);
  m_lastRepairs = std::move(cleaning.repairs);
  return cleaned;
}

std::string VCardCleaner::clean(std::string_view utf8) {
  return utf8FromText(clean(TextView(textFromUtf8(utf8))));
}

Text VCardCleaner::cleanWithVCardString(TextView vCardString) {
  return clean(vCardString);
}

} // namespace cardwright
