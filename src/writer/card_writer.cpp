#include "base/case.h"
#include "cardwright/vcard.h"
#include "cardwright/vcard_utilities.h"
#include "cardwright/vocabulary.h"
#include "writer/order.h"

#include <map>
#include <vector>

namespace cardwright {

namespace {

/// Properties of one name by their group, without regard to its case. Groups come from files, which
/// must not be able to choose them by their hash: the index is ordered.
class GroupIndex {
 public:
  explicit GroupIndex(const std::shared_ptr<VCardPropertyList>& properties) {
    if (properties == nullptr) {
      return;
    }
    for (const std::shared_ptr<VCardProperty>& property : *properties) {
      if (property != nullptr && property->group()) {
        m_groups[caseFolded(*property->group())].push_back(property.get());
      }
    }
  }

  void generate(TextView group, Text& output, VersionCode version, DateFormatter* formatter) const {
    if (m_groups.empty()) {
      return;
    }
    const auto found = m_groups.find(caseFolded(group));
    if (found == m_groups.end()) {
      return;
    }
    for (const VCardProperty* property : found->second) {
      property->generate(output, version, formatter);
    }
  }

 private:
  std::map<Text, std::vector<const VCardProperty*>> m_groups;
};

/// Written only behind the properties that they describe.
bool isCompanion(const VCardProperty& property) {
  return equalIgnoringCase(property.name(), cVCardProperty_X_ABLabel) ||
         equalIgnoringCase(property.name(), cVCardProperty_X_ABADR);
}

bool isEmptyPhoto(const VCardProperty& property) {
  return property.name() == cVCardProperty_PHOTO &&
         property.textValue().value_or(TextView()).empty();
}

} // namespace

TextList VCard::propertiesInSortOrder() const {
  std::vector<TextView> names;
  names.reserve(m_properties.size());
  for (const auto& entry : m_properties.entries()) {
    names.push_back(entry.key.view());
  }
  sortPropertyNames(names);
  return {names.begin(), names.end()};
}

void VCard::generate(Text& output, VersionCode version, DateFormatter* formatter) const {
  const GroupIndex labels(propertiesWithName(cVCardProperty_X_ABLabel));
  const GroupIndex addressFormats(propertiesWithName(cVCardProperty_X_ABADR));

  VCardUtilities::appendCRLF(output, cVCardComponent_BEGINVCARD);
  for (const Text& key : propertiesInSortOrder()) {
    for (const std::shared_ptr<VCardProperty>& property : **m_properties.find(key)) {
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
