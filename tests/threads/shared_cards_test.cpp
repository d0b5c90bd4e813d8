#include "cardwright/cardwright.h"
#include "threads/at_once.h"
#include "threads/torn_cards.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace cardwright {
namespace {

void appendNumber(Text& output, std::int64_t number) {
  output += textFromUtf8(std::to_string(number) + "\n");
}

void appendAnswers(Text& output, const VCardProperty& property) {
  output += property.group().value_or(u"no group");
  output += property.name();
  output += property.textValue().value_or(u"no text");
  output += property.valueOfParameterWithName(u"type").value_or(u"no type");
  output += property.defaultTypeForVersion(3);
  for (const Text& name : property.parametersInSortOrder()) {
    output += name;
    for (const Text& value : property.parameterWithName(name)->values()) {
      output += value;
    }
  }
  if (const auto date = property.dateValue()) {
    appendNumber(output, date->time_since_epoch().count());
  }
  appendNumber(output, static_cast<std::int64_t>(property.xParameters().size()));
  output += property.description();
}

/// What the const operations of the cards give.
Text answersOf(const VCardList& cards) {
  Text output;
  DateFormatter formatter("en_US_POSIX");
  for (const auto& card : cards) {
    for (const VersionCode version : {2, 3, 4}) {
      card->generate(output, version, &formatter);
    }
    output += card->description();
    output += card->uid().value_or(u"no uid");
    appendNumber(output, static_cast<std::int64_t>(card->version()));
    appendNumber(output, static_cast<std::int64_t>(card->kind()));
    appendNumber(output, card->rev() ? card->rev()->time_since_epoch().count() : 0);
    for (const Text& name : card->propertiesInSortOrder()) {
      for (const auto& property : *card->propertiesWithName(name)) {
        appendAnswers(output, *property);
      }
    }
    const auto grouped = card->propertiesWithName(u"TEL", u"item1");
    appendNumber(output, grouped ? static_cast<std::int64_t>(grouped->size()) : -1);
    appendNumber(output, static_cast<std::int64_t>(card->propertyDict().size()));
  }
  return output;
}

TEST(SharedCards, answerSeveralThreadsAtOnce) {
  const VCardList cards = VCard::vCardsFromString(tornCards(1));
  ASSERT_EQ(cards.size(), 7U);
  std::array<Text, kThreads> answers;
  constexpr std::size_t kRounds = 8;
  runAtOnce(kRounds, [&](std::size_t thread, std::size_t) { answers[thread] = answersOf(cards); });
  const Text alone = answersOf(cards);
  for (const Text& answer : answers) {
    EXPECT_EQ(answer, alone);
  }
}

TEST(SharedTexts, areCleanedAndReadBySeveralThreadsAtOnce) {
  const std::string text = tornCards(2);
  const TextList lines = VCardCleaner::unfoldLines(textFromUtf8(text));
  const auto judged = [&] {
    Text output;
    for (const Text& line : lines) {
      output += VCardCleaner::propertyNameUpper(line).value_or(u"no name");
      output += VCardCleaner::isPlausiblePropertyHeader(line) ? u'1' : u'0';
      for (const Text& piece : VCardCleaner::segmentMergedLineIfSafe(line)) {
        output += piece;
      }
    }
    return output + answersOf(VCard::vCardsFromString(text));
  };
  std::array<Text, kThreads> answers;
  runAtOnce(2, [&](std::size_t thread, std::size_t) { answers[thread] = judged(); });
  const Text alone = judged();
  for (const Text& answer : answers) {
    EXPECT_EQ(answer, alone);
  }
}

} // namespace
} // namespace cardwright
