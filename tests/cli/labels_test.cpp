#include "support/text_printer.h"
#include "view/labels.h"

#include <gtest/gtest.h>

#include <memory>

namespace cardwright::tool {
namespace {

std::shared_ptr<VCardProperty> property(TextView name, const TextList& types) {
  auto result = VCardProperty::propertyWithName(name, std::optional<TextView>(u"x"));
  for (const Text& type : types) {
    result->addParameter(VCardParameter::parameterWithName(u"TYPE", type));
  }
  return result;
}

TEST(LabelText, unwrapsTheLabelsOfAddressBooks) {
  EXPECT_EQ(labelText(u"_$!<Home>!$_"), u"Home");
  EXPECT_EQ(labelText(u"_$!<HomePage>!$_"), u"Home Page");
  EXPECT_EQ(labelText(u"_$!<HomeFAX>!$_"), u"Home FAX");
  EXPECT_EQ(labelText(u"_$!<EX-BusinessPhone2>!$_"), u"Business Phone 2");
  EXPECT_EQ(labelText(u"_$!<>!$_"), u"");
}

TEST(LabelText, leavesLabelsOfPeople) {
  EXPECT_EQ(labelText(u"Boat house"), u"Boat house");
  EXPECT_EQ(labelText(u"HomePage"), u"HomePage");
  EXPECT_EQ(labelText(u"_$!<!$_"), u"_$!<!$_");
  EXPECT_EQ(labelText(u""), u"");
}

TEST(TypeWords, saysTypesInWords) {
  const auto words = [](TextView name, const TextList& types) {
    return typeWords(*property(name, types)).words.words();
  };
  EXPECT_EQ(words(u"EMAIL", {u"INTERNET", u"HOME"}), (TextList{u"home"}));
  EXPECT_EQ(words(u"TEL", {u"VOICE", u"WORK", u"work"}), (TextList{u"work"}));
  EXPECT_EQ(words(u"ADR", {u"intl", u"DOM", u"postal"}),
            (TextList{u"international", u"domestic", u"postal"}));
  EXPECT_EQ(words(u"TEL", {u"X-Boat", u"iPhone"}), (TextList{u"Boat", u"iPhone"}));
  EXPECT_EQ(words(u"TEL", {u"home,msg"}), (TextList{u"home", u"voice mail"}));
}

TEST(TypeWords, namesTelephonesByWhatTheyAre) {
  EXPECT_EQ(typeWords(*property(u"TEL", {u"CELL"})).noun, TextView(u"Mobile"));
  EXPECT_EQ(typeWords(*property(u"TEL", {u"WORK", u"FAX"})).noun, TextView(u"Fax"));
  EXPECT_EQ(typeWords(*property(u"TEL", {u"WORK"})).noun, std::nullopt);
  EXPECT_EQ(typeWords(*property(u"EMAIL", {u"CELL"})).noun, std::nullopt);
}

TEST(TypeWords, findsWhatIsPreferred) {
  EXPECT_TRUE(typeWords(*property(u"TEL", {u"HOME", u"PREF"})).isPreferred);
  EXPECT_FALSE(typeWords(*property(u"TEL", {u"HOME"})).isPreferred);
  const auto ranked = property(u"TEL", {});
  ranked->addParameter(VCardParameter::parameterWithName(u"PREF", u"1"));
  EXPECT_TRUE(typeWords(*ranked).isPreferred);
}

TEST(TypeWords, leavesTheMediaTypeToTheValue) {
  EXPECT_TRUE(typeWords(*property(u"PHOTO", {u"JPEG"})).words.isEmpty());
}

} // namespace
} // namespace cardwright::tool
