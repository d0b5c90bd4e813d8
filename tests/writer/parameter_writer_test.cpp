#include "cardwright/vcard_parameter.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <memory>

namespace cardwright {
namespace {

/// What a parameter of these values, taken as they are, is written as.
Text written(TextView name, const TextList& values, VersionCode version = 3) {
  VCardParameter parameter;
  parameter.setName(name);
  parameter.addValues(values);
  Text output;
  parameter.generate(output, version, nullptr);
  return output;
}

TEST(ParameterWriter, writesEachValueAsAnItemOfItsOwn) {
  EXPECT_EQ(written(u"X-A", {u"b"}), u"X-A=b");
  EXPECT_EQ(written(u"X-A", {u"b", u"c", u"b"}), u"X-A=b;X-A=c;X-A=b");
  EXPECT_EQ(written(u"X-A", {u"", u""}), u"X-A=;X-A=");
  EXPECT_EQ(written(u"X-A", {}), u"");
}

TEST(ParameterWriter, writesTypesBareInVersion21Only) {
  for (const VersionCode version : {-1, 0, 1, 3, 4, 5, 99}) {
    EXPECT_EQ(written(u"TYPE", {u"cell", u"pref"}, version), u"TYPE=CELL;TYPE=pref");
  }
  EXPECT_EQ(written(u"TYPE", {u"cell", u"pref"}, 2), u"CELL;pref");
  EXPECT_EQ(written(u"Type", {u"cell"}, 2), u"CELL");
  EXPECT_EQ(written(u"TYPE", {u"a:b"}, 2), u"\"A:B\"");
  EXPECT_EQ(written(u"VALUE", {u"uri"}, 2), u"VALUE=URI");
}

TEST(ParameterWriter, putsValuesOfThreeParametersInUpperCase) {
  EXPECT_EQ(written(u"ENCODING", {u"b"}), u"ENCODING=B");
  EXPECT_EQ(written(u"value", {u"uri"}), u"value=URI");
  EXPECT_EQ(written(u"Type", {u"stra\u00DFe"}), u"Type=STRASSE");
  EXPECT_EQ(written(u"CHARSET", {u"utf-8"}), u"CHARSET=utf-8");
  EXPECT_EQ(written(u"X-TYPE", {u"home"}), u"X-TYPE=home");
}

TEST(ParameterWriter, leavesPrefInLowerCase) {
  EXPECT_EQ(written(u"TYPE", {u"pref", u"Pref", u"PREF", u"prefer"}),
            u"TYPE=pref;TYPE=PREF;TYPE=PREF;TYPE=PREFER");
  EXPECT_EQ(written(u"VALUE", {u"pref"}), u"VALUE=pref");
}

TEST(ParameterWriter, quotesWhatHoldsADelimiter) {
  EXPECT_EQ(written(u"X-A", {u"a,b"}), u"X-A=\"a,b\"");
  EXPECT_EQ(written(u"X-A", {u"a:b", u"c", u"d;e"}), u"X-A=\"a:b\";X-A=c;X-A=\"d;e\"");
  EXPECT_EQ(written(u"X-A", {u"a=b c"}), u"X-A=a=b c");
}

TEST(ParameterWriter, writesCaretEscapes) {
  EXPECT_EQ(written(u"X-A", {u"a\"b"}), u"X-A=a^'b");
  EXPECT_EQ(written(u"X-A", {u"a\"b,c"}), u"X-A=\"a^'b,c\"");
  EXPECT_EQ(written(u"X-A", {u"a\nb^c\rd"}), u"X-A=a^nb^^c\rd");
  EXPECT_EQ(written(u"TYPE", {u"a\nb"}), u"TYPE=A^nB");
}

TEST(ParameterWriter, appendsBehindWhatIsThere) {
  const auto parameter = VCardParameter::parameterWithName(u"x-a", u"b^nc");
  Text output = u"TEL;";
  parameter->generate(output, 4, nullptr);
  EXPECT_EQ(output, u"TEL;X-A=b^nc");
}

} // namespace
} // namespace cardwright
