#include "base/ascii.h"
#include "base/case.h"
#include "base/fetch.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard.h"
#include "cardwright/vcard_utilities.h"
#include "cardwright/vocabulary.h"
#include "writer/companions.h"
#include "writer/order.h"
#include "writer/unchanged/card.h"
#include "writer/unchanged/output.h"

#include <algorithm>
#include <array>
#include <vector>

namespace cardwright {

namespace {

/// Properties of one name by their group, without regard to its case.
class GroupIndex {
 public:
  /// @param properties null for none
  explicit GroupIndex(const VCardPropertyList* properties) {
    if (properties == nullptr) {
      return;
    }
    for (const std::shared_ptr<VCardProperty>& property : *properties) {
      if (property != nullptr && property->group()) {
        m_members.push_back({*property->group(), property.get()});
      }
    }
    if (m_members.size() > kFew) {
      sort();
    }
  }

  void generate(TextView group, Text& output, VersionCode version, DateFormatter* formatter) const {
    if (m_sorted.empty()) {
      for (const Member& member : m_members) {
        if (equalIgnoringCase(member.group, group)) {
          member.property->generate(output, version, formatter);
        }
      }
      return;
    }
    const Text folded = caseFolded(group);
    auto member = std::lower_bound(
        m_sorted.begin(), m_sorted.end(), folded,
        [](const FoldedMember& candidate, const Text& wanted) { return candidate.group < wanted; });
    for (; member != m_sorted.end() && member->group == folded; ++member) {
      member->property->generate(output, version, formatter);
    }
  }

 private:
  struct Member {
    TextView group;
    const VCardProperty* property;
  };
  struct FoldedMember {
    Text group;
    const VCardProperty* property;
  };

  /// So many are compared one by one.
  static constexpr std::size_t kFew = 8;

  /// In order, not by hash: no file may choose groups that all share one.
  void sort() {
    for (const Member& member : m_members) {
      m_sorted.push_back({caseFolded(member.group), member.property});
    }
    std::stable_sort(m_sorted.begin(), m_sorted.end(),
                     [](const auto& a, const auto& b) { return a.group < b.group; });
  }

  std::vector<Member> m_members;
  std::vector<FoldedMember> m_sorted; ///< only of many
};

const VCardPropertyList*
propertiesIn(const detail::KeyedList<std::shared_ptr<VCardPropertyList>>& store, TextView key) {
  const std::shared_ptr<VCardPropertyList>* list = store.find(key);
  return list != nullptr ? list->get() : nullptr;
}

/// Written only behind the properties that they describe.
bool isCompanion(const VCardProperty& property) {
  // No other letter folds to the first one of these names.
  const TextView name = property.name();
  return !name.empty() && asciiUpper(name.front()) == u'X' &&
         (equalIgnoringCase(name, cVCardProperty_X_ABLabel) ||
          equalIgnoringCase(name, cVCardProperty_X_ABADR));
}

} // namespace

void VCard::fetchProperties(const PropertyStore& store) noexcept {
  // More than these would drive each other out again.
  constexpr std::size_t kMost = 64;
  if (store.size() > kMost) {
    return;
  }
  for (const auto& entry : store.entries()) {
    fetch(entry.value.get());
  }
  std::array<const VCardProperty*, kMost> properties; // NOLINT: filled as far as `count` tells
  std::size_t count = 0;
  for (const auto& entry : store.entries()) {
    fetch(entry.value->data());
  }
  for (const auto& entry : store.entries()) {
    for (const auto& property : *entry.value) {
      if (property != nullptr && count < properties.size()) {
        fetch(property.get());
        properties[count++] = property.get();
      }
    }
  }
  for (std::size_t i = 0; i < count; ++i) {
    fetch(properties[i]->m_value.get());
    fetch(properties[i]->m_parameters.entries().data());
  }
  for (std::size_t i = 0; i < count; ++i) {
    if (!properties[i]->m_parameters.empty()) {
      fetch(properties[i]->m_parameters.entries().front().value.get());
    }
  }
}

TextList VCard::propertiesInSortOrder() const {
  return keysInWrittenOrder(properties(), propertyRank);
}

bool VCard::appendLines(CardOutput& output, VersionCode version, DateFormatter* formatter) const {
  // Without a formatter, dates stop the process.
  return formatter != nullptr && isUnchanged() &&
         appendUnchanged(output, *this, m_lines, version, formatter);
}

void VCard::generateUtf8(std::string& output, VersionCode version, DateFormatter* formatter) const {
  Utf8Output bytes(output);
  if (!appendLines(bytes, version, formatter)) {
    Text text;
    generateProperties(text, version, formatter);
    appendUtf8(output, text);
  }
}

void VCard::generate(Text& output, VersionCode version, DateFormatter* formatter) const {
  TextOutput text(output);
  if (!appendLines(text, version, formatter)) {
    generateProperties(output, version, formatter);
  }
}

void VCard::generateProperties(Text& output, VersionCode version, DateFormatter* formatter) const {
  const PropertyStore& store = properties();
  fetchProperties(store);
  const GroupIndex labels(propertiesIn(store, kLabelKey));
  const GroupIndex addressFormats(propertiesIn(store, kAddressFormatKey));

  VCardUtilities::appendCRLF(output, cVCardComponent_BEGINVCARD);
  const WrittenOrder order(store, propertyRank);
  for (std::size_t place = 0; place < order.size(); ++place) {
    for (const std::shared_ptr<VCardProperty>& property : **order[place].value) {
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
