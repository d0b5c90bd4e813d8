#include "cardwright/date_formatter.h"
#include "cardwright/vcard_property.h"
#include "cardwright/vcard_value.h"
#include "exhaustive/reference_content_line.h"
#include "exhaustive/short_texts.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>

namespace cardwright {
namespace {

std::map<Text, TextList> parametersOf(const VCardProperty& property) {
  std::map<Text, TextList> parameters;
  for (const auto& [key, parameter] : property.parameterDict().value_or(VCardParameterDict{})) {
    EXPECT_EQ(parameter->name(), key);
    parameters[key] = parameter->values();
  }
  return parameters;
}

void expectLikeTheReference(const Text& line, DateFormatter& formatter) {
  ReferenceContentLine expected;
  const bool isLine = expected.read(line);
  VCardProperty property;
  ASSERT_EQ(property.parse(line, 3, &formatter), isLine);
  if (!isLine) {
    return;
  }
  EXPECT_EQ(property.group(), expected.group);
  EXPECT_EQ(property.name(), expected.name);
  EXPECT_EQ(property.textValue(), expected.value);
  EXPECT_EQ(parametersOf(property), expected.parameters);
  ASSERT_NE(property.value(), nullptr);
  EXPECT_EQ(property.value()->charset(), expected.charset);
  EXPECT_EQ(property.value()->quotedPrintable(), expected.isQuotedPrintable);
}

/// Tries every short text between the two.
void tryBetween(TextView before, TextView after) {
  DateFormatter formatter("en_US_POSIX");
  forEachShortText([&](const Text& text) {
    if (!testing::Test::HasFailure()) {
      const Text line = Text(before).append(text).append(after);
      expectLikeTheReference(line, formatter);
      EXPECT_FALSE(testing::Test::HasFailure()) << testing::PrintToString(line);
    }
  });
}

TEST(ExhaustiveContentLine, isReadLikeTheReferenceAlone) {
  tryBetween(u"", u"");
}

TEST(ExhaustiveContentLine, isReadLikeTheReferenceAsAHeader) {
  tryBetween(u"", u":1");
}

TEST(ExhaustiveContentLine, isReadLikeTheReferenceAsAParameter) {
  tryBetween(u"item1.tel;", u":+1");
}

TEST(ExhaustiveContentLine, isReadLikeTheReferenceAsParameterValues) {
  tryBetween(u"tel;type=home;type=", u":+1");
}

TEST(ExhaustiveContentLine, isReadLikeTheReferenceAsAQuotedParameterValue) {
  tryBetween(u"TEL;TYPE=\"", u":+1;A=\"1\":2");
}

TEST(ExhaustiveContentLine, isReadLikeTheReferenceBehindABareEncoding) {
  tryBetween(u"photo;base64", u":A1");
}

TEST(ExhaustiveContentLine, isReadLikeTheReferenceAsAQuotedPrintableValue) {
  tryBetween(u"NOTE;ENCODING=quoted-printable", u":=0D=0A");
}

TEST(ExhaustiveContentLine, isReadLikeTheReferenceInACharset) {
  tryBetween(u"NOTE;CHARSET=utf-16le", u":A1A1");
}

} // namespace
} // namespace cardwright
