#include "support/conversion_trip.h"

#include "base/case.h"
#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "cardwright/vocabulary.h"
#include "support/essence.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace cardwright {

namespace {

/// Finds essences again, each only once.
class Returned {
 public:
  void add(Essence essence) { ++m_counts[std::move(essence)]; }
  bool take(const Essence& essence) {
    const auto found = m_counts.find(essence);
    if (found == m_counts.end() || found->second == 0) {
      return false;
    }
    --found->second;
    return true;
  }

 private:
  std::map<Essence, std::size_t> m_counts;
};

VCardPropertyList propertiesOf(const VCard& card) {
  VCardPropertyList all;
  for (const auto& [key, list] : card.propertyDict()) {
    all.insert(all.end(), list->begin(), list->end());
  }
  return all;
}

/// A name that the version asks for is made on the way.
bool mayBeMade(const VCardProperty& property) {
  return property.name() == cVCardProperty_FN || property.name() == cVCardProperty_N;
}

/// What did not come back, and what came in its stead.
std::string differences(const VCard& before, const VCard& after, VersionCode home,
                        VersionCode there) {
  std::string surprises;
  Returned whole;
  VCardPropertyList left;
  for (const auto& property : propertiesOf(after)) {
    whole.add(wholeEssence(property, home));
  }
  VCardPropertyList foreign;
  Returned taken;
  for (const auto& property : propertiesOf(before)) {
    const Essence essence = wholeEssence(property, home);
    if (whole.take(essence)) {
      taken.add(essence);
    } else if (isForeign(*property, home, there)) {
      foreign.push_back(property);
    } else {
      surprises.append("- ").append(told(essence));
    }
  }
  Returned common;
  for (const auto& property : propertiesOf(after)) {
    if (!taken.take(wholeEssence(property, home))) {
      common.add(commonEssence(property));
      left.push_back(property);
    }
  }
  Returned matched;
  for (const auto& property : foreign) {
    const Essence essence = commonEssence(property);
    if (common.take(essence)) {
      matched.add(essence);
    } else {
      surprises.append("- foreign ").append(told(essence));
    }
  }
  for (const auto& property : left) {
    if (!matched.take(commonEssence(property)) && !mayBeMade(*property)) {
      surprises.append("+ ").append(told(wholeEssence(property, home)));
    }
  }
  return surprises;
}

using Names = std::map<std::string, std::size_t>;

std::string groupedName(const VCardProperty& property) {
  Text name;
  if (property.group()) {
    name.append(*property.group()).push_back(u'.');
  }
  return utf8FromText(name.append(upperCased(property.name())));
}

Names namesOf(const VCard& card) {
  Names names;
  for (const auto& property : propertiesOf(card)) {
    ++names[groupedName(*property)];
  }
  return names;
}

constexpr std::size_t kLongestName = 150;

/// Reports cut long names.
bool hasLongNames(const VCard& card) {
  const VCardPropertyList all = propertiesOf(card);
  return std::any_of(all.begin(), all.end(), [](const auto& property) {
    return property->group().value_or(TextView()).size() + property->name().size() > kLongestName;
  });
}

/// The group in front of a name, "." and all. Either may hold dots where no text made the card.
std::string groupBefore(const std::string& property, const std::string& name, const Names& names) {
  for (std::size_t dot = property.find('.'); dot != std::string::npos;
       dot = property.find('.', dot + 1)) {
    if (names.contains(property.substr(0, dot + 1) + name)) {
      return property.substr(0, dot + 1);
    }
  }
  return {};
}

/// Whether a change gave the property another name. What else a property may have become has signs
/// that no name of ours has, but for the year that was left out.
bool isRenaming(const ConversionChange& change) {
  const bool isName = change.target.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-") ==
                          std::string::npos &&
                      change.target.find_first_of("0123456789") != 0;
  return isName && change.kind != ConversionKind::broken && change.target != "X-APPLE-OMIT-YEAR";
}

/// The names that the card has after the changes that a report tells.
Names namesAfter(Names names, const ConversionReport& report) {
  for (const ConversionChange& change : report.changes) {
    if (!change.part.empty()) {
      continue;
    }
    const bool isLabel = change.target == "ADR;LABEL";
    const bool isMerged = isLabel || change.target == "N;SORT-AS";
    const std::string name = isLabel ? "LABEL" : isMerged ? "SORT-STRING" : change.text;
    const std::string group = groupBefore(change.property, name, names);
    if (change.kind == ConversionKind::added) {
      ++names[change.property];
    } else if (change.kind == ConversionKind::dropped) {
      --names[change.property];
    } else if ((isMerged || isRenaming(change)) && names.contains(group + name)) {
      --names[group + name];
      names[group + change.target] += isMerged ? 0 : 1;
    }
    std::erase_if(names, [](const auto& one) { return one.second == 0; });
  }
  return names;
}

/// The names that are read of a card after the changes that a report of its writing tells; none
/// where names themselves were changed.
std::optional<Names> namesAfter(Names names, const WriteReport& report) {
  for (const WriteChange& change : report.changes) {
    switch (change.kind) {
    case WriteChangeKind::groupCleaned:
    case WriteChangeKind::nameCleaned:
      return std::nullopt;
    case WriteChangeKind::repeatLeftOut:
    case WriteChangeKind::namelessLeftOut:
    case WriteChangeKind::frameLeftOut:
    case WriteChangeKind::versionLeftOut:
      --names[change.property];
      break;
    default:
      break;
    }
  }
  std::erase_if(names, [](const auto& one) { return one.second == 0; });
  return names;
}

std::string told(const Names& names) {
  std::string text;
  for (const auto& [name, count] : names) {
    text.append(" ").append(name).append("*").append(std::to_string(count));
  }
  return text + "\n";
}

std::string nameSurprises(const VCard& before, const VCard& after, const ConversionReport& report) {
  const Names reported = namesAfter(namesOf(before), report);
  const Names found = namesOf(after);
  return reported == found ? std::string()
                           : "the names are\n" + told(found) + "and reported\n" + told(reported);
}

/// Converts one card, and looks at the sums and at a second conversion.
VCardList converted(const VCardList& cards, VersionCode version, std::string& surprises) {
  ConversionReport report;
  VCardList result = convertCards(cards, version, &report);
  if (report.properties + report.added != report.converted + report.merged + report.dropped) {
    surprises += "the sums do not add up\n";
  }
  WriteReport writing;
  const std::string once = writeCards(result, &writing);
  const std::string twice = writeCards(convertCards(result, version));
  if (once != twice) {
    surprises += "converted again it is\n" + twice + "and was\n" + once;
  }
  ReadOptions options;
  options.clean = false;
  VCardList read = readCards(once, nullptr, options);
  if (read.size() != cards.size()) {
    surprises += "not one card: " + once;
    return {};
  }
  if (hasLongNames(*cards[0])) {
    return read;
  }
  surprises += nameSurprises(*cards[0], *result[0], report);
  const auto written = namesAfter(namesOf(*result[0]), writing);
  if (written && *written != namesOf(*read[0])) {
    surprises +=
        "read are the names\n" + told(namesOf(*read[0])) + "and written\n" + told(*written);
  }
  return read;
}

/// A list for one call.
VCardList borrowed(const VCard& card) {
  return {std::shared_ptr<VCard>(const_cast<VCard*>(&card), [](VCard* /*kept*/) {})};
}

} // namespace

std::string conversionSurprises(const VCard& card, VersionCode version) {
  std::string surprises;
  static_cast<void>(converted(borrowed(card), version, surprises));
  return surprises;
}

std::string conversionTripSurprises(const VCard& card, VersionCode home, VersionCode there) {
  std::string surprises;
  const VCardList before = converted(borrowed(card), home, surprises);
  const VCardList away = before.empty() ? before : converted(before, there, surprises);
  const VCardList after = away.empty() ? away : converted(away, home, surprises);
  if (after.empty()) {
    return surprises;
  }
  std::string lost = differences(*before[0], *after[0], home, there);
  if (lost.empty()) {
    // What has been home once has nothing foreign left.
    const VCardList again = convertCards(convertCards(after, there), home);
    lost = differences(*after[0], *again[0], home, there);
  }
  if (!lost.empty()) {
    surprises += lost + "before: " + writeCards(before) + "there: " + writeCards(away) +
                 "after: " + writeCards(after);
  }
  return surprises;
}

} // namespace cardwright
