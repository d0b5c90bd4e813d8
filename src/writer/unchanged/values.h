#pragma once

#include "base/readable_text.h"
#include "base/utf8_encoder.h"
#include "values/value_classes.h"
#include "writer/unchanged/bytes.h"
#include "writer/unchanged/rewriting.h"

#include <cstddef>

namespace cardwright {

/// What a value is read as.
struct ValueForm {
  ValueClass valueClass = ValueClass::text;
  bool isList = false;            ///< whether it is a list of such values
  bool isQuotedPrintable = false; ///< of UTF-8
  bool isPhoto = false;           ///< whether it is that of a PHOTO
  bool mayBeDate = false;         ///< of a date: whether its type has days without a time
  bool mayBeInstant = false;      ///< likewise, days with a time
};

/// How many bytes are written at most before rewriteValue asks whether there is room for more.
[[nodiscard]] constexpr std::size_t roomToBegin(std::size_t units) noexcept {
  constexpr std::size_t kSeparators = 8;
  return roomForUtf8(units) + kSeparators + kBeyondBytes;
}

/// How many bytes rewriteValue may ask for in all.
[[nodiscard]] constexpr std::size_t roomForValue(std::size_t units) noexcept {
  return 3 * roomToBegin(units);
}

/// Appends a value that was read as it is written.
/// @param value  begins behind blanks
/// @param output has room for roomToBegin
/// @param isSafe whether it is to be written as writeCards does it, so that every version reads the
///               same again; what that mends is left to properties
[[nodiscard]] Rewriting rewriteValue(Bytes& output, const ReadableText& value,
                                     const ValueForm& form, VersionCode version,
                                     bool isSafe = false);

} // namespace cardwright
