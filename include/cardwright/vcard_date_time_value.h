#pragma once

#include "cardwright/date_components.h"
#include "cardwright/detail/text_storage.h"
#include "cardwright/vcard_value.h"

namespace cardwright {

/// A date, a time, both, or a timestamp, any of whose fields may be missing (RFC 6350,
/// section 4.3).
class [[gnu::visibility("default")]] VCardDateTimeValue final : public VCardValue {
 public:
  VCardDateTimeValue() = default;

  /// Makes an empty value of one of the types "date", "time", "date-time", "date-and-or-time" and
  /// "timestamp".
  [[nodiscard]] static std::shared_ptr<VCardDateTimeValue> valueWithType(
      std::optional<TextView> type);
  /// Makes a timestamp that holds the instant in the universal time zone; null for an absent one.
  [[nodiscard]] static std::shared_ptr<VCardDateTimeValue> valueWithDate(
      std::optional<std::chrono::sys_seconds> date);

  /// The type name that the value was made with.
  [[nodiscard]] std::optional<TextView> type() const noexcept override;

  /// The fields that are set.
  [[nodiscard]] const DateComponents& comps() const noexcept {
    return m_comps;
  }
  /// Sets all fields; a text that was not understood is forgotten.
  void setComps(const DateComponents& comps) noexcept {
    changed();
    m_comps = comps;
    m_source = {};
  }

  /// Reads basic, extended, partial and zoned forms into new components; what cannot be read stays
  /// unset. False for a date-time or timestamp with neither "T" nor a blank. Stops the process
  /// when the formatter is null.
  bool parse(TextView text, VersionCode version, DateFormatter * formatter) override;
  /// Writes the fields that are set: with separators for version 3, without for the others. Stops
  /// the process when the formatter is null.
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;

  /// Sets the fields of a date text; those that it does not have stay as they are.
  void parseDate(TextView text);
  /// Sets the fields and the zone of a time text; those that it does not have stay as they are.
  void parseTime(TextView text);

  /// The pattern in which the components are written for a version.
  [[nodiscard]] Text dateFormatForVersion(VersionCode version) const;

  /// Takes a number from the front of `text`.
  /// @param text          loses what was taken
  /// @param numDigits     how many digits it has: 4 for years, 2 otherwise
  /// @param allowOmission whether "--" (for 4 digits) or "-" stands for a number left out
  /// @returns the number, -2 when it was left out, -1 when it is missing
  static std::int64_t scanNumberFromString(Text & text, std::int64_t numDigits, bool allowOmission);

 private:
  friend void setTypeOf(VCardDateTimeValue & value, std::optional<TextView> type);
  friend struct SourceText;

  detail::TextStorage m_type;
  detail::TextStorage m_source; ///< only of a text that would be written otherwise
  DateComponents m_comps;
};

} // namespace cardwright
