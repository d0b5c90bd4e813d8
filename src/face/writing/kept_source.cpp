#include "face/writing/kept_source.h"

#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_utc_offset_value.h"
#include "values/source_text.h"

namespace cardwright {

namespace {

Text writtenBy(const VCardValue& value, VersionCode version, DateFormatter& formatter) {
  Text text;
  value.generate(text, version, &formatter);
  return text;
}

/// Whether a version writes the very text: then all of it was understood.
bool isUnderstood(const VCardValue& value, TextView source, DateFormatter& formatter) {
  for (const VersionCode version : {3, 4}) {
    if (writtenBy(value, version, formatter) == source) {
      return true;
    }
  }
  return false;
}

} // namespace

std::optional<TextView> sourceToKeep(const VCardValue& value, VersionCode version,
                                     DateFormatter& formatter) {
  const std::optional<TextView> source = SourceText::of(value);
  if (!source || !isUnderstood(value, *source, formatter)) {
    return source;
  }
  const Text text = writtenBy(value, version, formatter);
  bool isSame = true;
  if (const auto* date = dynamic_cast<const VCardDateTimeValue*>(&value)) {
    const auto again = VCardDateTimeValue::valueWithType(date->type());
    again->parse(text, version, &formatter);
    isSame = again->comps() == date->comps();
  } else if (const auto* offset = dynamic_cast<const VCardUTCOffsetValue*>(&value)) {
    VCardUTCOffsetValue again;
    again.parse(text, version, &formatter);
    isSame = again.offset() == offset->offset();
  }
  return isSame ? std::nullopt : source;
}

} // namespace cardwright
