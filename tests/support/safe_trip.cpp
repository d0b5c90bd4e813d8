#include "support/safe_trip.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/face.h"
#include "cardwright/text_scanner.h"
#include "cardwright/utf8.h"
#include "support/card_model.h"
#include "support/without_piece.h"
#include "values/source_text.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <vector>

namespace cardwright {

namespace {

using Slot = std::optional<TextList>;

bool isHalf(char32_t codePoint) {
  return codePoint >= 0xD800 && codePoint < 0xE000;
}

template <typename Test>
Text without(TextView text, Test test) {
  Text kept;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t codePoint = codePointAt(text, at);
    if (!test(codePoint)) {
      kept.append(text.substr(at, unitLength(codePoint)));
    }
    at += unitLength(codePoint);
  }
  return kept;
}

/// Rule: names have no controls, halves, delimiters, quotes and blanks at their ends, and no "&"
/// in front of "#".
Text nameLeft(TextView name, TextView delimiters) {
  Text left = without(name, [delimiters](char32_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || isHalf(unit) ||
           (unit < 0x80 && delimiters.find(static_cast<char16_t>(unit)) != TextView::npos);
  });
  for (std::size_t at = 0; (at = left.find(u"&#")) != Text::npos;) {
    left.erase(at, 1);
  }
  return Text(trimWhitespaceAndNewlines(left));
}

/// Rule: values have no controls but TAB and LF, and no halves; every line break is LF.
Text textLeft(TextView text) {
  const Text kept = without(text, [](char32_t unit) {
    return (unit < 0x20 && unit != 0x09 && unit != 0x0A && unit != 0x0D) || isHalf(unit);
  });
  Text left;
  for (std::size_t at = 0; at < kept.size(); ++at) {
    if (kept[at] != u'\r') {
      left.push_back(kept[at]);
    } else if (at + 1 == kept.size() || kept[at + 1] != u'\n') {
      left.push_back(u'\n');
    }
  }
  return left;
}

Slot only(const Slot& slot) {
  return Slot(TextList{slot && !slot->empty() ? slot->front() : Text()});
}

/// Rule: what separates a label from its value is in neither.
void leaveUnseparated(Slot& slot) {
  constexpr TextView kSeparator = u"-=+=-";
  if (slot && !slot->empty()) {
    Text& text = slot->front();
    for (std::size_t at = 0; (at = text.find(kSeparator)) != Text::npos;) {
      text.erase(at, kSeparator.size());
    }
  }
}

/// What is the same in a value that is written and read again.
void leave(ValueModel& value) {
  value.quotedPrintable = false;
  value.charset.reset();
  if (value.type) {
    value.type = upperCased(*value.type);
  }
  for (Slot& slot : value.texts) {
    for (std::size_t at = 0; slot && at < slot->size(); ++at) {
      (*slot)[at] = textLeft((*slot)[at]);
    }
  }
  switch (value.valueClass) {
  case ValueClass::text:
  case ValueClass::uri:
  case ValueClass::extension:
    value.texts[0] = only(value.texts[0]);
    break;
  case ValueClass::name:
  case ValueClass::address:
    // Rule: an empty text alone in a part is no text.
    for (Slot& slot : value.texts) {
      if (slot && (slot->empty() || *slot == TextList{Text()})) {
        slot.reset();
      }
    }
    break;
  case ValueClass::gender:
    value.texts[0] = only(value.texts[0]);
    std::erase(value.texts[0]->front(), u';');
    break;
  case ValueClass::labelled:
    leaveUnseparated(value.texts[0]);
    leaveUnseparated(value.texts[1]);
    if (value.texts[0] && value.texts[0]->front().ends_with(u"-=+=")) {
      value.texts[0]->front().pop_back();
    }
    break;
  case ValueClass::list:
    for (ValueModel& element : value.elements) {
      leave(element);
    }
    break;
  default:
    break;
  }
}

struct PropertyLeft {
  Text group; ///< folded for what is looked up by its group
  Text name;
  bool isRenamed = false;
  std::optional<ValueModel> value;
  Text source; ///< of a value that was not understood
};

bool isCompanion(const PropertyLeft& property) {
  return property.name == u"X-ABLABEL" || property.name == u"X-ABADR";
}

Text flatTexts(const std::optional<ValueModel>& value) {
  Text flat;
  if (value) {
    for (const Slot& slot : value->texts) {
      for (const Text& text : slot.value_or(TextList())) {
        flat.append(text).push_back(u'|');
      }
    }
    for (const ValueModel& element : value->elements) {
      flat.append(flatTexts(element));
    }
  }
  return flat;
}

Text withoutDelimiters(Text texts) {
  std::erase_if(texts, [](char16_t unit) { return unit == u'|' || unit == u';'; });
  return texts;
}

/// Rule: what would begin or end a card is not written.
bool isFrame(const PropertyLeft& property) {
  Text text = property.source;
  if (property.value && !property.value->texts.empty() && property.value->texts[0]) {
    text = property.value->texts[0]->front();
  }
  return (property.name == u"BEGIN" || property.name == u"END") &&
         equalIgnoringCase(trimWhitespace(text), u"VCARD");
}

/// Rule: a version is a text.
bool isUnusableVersion(const PropertyLeft& property) {
  const bool isText = property.value && (property.value->valueClass == ValueClass::text ||
                                         property.value->valueClass == ValueClass::uri ||
                                         property.value->valueClass == ValueClass::extension);
  return property.name == u"VERSION" && !isText;
}

PropertyLeft leftOf(const VCardProperty& property) {
  PropertyModel model = modelOf(property);
  PropertyLeft left;
  bool hasGroup = model.group.has_value();
  if (hasGroup && !model.group->empty()) {
    left.group = nameLeft(*model.group, u":;\".");
    hasGroup = !left.group.empty();
  }
  left.name = upperCased(nameLeft(model.name, hasGroup ? u":;\"" : u":;\"."));
  left.isRenamed = left.name != model.name;
  left.value = model.value;
  if (left.value) {
    leave(*left.value);
    left.source = SourceText::of(*property.value()).value_or(TextView());
  }
  if (isCompanion(left)) {
    left.group = caseFolded(left.group);
  }
  if (hasGroup) {
    left.group.push_back(u'.');
  }
  return left;
}

std::vector<PropertyLeft> leftOf(const VCard& card) {
  std::vector<PropertyLeft> all;
  std::set<std::tuple<Text, Text, Text>> labels;
  for (const Text& key : card.propertiesInSortOrder()) {
    for (const auto& property : *card.propertiesWithName(key)) {
      PropertyLeft left = leftOf(*property);
      const bool isRepeat = isCompanion(left) && !left.group.empty() &&
                            !labels.emplace(left.group, left.name, flatTexts(left.value)).second;
      if (!left.name.empty() && !isFrame(left) && !isUnusableVersion(left) && !isRepeat) {
        all.push_back(std::move(left));
      }
    }
  }
  // Labels stand by their group.
  std::stable_sort(all.begin(), all.end(), [](const PropertyLeft& a, const PropertyLeft& b) {
    const bool bothLabels = isCompanion(a) && isCompanion(b);
    return a.name != b.name ? a.name < b.name : bothLabels && a.group < b.group;
  });
  return all;
}

bool isSame(const PropertyLeft& before, const PropertyLeft& after) {
  if (before.group != after.group || before.name != after.name) {
    return false;
  }
  const bool isOtherClass = before.value && after.value && before.isRenamed &&
                            before.value->valueClass != after.value->valueClass;
  if (!isOtherClass) {
    return before.value == after.value;
  }
  // A name that became another one has the values of that one.
  return after.value->valueClass == ValueClass::position ||
         after.value->valueClass == ValueClass::labelled ||
         withoutDelimiters(flatTexts(before.value)) == withoutDelimiters(flatTexts(after.value));
}

std::string description(const PropertyLeft& property) {
  PropertyModel model;
  model.group = property.group;
  model.name = property.name;
  model.value = property.value;
  return printed(model) + "\n";
}

std::shared_ptr<VCard> onlyCard(const std::string& bytes, std::string& surprises) {
  const Text text = textFromUtf8(bytes);
  TextScanner scanner{TextView(text)};
  auto card = VCard::vCardFromScanner(&scanner);
  if (card == nullptr || VCard::vCardFromScanner(&scanner) != nullptr) {
    surprises += "not one card\n";
  }
  return card;
}

/// The line of a property, unfolded.
Text lineOf(const std::shared_ptr<VCardProperty>& property) {
  const auto card = std::make_shared<VCard>();
  card->addProperty(property);
  return withoutPiece(textFromUtf8(writeCards({card})), u"\r\n ");
}

/// As the reader does for a card that states no version.
void stateVersion(VCard& card) {
  const auto versions = card.propertiesWithName(u"VERSION");
  const bool isStated =
      versions != nullptr && std::any_of(versions->begin(), versions->end(),
                                         [](const auto& one) { return one->versionValue() != 0; });
  if (!isStated) {
    card.addProperty(VCardProperty::propertyForVersion(3));
  }
}

} // namespace

void removeUnpromised(VCard& card) {
  for (const auto& [key, list] : card.propertyDict()) {
    erase_if(*list, [](const std::shared_ptr<VCardProperty>& property) {
      const Text line = lineOf(property);
      return containsIgnoringCase(line, u"x-addressbookserver-") || line.find(u"&#") != Text::npos;
    });
    if (list->empty()) {
      card.removePropertiesWithName(key);
    }
  }
  stateVersion(card);
}

std::string safeTripSurprises(const VCard& card, VersionCode version) {
  std::string surprises;
  const WriteOptions options{version};
  const auto write = [&options](const std::shared_ptr<VCard>& one) {
    return writeCards({one}, nullptr, options);
  };
  // The card is only borrowed.
  const std::shared_ptr<VCard> borrowed(const_cast<VCard*>(&card), [](VCard* /*kept*/) {});
  const CardModel untouched = modelOf(card);
  const std::string once = write(borrowed);
  if (modelOf(card) != untouched) {
    surprises += "the card was changed\n";
  }
  const auto again = onlyCard(once, surprises);
  if (again == nullptr) {
    return surprises;
  }
  const std::vector<PropertyLeft> before = leftOf(card);
  const std::vector<PropertyLeft> after = leftOf(*again);
  for (std::size_t at = 0; at < std::max(before.size(), after.size()); ++at) {
    if (at >= before.size() || at >= after.size() || !isSame(before[at], after[at])) {
      surprises += at < before.size() ? "- " + description(before[at]) : "";
      surprises += at < after.size() ? "+ " + description(after[at]) : "";
      break;
    }
  }
  const std::string twice = write(again);
  const auto third = onlyCard(twice, surprises);
  if (third != nullptr && write(third) != twice) {
    surprises += "the third writing differs from the second:\n" + twice + write(third);
  }
  if (!surprises.empty()) {
    surprises += "written: " + once;
  }
  return surprises;
}

} // namespace cardwright
