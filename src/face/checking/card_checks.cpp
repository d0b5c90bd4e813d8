#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/vocabulary.h"
#include "face/checking/checks.h"

#include <map>
#include <set>

namespace cardwright {

namespace {

/// Properties that a card may have once.
constexpr TextView kOnce[] = {cVCardProperty_VERSION, cVCardProperty_N,   cVCardProperty_BDAY,
                              cVCardProperty_REV,     cVCardProperty_UID, cVCardProperty_PRODID};
constexpr TextView kOnceIn3[] = {cVCardProperty_FN, cVCardProperty_CLASS,
                                 cVCardProperty_SORT_STRING};
constexpr TextView kOnceIn4[] = {cVCardProperty_ANNIVERSARY, cVCardProperty_GENDER,
                                 cVCardProperty_KIND};

bool isOnce(TextView name, VersionCode version) {
  const auto holds = [name](const auto& names) {
    for (const TextView one : names) {
      if (one == name) {
        return true;
      }
    }
    return false;
  };
  return holds(kOnce) || (version == 3 && holds(kOnceIn3)) || (version >= 4 && holds(kOnceIn4));
}

void checkCounts(const CheckedCard& card, VersionCode version, CheckFinder& finder) {
  std::set<std::pair<TextView, Text>> seen;
  for (const CheckedLine& line : card.lines) {
    // Properties of one ALTID say the same in several languages.
    const Text alternative(
        line.property->valueOfParameterWithName(cVCardParameter_ALTID).value_or(TextView()));
    if (isOnce(line.property->name(), version) &&
        !seen.emplace(line.property->name(), alternative).second) {
      finder.add(Check::tooMany, line.place, line.property->name());
    }
  }
}

/// The text without what only says that it is a UUID.
Text bareUid(TextView uid) {
  constexpr TextView kScheme = u"urn:uuid:";
  const TextView text = trimWhitespaceAndNewlines(uid);
  const bool isUrn = equalIgnoringCase(text.substr(0, kScheme.size()), kScheme);
  return caseFolded(isUrn ? text.substr(kScheme.size()) : text);
}

bool isMember(const VCardProperty& property) {
  return property.name() == cVCardProperty_MEMBER ||
         property.name() == cVCardProperty_X_ADDRESSBOOKSERVER_MEMBER;
}

} // namespace

void checkCard(const CheckedCard& card, CheckFinder& finder) {
  const VersionCode version = card.version >= 2 ? card.version : 3;
  std::set<TextView> names;
  for (const CheckedLine& line : card.lines) {
    names.insert(line.property->name());
    if (line.property->name() == u"BEGIN") {
      finder.add(Check::nestedCard, line.place);
    }
    checkNames(line, version, finder);
    checkValue(line, version, finder);
  }
  if (!card.isEnded) {
    finder.add(Check::noEnd, card.place);
  }
  if (!names.contains(cVCardProperty_VERSION)) {
    finder.add(Check::missingVersion, card.place);
  }
  if (version >= 3 && !names.contains(cVCardProperty_FN)) {
    finder.add(Check::missingFn, card.place);
  }
  if (version <= 3 && !names.contains(cVCardProperty_N)) {
    finder.add(Check::missingN, card.place);
  }
  checkCounts(card, version, finder);
}

void checkReferences(const std::vector<CheckedCard>& cards, CheckFinder& finder) {
  std::map<Text, const CheckedCard*> uids;
  for (const CheckedCard& card : cards) {
    for (const CheckedLine& line : card.lines) {
      const TextView uid = line.property->textValue().value_or(TextView());
      if (line.property->name() != cVCardProperty_UID || uid.empty()) {
        continue;
      }
      const auto [other, isNew] = uids.emplace(bareUid(uid), &card);
      if (!isNew && other->second != &card) {
        finder.add(Check::equalUid, placeOfValue(line), uid);
      }
    }
  }
  for (const CheckedCard& card : cards) {
    for (const CheckedLine& line : card.lines) {
      const TextView member = line.property->textValue().value_or(TextView());
      const bool isAddress = equalIgnoringCase(member.substr(0, 7), u"mailto:");
      if (isMember(*line.property) && !isAddress && !uids.contains(bareUid(member))) {
        finder.add(Check::lostMember, placeOfValue(line), member);
      }
    }
  }
}

} // namespace cardwright
