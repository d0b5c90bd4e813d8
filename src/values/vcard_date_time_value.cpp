#include "cardwright/vcard_date_time_value.h"

#include "base/ascii.h"
#include "base/fatal.h"
#include "base/name_table.h"
#include "base/saturating.h"
#include "cardwright/date_formatter.h"
#include "cardwright/vocabulary.h"
#include "values/source_text.h"
#include "values/value_maker.h"

#include <array>

namespace cardwright {

namespace {

/// How the text of a type is read.
enum class Form : std::uint8_t { kDate, kTime, kDateTime, kDateAndOrTime };

constexpr NameTable kForms({
    NameRow<Form>{cVCardValue_DATE, Form::kDate},
    {cVCardValue_TIME, Form::kTime},
    {cVCardValue_DATE_TIME, Form::kDateTime},
    {cVCardValue_TIMESTAMP, Form::kDateTime},
    {cVCardValue_DATE_AND_OR_TIME, Form::kDateAndOrTime},
});

Form formOfType(std::optional<TextView> type) {
  if (!type) {
    return Form::kDateAndOrTime;
  }
  const auto* row = kForms.findIgnoringCase(*type);
  return row != nullptr ? row->value : Form::kDate;
}

constexpr std::int64_t kMissing = -1;
constexpr std::int64_t kOmitted = -2;

/// Takes a number from the front of a text, as scanNumberFromString() does.
std::int64_t takeNumber(TextView& rest, std::int64_t numDigits, bool allowOmission) {
  const TextView omissionMark = numDigits == 4 ? u"--" : u"-";
  if (allowOmission && rest.starts_with(omissionMark)) {
    rest.remove_prefix(omissionMark.size());
    return kOmitted;
  }
  const bool hasSeparator = !rest.empty() && !isAsciiDigit(rest.front());
  if (hasSeparator) {
    rest.remove_prefix(1);
  }
  std::int64_t number = 0;
  std::size_t found = 0;
  while (found < rest.size() && static_cast<std::int64_t>(found) < numDigits &&
         isAsciiDigit(rest[found])) {
    number = saturatingAdd(saturatingMultiply(number, 10), rest[found] - u'0');
    ++found;
  }
  if (found == 0 || (static_cast<std::int64_t>(found) < numDigits && !hasSeparator)) {
    return kMissing;
  }
  rest.remove_prefix(found);
  return number;
}

void setIfFound(std::optional<std::int64_t>& field, std::int64_t number) {
  if (number >= 0) {
    field = number;
  }
}

void readDate(TextView rest, DateComponents& comps) {
  const std::int64_t year = takeNumber(rest, 4, true);
  setIfFound(comps.year, year);
  setIfFound(comps.month, takeNumber(rest, 2, year == kOmitted));
  setIfFound(comps.day, takeNumber(rest, 2, false));
}

void readZone(TextView rest, DateComponents& comps) {
  if (rest.starts_with(u'Z')) {
    comps.timeZone = TimeZone::universal();
    return;
  }
  if (rest.size() < 3 || (rest.front() != u'+' && rest.front() != u'-')) {
    return;
  }
  const bool isWest = rest.front() == u'-';
  rest.remove_prefix(1);
  const std::int64_t hours = takeNumber(rest, 2, false);
  const std::int64_t minutes = rest.empty() ? 0 : takeNumber(rest, 2, false);
  if (hours < 0 || minutes < 0) {
    return;
  }
  const std::int64_t seconds = hours * 3600 + minutes * 60;
  if (const auto zone = TimeZone::withSecondsFromUtc(isWest ? -seconds : seconds)) {
    comps.timeZone = zone;
  }
}

bool beginsZone(TextView rest) {
  return rest.starts_with(u'+') || rest.starts_with(u'Z');
}

void readTime(TextView rest, DateComponents& comps) {
  const std::int64_t hour = takeNumber(rest, 2, true);
  setIfFound(comps.hour, hour);

  // Once a number has been read, "-" stands before a zone and no longer for a number left out.
  std::int64_t minute = kMissing;
  if (!beginsZone(rest) && (hour < 0 || !rest.starts_with(u'-'))) {
    minute = takeNumber(rest, 2, hour == kOmitted);
    setIfFound(comps.minute, minute);
  }
  if (!beginsZone(rest) && ((hour < 0 && minute < 0) || !rest.starts_with(u'-'))) {
    setIfFound(comps.second, takeNumber(rest, 2, false));
  }
  readZone(rest, comps);
}

bool readDateTime(TextView text, DateComponents& comps) {
  std::size_t separator = text.find(u'T');
  if (separator == TextView::npos) {
    separator = text.find(u' ');
  }
  if (separator == TextView::npos) {
    return false;
  }
  readDate(text.substr(0, separator), comps);
  readTime(text.substr(separator + 1), comps);
  return true;
}

/// Whether a text of a form is written again as it was meant.
bool isOrdinary(TextView text, Form form) noexcept {
  return (form == Form::kDate && isOrdinaryDate(text)) ||
         (form == Form::kDateTime && isOrdinaryDateTime(text));
}

/// The patterns of a version: for each combination of three fields, the largest being the highest
/// bit. Empty where the fields have no common form.
using FieldPatterns = std::array<TextView, 8>;

constexpr FieldPatterns kDatePatterns = {u"",     u"---dd", u"--MM",    u"--MMdd",
                                         u"yyyy", u"",      u"yyyy-MM", u"yyyyMMdd"};
constexpr FieldPatterns kTimePatterns = {u"",   u"--ss", u"-mm",  u"-mmss",
                                         u"HH", u"",     u"HHmm", u"HHmmss"};
constexpr TextView kFullDateOfVersion3 = u"yyyy-MM-dd";
constexpr TextView kFullTimeOfVersion3 = u"HH:mm:ss";

template <typename Field>
TextView patternOf(const Field& large, const Field& middle, const Field& small,
                   const FieldPatterns& patterns, TextView fullOfVersion3, VersionCode version) {
  const std::size_t set = (large ? 4U : 0U) | (middle ? 2U : 0U) | (small ? 1U : 0U);
  return set == 7 && version == 3 ? fullOfVersion3 : patterns[set];
}

/// A pattern put together without an allocation.
class Pattern {
 public:
  Pattern(const DateComponents& comps, bool marksTime, VersionCode version) {
    const TextView date =
        patternOf(comps.year, comps.month, comps.day, kDatePatterns, kFullDateOfVersion3, version);
    const TextView time = patternOf(comps.hour, comps.minute, comps.second, kTimePatterns,
                                    kFullTimeOfVersion3, version);
    append(date);
    if (!time.empty() && (!date.empty() || marksTime)) {
      append(u"'T'");
    }
    append(time);
    if (comps.timeZone) {
      append(comps.timeZone->isUniversal() ? u"'Z'" : version >= 4 ? u"Z" : u"ZZZZZ");
    }
  }

  [[nodiscard]] TextView view() const noexcept { return {m_units.data(), m_size}; }

 private:
  void append(TextView part) noexcept { m_size += part.copy(m_units.data() + m_size, part.size()); }

  static constexpr std::size_t kLongest = TextView(u"yyyy-MM-dd'T'HH:mm:ssZZZZZ").size();

  std::array<char16_t, kLongest> m_units; // NOLINT: filled as far as the view reaches
  std::size_t m_size = 0;
};

} // namespace

std::shared_ptr<VCardDateTimeValue>
VCardDateTimeValue::valueWithType(std::optional<TextView> type) {
  auto value = std::make_shared<VCardDateTimeValue>();
  setTypeOf(*value, type);
  return value;
}

void setTypeOf(VCardDateTimeValue& value, std::optional<TextView> type) {
  const auto* known = type ? kForms.find(*type) : nullptr;
  value.m_type =
      known != nullptr ? detail::TextStorage::borrow(known->name) : detail::TextStorage(type);
}

std::shared_ptr<VCardDateTimeValue>
VCardDateTimeValue::valueWithDate(std::optional<std::chrono::sys_seconds> date) {
  if (!date) {
    return nullptr;
  }
  auto value = valueWithType(cVCardValue_TIMESTAMP);
  value->m_comps = componentsFromDate(*date, TimeZone::universal());
  return value;
}

std::optional<TextView> VCardDateTimeValue::type() const noexcept {
  return m_type.optionalView();
}

bool VCardDateTimeValue::parse(TextView text, VersionCode /*version*/, DateFormatter* formatter) {
  changed();
  if (formatter == nullptr) {
    fatalError("Formatter is nil");
  }
  const TextView source = text;
  Form form = formOfType(type());
  if (form == Form::kDateAndOrTime) {
    if (text.starts_with(u'T')) {
      text.remove_prefix(1);
      form = Form::kTime;
    } else {
      form = text.find(u'T') != TextView::npos ? Form::kDateTime : Form::kDate;
    }
  }
  m_comps = DateComponents();
  m_source.assign(isOrdinary(text, form) ? std::nullopt : std::optional(source));
  switch (form) {
  case Form::kTime:
    readTime(text, m_comps);
    return true;
  case Form::kDateTime:
    return readDateTime(text, m_comps);
  default:
    readDate(text, m_comps);
    return true;
  }
}

void VCardDateTimeValue::generate(Text& output, VersionCode version,
                                  DateFormatter* formatter) const {
  if (formatter == nullptr) {
    fatalError("Date formatter is nil!");
  }
  formatter->setLocale("en_US_POSIX");
  formatter->setDateFormat(
      Pattern(m_comps, type() && formOfType(type()) == Form::kDateAndOrTime, version).view());
  formatter->setTimeZone(m_comps.timeZone);

  DateComponents comps = m_comps;
  if (!comps.year && comps.month && comps.day) {
    comps.year = 2000; // a leap year, so that 29 February survives
  }
  formatter->appendDate(output, dateFromComponents(comps));
}

void VCardDateTimeValue::parseDate(TextView text) {
  changed();
  m_source = {};
  readDate(text, m_comps);
}

void VCardDateTimeValue::parseTime(TextView text) {
  changed();
  m_source = {};
  readTime(text, m_comps);
}

Text VCardDateTimeValue::dateFormatForVersion(VersionCode version) const {
  return Text(
      Pattern(m_comps, type() && formOfType(type()) == Form::kDateAndOrTime, version).view());
}

std::int64_t VCardDateTimeValue::scanNumberFromString(Text& text, std::int64_t numDigits,
                                                      bool allowOmission) {
  TextView rest = text;
  const std::int64_t number = takeNumber(rest, numDigits, allowOmission);
  text.erase(0, text.size() - rest.size());
  return number;
}

} // namespace cardwright
