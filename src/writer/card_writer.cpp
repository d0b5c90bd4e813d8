#include "base/ascii.h"
#include "base/case.h"
#include "cardwright/vcard.h"
#include "cardwright/vcard_utilities.h"
#include "cardwright/vocabulary.h"
#include "writer/order.h"

#include <algorithm>
#include <vector>

namespace cardwright {

namespace {

/// Properties of one name by their group, without regard to its case. The index is ordered, not
/// hashed: no file may choose groups that all share a hash.
class GroupIndex {
 public:
  explicit GroupIndex(const std::shared_ptr<VCardPropertyList>& properties) {
    if (properties == nullptr) {
      return;
    }
    for (const std::shared_ptr<VCardProperty>& property : *properties) {
      if (property != nullptr && property->group()) {
        m_members.push_back({caseFolded(*property->group()), property.get()});
      }
    }
    std::stable_sort(m_members.begin(), m_members.end(),
                     [](const Member& a, const Member& b) { return a.group < b.group; });
  }

  void generate(TextView group, Text& output, VersionCode version, DateFormatter* formatter) const {
    if (m_members.empty()) {
      return;
    }
    const Text folded = caseFolded(group);
    auto member = std::lower_bound(
        m_members.begin(), m_members.end(), folded,
        [](const Member& candidate, const Text& wanted) { return candidate.group < wanted; });
    for (; member != m_members.end() && member->group == folded; ++member) {
      member->property->generate(output, version, formatter);
    }
  }

 private:
  struct Member {
    Text group; ///< folded
    const VCardProperty* property;
  };

  std::vector<Member> m_members;
};

/// Written only behind the properties that they describe.
bool isCompanion(const VCardProperty& property) {
  // No other letter folds to the first one of these names.
  const TextView name = property.name();
  return !name.empty() && asciiUpper(name.front()) == u'X' &&
         (equalIgnoringCase(name, cVCardProperty_X_ABLabel) ||
          equalIgnoringCase(name, cVCardProperty_X_ABADR));
}

bool isEmptyPhoto(const VCardProperty& property) {
  return property.name() == cVCardProperty_PHOTO &&
         property.textValue().value_or(TextView()).empty();
}

} // namespace

TextList VCard::propertiesInSortOrder() const {
  return keysInWrittenOrder(properties(), propertyRank);
}

void VCard::generate(Text& output, VersionCode version, DateFormatter* formatter) const {
  const GroupIndex labels(propertiesWithName(cVCardProperty_X_ABLabel));
  const GroupIndex addressFormats(propertiesWithName(cVCardProperty_X_ABADR));

  VCardUtilities::appendCRLF(output, cVCardComponent_BEGINVCARD);
  for (const auto& entry : inWrittenOrder(properties(), propertyRank)) {
    for (const std::shared_ptr<VCardProperty>& property : **entry.value) {
      if (property == nullptr || isCompanion(*property) || isEmptyPhoto(*property)) {
        continue;
      }
      property->generate(output, version, formatter);
      if (const std::optional<TextView> group = property->group()) {
        labels.generate(*group, output, version, formatter);
        if (equalIgnoringCase(property->name(), cVCardProperty_ADR)) {
          addressFormats.generate(*group, output, version, formatter);
        }
      }
    }
  }
  VCardUtilities::appendCRLF(output, cVCardComponent_ENDVCARD);
}

} // namespace cardwright
