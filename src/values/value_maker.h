#pragma once

#include "base/arena.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_value.h"

#include <memory>

namespace cardwright {

/// Makes an empty value for a value type name, in an arena or, where that is null, by itself.
using ValueMaker = std::shared_ptr<VCardValue> (*)(TextView type, Arena* arena);

/// What makes values of the class that the type name selects, without regard to case; null for a
/// name without a class of its own.
[[nodiscard]] ValueMaker valueMakerFor(TextView type);

/// VCardValue::valueWithType in an arena.
[[nodiscard]] std::shared_ptr<VCardValue> valueWithTypeIn(TextView type, Arena* arena);

/// VCardMultiValue::valueWithType in an arena.
[[nodiscard]] std::shared_ptr<VCardValue> multiValueWithTypeIn(TextView type, Arena* arena);

/// Gives a new date its type.
void setTypeOf(VCardDateTimeValue& value, std::optional<TextView> type);

/// What the reader does to values beyond what everybody may.
struct ValueReading {
  /// Parses a text that outlives the value, which may keep parts of it as they are.
  static bool parseLent(VCardValue& value, TextView text, VersionCode version,
                        DateFormatter* formatter) {
    value.m_isTextLent = true;
    const bool isParsed = value.parse(text, version, formatter);
    value.m_isTextLent = false;
    return isParsed;
  }
  static void setCharset(VCardValue& value, const detail::SharedText& charset) {
    value.m_charset = charset;
  }
};

} // namespace cardwright
