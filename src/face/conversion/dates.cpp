#include "base/ascii.h"
#include "cardwright/date_formatter.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vocabulary.h"
#include "face/conversion/forms.h"
#include "face/writing/kept_source.h"

namespace cardwright {

namespace {

/// The year that stands for none where no other one is given, beside the parameter that says so.
constexpr std::int64_t kOmittedYear = 1604;
constexpr TextView kOmittedYearText = u"1604";
/// Tells the way back that a partial date was called so where there should be none.
constexpr TextView kFormerName = u"X-FORMERLY";

std::optional<Text> notUnderstood(const VCardDateTimeValue& date) {
  DateFormatter formatter("en_US_POSIX");
  const auto source = sourceToKeep(date, 4, formatter);
  return source ? std::optional<Text>(*source) : std::nullopt;
}

std::shared_ptr<VCardValue> dateOfType(TextView type, const DateComponents& fields) {
  auto date = VCardDateTimeValue::valueWithType(type);
  date->setComps(fields);
  return date;
}

bool hasTime(const DateComponents& date) noexcept {
  return date.hour || date.minute || date.second || date.timeZone;
}

bool isWhole(const DateComponents& date) noexcept {
  return date.year && date.month && date.day &&
         (!hasTime(date) || (date.hour && date.minute && date.second));
}

/// A day and a month, of any year.
bool isDayOfYear(const DateComponents& date) noexcept {
  return !date.year && date.month && date.day && !hasTime(date);
}

/// The year that stands for none, as four digits say it.
std::optional<std::int64_t> omittedYear(const Draft& draft) {
  const TextView text = draft.firstOf(cVCardParameter_DATE_OMIT_YEAR).value_or(TextView());
  std::int64_t year = 0;
  for (const char16_t unit : text) {
    if (text.size() != 4 || !isAsciiDigit(unit)) {
      return std::nullopt;
    }
    year = year * 10 + (unit - u'0');
  }
  return year != 0 ? std::optional(year) : std::nullopt;
}

void toPartial(Draft& draft, const VCardDateTimeValue& date, const ConversionStep& step) {
  if (const auto source = notUnderstood(date)) {
    draft.value = valueOfType(cVCardValue_DATE_AND_OR_TIME, *source);
    return;
  }
  DateComponents fields = date.comps();
  const auto omitted = omittedYear(draft);
  if (omitted && fields.year == omitted) {
    fields.year.reset();
    const Text year(*draft.firstOf(cVCardParameter_DATE_OMIT_YEAR));
    step.recorder.changed(ConversionKind::reencoded, draft, cVCardParameter_DATE_OMIT_YEAR, {},
                          year);
    if (year == kOmittedYearText) {
      draft.remove(cVCardParameter_DATE_OMIT_YEAR);
    }
  } else if (!isWhole(fields) && !isDayOfYear(fields)) {
    draft.set(kFormerName, {draft.name});
  }
  draft.value = dateOfType(cVCardValue_DATE_AND_OR_TIME, fields);
}

/// The year for a date without one: that which the parameter keeps, if it has such a day.
std::int64_t yearFor(const Draft& draft, const DateComponents& date) {
  const auto kept = omittedYear(draft);
  const bool isLeapDay = date.month == 2 && date.day == 29;
  const bool isLeapYear = kept && *kept % 4 == 0 && (*kept % 100 != 0 || *kept % 400 == 0);
  return kept && (!isLeapDay || isLeapYear) ? *kept : kOmittedYear;
}

/// @param nameThere what the property is called below version 4
bool toDate(Draft& draft, const VCardDateTimeValue& date, TextView nameThere,
            const ConversionStep& step) {
  if (notUnderstood(date)) {
    return true;
  }
  DateComponents fields = date.comps();
  const bool isBirthday = nameThere == cVCardProperty_BDAY;
  const TextView type = isBirthday        ? cVCardValue_DATE_AND_OR_TIME
                        : hasTime(fields) ? cVCardValue_DATE_TIME
                                          : cVCardValue_DATE;
  if (isDayOfYear(fields)) {
    fields.year = yearFor(draft, fields);
    if (fields.year == kOmittedYear) {
      draft.set(cVCardParameter_DATE_OMIT_YEAR, {Text(kOmittedYearText)});
    }
    draft.value = dateOfType(type, fields);
    step.recorder.changed(ConversionKind::reencoded, draft, {}, cVCardParameter_DATE_OMIT_YEAR,
                          wholeText(date));
    return true;
  }
  if (!isWhole(fields)) {
    if (draft.firstOf(kFormerName) != nameThere) {
      return false;
    }
    draft.remove(kFormerName);
  }
  draft.value = dateOfType(type, fields);
  return true;
}

} // namespace

std::shared_ptr<VCardValue> dateBelow4(const VCardValue& value) {
  const auto* date = dynamic_cast<const VCardDateTimeValue*>(&value);
  if (date == nullptr || notUnderstood(*date) || !isWhole(date->comps())) {
    return nullptr;
  }
  return dateOfType(hasTime(date->comps()) ? cVCardValue_DATE_TIME : cVCardValue_DATE,
                    date->comps());
}

std::shared_ptr<VCardValue> dateOfKind(TextView kind, const VCardValue& value) {
  const auto* date = dynamic_cast<const VCardDateTimeValue*>(&value);
  const bool isKind =
      dynamic_cast<VCardDateTimeValue*>(VCardValue::valueWithType(kind).get()) != nullptr;
  return date != nullptr && isKind ? dateOfType(kind, date->comps()) : nullptr;
}

bool convertDate(Draft& draft, const Rule& rule, const ConversionStep& step) {
  const std::shared_ptr<VCardValue> kept = draft.value;
  const auto* date = dynamic_cast<const VCardDateTimeValue*>(kept.get());
  if (step.isUp()) {
    if (date != nullptr) {
      toPartial(draft, *date, step);
    }
    rename(draft, rule.target, ConversionKind::renamed, step);
    return true;
  }
  const bool isCarried = date == nullptr || toDate(draft, *date, rule.target, step);
  if (rule.name != rule.target) {
    // Where it is no whole date, the value is kept as a text with its type.
    rename(draft, rule.target, ConversionKind::renamed, step);
    return true;
  }
  return isCarried;
}

} // namespace cardwright
