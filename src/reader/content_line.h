#pragma once

#include "cardwright/read_report.h"
#include "cardwright/vcard_property.h"

namespace cardwright {

/// What one look at a content line tells, without reading what it says.
struct ContentLineCheck {
  DropReason reason = DropReason::none; ///< why it cannot be a property, if it cannot
  bool isVersion = false; ///< whether it is a VERSION property, which more is asked of
};

[[nodiscard]] ContentLineCheck checkContentLine(TextView line);

/// Reads content lines: [group "."] name *(";" parameter) ":" value, where a parameter is
/// name "=" value *("," value), or in the shorthand of version 2.1 a bare value.
class ContentLineParser {
 public:
  /// @param formatter must be present
  ContentLineParser(VersionCode version, DateFormatter* formatter);

  /// Fills the property; anything but DropReason::none says why the line cannot be one.
  DropReason parse(TextView line, VCardProperty& property) const;

 private:
  void parseValue(TextView text, VCardProperty& property) const;

  VersionCode m_version;
  DateFormatter* m_formatter;
};

} // namespace cardwright
