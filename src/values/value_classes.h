#pragma once

#include "base/name_table.h"
#include "cardwright/vocabulary.h"

#include <cstdint>

namespace cardwright {

/// The classes that value type names select.
enum class ValueClass : std::uint8_t {
  address,
  custom,
  dateTime,
  gender,
  geo,
  name,
  organisation,
  text,
  uri,
  utcOffset,
  extension, ///< for all other names
};

inline constexpr NameTable kValueClasses({
    NameRow<ValueClass>{cVCardValue_Address, ValueClass::address},
    {cVCardValue_DATE, ValueClass::dateTime},
    {cVCardValue_DATE_TIME, ValueClass::dateTime},
    {cVCardValue_TIME, ValueClass::dateTime},
    {cVCardValue_DATE_AND_OR_TIME, ValueClass::dateTime},
    {cVCardValue_TIMESTAMP, ValueClass::dateTime},
    {cVCardValue_N, ValueClass::name},
    {cVCardValue_TEXT, ValueClass::text},
    {cVCardValue_BINARY, ValueClass::text},
    {cVCardValue_URI, ValueClass::uri},
    {cVCardValue_UTC_OFFSET, ValueClass::utcOffset},
    {cVCardValue_Gender, ValueClass::gender},
    {cVCardValue_Org, ValueClass::organisation},
    {cVCardValue_Geo3_0, ValueClass::geo},
    {cVCardValue_Custom, ValueClass::custom},
});

/// The class that the type name selects, without regard to case.
[[nodiscard]] inline ValueClass valueClassFor(TextView type) {
  const NameRow<ValueClass>* row = kValueClasses.findIgnoringCase(type);
  return row != nullptr ? row->value : ValueClass::extension;
}

} // namespace cardwright
