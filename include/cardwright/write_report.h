#pragma once

#include "cardwright/text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright {

/// How cards are written.
struct WriteOptions {
  /// Version whose syntax is written; 0 for that which each card states, or 3 where it states none
  /// of 2, 3 and 4. The VERSION property is written as the card holds it.
  VersionCode version = 0;
};

/// What writing changed or left out so that the same card can be read again. The numbers are
/// stable.
enum class WriteChangeKind {
  groupCleaned = 1,         ///< characters that would end the group or tear the line
  nameCleaned = 2,          ///< the same in the name of a property
  parameterNameCleaned = 3, ///< the same in the name of a parameter
  parameterCleaned = 4,     ///< line breaks and halves of characters in a parameter's value
  parameterLeftOut = 5,     ///< a parameter without a name, or without more than blanks as a value
  encodingLeftOut = 6,      ///< ENCODING or CHARSET that do not describe the value as written
  valueStated = 7,          ///< VALUE, without which another kind of value would be read
  valueCleaned = 8,         ///< characters that no value can hold
  repeatLeftOut = 9,        ///< a label or address format that its group has already
  namelessLeftOut = 10,     ///< a property without a name
  frameLeftOut = 11,        ///< a property that reads BEGIN:VCARD or END:VCARD
  versionLeftOut = 12,      ///< a VERSION that is no text
};

/// A short English phrase for a change, such as "repeated label left out"; "unknown" for a number
/// without one. May be called from any thread.
[[nodiscard]] [[gnu::visibility("default")]] std::string_view writeChangeText(WriteChangeKind kind);

/// One change.
struct WriteChange {
  WriteChangeKind kind{}; ///< what was done
  std::size_t card = 0;   ///< counted from 0, in the list that was written
  std::string property;   ///< name, behind its group and ".", as the card holds them; UTF-8
  std::string text;       ///< what was changed or left out, UTF-8
};

/// What one writing call did.
struct WriteReport {
  std::size_t cards = 0;            ///< how many were written
  std::size_t properties = 0;       ///< that the cards hold
  std::size_t dropped = 0;          ///< of them, that were not written
  std::vector<WriteChange> changes; ///< each change, in the order of the cards
};

} // namespace cardwright
