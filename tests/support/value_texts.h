#pragma once

#include "cardwright/date_formatter.h"
#include "cardwright/vcard_value.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <typeinfo>

namespace cardwright {

/// Codes of the versions that there are, and of some that there are not.
inline constexpr VersionCode kVersionCodes[] = {
    std::numeric_limits<VersionCode>::min(), -1, 0, 1, 2, 3, 4, 5,
    std::numeric_limits<VersionCode>::max()};

inline const std::type_info& classOf(const std::shared_ptr<VCardValue>& value) {
  const VCardValue& object = *value;
  return typeid(object);
}

/// What a value writes.
inline Text written(const VCardValue& value, VersionCode version = 4) {
  DateFormatter formatter("en_US_POSIX");
  Text output;
  value.generate(output, version, &formatter);
  return output;
}

/// A new value that has read a text.
template <typename Value>
std::shared_ptr<Value> parsed(TextView text, VersionCode version = 4) {
  DateFormatter formatter("en_US_POSIX");
  auto value = std::make_shared<Value>();
  EXPECT_TRUE(value->parse(text, version, &formatter));
  return value;
}

/// The same for a text in quoted-printable, in a character set or both.
template <typename Value>
std::shared_ptr<Value> parsedAs(bool quotedPrintable, std::optional<TextView> charset,
                                TextView text) {
  DateFormatter formatter("en_US_POSIX");
  auto value = std::make_shared<Value>();
  value->setQuotedPrintable(quotedPrintable);
  value->setCharset(charset);
  EXPECT_TRUE(value->parse(text, 2, &formatter));
  return value;
}

} // namespace cardwright
