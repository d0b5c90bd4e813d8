#include "cardwright/vcard.h"

#include "base/arena.h"
#include "base/case.h"
#include "cardwright/vocabulary.h"
#include "model/known_names.h"
#include "model/line_store.h"
#include "model/stated_version.h"

#include <array>

namespace cardwright {

bool VCard::isUnchanged() const noexcept {
  return m_lines.changes != nullptr && !m_lines.changes->isSet();
}

void VCard::changed() noexcept { // NOLINT: not const, the card is another one
  if (m_lines.changes != nullptr) {
    m_lines.changes->set();
  }
}

VCardPropertyDict VCard::propertyDict() const {
  VCardPropertyDict dict;
  for (const auto& [key, list] : properties().entries()) {
    dict.emplace(key.view(), list);
  }
  return dict;
}

void VCard::setPropertyDict(const VCardPropertyDict& dict) {
  m_isUnread = false;
  m_lines = {};
  m_properties = {};
  for (const auto& [key, list] : dict) {
    if (list != nullptr) {
      m_properties.add(nameStorage(key), list);
    }
  }
}

void VCard::addProperty(std::shared_ptr<VCardProperty> property) {
  if (property == nullptr) {
    return;
  }
  PropertyStore& store = properties();
  changed();
  const UpperCasedName key(property->name());
  std::shared_ptr<VCardPropertyList>* list = store.find(key.view());
  if (list == nullptr) {
    list = &store.add(nameStorage(key.view()), std::make_shared<VCardPropertyList>());
  }
  (*list)->push_back(std::move(property));
}

void VCard::addUpperCased(PropertyStore& properties, std::shared_ptr<VCardProperty> property,
                          Arena* arena) {
  std::shared_ptr<VCardPropertyList>* list = properties.find(property->name());
  if (list == nullptr) {
    list = &properties.add(property->m_name, makeIn<VCardPropertyList>(arena));
  }
  (*list)->push_back(std::move(property));
}

std::shared_ptr<VCardPropertyList> VCard::propertiesWithName(TextView name) const {
  const std::shared_ptr<VCardPropertyList>* list = properties().find(UpperCasedName(name).view());
  return list != nullptr ? *list : nullptr;
}

std::optional<VCardPropertyList> VCard::propertiesWithName(TextView name,
                                                           std::optional<TextView> group) const {
  const std::shared_ptr<VCardPropertyList>* list = properties().find(UpperCasedName(name).view());
  if (!group || list == nullptr) {
    return std::nullopt;
  }
  VCardPropertyList matching;
  for (const std::shared_ptr<VCardProperty>& property : **list) {
    if (property != nullptr && property->group() && equalIgnoringCase(*property->group(), *group)) {
      matching.push_back(property);
    }
  }
  return matching;
}

bool VCard::removePropertiesWithName(TextView name) {
  PropertyStore& store = properties();
  changed();
  return store.remove(UpperCasedName(name).view());
}

const VCardProperty* VCard::firstPropertyWithKey(TextView key) const {
  const std::shared_ptr<VCardPropertyList>* list = properties().find(key);
  return list != nullptr && !(*list)->empty() ? (*list)->front().get() : nullptr;
}

std::uint64_t VCard::version() const {
  // Where the first line tells, nothing has to be read, nor what was read be fetched.
  if (isUnchanged() && m_lines.count != 0) {
    const VersionCode stated = versionOfPlainLine(m_lines.store->lines[m_lines.first]);
    if (stated != 0) {
      return static_cast<std::uint64_t>(stated);
    }
  }
  const VCardProperty* property = firstPropertyWithKey(cVCardProperty_VERSION);
  return property != nullptr ? property->versionValue() : 0;
}

std::optional<TextView> VCard::uid() const {
  const VCardProperty* property = firstPropertyWithKey(cVCardProperty_UID);
  return property != nullptr ? property->textValue() : std::nullopt;
}

VCardKind VCard::kind() const {
  struct KindName {
    TextView text;
    VCardKind kind;
  };
  static constexpr std::array<KindName, 6> kKinds = {{
      {cVCardValue_KIND_INDIVIDUAL, VCardKind::individual},
      {cVCardValue_KIND_GROUP, VCardKind::group},
      {cVCardValue_KIND_ORG, VCardKind::org},
      {cVCardValue_KIND_LOCATION, VCardKind::location},
      {cVCardValue_KIND_DEVICE, VCardKind::device},
      {cVCardValue_KIND_APPLICATION, VCardKind::application},
  }};
  std::optional<TextView> text;
  for (const TextView key : {cVCardProperty_KIND, cVCardProperty_X_ADDRESSBOOKSERVER_KIND}) {
    const VCardProperty* property = text ? nullptr : firstPropertyWithKey(key);
    if (property != nullptr) {
      text = property->textValue();
    }
  }
  if (!text) {
    return VCardKind::individual;
  }
  for (const KindName& row : kKinds) {
    if (equalIgnoringCase(*text, row.text)) {
      return row.kind;
    }
  }
  return VCardKind::other;
}

std::optional<std::chrono::sys_seconds> VCard::rev() const {
  const VCardProperty* property = firstPropertyWithKey(cVCardProperty_REV);
  return property != nullptr ? property->dateValue() : std::nullopt;
}

bool VCard::hasRev() const {
  return properties().find(cVCardProperty_REV) != nullptr;
}

} // namespace cardwright
