#include "face/writing/ordinary_property.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/scan_lanes.h"
#include "base/whitespace.h"
#include "cardwright/vcard_address_value.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_n_value.h"
#include "cardwright/vcard_org_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vocabulary.h"
#include "model/known_names.h"
#include "model/stored_parts.h"
#include "model/value_types.h"
#include "values/source_text.h"
#include "values/valid_xml.h"

#include <algorithm>
#include <array>
#include <span>
#include <typeinfo>

namespace cardwright {

namespace {

bool isPlainUpperName(TextView name) noexcept {
  return isPlainName(name) && std::none_of(name.begin(), name.end(), isAsciiLower);
}

/// How a text must be so that it is written as it stands, or with escapes only.
enum class Allowed { signs, noSigns };

/// Whether all characters are such that every version writes them, and reads them again.
bool isOrdinaryText(TextView text, Allowed allowed) noexcept {
  for (std::size_t at = findUnplain(text, 0); at < text.size(); at = findUnplain(text, at)) {
    const char16_t unit = text[at];
    const bool isSign = unit == u',' || unit == u';' || unit == u'\\' || unit == u'\n';
    if (isSign ? allowed == Allowed::noSigns : isAscii(unit) || invalidLengthAt(text, at) != 0) {
      return false;
    }
    at += unitLength(codePointAt(text, at));
  }
  return true;
}

bool beginsInBlank(TextView text) noexcept {
  return !text.empty() && isWhitespace(text.front());
}

/// Whether readers would trim the text.
bool hasBlanksAround(TextView text) noexcept {
  return !text.empty() &&
         (isWhitespaceOrNewline(text.front()) || isWhitespaceOrNewline(text.back()));
}

bool isOrdinaryPart(TextView text) noexcept {
  return isOrdinaryText(text, Allowed::signs) && !hasBlanksAround(text);
}

bool areOrdinarySlots(std::span<const std::optional<TextList>* const> slots) {
  return std::all_of(slots.begin(), slots.end(), [](const std::optional<TextList>* slot) {
    return !*slot || std::all_of((*slot)->begin(), (*slot)->end(), isOrdinaryPart);
  });
}

bool isOrdinaryList(const VCardMultiValue& list) {
  const std::optional<VCardValueList>& values = StoredParts::of(list);
  return values && std::all_of(values->begin(), values->end(), [](const auto& element) {
           const VCardValue* const value = element.get();
           return value != nullptr && typeid(*value) == typeid(VCardTextValue) &&
                  isOrdinaryPart(
                      static_cast<const VCardTextValue&>(*value).text().value_or(TextView()));
         });
}

/// Whether a value is read again as it is written.
/// @param wanted the type that a reader takes for granted
bool isOrdinaryContent(const VCardValue& value, TextView wanted, const VCardProperty& property) {
  const std::type_info& type = typeid(value);
  if (type == typeid(VCardTextValue)) {
    const std::optional<TextView> text = static_cast<const VCardTextValue&>(value).text();
    return (wanted == cVCardValue_TEXT || wanted == cVCardValue_BINARY) && text &&
           isOrdinaryText(*text, Allowed::signs) && !beginsInBlank(*text) &&
           !property.isMultiValueProperty();
  }
  if (value.type() != wanted) {
    return false;
  }
  if (type == typeid(VCardURIValue)) {
    const TextView text = static_cast<const VCardURIValue&>(value).text().value_or(TextView());
    return isOrdinaryText(text, Allowed::noSigns) && !beginsInBlank(text);
  }
  if (type == typeid(VCardNValue)) {
    const auto& name = static_cast<const VCardNValue&>(value);
    return areOrdinarySlots(
        std::array{&name.last(), &name.first(), &name.middle(), &name.prefix(), &name.suffix()});
  }
  if (type == typeid(VCardAddressValue)) {
    const auto& address = static_cast<const VCardAddressValue&>(value);
    return areOrdinarySlots(std::array{&address.poBox(), &address.extended(), &address.street(),
                                       &address.locality(), &address.region(),
                                       &address.postalCode(), &address.country()});
  }
  if (type == typeid(VCardOrgValue)) {
    const TextList& parts = static_cast<const VCardOrgValue&>(value).parts();
    return std::all_of(parts.begin(), parts.end(), isOrdinaryPart);
  }
  if (type == typeid(VCardMultiValue)) {
    return property.isMultiValueProperty() &&
           isOrdinaryList(static_cast<const VCardMultiValue&>(value));
  }
  return type == typeid(VCardDateTimeValue) && !SourceText::of(value);
}

/// Whether a value of a parameter is written as it stands, with the name in front where it must be.
bool isOrdinaryValue(TextView parameter, TextView value, VersionCode syntax) {
  if (!isPlainName(value)) {
    return false;
  }
  if (parameter == cVCardParameter_TYPE) {
    return syntax != 2 || !equalIgnoringCase(value, cVCardParameter_ENCODING_BASE64);
  }
  return parameter != cVCardParameter_ENCODING ||
         !equalIgnoringCase(value, cVCardParameter_ENCODING_QUOTED_PRINTABLE);
}

bool areOrdinaryParameters(const VCardProperty& property, VersionCode syntax) {
  for (const auto& [key, parameter] : StoredParts::of(property).entries()) {
    const TextView name = key.view();
    const bool isPlain = knownName(name) != nullptr || isPlainUpperName(name);
    if (parameter == nullptr || parameter->name() != name || !isPlain ||
        name == cVCardParameter_CHARSET || name == cVCardParameter_VALUE) {
      return false;
    }
    const detail::TextSequence& values = StoredParts::of(*parameter);
    if (values.empty()) {
      return false;
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (!isOrdinaryValue(name, values[i].view(), syntax)) {
        return false;
      }
    }
  }
  return true;
}

} // namespace

bool isPlainName(TextView name) noexcept {
  return !name.empty() && std::all_of(name.begin(), name.end(), isAsciiNameUnit);
}

bool isOrdinary(const VCardProperty& property, const WritingContext& context) {
  const TextView name = property.name();
  const VCardValue* const value = StoredParts::valueOf(property);
  // Well-known names are plain, and none of them frames a card.
  const KnownName* const known = knownName(name);
  const bool mayBeWritten =
      value != nullptr &&
      (known != nullptr || (isPlainUpperName(name) && name != u"BEGIN" && name != u"END")) &&
      (!property.group() || isPlainName(*property.group()));
  if (!mayBeWritten || !areOrdinaryParameters(property, context.syntax)) {
    return false;
  }
  const TextView wanted = known == nullptr     ? defaultTypeOf(name, context.stated)
                          : context.stated < 4 ? known->value.below4
                                               : known->value.type;
  return isOrdinaryContent(*value, wanted, property);
}

} // namespace cardwright
