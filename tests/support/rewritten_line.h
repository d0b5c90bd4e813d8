#pragma once

#include "cardwright/date_formatter.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard_property.h"
#include "face/writing/ordinary_property.h"
#include "face/writing/safe_property.h"
#include "support/text_printer.h"
#include "writer/companions.h"
#include "writer/folding.h"
#include "writer/unchanged/line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

namespace cardwright {

/// What writeCards writes of a property.
[[nodiscard]] inline Text safelyWritten(const VCardProperty& property, VersionCode version,
                                        VersionCode stated) {
  DateFormatter formatter("en_US_POSIX");
  WriteRecorder recorder(nullptr);
  const WritingContext context{version, stated, formatter, recorder};
  Text output;
  if (isOrdinary(property, context)) {
    property.generate(output, version, &formatter);
  } else if (const auto line = safeLine(property, context)) {
    appendLine(output, *line);
  }
  return output;
}

/// Expects that a line is rewritten as the property that was read from it is written, if it is
/// rewritten at all, and in no more room than was asked for; as generate writes it, and as
/// writeCards does.
/// @returns whether it is
[[nodiscard]] inline bool rewritesLikeItsProperty(TextView line, VersionCode readAs,
                                                  VersionCode version) {
  const auto room = std::make_unique<char[]>(roomForLine(line)); // NOLINT: exactly so many
  const auto text = std::make_unique<char16_t[]>(line.size());   // NOLINT: likewise
  std::copy(line.begin(), line.end(), text.get());
  const TextView view(text.get(), line.size());
  Bytes output(room.get(), roomForLine(line));
  HeaderMemory memory;
  const RewrittenLine rewritten =
      rewriteLine(output, {{view, view.data() + view.size()}, readAs}, version, memory);
  EXPECT_NE(rewritten.rewriting, Rewriting::needsRoom);
  if (rewritten.rewriting != Rewriting::done) {
    EXPECT_EQ(output.size(), 0U);
    return false;
  }
  VCardProperty property;
  DateFormatter formatter("en_US_POSIX");
  EXPECT_TRUE(property.parse(line, readAs, &formatter));
  EXPECT_FALSE(isEmptyPhoto(property));
  EXPECT_EQ(property.name(), rewritten.name->key(line));
  const std::size_t groupSize = rewritten.name->groupSize();
  EXPECT_EQ(property.group().value_or(TextView()), line.substr(0, groupSize));
  Text expected;
  property.generate(expected, version, &formatter);
  std::string actual;
  appendFoldedUtf8(actual, output.view());
  EXPECT_EQ(textFromUtf8(actual), expected)
      << testing::PrintToString(line) << " read as " << readAs << ", written as " << version;

  output.resize(0);
  const VersionCode stated = readAs == 0 ? 3 : readAs;
  const ReadLine read{{view, view.data() + view.size()}, readAs, stated};
  if (rewriteLine(output, read, version, memory).rewriting == Rewriting::done) {
    actual.clear();
    appendFoldedUtf8(actual, output.view());
    EXPECT_EQ(textFromUtf8(actual), safelyWritten(property, version, stated))
        << testing::PrintToString(line) << " read as " << readAs << ", written safely as "
        << version;
  }
  return true;
}

} // namespace cardwright
