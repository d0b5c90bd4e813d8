#include "cardwright/date_formatter.h"
#include "cardwright/vcard_geo_value.h"
#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "face/conversion/forms.h"
#include "face/decimal_pair.h"
#include "face/writing/kept_source.h"
#include "values/source_text.h"

namespace cardwright {

namespace {

constexpr TextView kGeoScheme = u"geo:";
constexpr TextView kWholeUri = u"X-URI"; ///< what a pair of numbers cannot carry

/// A number without what says nothing.
Text shortened(TextView number) {
  if (number.starts_with(u'+')) {
    number.remove_prefix(1);
  }
  if (number.find(u'.') != TextView::npos) {
    while (number.ends_with(u'0')) {
      number.remove_suffix(1);
    }
    if (number.ends_with(u'.')) {
      number.remove_suffix(1);
    }
  }
  return Text(number);
}

Text pairOf(const VCardGeoValue& position) {
  if (const auto source = SourceText::of(position)) {
    return Text(*source);
  }
  DateFormatter formatter("en_US_POSIX");
  Text pair;
  position.generate(pair, 3, &formatter);
  return pair;
}

/// The geo: URI of a pair of numbers; empty for what is none.
Text uriOf(const VCardGeoValue& position) {
  const Text pair = pairOf(position);
  const auto [latitude, longitude] = decimalPair(pair, u";,");
  return latitude.empty() ? Text()
                          : Text(kGeoScheme)
                                .append(shortened(latitude))
                                .append(u",")
                                .append(shortened(longitude));
}

/// The pair of numbers that a geo: URI begins with; null for any other URI.
std::shared_ptr<VCardGeoValue> positionOf(TextView uri) {
  if (!uri.starts_with(kGeoScheme)) {
    return nullptr;
  }
  TextView coordinates = uri.substr(kGeoScheme.size());
  coordinates = coordinates.substr(0, coordinates.find(u';'));
  const std::size_t first = coordinates.find(u',');
  const std::size_t second = first == TextView::npos ? first : coordinates.find(u',', first + 1);
  const auto [latitude, longitude] = decimalPair(coordinates.substr(0, second), u",");
  if (latitude.empty()) {
    return nullptr;
  }
  DateFormatter formatter("en_US_POSIX");
  auto position = std::make_shared<VCardGeoValue>();
  position->parse(Text(latitude).append(u";").append(longitude), 3, &formatter);
  return position;
}

bool positionToUri(Draft& draft, const ConversionStep& step) {
  const auto position = std::dynamic_pointer_cast<VCardGeoValue>(draft.value);
  if (position == nullptr) {
    return true;
  }
  Text uri = uriOf(*position);
  if (uri.empty()) {
    const Text pair = pairOf(*position);
    step.recorder.changed(ConversionKind::broken, draft, {}, draft.name, pair);
    draft.setText(pair);
    return true;
  }
  if (const auto whole = draft.firstOf(kWholeUri)) {
    const auto parked = positionOf(*whole);
    if (parked != nullptr && uriOf(*parked) == uri) {
      uri = *whole;
    }
    draft.remove(kWholeUri);
  }
  step.recorder.changed(ConversionKind::reencoded, draft, {}, uri, pairOf(*position));
  draft.setUri(uri);
  return true;
}

bool uriToPosition(Draft& draft, const ConversionStep& step) {
  if (!draft.text()) {
    return true;
  }
  const Text text(*draft.text());
  const bool isUri = dynamic_cast<const VCardURIValue*>(draft.value.get()) != nullptr;
  auto position = isUri ? positionOf(text) : nullptr;
  if (position == nullptr) {
    if (isUri) {
      return false;
    }
    // A text that was no position before is none now.
    DateFormatter formatter("en_US_POSIX");
    position = std::make_shared<VCardGeoValue>();
    position->parse(text, 3, &formatter);
  } else if (uriOf(*position) != text) {
    draft.set(kWholeUri, {text});
  }
  draft.value = position;
  step.recorder.changed(ConversionKind::reencoded, draft, {}, pairOf(*position), text);
  return true;
}

} // namespace

bool convertPosition(Draft& draft, const ConversionStep& step) {
  return step.isUp() ? positionToUri(draft, step) : uriToPosition(draft, step);
}

bool convertZone(Draft& draft, const ConversionStep& step) {
  const auto* offset = dynamic_cast<const VCardUTCOffsetValue*>(draft.value.get());
  if (step.isUp() && offset != nullptr) {
    DateFormatter formatter("en_US_POSIX");
    if (const auto source = sourceToKeep(*offset, 3, formatter)) {
      const Text zone(*source);
      draft.setText(zone);
      step.recorder.changed(ConversionKind::reencoded, draft, {}, u"VALUE=text", zone);
    }
  }
  return true;
}

bool convertTelephone(Draft& draft, const ConversionStep& step) {
  constexpr TextView kScheme = u"tel:";
  constexpr TextView kParkedType = u"X-VALUE";
  if (!draft.text()) {
    return true;
  }
  const Text text(*draft.text());
  if (step.isUp()) {
    const auto type = draft.firstOf(kParkedType);
    if (type && *type == u"URI") {
      draft.setUri(Text(kScheme).append(text));
      draft.remove(kParkedType);
      step.recorder.changed(ConversionKind::reencoded, draft, {}, kScheme, text);
    }
  } else if (dynamic_cast<const VCardURIValue*>(draft.value.get()) != nullptr &&
             text.starts_with(kScheme) && draft.valuesOf(kParkedType) == nullptr) {
    draft.setText(TextView(text).substr(kScheme.size()));
    draft.set(kParkedType, {u"URI"});
    step.recorder.changed(ConversionKind::reencoded, draft, {}, u"text", text);
  }
  return true;
}

} // namespace cardwright
