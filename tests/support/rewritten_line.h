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
#include <optional>
#include <string>

namespace cardwright {

/// A line that was rewritten, in no more room than was asked for.
struct LineRewriting {
  Text text;     ///< folded
  Text encoding; ///< of quoted-printable, where it was decoded
  Text name;     ///< upper-cased
  Text group;    ///< empty for none

  friend bool operator==(const LineRewriting&, const LineRewriting&) = default;
  friend void PrintTo(const LineRewriting& rewriting, std::ostream* stream) {
    *stream << testing::PrintToString(rewriting.text) << testing::PrintToString(rewriting.encoding);
  }
};

/// @param stated 0, or what its card states, where it is rewritten as writeCards does it
/// @returns absent for a line that is left to its property
[[nodiscard]] inline std::optional<LineRewriting>
lineRewriting(TextView line, VersionCode readAs, VersionCode version, VersionCode stated) {
  const std::size_t size = roomForLine(line);
  const auto room = std::make_unique_for_overwrite<char[]>(size); // NOLINT: exactly so many
  const auto text = std::make_unique<char16_t[]>(line.size());    // NOLINT: likewise
  std::copy(line.begin(), line.end(), text.get());
  const TextView view(text.get(), line.size());
  Bytes output(room.get(), size);
  static HeaderMemory memory; // one that has seen other lines, as in use
  const RewrittenLine rewritten =
      rewriteLine(output, {{view, view.data() + view.size()}, readAs, stated}, version, memory);
  EXPECT_NE(rewritten.rewriting, Rewriting::needsRoom);
  if (rewritten.rewriting != Rewriting::done) {
    EXPECT_EQ(output.size(), 0U);
    return std::nullopt;
  }
  std::string folded;
  appendFoldedUtf8(folded, output.view());
  return LineRewriting{textFromUtf8(folded), Text(rewritten.quotedPrintable),
                       Text(rewritten.name->key(line)),
                       Text(line.substr(0, rewritten.name->groupSize()))};
}

/// What writeCards writes of a property; of what it mends, it may tell of an encoding only.
[[nodiscard]] inline LineRewriting safelyWritten(const VCardProperty& property, VersionCode version,
                                                 VersionCode stated) {
  DateFormatter formatter("en_US_POSIX");
  WriteReport report;
  report.cards = 1;
  WriteRecorder recorder(&report);
  const WritingContext context{version, stated, formatter, recorder};
  LineRewriting written{{}, {}, Text(property.name()), Text(property.group().value_or(TextView()))};
  if (isOrdinary(property, context)) {
    property.generate(written.text, version, &formatter);
  } else if (const auto line = safeLine(property, context)) {
    appendLine(written.text, *line);
  }
  EXPECT_LE(report.changes.size(), 1U);
  for (const WriteChange& change : report.changes) {
    EXPECT_EQ(change.kind, WriteChangeKind::encodingLeftOut);
    written.encoding = textFromUtf8(change.text);
  }
  return written;
}

/// Expects that a line is rewritten as the property that was read from it is written, if it is
/// rewritten at all; as generate writes it, and as writeCards does.
/// @returns whether it is, as generate writes it
[[nodiscard]] inline bool rewritesLikeItsProperty(TextView line, VersionCode readAs,
                                                  VersionCode version) {
  const auto where = [line, readAs, version] {
    return testing::PrintToString(line) + " read as " + std::to_string(readAs) + ", written as " +
           std::to_string(version);
  };
  const VersionCode stated = readAs == 0 ? 3 : readAs;
  const auto generated = lineRewriting(line, readAs, version, 0);
  const auto safe = lineRewriting(line, readAs, version, stated);
  if (!generated && !safe) {
    return false;
  }
  VCardProperty property;
  DateFormatter formatter("en_US_POSIX");
  EXPECT_TRUE(property.parse(line, readAs, &formatter)) << where();
  EXPECT_FALSE(isEmptyPhoto(property)) << where();
  if (generated) {
    EXPECT_EQ(generated->name, property.name()) << where();
    EXPECT_EQ(generated->group, property.group().value_or(TextView())) << where();
    Text expected;
    property.generate(expected, version, &formatter);
    EXPECT_EQ(generated->text, expected) << where();
  }
  if (safe) {
    EXPECT_EQ(*safe, safelyWritten(property, version, stated)) << where();
  }
  return generated.has_value();
}

} // namespace cardwright
