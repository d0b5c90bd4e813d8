#include "view/card_names.h"

#include "text/words.h"
#include "view/person_names.h"

#include <cardwright/vcard_multi_value.h>
#include <cardwright/vcard_org_value.h>
#include <cardwright/vcard_text_value.h>
#include <cardwright/vocabulary.h>

#include <array>

namespace cardwright::tool {

namespace {

Text nameText(const VCardProperty& property) {
  const auto value = property.value();
  if (const auto* const name = dynamic_cast<const VCardNValue*>(value.get())) {
    return personName(*name);
  }
  if (const auto* const organisation = dynamic_cast<const VCardOrgValue*>(value.get())) {
    return joined(organisation->parts(), u", ");
  }
  if (const auto* const list = dynamic_cast<const VCardMultiValue*>(value.get())) {
    for (const auto& element : list->values().value_or(VCardValueList())) {
      const auto* const text = dynamic_cast<const VCardTextValue*>(element.get());
      if (text != nullptr && text->text() && !text->text()->empty()) {
        return Text(*text->text());
      }
    }
    return {};
  }
  return Text(trimmed(property.textValue().value_or(TextView())));
}

bool isFirstChoice(const VCardProperty& property) {
  return property.valueOfParameterWithName(cVCardParameter_PREF) == TextView(u"1");
}

/// Identifiers are compared without their scheme and without regard to case.
Text identifierKey(TextView identifier) {
  constexpr TextView kScheme = u"urn:uuid:";
  identifier = trimmed(identifier);
  if (startsWithIgnoringCase(identifier, kScheme)) {
    identifier.remove_prefix(kScheme.size());
  }
  return lowerCased(identifier);
}

} // namespace

const VCardProperty* nameProperty(const VCard& card) {
  constexpr std::array kNames{cVCardProperty_FN,  cVCardProperty_N,     cVCardProperty_NICKNAME,
                              cVCardProperty_ORG, cVCardProperty_EMAIL, cVCardProperty_TEL};
  for (const TextView name : kNames) {
    const auto properties = card.propertiesWithName(name);
    if (!properties) {
      continue;
    }
    const VCardProperty* best = nullptr;
    for (const auto& property : *properties) {
      const bool isBetter = best == nullptr || (isFirstChoice(*property) && !isFirstChoice(*best));
      if (isBetter && !nameText(*property).empty()) {
        best = property.get();
      }
    }
    if (best != nullptr) {
      return best;
    }
  }
  return nullptr;
}

Text cardName(const VCard& card) {
  const VCardProperty* const property = nameProperty(card);
  return property != nullptr ? nameText(*property) : Text();
}

std::optional<Text> CardNames::nameOf(TextView uri) {
  if (!m_isFilled) {
    m_isFilled = true;
    for (const auto& card : m_cards) {
      if (const auto identifier = card->uid(); identifier && !identifier->empty()) {
        m_byIdentifier.emplace(identifierKey(*identifier), card.get());
      }
    }
  }
  const auto found = m_byIdentifier.find(identifierKey(uri));
  if (found == m_byIdentifier.end()) {
    return std::nullopt;
  }
  Text name = shortened(cardName(*found->second));
  return name.empty() ? std::nullopt : std::optional(std::move(name));
}

} // namespace cardwright::tool
