#include "view/dates.h"

#include "text/words.h"

namespace cardwright::tool {

namespace {

using Field = std::optional<std::int64_t>;

constexpr TextView kMonths[] = {u"January",   u"February", u"March",    u"April",
                                u"May",       u"June",     u"July",     u"August",
                                u"September", u"October",  u"November", u"December"};

constexpr TextView kMissing = u"--";

bool isBetween(const Field& field, std::int64_t first, std::int64_t last) {
  return !field || (*field >= first && *field <= last);
}

Text twoDigits(const Field& field) {
  return field ? paddedNumber(*field, 2) : Text(kMissing);
}

/// Year 0 is 1 BC.
Text yearText(std::int64_t year) {
  return year > 0 ? numberText(year) : concat({numberText(1 - year), u" BC"});
}

/// The fields one after the other, for dates that no calendar has.
Text numericDate(const DateComponents& date) {
  const Text year = date.year ? paddedNumber(*date.year, 4) : Text(u"----");
  return concat({year, u"-", twoDigits(date.month), u"-", twoDigits(date.day)});
}

Text datePart(const DateComponents& date) {
  constexpr std::int64_t kFarYear = 1'000'000;
  if (!isBetween(date.month, 1, 12) || !isBetween(date.day, 1, 31) ||
      !isBetween(date.year, -kFarYear, kFarYear) || (date.year && date.day && !date.month)) {
    return numericDate(date);
  }
  Text text;
  if (date.day) {
    text = date.month ? numberText(*date.day) : concat({u"day ", numberText(*date.day)});
  }
  if (date.month) {
    appendJoined(text, u" ", kMonths[*date.month - 1]);
  }
  if (date.year) {
    appendJoined(text, u" ", yearText(*date.year));
  }
  return text;
}

Text timePart(const DateComponents& time) {
  if (!time.hour && !time.minute && !time.second) {
    return {};
  }
  Text text = concat({twoDigits(time.hour), u":", twoDigits(time.minute)});
  if (time.second) {
    text.append(u":").append(twoDigits(time.second));
  }
  return text;
}

} // namespace

Text dateText(const DateComponents& components) {
  Text text = datePart(components);
  appendJoined(text, u", ", timePart(components));
  if (components.timeZone) {
    appendJoined(text, u" ",
                 components.timeZone->isUniversal()
                     ? Text(u"UTC")
                     : offsetText(components.timeZone->secondsFromUtc()));
  }
  return text;
}

Text offsetText(std::int64_t seconds) {
  const std::uint64_t distance =
      seconds < 0 ? 0 - static_cast<std::uint64_t>(seconds) : static_cast<std::uint64_t>(seconds);
  const auto part = [](std::uint64_t number) {
    return paddedNumber(static_cast<std::int64_t>(number), 2);
  };
  Text text = seconds < 0 ? u"UTC-" : u"UTC+";
  text.append(part(distance / 3600)).append(u":").append(part(distance / 60 % 60));
  if (distance % 60 != 0) {
    text.append(u":").append(part(distance % 60));
  }
  return text;
}

} // namespace cardwright::tool
