#include "support/round_trip.h"

#include "base/ascii.h"
#include "base/case.h"
#include "base/whitespace.h"
#include "cardwright/date_formatter.h"
#include "cardwright/text_scanner.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "cardwright/vcard_utilities.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace cardwright {

namespace {

using Slot = std::optional<TextList>;

/// Rule: characters that XML cannot hold are removed from values, three more among them.
bool isRemoved(char32_t codePoint) {
  const bool isKept = codePoint == 0x09 || codePoint == 0x0A || codePoint == 0x0D ||
                      (codePoint >= 0x20 && codePoint <= 0xD7FE) ||
                      (codePoint >= 0xE000 && codePoint <= 0xFFFC) ||
                      (codePoint >= 0x10000 && codePoint <= 0x10FFFE);
  return !isKept;
}

Text escapable(TextView text) {
  Text kept;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t codePoint = codePointAt(text, at);
    const std::size_t length = unitLength(codePoint);
    if (!isRemoved(codePoint)) {
      kept.append(text.substr(at, length));
    }
    at += length;
  }
  // Rule: a line break of any kind in a value is a line feed afterwards.
  Text result;
  for (std::size_t at = 0; at < kept.size(); ++at) {
    const bool isPair = kept[at] == u'\r' && at + 1 < kept.size() && kept[at + 1] == u'\n';
    if (!isPair) {
      result.push_back(kept[at] == u'\r' ? u'\n' : kept[at]);
    }
  }
  return result;
}

/// Rule: blanks at the start of a value are not part of it.
Text withoutLeadingBlanks(TextView text) {
  while (!text.empty() && isWhitespace(text.front())) {
    text.remove_prefix(1);
  }
  return Text(text);
}

/// Rule: blanks around a text in a list are not part of it, unless it consists of blanks. A line
/// feed is written as an escape, so it is no blank.
Text withoutBlanksAround(const Text& text) {
  const TextView inner = trimmed(
      TextView(text), [](char16_t unit) { return unit != u'\n' && isWhitespaceOrNewline(unit); });
  return inner.empty() ? text : Text(inner);
}

/// Rule: an ASCII text under a CHARSET without quoted-printable is decoded by it at each reading.
std::optional<Text> decodedAgain(const Text& text, const std::optional<Text>& charset) {
  if (!charset || !std::all_of(text.begin(), text.end(), isAscii)) {
    return text;
  }
  return VCardUtilities::stringFromData(std::string(text.begin(), text.end()), *charset);
}

Text textOf(const Slot& slot) {
  return slot && !slot->empty() ? slot->front() : Text();
}

Slot slotOf(std::optional<Text> text) {
  return text ? Slot(TextList{std::move(*text)}) : std::nullopt;
}

/// Rule: an absent text is an empty one afterwards.
void changeText(ValueModel& value) {
  const Text text = withoutLeadingBlanks(escapable(textOf(value.texts.at(0))));
  value.texts = {slotOf(decodedAgain(text, value.charset))};
}

void changeSlots(ValueModel& value) {
  for (std::size_t at = 0; at < value.texts.size(); ++at) {
    Slot& slot = value.texts[at];
    TextList changed = slot.value_or(TextList{});
    for (Text& text : changed) {
      text = escapable(text);
    }
    if (at == 0 && !changed.empty()) {
      changed.front() = withoutLeadingBlanks(changed.front());
    }
    // Rule: an empty text alone in a component of a name or an address is an absent one.
    if (changed.empty() || changed == TextList{Text()}) {
      slot.reset();
      continue;
    }
    slot.emplace();
    for (const Text& text : changed) {
      if (auto decoded = decodedAgain(withoutBlanksAround(text), value.charset)) {
        slot->push_back(std::move(*decoded));
      }
    }
  }
}

void changeParts(ValueModel& value) {
  TextList& parts = *value.texts.at(0);
  for (std::size_t at = 0; at < parts.size(); ++at) {
    const Text text = escapable(parts[at]);
    parts[at] =
        decodedAgain(at == 0 ? withoutLeadingBlanks(text) : text, value.charset).value_or(Text());
  }
}

/// Rule: a semicolon in the sex, which only quoted-printable can put there, begins the identity.
void changeGender(ValueModel& value) {
  Text sex = withoutLeadingBlanks(escapable(textOf(value.texts.at(0))));
  std::optional<Text> identity;
  if (value.texts.at(1)) {
    identity = escapable(textOf(value.texts[1]));
  }
  if (const std::size_t semicolon = sex.find(u';'); semicolon != Text::npos) {
    identity = sex.substr(semicolon + 1) + (identity ? u";" + *identity : Text());
    sex.resize(semicolon);
  }
  value.texts = {slotOf(decodedAgain(sex, value.charset)),
                 identity ? slotOf(decodedAgain(*identity, value.charset)) : std::nullopt};
}

/// Rule: characters that are removed may leave a separator of label and value behind.
void changeLabelled(ValueModel& value) {
  constexpr TextView kSeparator = u"-=+=-";
  Text joined = textOf(value.texts.at(1));
  if (value.texts[0]) {
    joined = textOf(value.texts[0]) + Text(kSeparator) + joined;
  }
  joined = decodedAgain(withoutLeadingBlanks(escapable(joined)), value.charset).value_or(Text());
  const std::size_t cut = joined.find(kSeparator);
  if (cut == Text::npos) {
    value.texts = {std::nullopt, slotOf(joined)};
    return;
  }
  const Text rest = joined.substr(cut + kSeparator.size());
  value.texts = {slotOf(joined.substr(0, cut)), slotOf(rest.substr(0, rest.find(kSeparator)))};
}

std::string sixDecimals(double number) {
  std::array<char, 400> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%.6f", number);
  return buffer.data();
}

/// Rule: degrees have six decimals. One beyond all numbers is 0.
double degreesRead(double written) {
  return std::isfinite(written) ? std::strtod(sixDecimals(written).c_str(), nullptr) : 0;
}

void changePosition(ValueModel& value) {
  value.latitude = degreesRead(value.latitude);
  value.longitude = degreesRead(value.longitude);
}

/// What a value without escapes of its own is written as.
Text writtenValue(const ValueModel& value, VersionCode version) {
  DateFormatter formatter("en_US_POSIX");
  Text text;
  if (value.valueClass == ValueClass::date) {
    const auto date = VCardDateTimeValue::valueWithType(value.type);
    date->setComps(value.date);
    date->generate(text, version, &formatter);
  } else {
    VCardUTCOffsetValue offset;
    offset.setOffset(value.offset);
    offset.generate(text, version, &formatter);
  }
  return text;
}

bool isBetween(const std::optional<std::int64_t>& field, std::int64_t first, std::int64_t last) {
  return !field || (*field >= first && *field <= last);
}

std::int64_t daysOf(const DateComponents& date) {
  constexpr std::array<std::int64_t, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const std::int64_t year = date.year.value_or(2000);
  const bool isLeapYear = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  const std::int64_t month = date.month.value_or(1);
  return month == 2 && isLeapYear ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

/// Whether a date is one that is read as it was written: fields within their ranges, in one of the
/// combinations that have a written form, and with all that the type needs.
bool isPlainDate(const DateComponents& date, TextView type) {
  const bool isInRange = isBetween(date.year, 1583, 9999) && isBetween(date.month, 1, 12) &&
                         isBetween(date.hour, 0, 23) && isBetween(date.minute, 0, 59) &&
                         isBetween(date.second, 0, 59);
  const bool hasDate = date.year || date.month || date.day;
  const bool hasTime = date.hour || date.minute || date.second;
  const bool hasForm =
      !(date.year && !date.month && date.day) && !(date.hour && !date.minute && date.second);
  if (!isInRange || !isBetween(date.day, 1, daysOf(date)) || !hasForm ||
      (date.timeZone && !hasTime)) {
    return false;
  }
  if (equalIgnoringCase(type, u"date")) {
    return !hasTime;
  }
  if (equalIgnoringCase(type, u"time")) {
    return !hasDate;
  }
  return equalIgnoringCase(type, u"date-and-or-time") || hasDate == hasTime;
}

void changeDate(ValueModel& value, VersionCode version) {
  if (!isPlainDate(value.date, *value.type)) {
    // Rule: any other date is what its written form reads as. Fields out of range roll over, those
    // without a written form are lost, a zone without a time is read as digits or lost, and a date
    // and time that lack either are lost.
    DateFormatter formatter("en_US_POSIX");
    const auto date = VCardDateTimeValue::valueWithType(value.type);
    date->parse(writtenValue(value, version), version, &formatter);
    value.date = date->comps();
    return;
  }
  // Rule: below version 4 an offset of nothing is written like the universal zone.
  if (version < 4 && value.date.timeZone && value.date.timeZone->secondsFromUtc() == 0) {
    value.date.timeZone = TimeZone::universal();
  }
}

void changeOffset(ValueModel& value, VersionCode version) {
  constexpr std::int64_t kHundredHours = 360'000;
  if (value.offset <= -kHundredHours || value.offset >= kHundredHours) {
    // Rule: offsets of a hundred hours and more are what their written form reads as.
    VCardUTCOffsetValue offset;
    offset.parse(writtenValue(value, version), version, nullptr);
    value.offset = offset.offset();
  }
}

void change(ValueModel& value, VersionCode version);

/// The text that an element of a list is written with last, or null.
Text* lastText(ValueModel& element) {
  for (auto slot = element.texts.rbegin(); slot != element.texts.rend(); ++slot) {
    const bool hasFixedPlace =
        element.valueClass == ValueClass::name || element.valueClass == ValueClass::address;
    if (*slot && !(*slot)->empty()) {
      return &(*slot)->back();
    }
    if (hasFixedPlace) {
      return nullptr;
    }
  }
  return nullptr;
}

/// Rule: blanks around an element of a list are not part of it.
void changeList(ValueModel& value, VersionCode version) {
  for (ValueModel& element : value.elements) {
    if (Text* last = lastText(element)) {
      *last = escapable(*last);
      while (!last->empty() && isWhitespace(last->back())) {
        last->pop_back();
      }
    }
    change(element, version);
  }
}

void change(ValueModel& value, VersionCode version) {
  switch (value.valueClass) {
  case ValueClass::base:
    break;
  case ValueClass::text:
  case ValueClass::uri:
  case ValueClass::extension:
    changeText(value);
    break;
  case ValueClass::list:
    changeList(value, version);
    break;
  case ValueClass::name:
  case ValueClass::address:
    changeSlots(value);
    break;
  case ValueClass::organisation:
    changeParts(value);
    break;
  case ValueClass::gender:
    changeGender(value);
    break;
  case ValueClass::position:
    changePosition(value);
    break;
  case ValueClass::labelled:
    changeLabelled(value);
    break;
  case ValueClass::date:
    changeDate(value, version);
    break;
  case ValueClass::utcOffset:
    changeOffset(value, version);
    break;
  }
}

const ParameterModel* parameterOf(const PropertyModel& property, TextView key) {
  const auto found = property.parameters.find(Text(key));
  return found == property.parameters.end() ? nullptr : &found->second;
}

std::optional<Text> firstValueOf(const PropertyModel& property, TextView key) {
  const ParameterModel* parameter = parameterOf(property, key);
  return parameter != nullptr ? std::optional<Text>(parameter->values.front()) : std::nullopt;
}

/// Rule: quoted-printable values are written as plain text, without the parameters that described
/// them. In 2.1 the charset is stated instead.
void dropEncoding(PropertyModel& property, VersionCode version) {
  const std::optional<Text> encoding = firstValueOf(property, u"ENCODING");
  if (!property.value->quotedPrintable || !encoding ||
      !equalIgnoringCase(*encoding, u"quoted-printable")) {
    return;
  }
  property.parameters.erase(u"ENCODING");
  property.parameters.erase(u"CHARSET");
  if (version == 2) {
    property.parameters[u"CHARSET"] = {u"CHARSET", {u"UTF-8"}};
  }
}

/// @returns false when the line is rejected: an empty value of a parameter is no value
bool changeParameters(PropertyModel& property) {
  for (auto& [key, parameter] : property.parameters) {
    const bool isUpperCased = key == u"TYPE" || key == u"VALUE" || key == u"ENCODING";
    for (Text& value : parameter.values) {
      // Rule: values of these three are in upper case afterwards, but for "pref".
      if (isUpperCased && value != u"pref") {
        value = upperCased(value);
      }
      // Rule: blanks at the start of a value are lost where nothing else needs quotes.
      if (value.find_first_of(u":;,") == Text::npos) {
        value = withoutLeadingBlanks(value);
      }
      if (value.empty()) {
        return false;
      }
    }
  }
  return true;
}

/// Rule: a type "base64" of a photo is written bare in 2.1, where that is an encoding.
void moveEncodingOfPhoto(PropertyModel& property, VersionCode version) {
  const auto type = property.parameters.find(u"TYPE");
  if (version != 2 || property.name != u"PHOTO" || type == property.parameters.end()) {
    return;
  }
  TextList& types = type->second.values;
  const auto isEncoding = [](const Text& text) { return equalIgnoringCase(text, u"base64"); };
  const auto rest = std::stable_partition(
      types.begin(), types.end(), [&isEncoding](const Text& text) { return !isEncoding(text); });
  const TextList moved(rest, types.end());
  types.erase(rest, types.end());
  if (types.empty()) {
    property.parameters.erase(type);
  }
  if (!moved.empty()) {
    ParameterModel& encoding = property.parameters[u"ENCODING"];
    encoding.name = u"ENCODING";
    encoding.values.insert(encoding.values.end(), moved.begin(), moved.end());
  }
}

/// The type name that the reader chooses for a property under a version code.
Text typeRead(const PropertyModel& property, VersionCode code) {
  constexpr std::array<TextView, 6> kStructured = {u"Address", u"N",      u"Gender",
                                                   u"Org",     u"Geo3.0", u"Custom"};
  VCardProperty named;
  named.setName(property.name);
  const Text byDefault(named.defaultTypeForVersion(code));
  const std::optional<Text> stated = firstValueOf(property, u"VALUE");
  const bool isImplied =
      stated && equalIgnoringCase(*stated, u"text") &&
      std::find(kStructured.begin(), kStructured.end(), byDefault) != kStructured.end();
  return stated && !isImplied ? *stated : byDefault;
}

bool isText(ValueClass valueClass) {
  return valueClass == ValueClass::text || valueClass == ValueClass::uri ||
         valueClass == ValueClass::extension;
}

/// Rule: VERSION is written first, so that the types of version 4 hold for properties that stood
/// before it.
void changeClass(ValueModel& value, const Text& type, VersionCode version) {
  const auto example = VCardValue::valueWithType(type);
  const ValueClass valueClass = classOf(*example);
  if (valueClass != value.valueClass && isText(valueClass)) {
    Text text;
    if (value.valueClass == ValueClass::position) {
      const std::string degrees = sixDecimals(value.latitude) + ";" + sixDecimals(value.longitude);
      text.assign(degrees.begin(), degrees.end());
    } else if (value.valueClass == ValueClass::utcOffset) {
      text = writtenValue(value, version);
    } else {
      text = textOf(value.texts.at(0));
    }
    const std::optional<Text> charset = value.charset;
    value = {};
    value.charset = charset;
    value.texts = {slotOf(std::move(text))};
  }
  value.valueClass = valueClass;
  // Rule: a type that VALUE states is in upper case afterwards, like the VALUE.
  value.type = modelOf(*example).type;
}

/// @returns absent when the reader rejects the line
std::optional<PropertyModel> afterRoundTrip(PropertyModel property, VersionCode version,
                                            VersionCode code) {
  dropEncoding(property, version);
  if (!changeParameters(property)) {
    return std::nullopt;
  }
  moveEncodingOfPhoto(property, version);

  ValueModel& value = *property.value;
  const Text type = typeRead(property, code);
  const auto describe = [&property](ValueModel& described) {
    described.quotedPrintable = false;
    described.charset = firstValueOf(property, u"CHARSET");
  };
  describe(value);
  if (value.valueClass == ValueClass::list) {
    value.type = type;
    for (ValueModel& element : value.elements) {
      describe(element);
      changeClass(element, type, version);
    }
  } else {
    changeClass(value, type, version);
  }
  change(value, version);
  return property;
}

bool isCompanion(const PropertyModel& property) {
  return equalIgnoringCase(property.name, u"X-ABLabel") ||
         equalIgnoringCase(property.name, u"X-ABADR");
}

bool isEmptyPhoto(const PropertyModel& property) {
  return property.name == u"PHOTO" &&
         (!isText(property.value->valueClass) || textOf(property.value->texts.at(0)).empty());
}

/// The properties of a card in the order in which they are written.
std::vector<const PropertyModel*> writtenProperties(const VCard& card, const CardModel& model) {
  std::vector<const PropertyModel*> properties;
  const auto addCompanions = [&](TextView key, const Text& group) {
    const auto found = model.find(Text(key));
    if (found == model.end()) {
      return;
    }
    for (const PropertyModel& companion : found->second) {
      if (companion.group && equalIgnoringCase(*companion.group, group)) {
        properties.push_back(&companion);
      }
    }
  };
  for (const Text& key : card.propertiesInSortOrder()) {
    for (const PropertyModel& property : model.at(key)) {
      // Rule: labels and address formats are written behind each property of their group and
      // nowhere else. Rule: photos without text are left out.
      if (isCompanion(property) || isEmptyPhoto(property)) {
        continue;
      }
      properties.push_back(&property);
      if (property.group) {
        addCompanions(u"X-ABLABEL", *property.group);
        if (equalIgnoringCase(property.name, u"ADR")) {
          addCompanions(u"X-ABADR", *property.group);
        }
      }
    }
  }
  return properties;
}

std::uint64_t versionStated(const PropertyModel& property) {
  return VCardProperty::propertyWithName(u"VERSION", TextView(textOf(property.value->texts.at(0))))
      ->versionValue();
}

/// The version code that the reader settles on; absent when the rules change what VERSION states.
std::optional<VersionCode> codeRead(const CardModel& model, VersionCode version) {
  const auto found = model.find(u"VERSION");
  if (found == model.end()) {
    return std::nullopt;
  }
  std::optional<VersionCode> code;
  for (const PropertyModel& property : found->second) {
    const auto changed = afterRoundTrip(property, version, 0);
    const std::uint64_t stated = versionStated(property);
    if (!changed || versionStated(*changed) != stated) {
      return std::nullopt;
    }
    if (!code && stated != 0) {
      code = static_cast<VersionCode>(
          std::min<std::uint64_t>(stated, std::numeric_limits<VersionCode>::max()));
    }
  }
  return code;
}

} // namespace

VersionCode ownVersion(const VCard& card) {
  const std::uint64_t version = card.version();
  return version >= 2 && version <= 4 ? static_cast<VersionCode>(version) : 3;
}

Text written(const VCard& card, VersionCode version) {
  DateFormatter formatter("en_US_POSIX");
  Text text;
  card.generate(text, version, &formatter);
  return text;
}

VCardList readUncleaned(TextView text) {
  VCardList cards;
  TextScanner scanner(text);
  while (!scanner.isAtEnd()) {
    if (auto card = VCard::vCardFromScanner(&scanner)) {
      cards.push_back(std::move(card));
    }
  }
  return cards;
}

std::optional<CardModel> expectedAfterRoundTrip(const VCard& card) {
  const VersionCode version = ownVersion(card);
  const CardModel model = modelOf(card);
  const std::optional<VersionCode> code = codeRead(model, version);
  if (!code) {
    return std::nullopt;
  }
  CardModel expected;
  for (const PropertyModel* property : writtenProperties(card, model)) {
    if (auto changed = afterRoundTrip(*property, version, *code)) {
      expected[upperCased(changed->name)].push_back(std::move(*changed));
    }
  }
  return expected;
}

RoundTrip roundTrip(VCard& card) {
  RoundTrip result;
  const VersionCode version = ownVersion(card);
  const auto versions = card.propertiesWithName(u"VERSION");
  if (versions == nullptr ||
      std::any_of(versions->begin(), versions->end(), [version](const auto& property) {
        return whyUnwritable(*property, version).has_value();
      })) {
    return result;
  }
  result.unwritable = removeUnwritable(card, version);
  const std::optional<CardModel> expected = expectedAfterRoundTrip(card);
  if (!expected) {
    return result;
  }
  result.isCompared = true;
  const VCardList again = readUncleaned(written(card, version));
  result.surprises = again.size() == 1 ? differences(*expected, modelOf(*again.front()))
                                       : "one card became " + std::to_string(again.size());
  return result;
}

} // namespace cardwright
