#include "support/essence.h"

#include "base/case.h"
#include "cardwright/date_formatter.h"
#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "cardwright/vocabulary.h"
#include "face/conversion/companions.h"
#include "face/conversion/table.h"
#include "face/writing/kept_source.h"
#include "support/without_piece.h"

#include <algorithm>
#include <array>
#include <vector>

namespace cardwright {

namespace {

constexpr TextView kType = cVCardParameter_TYPE;
constexpr TextView kEncoding = cVCardParameter_ENCODING;

template <std::size_t N>
bool isOneOf(TextView name, const std::array<TextView, N>& names) {
  return std::any_of(names.begin(), names.end(),
                     [name](TextView one) { return equalIgnoringCase(one, name); });
}

bool isMedia(TextView name) {
  return isOneOf(name, std::array<TextView, 4>{u"PHOTO", u"LOGO", u"SOUND", u"KEY"});
}

/// Types that the bytes tell as well.
bool isMedium(TextView type) {
  return isOneOf(type, std::array<TextView, 14>{u"JPEG", u"JPG", u"PNG", u"GIF", u"TIFF", u"BMP",
                                                u"WEBP", u"WAVE", u"WAV", u"OGG", u"MP3", u"BASIC",
                                                u"PGP", u"X509"}) ||
         type.find(u'/') != TextView::npos;
}

/// Two are said in two ways, of which one is usual.
Text usualType(Text type) {
  return type == u"JPG" ? Text(u"JPEG") : type == u"WAV" ? Text(u"WAVE") : type;
}

bool isBinary(const VCardProperty& property) {
  const auto encoding = property.valueOfParameterWithName(kEncoding);
  return encoding && isOneOf(*encoding, std::array<TextView, 2>{u"B", u"BASE64"});
}

/// The value behind the header of the unfolded line.
Text writtenValue(TextView name, const std::shared_ptr<VCardValue>& value, VersionCode version) {
  if (value == nullptr) {
    return {};
  }
  auto card = std::make_shared<VCard>();
  card->addProperty(VCardProperty::propertyWithName(name, value));
  const Text text = withoutPiece(textFromUtf8(writeCards({card}, nullptr, {version})), u"\r\n ");
  const std::size_t colon = text.find(u':', text.find(u'\n'));
  return text.substr(colon + 1, text.find(u'\r', colon) - colon - 1);
}

/// Base64 without what is no digit of it.
void keepDigits(Text& value) {
  value = withoutPiece(value, u"\\n");
  std::erase_if(value, [](char16_t unit) { return unit == u' ' || unit == u'\t'; });
}

/// What the tables list as dropped, and what the page says of types and VALUE.
bool isListed(const VCardProperty& property, TextView parameter, TextView value) {
  if (parameter == kType) {
    return equalIgnoringCase(value, u"internet") ||
           (isMedia(property.name()) && isMedium(value) && isBinary(property));
  }
  if (parameter == kEncoding) {
    return isOneOf(value, std::array<TextView, 3>{u"quoted-printable", u"8bit", u"7bit"});
  }
  return parameter == cVCardParameter_CHARSET || parameter == cVCardParameter_VALUE;
}

/// Line breaks that are escaped as in a value.
void breakLines(TextList& values) {
  for (Text& value : values) {
    for (std::size_t at = 0; (at = value.find(u"\\n", at)) != Text::npos;) {
      value.erase(at, 1);
      value[at] = u'\n';
    }
  }
}

Text nameOf(const VCardProperty& property, const Text& name) {
  return Text(property.group().value_or(u"-")).append(u" ").append(name);
}

void finish(TextList& values) {
  std::sort(values.begin(), values.end());
  values.erase(std::unique(values.begin(), values.end()), values.end());
}

Text withoutMark(Text name) {
  for (const TextView mark : {TextView(u"X-ADDRESSBOOKSERVER-"), TextView(u"X-")}) {
    if (name.starts_with(mark)) {
      name.erase(0, mark.size());
    }
  }
  return name;
}

/// A date without the year that stands for none.
std::shared_ptr<VCardValue> withoutOmittedYear(const VCardProperty& property) {
  const auto date = std::dynamic_pointer_cast<VCardDateTimeValue>(property.value());
  if (date == nullptr || !property.valueOfParameterWithName(cVCardParameter_DATE_OMIT_YEAR)) {
    return property.value();
  }
  auto without = VCardDateTimeValue::valueWithType(*date->type());
  DateComponents fields = date->comps();
  fields.year.reset();
  without->setComps(fields);
  return without;
}

/// Pictures by their digits, positions by their numbers, telephones without their scheme.
Text commonValue(const VCardProperty& property, const Text& name) {
  Text value = writtenValue(u"X-A", withoutOmittedYear(property), 4);
  std::erase(value, u'\\');
  if (const std::size_t comma = value.find(u";base64,"); isMedia(name) && comma != Text::npos) {
    value.erase(0, comma + 8);
  }
  if (isMedia(name)) {
    std::erase_if(value, [](char16_t unit) { return unit == u' ' || unit == u'n'; });
  }
  if (name == u"TEL" && value.starts_with(u"tel:")) {
    value.erase(0, 4);
  }
  if (name == u"TZ") {
    std::erase(value, u':');
  }
  if (name == u"GENDER") {
    // One letter for either form.
    value.resize(value == u"Male" || value == u"Female" ? 1 : value.size());
  }
  return value;
}

/// What kind of value is read where the version implies some of it; an offset that is none is text.
Text kindOf(const VCardValue& value) {
  DateFormatter formatter("en_US_POSIX");
  if (dynamic_cast<const VCardDateTimeValue*>(&value) != nullptr) {
    return u"a date";
  }
  const bool isNoOffset = dynamic_cast<const VCardUTCOffsetValue*>(&value) != nullptr &&
                          sourceToKeep(value, 3, formatter);
  return upperCased(isNoOffset ? cVCardValue_TEXT : value.type().value_or(TextView()));
}

bool isForm(TextView parameter) {
  return isOneOf(parameter, std::array<TextView, 7>{u"PREF", u"MEDIATYPE", u"DATA-TYPE", u"VALUE",
                                                    u"ENCODING", u"CHARSET", u"APPLE-OMIT-YEAR"});
}

/// Whoever stands in another's card is the same under either name.
void uniteNames(Essence& essence, const VCardProperty& property) {
  constexpr std::array<TextView, 5> kRelations = {u"SPOUSE", u"CHILD", u"MANAGER", u"ASSISTANT",
                                                  u"AGENT"};
  if (isOneOf(essence.name, kRelations)) {
    essence.parameters[Text(kType)].push_back(essence.name);
    essence.name = u"RELATED";
  }
  if (const auto former = property.valueOfParameterWithName(u"X-FORMERLY");
      former && essence.name == u"IMPP") {
    essence.name = Text(former->substr(2));
    essence.value.erase(0, essence.value.find(u':') + 1);
    essence.parameters.erase(u"FORMERLY");
    essence.parameters.erase(u"SERVICE-TYPE");
  }
}

bool changesName(const Rule& rule, TextView name) {
  const bool isHost = rule.form == Form::label || rule.form == Form::sortString;
  return rule.action == Action::park || rule.action == Action::rename ||
         (rule.target != name && !(isHost && (name == u"ADR" || name == u"N")) &&
          rule.form != Form::messenger) ||
         (rule.form == Form::messenger && name != u"IMPP");
}

bool isForeignParameter(const VCardProperty& property, const VCardParameter& parameter,
                        const ConversionTable& home, const ConversionTable& back) {
  const Text key = upperCased(parameter.name());
  const TextList values = parameter.values();
  const auto isAny = [&values](const auto& test) {
    return std::any_of(values.begin(), values.end(), test);
  };
  if (key == kType) {
    return isAny([&](const Text& type) { return ruleFor(home.types, type) != nullptr; }) ||
           (home.to == 4 && isMedia(property.name()) && isAny(isMedium));
  }
  if (key == kEncoding) {
    return isAny([&](const Text& encoding) {
      return !encodingIsSupportedForVersion(encoding, home.to) ||
             ruleFor(home.parameters, key) != nullptr;
    });
  }
  if (key == cVCardParameter_VALUE) {
    return isAny([&](const Text& value) { return !valueIsSupportedForVersion(value, home.to); });
  }
  const bool isOwn = key == u"X-TYPE" || key == u"X-VALUE" || key == u"X-FORMERLY" ||
                     key == u"X-URI" || key == u"X-DATA-TYPE" ||
                     (key == cVCardParameter_DATE_OMIT_YEAR && home.to == 4);
  return isOwn || (ruleFor(home.parameters, key) && !isSplitParameter(property.name(), key)) ||
         parkedRule(back.parameters, key) != nullptr;
}

/// Dates without a year and pictures in URIs, whatever they are called.
bool isFormOf4(const VCardProperty& property) {
  if (const auto* date = dynamic_cast<const VCardDateTimeValue*>(property.value().get())) {
    return !date->comps().year && date->comps().month && date->comps().day;
  }
  return isMedia(property.name()) && property.textValue().value_or(u"").starts_with(u"data:");
}

} // namespace

Essence wholeEssence(const std::shared_ptr<VCardProperty>& property, VersionCode version) {
  const Text name = upperCased(property->name());
  Essence essence{nameOf(*property, name), {}, writtenValue(name, property->value(), version)};
  if (isMedia(name) && isBinary(*property)) {
    keepDigits(essence.value);
  } else if (name == cVCardProperty_X_GENDER && (essence.value == u"M" || essence.value == u"F")) {
    essence.value = essence.value == u"M" ? u"Male" : u"Female";
  }
  for (const auto& [key, parameter] : property->parameterDict().value_or(VCardParameterDict())) {
    TextList values;
    for (const Text& value : parameter->values()) {
      if (!isListed(*property, key, value)) {
        const bool hasCase = key != kType && key != kEncoding && key != u"X-ENCODING";
        values.push_back(hasCase ? value : usualType(upperCased(value)));
      }
    }
    if (key == cVCardParameter_LABEL) {
      breakLines(values);
    }
    finish(values);
    if (!values.empty()) {
      essence.parameters.emplace(key, std::move(values));
    }
  }
  if (property->value() != nullptr) {
    essence.parameters[u"VALUE"] = {kindOf(*property->value())};
  }
  return essence;
}

Essence commonEssence(const std::shared_ptr<VCardProperty>& property) {
  const Text name = withoutMark(upperCased(property->name()));
  Essence essence{name, {}, commonValue(*property, name)};
  for (const auto& [dictKey, parameter] :
       property->parameterDict().value_or(VCardParameterDict())) {
    const Text key = withoutMark(upperCased(parameter->name()));
    TextList& values = essence.parameters[key];
    for (const Text& value : parameter->values()) {
      const bool isSaidOtherwise =
          isForm(key) || isListed(*property, key, value) ||
          (key == kType && (isMedium(value) || equalIgnoringCase(value, u"pref")));
      if (!isSaidOtherwise) {
        values.push_back(key == kType || key == u"ENCODING" ? upperCased(value) : value);
      }
    }
  }
  uniteNames(essence, *property);
  for (auto& [key, values] : essence.parameters) {
    finish(values);
  }
  std::erase_if(essence.parameters, [](const auto& entry) { return entry.second.empty(); });
  essence.name = nameOf(*property, essence.name);
  return essence;
}

bool isForeign(const VCardProperty& property, VersionCode home, VersionCode there) {
  const Text name = upperCased(property.name());
  if (home < 4 && isFormOf4(property)) {
    return true;
  }
  for (VersionCode at = there; at != home;) {
    const VersionCode next = at < home ? at + 1 : at - 1;
    const ConversionTable& table = conversionTable(at, next);
    const ConversionTable& back = conversionTable(next, at);
    const Rule* rule = ruleFor(table.properties, name);
    if ((rule != nullptr && changesName(*rule, name)) ||
        parkedRule(back.properties, name) != nullptr) {
      return true;
    }
    for (const auto& [key, parameter] : property.parameterDict().value_or(VCardParameterDict())) {
      if (isForeignParameter(property, *parameter, table, back)) {
        return true;
      }
    }
    at = next;
  }
  return false;
}

std::string told(const Essence& essence) {
  std::string text = utf8FromText(essence.name);
  for (const auto& [key, values] : essence.parameters) {
    for (const Text& value : values) {
      text.append(";").append(utf8FromText(key)).append("=").append(utf8FromText(value));
    }
  }
  return text + ":" + utf8FromText(essence.value) + "\n";
}

} // namespace cardwright
