#include "base/line_counter.h"
#include "base/utf8_decoder.h"
#include "cardwright/check.h"
#include "cardwright/utf8.h"
#include "cleaner/cleaning.h"
#include "face/checking/checks.h"
#include "face/checking/column_counter.h"
#include "face/checking/line_aligner.h"
#include "face/checking/repair_places.h"
#include "face/reporting.h"

#include <algorithm>
#include <map>
#include <utility>

namespace cardwright {

namespace {

/// A finding with its place in the original text.
struct PlacedCheck {
  Check check;
  std::size_t offset;
  Text subject;
};

/// Gives the findings of a walk their places in the original text.
std::vector<PlacedCheck> placed(std::vector<FoundCheck> found, const CheckedCards& walked,
                                const Cleaning& cleaning, TextView original) {
  std::stable_sort(found.begin(), found.end(), [](const FoundCheck& a, const FoundCheck& b) {
    return std::pair(a.place.line, a.place.position) < std::pair(b.place.line, b.place.position);
  });
  std::vector<std::size_t> begins;
  begins.reserve(walked.lines.size());
  for (const WalkedLine& line : walked.lines) {
    begins.push_back(line.offset);
  }
  translateToOriginal(cleaning, original, begins);

  std::vector<PlacedCheck> all;
  LineAligner aligner(original, 0);
  auto next = found.begin();
  for (std::size_t line = 0; line < begins.size() && next != found.end(); ++line) {
    // Pieces of one line follow each other there too.
    const bool isPiece = line > 0 && begins[line] == begins[line - 1];
    const bool hasPieces = line + 1 < begins.size() && begins[line + 1] == begins[line];
    if (!isPiece) {
      aligner = LineAligner(original, begins[line]);
    }
    const TextView text = walked.lines[line].text;
    aligner.setLine(text);
    for (; next != found.end() && next->place.line == line; ++next) {
      all.push_back({next->check, aligner.placeOf(next->place.position), std::move(next->subject)});
    }
    if (hasPieces) {
      static_cast<void>(aligner.placeOf(text.size()));
    }
  }
  return all;
}

std::vector<PlacedCheck> findInCards(const Cleaning& cleaning, TextView original) {
  CheckFinder finder;
  const CheckedCards walked = checkedCards(cleaning.text ? TextView(*cleaning.text) : original);
  for (const DroppedText& dropped : walked.dropped) {
    finder.add(checkOf(dropped.reason), dropped.place);
  }
  for (const CheckedCard& card : walked.cards) {
    checkCard(card, finder);
  }
  checkReferences(walked.cards, finder);
  return placed(std::move(finder.found()), walked, cleaning, original);
}

/// Where the first bytes were left out, in units of the decoded text; 0 where only the decoder of
/// another encoding could tell.
std::size_t droppedAt(std::string_view bytes, const DecodingReport& decoding) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (decoding.encoding != "UTF-8") {
    return 0;
  }
  std::size_t units = 0;
  for (std::size_t at = bytes.starts_with(kMark) ? kMark.size() : 0; at < bytes.size();) {
    const Utf8Sequence sequence = utf8SequenceAt(bytes, at);
    if (!sequence.isLegal) {
      return units;
    }
    units += sequence.codePoint < 0x10000 ? 1 : 2;
    at += sequence.length;
  }
  return 0;
}

/// Whether what a finding is about tells its kind, as a name does. UIDs and members differ from
/// card to card, and thousands of lost ones are the same mistake.
bool isKindBySubject(Check check) noexcept {
  return check != Check::lostMember && check != Check::equalUid;
}

/// Keeps the first of each kind and counts the others.
void countRepeats(std::vector<PlacedCheck>& found, std::vector<std::size_t>& counts) {
  std::map<std::pair<Check, Text>, std::size_t> first;
  std::vector<PlacedCheck> kept;
  for (PlacedCheck& one : found) {
    const Text subject = isKindBySubject(one.check) ? one.subject : Text();
    const auto [known, isNew] = first.emplace(std::pair(one.check, subject), kept.size());
    if (isNew) {
      kept.push_back(std::move(one));
      counts.push_back(1);
    } else {
      ++counts[known->second];
    }
  }
  found = std::move(kept);
}

} // namespace

std::vector<Finding> checkText(std::string_view bytes, const CheckOptions& options) {
  DecodingReport decoding;
  const Text original = decodedBytes(bytes, options.encoding, decoding);
  const Cleaning cleaning = clean(original);

  std::vector<PlacedCheck> found = findInCards(cleaning, original);
  for (const CleaningRepair& repair : cleaning.repairs) {
    found.push_back({checkOf(repair.kind), damageOf(repair, original), {}});
  }
  if (decoding.droppedBytes != 0) {
    found.push_back(
        {Check::droppedBytes, droppedAt(bytes, decoding), textFromUtf8(decoding.encoding)});
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const PlacedCheck& a, const PlacedCheck& b) { return a.offset < b.offset; });
  std::vector<std::size_t> counts(options.all ? found.size() : 0, 1);
  if (!options.all) {
    countRepeats(found, counts);
  }

  LineCounter lines(original);
  ColumnCounter columns(original);
  std::vector<Finding> findings;
  for (std::size_t at = 0; at < found.size(); ++at) {
    const PlacedCheck& one = found[at];
    const CheckRow& row = rowOf(one.check);
    std::string text(row.text);
    if (!one.subject.empty()) {
      text.append(": ").append(utf8FromText(one.subject));
    }
    findings.push_back({row.code,
                        row.severity,
                        {one.offset, lines.lineAt(one.offset)},
                        columns.columnAt(one.offset),
                        std::move(text),
                        counts[at]});
  }
  return findings;
}

} // namespace cardwright
