#include "cardwright/date_formatter.h"
#include "cardwright/vcard.h"
#include "cardwright/vcard_parameter.h"
#include "cardwright/vcard_property.h"
#include "load/doubling.h"
#include "writer/folding.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace cardwright {
namespace {

std::shared_ptr<VCardProperty> grouped(TextView name, TextView group) {
  auto property = VCardProperty::propertyWithName(name, TextView(u"x"));
  property->setGroup(group);
  return property;
}

Text numbered(TextView name, std::size_t number) {
  const std::string digits = std::to_string(number);
  return Text(name).append(digits.begin(), digits.end());
}

void write(const std::shared_ptr<VCardObject>& object) {
  DateFormatter formatter("en_US_POSIX");
  Text output;
  object->generate(output, 3, &formatter);
}

TEST(WritingLoad, propertiesAndOneLabelInAGroup) {
  expectDoubleTimeAtMost(
      10'000,
      [](std::size_t size) {
        auto card = std::make_shared<VCard>();
        card->addProperty(grouped(u"X-ABLabel", u"g"));
        for (std::size_t i = 0; i < size; ++i) {
          card->addProperty(grouped(u"TEL", u"G"));
        }
        return card;
      },
      write);
}

TEST(WritingLoad, aGroupAndALabelForEachProperty) {
  expectDoubleTimeAtMost(
      10'000,
      [](std::size_t size) {
        auto card = std::make_shared<VCard>();
        for (std::size_t i = 0; i < size; ++i) {
          card->addProperty(grouped(u"TEL", numbered(u"item", i)));
          card->addProperty(grouped(u"X-ABLabel", numbered(u"ITEM", i)));
        }
        return card;
      },
      write);
}

TEST(WritingLoad, differentParameters) {
  expectDoubleTimeAtMost(
      100'000,
      [](std::size_t size) {
        auto property = VCardProperty::propertyWithName(u"NOTE", TextView(u"x"));
        for (std::size_t i = 0; i < size; ++i) {
          property->addParameter(VCardParameter::parameterWithName(numbered(u"X-", i), u"a"));
        }
        return property;
      },
      write);
}

TEST(WritingLoad, valuesOfOneParameter) {
  expectDoubleTimeAtMost(
      100'000,
      [](std::size_t size) {
        auto property = VCardProperty::propertyWithName(u"NOTE", TextView(u"x"));
        const auto parameter = VCardParameter::parameterWithName(u"TYPE", u"a");
        parameter->addValues(TextList(size, u"b"));
        property->addParameter(parameter);
        return property;
      },
      write);
}

TEST(WritingLoad, foldedCharactersThatJoin) {
  struct Piece {
    TextView text;
    const char* what;
  };
  for (const auto& [piece, what] :
       {Piece{u"\U0001F1E9\U0001F1EA", "flags"}, Piece{u"\u0915\u094D\u0937\u093F", "clusters"},
        Piece{u"\u05D0 ", "letters and blanks"}, Piece{u"\u0301", "one long character"},
        Piece{u"\U0001F469\u200D", "one long family"}, Piece{u"\u1112\u1161\u11AB", "jamo"},
        Piece{u"x", "ASCII"}, Piece{u"\r", "carriage returns"}, Piece{u"\u4E2D", "ideographs"}}) {
    SCOPED_TRACE(what);
    expectDoubleTimeAtMost(
        300'000,
        [text = piece](std::size_t units) {
          Text line = u"NOTE:";
          while (line.size() < units) {
            line += text;
          }
          return line;
        },
        [](const Text& line) {
          Text output;
          appendFolded(output, line);
        });
  }
}

} // namespace
} // namespace cardwright
