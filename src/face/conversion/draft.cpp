#include "face/conversion/draft.h"

#include "base/case.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vocabulary.h"

#include <algorithm>

namespace cardwright {

namespace {

/// A long name is cut: a property may have as many changes as its name has letters.
constexpr std::size_t kLongestOrigin = 200;

} // namespace

const TextList* Draft::valuesOf(TextView key) const noexcept {
  const auto found = std::find_if(parameters.begin(), parameters.end(),
                                  [key](const DraftParameter& one) { return one.key == key; });
  return found != parameters.end() ? &found->values : nullptr;
}

std::optional<TextView> Draft::firstOf(TextView key) const noexcept {
  const TextList* values = valuesOf(key);
  return values != nullptr && !values->empty() ? std::optional<TextView>(values->front())
                                               : std::nullopt;
}

void Draft::set(TextView key, TextList values) {
  for (DraftParameter& parameter : parameters) {
    if (parameter.key == key) {
      parameter.values = std::move(values);
      return;
    }
  }
  parameters.push_back({Text(key), std::move(values)});
}

void Draft::append(TextView key, Text further) {
  TextList values;
  if (const TextList* present = valuesOf(key)) {
    values = *present;
  }
  values.push_back(std::move(further));
  set(key, std::move(values));
}

void Draft::remove(TextView key) {
  std::erase_if(parameters, [key](const DraftParameter& one) { return one.key == key; });
}

bool Draft::hasType(TextView type) const {
  const TextList* types = valuesOf(cVCardParameter_TYPE);
  return types != nullptr && std::any_of(types->begin(), types->end(), [type](const Text& one) {
           return equalIgnoringCase(one, type);
         });
}

void Draft::removeType(TextView type) {
  if (const TextList* types = valuesOf(cVCardParameter_TYPE)) {
    TextList kept = *types;
    std::erase_if(kept, [type](const Text& one) { return equalIgnoringCase(one, type); });
    if (kept.empty()) {
      remove(cVCardParameter_TYPE);
    } else {
      set(cVCardParameter_TYPE, std::move(kept));
    }
  }
}

std::optional<TextView> Draft::text() const noexcept {
  const auto* text = dynamic_cast<const VCardTextValue*>(value.get());
  return text != nullptr ? text->text() : std::nullopt;
}

void Draft::setText(TextView text) {
  value = VCardTextValue::valueWithText(text);
}

void Draft::setUri(TextView uri) {
  value = VCardURIValue::valueWithText(uri);
}

Draft newDraft(TextView name, std::shared_ptr<VCardValue> value) {
  Draft draft;
  draft.name = name;
  draft.origin = name;
  draft.value = std::move(value);
  return draft;
}

Text originOf(const Draft& draft) {
  Text origin = (draft.group ? *draft.group + u"." : Text()).append(draft.name);
  origin.resize(std::min(origin.size(), kLongestOrigin));
  return origin;
}

Drafts draftsOf(const VCard& card) {
  Drafts drafts;
  const VCardPropertyDict dict = card.propertyDict();
  for (const Text& key : card.propertiesInSortOrder()) {
    for (const auto& property : *dict.at(key)) {
      if (property == nullptr) {
        continue;
      }
      Draft draft;
      if (property->group()) {
        draft.group.emplace(*property->group());
      }
      draft.name = upperCased(property->name());
      draft.origin = originOf(draft);
      draft.value = property->value();
      for (const auto& [parameterKey, parameter] :
           property->parameterDict().value_or(VCardParameterDict())) {
        if (parameter != nullptr) {
          draft.parameters.push_back({upperCased(parameter->name()), parameter->values()});
        }
      }
      drafts.push_back(std::move(draft));
    }
  }
  return drafts;
}

std::shared_ptr<VCard> cardOf(const Drafts& drafts) {
  auto card = std::make_shared<VCard>();
  for (const Draft& draft : drafts) {
    if (draft.isDropped) {
      continue;
    }
    auto property = VCardProperty::propertyWithName(draft.name, draft.value);
    if (draft.group) {
      property->setGroup(*draft.group);
    }
    for (const DraftParameter& one : draft.parameters) {
      auto parameter = std::make_shared<VCardParameter>();
      parameter->setName(one.key);
      parameter->addValues(one.values);
      property->addParameter(parameter);
    }
    card->addProperty(std::move(property));
  }
  return card;
}

} // namespace cardwright
