#include "view/card_view.h"

#include "text/word_list.h"
#include "text/words.h"
#include "view/labels.h"
#include "view/person_names.h"
#include "view/positions.h"
#include "view/property_nouns.h"
#include "view/values.h"

#include <cardwright/vcard_custom_value.h>
#include <cardwright/vocabulary.h>

#include <algorithm>
#include <cstdint>
#include <map>

namespace cardwright::tool {

namespace {

// Names as the reader stores them, in upper case.
constexpr TextView kLabelName = u"X-ABLABEL";
constexpr TextView kAddressFormatName = u"X-ABADR";
constexpr TextView kShowAsName = u"X-ABSHOWAS";

/// What the properties of a group have in common.
struct Group {
  WordList labels;
  WordList addressFormats;
  bool hasDescribed = false; ///< something that the labels describe
  bool hasAddress = false;
};

/// Groups by name in lower case.
using Groups = std::map<Text, Group>;

Group* groupOf(Groups& groups, const VCardProperty& property) {
  const auto name = property.group();
  return name ? &groups[lowerCased(*name)] : nullptr;
}

Groups groupsOf(const VCardPropertyDict& dictionary) {
  Groups groups;
  for (const auto& [name, properties] : dictionary) {
    for (const auto& property : *properties) {
      Group* const group = groupOf(groups, *property);
      if (group == nullptr) {
        continue;
      }
      const TextView text = property->textValue().value_or(TextView());
      if (name == kLabelName) {
        group->labels.add(shortened(labelText(text)));
      } else if (name == kAddressFormatName) {
        group->addressFormats.add(shortened(text));
      } else {
        group->hasDescribed = true;
        group->hasAddress = group->hasAddress || name == cVCardProperty_ADR;
      }
    }
  }
  return groups;
}

/// A label that describes nothing is shown by itself.
CardRow strayLabelRow(const VCardProperty& property, const PropertyNoun& noun) {
  return {Text(noun.noun), labelText(property.textValue().value_or(TextView())), {}, true, false};
}

/// "item1" only ties lines together; "home" says something.
bool isMeaningful(TextView group) {
  constexpr TextView kCounted = u"item";
  if (!startsWithIgnoringCase(group, kCounted)) {
    return !group.empty();
  }
  group.remove_prefix(kCounted.size());
  return !std::all_of(group.begin(), group.end(),
                      [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
}

/// What stands behind the noun: types, labels, and the group's name where it has no label.
WordList qualifiers(const VCardProperty& property, const TypeWords& types, const Group* group) {
  WordList result = types.words;
  const auto value = property.value();
  if (const auto* const custom = dynamic_cast<const VCardCustomValue*>(value.get())) {
    result.add(custom->label().value_or(TextView()));
  }
  if (group != nullptr) {
    result.add(group->labels);
    if (group->labels.isEmpty() && isMeaningful(*property.group())) {
      result.add(*property.group());
    }
  }
  return result;
}

TextList remarksOn(const VCardProperty& property, const TypeWords& types) {
  TextList remarks;
  if (types.isPreferred) {
    remarks.emplace_back(u"preferred");
  }
  struct Remark {
    TextView parameter;
    TextView words;
  };
  constexpr Remark kRemarks[] = {
      {cVCardParameter_LEVEL, u""},
      {cVCardParameter_LANGUAGE, u"language "},
      {cVCardParameter_SOCIAL_USER, u"user "},
      {cVCardParameter_SOCIAL_DISPLAY_NAME, u"as "},
      {cVCardParameter_ATTACH_FILENAME, u"file "},
  };
  for (const Remark& remark : kRemarks) {
    const auto value = property.valueOfParameterWithName(remark.parameter);
    if (value && !value->empty()) {
      remarks.push_back(Text(remark.words).append(*value));
    }
  }
  return remarks;
}

CardRow rowOf(const VCardProperty& property, const PropertyNoun& noun, const Group* group,
              CardNames& names) {
  const TypeWords types = typeWords(property);
  ValueText value = valueText(property, names);
  CardRow row;
  WordList words;
  words.add(types.noun.value_or(noun.noun));
  words.add(qualifiers(property, types, group));
  row.label = joined(words.words(), u", ");
  row.value = std::move(value.text);
  row.wraps = value.wraps;
  row.remarks = remarksOn(property, types);
  row.isBookkeeping = noun.isBookkeeping;
  return row;
}

/// What belongs to an address: its format from the group, and the parameters that stand for
/// properties of their own in version 4.0.
void addAddressRows(const VCardProperty& property, const Group* group, std::vector<CardRow>& rows) {
  if (property.name() != cVCardProperty_ADR) {
    return;
  }
  if (const auto label = property.valueOfParameterWithName(cVCardParameter_LABEL)) {
    rows.push_back({u"Address label", Text(*label), {}, true, false});
  }
  if (const auto position = property.valueOfParameterWithName(cVCardParameter_GEO)) {
    rows.push_back({u"Position", positionText(*position), {}, false, false});
  }
  if (const auto zone = property.valueOfParameterWithName(cVCardParameter_TZ)) {
    rows.push_back({u"Time zone", Text(*zone), {}, false, false});
  }
  if (group != nullptr) {
    for (const Text& format : group->addressFormats.words()) {
      rows.push_back({u"Address format", format, {}, false, true});
    }
  }
}

Text kindText(const VCard& card) {
  switch (card.kind()) {
  case VCardKind::individual:
  case VCardKind::other:
    break;
  case VCardKind::org:
    return u"organisation";
  case VCardKind::group: {
    std::size_t members = 0;
    for (const TextView name : {cVCardProperty_MEMBER, cVCardProperty_X_ADDRESSBOOKSERVER_MEMBER}) {
      const auto properties = card.propertiesWithName(name);
      members += properties ? properties->size() : 0;
    }
    return concat({u"group, ", numberText(static_cast<std::int64_t>(members)),
                   members == 1 ? u" member" : u" members"});
  }
  case VCardKind::location:
    return u"location";
  case VCardKind::device:
    return u"device";
  case VCardKind::application:
    return u"application";
  }
  const auto showAs = card.propertiesWithName(kShowAsName);
  const bool isCompany =
      showAs && !showAs->empty() && showAs->front()->textValue() == cVCardValue_X_ABShowAs_COMPANY;
  return isCompany ? Text(u"organisation") : Text();
}

/// Whether the first line of the card says it already.
bool isInHeading(const VCardProperty& property, const VCardProperty* heading, const CardView& view,
                 CardNames& names) {
  if (&property == heading) {
    return true;
  }
  const TextView name = property.name();
  const auto value = property.value();
  if (const auto* const written = dynamic_cast<const VCardNValue*>(value.get())) {
    return isSaidBy(*written, view.name);
  }
  if (name == cVCardProperty_ORG) {
    return valueText(property, names).text == view.name;
  }
  if (name == cVCardProperty_KIND || name == cVCardProperty_X_ADDRESSBOOKSERVER_KIND) {
    return !view.species.empty() || equalsIgnoringCase(property.textValue().value_or(TextView()),
                                                       cVCardValue_KIND_INDIVIDUAL);
  }
  return name == kShowAsName && !view.species.empty();
}

/// Whether the rows that it describes show it.
bool isShownWithGroup(const VCardProperty& property, const Group* group) {
  if (group == nullptr) {
    return false;
  }
  return (property.name() == kLabelName && group->hasDescribed) ||
         (property.name() == kAddressFormatName && group->hasAddress);
}

} // namespace

CardView viewOfCard(const VCard& card, CardNames& names) {
  struct Entry {
    const VCardProperty* property;
    PropertyNoun noun;
  };
  const VCardPropertyDict dictionary = card.propertyDict();
  Groups groups = groupsOf(dictionary);

  std::vector<Entry> entries;
  for (const auto& [name, properties] : dictionary) {
    const PropertyNoun noun = propertyNoun(name);
    for (const auto& property : *properties) {
      entries.push_back({property.get(), noun});
    }
  }
  std::stable_sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
    return left.noun.rank < right.noun.rank;
  });

  CardView view{cardName(card), kindText(card), {}};
  const VCardProperty* const heading = nameProperty(card);
  for (const auto& [property, noun] : entries) {
    const Group* const group = groupOf(groups, *property);
    if (isInHeading(*property, heading, view, names) || isShownWithGroup(*property, group)) {
      continue;
    }
    if (property->name() == kLabelName) {
      view.rows.push_back(strayLabelRow(*property, noun));
      continue;
    }
    view.rows.push_back(rowOf(*property, noun, group, names));
    addAddressRows(*property, group, view.rows);
  }
  return view;
}

} // namespace cardwright::tool
