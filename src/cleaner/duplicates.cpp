#include "cleaner/duplicates.h"

#include "cardwright/vcard_cleaner.h"
#include "cleaner/envelope.h"
#include "cleaner/line_name.h"
#include "cleaner/vocabulary.h"

#include <algorithm>

namespace cardwright {

namespace {

/// The name where it is one of those of which a card keeps the last, as it stands in the
/// vocabulary; empty otherwise.
TextView singularName(TextView upperName) {
  for (const TextView name : kSingularNames.names()) {
    if (name == upperName) {
      return name;
    }
  }
  return {};
}

/// The lines without those of the given numbers, which ascend.
TextList without(const TextList& lines, const std::vector<std::size_t>& numbers) {
  TextList kept;
  kept.reserve(lines.size() - numbers.size());
  auto next = numbers.begin();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (next != numbers.end() && *next == i) {
      ++next;
    } else {
      kept.push_back(lines[i]);
    }
  }
  return kept;
}

/// Drops later lines with the value of an earlier member line.
bool isRepeatedMember(TextView line, std::set<TextView>& seen) {
  const std::size_t colon = firstUnquotedColon(line);
  return colon != TextView::npos && !seen.insert(line.substr(colon + 1)).second;
}

} // namespace

bool DuplicateFinder::isRemembered(TextView line) {
  const LineName name(line);
  return name.isPresent() && (kSingularNames.contains(name.view()) || name.view() == kMemberName);
}

void DuplicateFinder::take(TextView line, std::size_t number) {
  if (isCardBegin(line)) {
    finishCard();
    m_isInCard = true;
  }
  if (m_isInCard) {
    takeInCard(line, number);
    if (isCardEnd(line)) {
      finishCard();
    }
  }
}

void DuplicateFinder::pass(PlainLine line) {
  if (line == PlainLine::cardBegin) {
    finishCard();
    m_isInCard = true;
  } else if (line == PlainLine::cardEnd && m_isInCard) {
    finishCard();
  }
}

void DuplicateFinder::takeInCard(TextView line, std::size_t number) {
  const LineName name(line);
  if (!name.isPresent()) {
    return;
  }
  if (name.view() == kMemberName) {
    if (isRepeatedMember(line, m_memberValues)) {
      m_repeats.push_back(number);
    }
    return;
  }
  if (const TextView singular = singularName(name.view()); !singular.empty()) {
    const auto [last, isFirst] = m_lastOfName.try_emplace(singular, number);
    if (!isFirst) {
      m_repeats.push_back(last->second);
      last->second = number;
    }
  }
}

void DuplicateFinder::finishCard() {
  std::sort(m_repeats.begin() + static_cast<std::ptrdiff_t>(m_cardBegin), m_repeats.end());
  m_cardBegin = m_repeats.size();
  // A new set, for a large one is expensive to clear, card after card.
  if (!m_memberValues.empty()) {
    m_memberValues = {};
  }
  if (!m_lastOfName.empty()) {
    m_lastOfName.clear();
  }
  m_isInCard = false;
}

bool VCardCleaner::containsSingularPropertyIn(const TextList& lines) {
  return std::any_of(lines.begin(), lines.end(),
                     [](const Text& line) { return DuplicateFinder::isRemembered(line); });
}

TextList VCardCleaner::deduplicateSingularProperties(const TextList& lines) {
  std::vector<std::size_t> repeats;
  DuplicateFinder finder(repeats);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    finder.take(lines[i], i);
  }
  finder.finishCard();
  return without(lines, repeats);
}

TextList VCardCleaner::deduplicateSingularPropertiesWithinCard(const TextList& lines) {
  std::vector<std::size_t> repeats;
  DuplicateFinder finder(repeats);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    finder.takeInCard(lines[i], i);
  }
  finder.finishCard();
  return without(lines, repeats);
}

TextList VCardCleaner::deduplicateMemberDuplicatesWithinCard(const TextList& lines) {
  std::vector<std::size_t> repeats;
  std::set<TextView> seen;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const LineName name(lines[i]);
    if (name.isPresent() && name.view() == kMemberName && isRepeatedMember(lines[i], seen)) {
      repeats.push_back(i);
    }
  }
  return without(lines, repeats);
}

} // namespace cardwright
