#include "base/graphemes.h"
#include "base/line_counter.h"
#include "cardwright/check.h"
#include "cardwright/utf8.h"
#include "cleaner/cleaning.h"
#include "face/checking/checks.h"
#include "face/reporting.h"

#include <algorithm>
#include <map>
#include <utility>

namespace cardwright {

namespace {

/// Where the physical line of an offset begins.
std::size_t lineStart(TextView text, std::size_t offset) noexcept {
  const std::size_t before = offset == 0 ? TextView::npos : text.find_last_of(u"\r\n", offset - 1);
  return before == TextView::npos ? 0 : before + 1;
}

std::size_t columnOf(TextView text, std::size_t offset) {
  const std::size_t begin = lineStart(text, std::min(offset, text.size()));
  GraphemeWalker walker(text.substr(begin));
  std::size_t column = 1;
  while (!walker.atEnd() && begin + walker.position() < offset) {
    walker.next();
    ++column;
  }
  return column;
}

/// The findings of a cleaned text, as places of the original.
std::vector<FoundCheck> findInCards(const Cleaning& cleaning, TextView original) {
  CheckFinder finder;
  const CheckedCards walked = checkedCards(cleaning.text ? TextView(*cleaning.text) : original);
  for (const DroppedText& dropped : walked.dropped) {
    finder.add(checkOf(dropped.reason), dropped.offset);
  }
  for (const CheckedCard& card : walked.cards) {
    checkCard(card, finder);
  }
  checkReferences(walked.cards, finder);

  std::vector<FoundCheck> found = std::move(finder.found());
  std::stable_sort(found.begin(), found.end(),
                   [](const FoundCheck& a, const FoundCheck& b) { return a.offset < b.offset; });
  std::vector<std::size_t> offsets;
  offsets.reserve(found.size());
  for (const FoundCheck& one : found) {
    offsets.push_back(one.offset);
  }
  translateToOriginal(cleaning, original, offsets);
  for (std::size_t at = 0; at < found.size(); ++at) {
    found[at].offset = offsets[at];
  }
  return found;
}

/// Whether what a finding is about tells its kind, as a name does. UIDs and members differ from
/// card to card, and thousands of lost ones are the same mistake.
bool isKindBySubject(Check check) noexcept {
  return check != Check::lostMember && check != Check::equalUid;
}

/// Keeps the first of each kind and counts the others.
void countRepeats(std::vector<FoundCheck>& found, std::vector<std::size_t>& counts) {
  std::map<std::pair<Check, Text>, std::size_t> first;
  std::vector<FoundCheck> kept;
  for (FoundCheck& one : found) {
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

  std::vector<FoundCheck> found = findInCards(cleaning, original);
  for (const CleaningRepair& repair : cleaning.repairs) {
    found.push_back({checkOf(repair.kind), repair.place.offset, {}});
  }
  if (decoding.droppedBytes != 0) {
    found.push_back({Check::droppedBytes, 0, textFromUtf8(decoding.encoding)});
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const FoundCheck& a, const FoundCheck& b) { return a.offset < b.offset; });
  std::vector<std::size_t> counts(options.all ? found.size() : 0, 1);
  if (!options.all) {
    countRepeats(found, counts);
  }

  LineCounter lines(original);
  std::vector<Finding> findings;
  for (std::size_t at = 0; at < found.size(); ++at) {
    const FoundCheck& one = found[at];
    const CheckRow& row = rowOf(one.check);
    std::string text(row.text);
    if (!one.subject.empty()) {
      text.append(": ").append(utf8FromText(one.subject));
    }
    findings.push_back({row.code,
                        row.severity,
                        {one.offset, lines.lineAt(one.offset)},
                        columnOf(original, one.offset),
                        std::move(text),
                        counts[at]});
  }
  return findings;
}

} // namespace cardwright
