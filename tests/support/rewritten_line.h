#pragma once

#include "cardwright/date_formatter.h"
#include "cardwright/vcard_property.h"
#include "support/text_printer.h"
#include "writer/companions.h"
#include "writer/folding.h"
#include "writer/unchanged/line.h"

#include <gtest/gtest.h>

#include <memory>

namespace cardwright {

/// Expects that a line is rewritten as the property that was read from it is written, if it is
/// rewritten at all, and in no more room than was asked for.
/// @returns whether it is
[[nodiscard]] inline bool rewritesLikeItsProperty(TextView line, VersionCode readAs,
                                                  VersionCode version) {
  ReadLine read{};
  read.line = line;
  read.readAs = readAs;
  const std::optional<std::size_t> units = roomForLine(line);
  if (!units || !findName(read)) {
    return false;
  }
  const auto room = std::make_unique<char16_t[]>(*units); // NOLINT: exactly so many
  const std::optional<TextView> rewritten = asWritten(room.get(), read, version);
  if (!rewritten) {
    return false;
  }
  VCardProperty property;
  DateFormatter formatter("en_US_POSIX");
  EXPECT_TRUE(property.parse(line, readAs, &formatter));
  EXPECT_FALSE(isEmptyPhoto(property));
  EXPECT_EQ(property.name(), read.key);
  EXPECT_EQ(property.group(), read.hasGroup() ? std::optional(read.group()) : std::nullopt);
  Text expected;
  property.generate(expected, version, &formatter);
  Text output;
  appendLine(output, *rewritten);
  EXPECT_EQ(output, expected) << testing::PrintToString(line) << " read as " << readAs
                              << ", written as " << version;
  return true;
}

} // namespace cardwright
