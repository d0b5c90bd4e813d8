#pragma once

#include "cardwright/date_formatter.h"
#include "cardwright/vcard_property.h"
#include "face/writing/write_recorder.h"

#include <optional>

namespace cardwright {

/// What a property is written for.
struct WritingContext {
  VersionCode syntax = 3; ///< version whose syntax is written
  VersionCode stated = 3; ///< version that whoever reads the card will go by
  DateFormatter& formatter;
  WriteRecorder& recorder;
};

/// A content line from which the same property is read, not yet folded.
struct SafeLine {
  std::optional<Text> group;
  Text key;  ///< the name in upper case
  Text rest; ///< from the name on
  /// The header mentions quoted-printable: a line may end in "=" only where the value is not over.
  bool mentionsQuotedPrintable = false;
  bool endsInEmptyLine = false; ///< as inline binary data of version 2.1 does
};

/// @returns absent for a property that no line can hold; the recorder was told why
[[nodiscard]] std::optional<SafeLine> safeLine(const VCardProperty& property,
                                               const WritingContext& context);

/// Appends the line, folded.
void appendLine(Text& output, const SafeLine& line);

} // namespace cardwright
