#include "cardwright/date_formatter.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vocabulary.h"
#include "face/conversion/forms.h"
#include "face/writing/kept_source.h"

namespace cardwright {

namespace {

/// The year that stands for none, beside the parameter that says so.
constexpr std::int64_t kOmittedYear = 1604;
constexpr TextView kOmittedYearText = u"1604";

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

void toPartial(Draft& draft, const VCardDateTimeValue& date, const ConversionStep& step) {
  if (const auto source = notUnderstood(date)) {
    draft.value = valueOfType(cVCardValue_DATE_AND_OR_TIME, *source);
    return;
  }
  DateComponents fields = date.comps();
  if (fields.year == kOmittedYear &&
      draft.firstOf(cVCardParameter_DATE_OMIT_YEAR) == kOmittedYearText) {
    fields.year.reset();
    draft.remove(cVCardParameter_DATE_OMIT_YEAR);
    step.recorder.changed(ConversionKind::reencoded, draft, cVCardParameter_DATE_OMIT_YEAR, {},
                          kOmittedYearText);
  }
  draft.value = dateOfType(cVCardValue_DATE_AND_OR_TIME, fields);
}

bool toDate(Draft& draft, const VCardDateTimeValue& date, bool takesTimes,
            const ConversionStep& step) {
  if (notUnderstood(date)) {
    return true;
  }
  DateComponents fields = date.comps();
  const TextView type = takesTimes ? cVCardValue_DATE_AND_OR_TIME : cVCardValue_DATE;
  if (!fields.year && fields.month && fields.day && !hasTime(fields)) {
    fields.year = kOmittedYear;
    draft.set(cVCardParameter_DATE_OMIT_YEAR, {Text(kOmittedYearText)});
    draft.value = dateOfType(type, fields);
    step.recorder.changed(ConversionKind::reencoded, draft, {}, cVCardParameter_DATE_OMIT_YEAR,
                          wholeText(date));
    return true;
  }
  if (!isWhole(fields)) {
    return false;
  }
  if (takesTimes || !hasTime(fields)) {
    draft.value = dateOfType(type, fields);
  }
  return true;
}

} // namespace

bool convertDate(Draft& draft, const Rule& rule, const ConversionStep& step) {
  const std::shared_ptr<VCardValue> kept = draft.value;
  const auto* date = dynamic_cast<const VCardDateTimeValue*>(kept.get());
  if (step.isUp()) {
    rename(draft, rule.target, ConversionKind::renamed, step);
    if (date != nullptr) {
      toPartial(draft, *date, step);
    }
    return true;
  }
  const bool isBirthday = rule.name == rule.target;
  const bool isCarried = date == nullptr || toDate(draft, *date, isBirthday, step);
  if (!isBirthday) {
    // Where it is no whole date, the value is kept as a text with its type.
    rename(draft, rule.target, ConversionKind::renamed, step);
    return true;
  }
  return isCarried;
}

} // namespace cardwright
