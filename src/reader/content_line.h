#pragma once

#include "base/arena.h"
#include "cardwright/detail/shared_text.h"
#include "cardwright/read_report.h"
#include "cardwright/vcard_property.h"

#include <vector>

namespace cardwright {

/// What one look at a content line tells, without reading what it says.
struct ContentLineCheck {
  DropReason reason = DropReason::none; ///< why it cannot be a property, if it cannot
  bool isVersion = false; ///< whether it is a VERSION property, which more is asked of
};

[[nodiscard]] ContentLineCheck checkContentLine(TextView line);

/// A parameter as it stands in a line.
struct ContentLineParameter {
  TextView name; ///< that which a bare one has is no part of the line
  std::vector<TextView> values;
};

/// The parts of a content line as they stand there, as far as one can be read.
struct ContentLineParts {
  DropReason reason = DropReason::none;
  TextView name; ///< group and all
  std::vector<ContentLineParameter> parameters;
  TextView value;
  std::size_t end = 0; ///< where reading stopped: behind the colon, or where the line breaks off
};

[[nodiscard]] ContentLineParts partsOfContentLine(TextView line);

/// Reads content lines: [group "."] name *(";" parameter) ":" value, where a parameter is
/// name "=" value *("," value), or in the shorthand of version 2.1 a bare value.
class ContentLineParser {
 public:
  /// @param formatter must be present
  /// @param arena     where what the property consists of is made, if not null; the lines must then
  ///                  live as long as the arena
  ContentLineParser(VersionCode version, DateFormatter* formatter, Arena* arena = nullptr);

  void setVersion(VersionCode version) noexcept { m_version = version; }

  /// Fills the property; anything but DropReason::none says why the line cannot be one.
  DropReason parse(TextView line, VCardProperty& property);

 private:
  class Filling;

  /// @param type what the value is unless a VALUE parameter says otherwise
  void parseValue(TextView text, TextView type, VCardProperty& property);
  [[nodiscard]] detail::TextStorage kept(TextView part) const;
  [[nodiscard]] const detail::SharedText& sharedCharset(TextView name);

  VersionCode m_version;
  DateFormatter* m_formatter;
  Arena* m_arena;
  detail::SharedText m_charset; ///< the last one, which mostly is the next one too
};

} // namespace cardwright
