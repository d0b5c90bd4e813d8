#include "cardwright/vcard_parameter.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

namespace cardwright {
namespace {

TEST(VCardParameter, isMadeWithAnUpperCasedNameAndADecodedValue) {
  const auto parameter = VCardParameter::parameterWithName(u"type", u"Home^nA^'b^^c^x");
  EXPECT_EQ(parameter->name(), u"TYPE");
  EXPECT_EQ(parameter->values(), (TextList{u"Home\nA\"b^c^x"}));
  EXPECT_EQ(parameter->firstValue(), TextView(u"Home\nA\"b^c^x"));
}

TEST(VCardParameter, upperCasesTheWholeNameInFull) {
  EXPECT_EQ(VCardParameter::parameterWithName(u"x-stra\u00DFe", u"")->name(), u"X-STRASSE");
  EXPECT_EQ(VCardParameter::parameterWithName(u"\u00E9", u"")->name(), u"\u00C9");
  EXPECT_EQ(VCardParameter::parameterWithName(u"", u"")->name(), u"");
  const Text lone(1, char16_t{0xDC00});
  EXPECT_EQ(VCardParameter::parameterWithName(lone, u"")->name(), lone);
  EXPECT_EQ(VCardParameter::parameterWithName(Text(1000, u'x'), u"")->name(), Text(1000, u'X'));
}

TEST(VCardParameter, holdsAnEmptyValue) {
  const auto parameter = VCardParameter::parameterWithName(u"TYPE", u"");
  EXPECT_EQ(parameter->values(), (TextList{u""}));
  EXPECT_EQ(parameter->firstValue(), TextView());
  EXPECT_EQ(VCardParameter::parameterWithName(u"TYPE", u"^")->firstValue(), TextView())
      << "a caret at the very end is dropped";
}

TEST(VCardParameter, hasNoValueBeforeOneIsAdded) {
  const auto parameter = std::make_shared<VCardParameter>();
  EXPECT_EQ(parameter->name(), u"");
  EXPECT_EQ(parameter->values(), TextList());
  EXPECT_FALSE(parameter->firstValue());
  parameter->addValues({});
  EXPECT_FALSE(parameter->firstValue());
  parameter->addValue(u"a");
  EXPECT_EQ(parameter->firstValue(), TextView(u"a"));
}

TEST(VCardParameter, storesANameAsItIsGiven) {
  const auto parameter = VCardParameter::parameterWithName(u"type", u"home");
  parameter->setName(u"x-Label");
  EXPECT_EQ(parameter->name(), u"x-Label");
  parameter->setName(u"");
  EXPECT_EQ(parameter->name(), u"");
}

TEST(VCardParameter, decodesASingleValueButNotALists) {
  const auto parameter = VCardParameter::parameterWithName(u"X", u"^^1");
  parameter->addValue(u"^^2");
  parameter->addValues({u"^^3", u"^n", u"^"});
  parameter->addValue(u"^n");
  EXPECT_EQ(parameter->values(), (TextList{u"^1", u"^2", u"^^3", u"^n", u"^", u"\n"}));
}

TEST(VCardParameter, keepsOrderDuplicatesAndEmptyValues) {
  const auto parameter = VCardParameter::parameterWithName(u"TYPE", u"work");
  parameter->addValue(u"home");
  parameter->addValues({u"work", u"", u"home"});
  EXPECT_EQ(parameter->values(), (TextList{u"work", u"home", u"work", u"", u"home"}));
  EXPECT_EQ(parameter->firstValue(), TextView(u"work"));
}

TEST(VCardParameter, handsOutACopyOfItsValues) {
  const auto parameter = VCardParameter::parameterWithName(u"TYPE", u"work");
  TextList values = parameter->values();
  values.front() = u"changed";
  values.emplace_back(u"more");
  EXPECT_EQ(parameter->values(), (TextList{u"work"}));
}

TEST(VCardParameter, mayBeGivenItsOwnValues) {
  const auto parameter = VCardParameter::parameterWithName(u"TYPE", Text(100, u'x'));
  for (int i = 0; i < 20; ++i) {
    parameter->addValue(*parameter->firstValue());
    parameter->addValues(parameter->values());
    if (parameter->values().size() > 1000) {
      break;
    }
  }
  for (const Text& value : parameter->values()) {
    EXPECT_EQ(value, Text(100, u'x'));
  }
  parameter->setName(parameter->name().substr(0, 2));
  EXPECT_EQ(parameter->name(), u"TY");
}

TEST(VCardParameter, isNotReadFromText) {
  const auto parameter = VCardParameter::parameterWithName(u"TYPE", u"work");
  EXPECT_FALSE(parameter->parse(u"TYPE=home", 4, nullptr));
  EXPECT_EQ(parameter->values(), (TextList{u"work"}));
}

TEST(VCardParameter, isDescribedByItsItemsForAnUnknownVersion) {
  const auto parameter = VCardParameter::parameterWithName(u"x-label", u"a:b");
  parameter->addValue(u"c^n");
  EXPECT_EQ(parameter->description(), u"X-LABEL=\"a:b\";X-LABEL=c^n");
}

} // namespace
} // namespace cardwright
