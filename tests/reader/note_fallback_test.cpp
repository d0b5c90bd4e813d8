#include "cardwright/contacts_parser.h"
#include "cardwright/text_scanner.h"
#include "cardwright/vcard.h"
#include "cardwright/vcard_text_value.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace cardwright {
namespace {

/// Gives the same answer to every question and remembers the questions.
class FakeContactsParser : public ContactsParser {
 public:
  using Answer = std::optional<std::vector<ContactRecord>>;

  explicit FakeContactsParser(Answer answer) : m_answer(std::move(answer)) {}

  Answer contactsWithData(std::string_view vCard) override {
    questions.emplace_back(vCard);
    return m_answer;
  }

  std::vector<std::string> questions;

 private:
  Answer m_answer;
};

FakeContactsParser parserWithNote(TextView note) {
  return FakeContactsParser(std::vector<ContactRecord>{{Text(note)}, {Text(u"second")}});
}

TextList notesOf(const std::shared_ptr<VCard>& card) {
  TextList notes;
  if (const auto list = card->propertiesWithName(u"NOTE")) {
    for (const auto& note : *list) {
      notes.emplace_back(note->textValue().value_or(u"(none)"));
    }
  }
  return notes;
}

constexpr TextView kEmptyNote = u"BEGIN:VCARD\r\nVERSION:2.1\r\nNOTE:\r\nEND:VCARD\r\n";

TEST(NoteFallback, fillsAnEmptyNoteOfVersion21) {
  FakeContactsParser parser = parserWithNote(u"x");
  const auto card = VCard::firstvCardFromString(kEmptyNote, nullptr, &parser);
  EXPECT_EQ(notesOf(card), TextList{u"x"});
  EXPECT_EQ(card->propertiesWithName(u"NOTE")->front()->value()->type(), u"text");
}

TEST(NoteFallback, addsANoteWhereThereIsNone) {
  FakeContactsParser parser = parserWithNote(u"x");
  const auto card =
      VCard::firstvCardFromString(u"BEGIN:VCARD\nVERSION:2.1\nEND:VCARD", nullptr, &parser);
  EXPECT_EQ(notesOf(card), TextList{u"x"});
}

TEST(NoteFallback, fillsTheFirstOfSeveralEmptyNotes) {
  FakeContactsParser parser = parserWithNote(u"x");
  const auto card = VCard::firstvCardFromString(
      u"BEGIN:VCARD\nVERSION:2.1\nNOTE;VALUE=date:1\nNOTE:\nEND:VCARD", nullptr, &parser);
  EXPECT_EQ(notesOf(card), (TextList{u"x", u""}));
}

TEST(NoteFallback, asksNobodyAboutNotesThatAreThere) {
  FakeContactsParser parser = parserWithNote(u"x");
  const auto card = VCard::firstvCardFromString(
      u"BEGIN:VCARD\nVERSION:2.1\nNOTE:\nNOTE:own\nEND:VCARD", nullptr, &parser);
  EXPECT_EQ(notesOf(card), (TextList{u"", u"own"}));
  EXPECT_TRUE(parser.questions.empty());
}

TEST(NoteFallback, leavesOtherVersionsAlone) {
  for (const TextView version : {TextView(u"VERSION:3.0"), TextView(u"VERSION:4.0"),
                                 TextView(u"VERSION:1.0"), TextView(u"FN:no version")}) {
    FakeContactsParser parser = parserWithNote(u"x");
    const auto card = VCard::firstvCardFromString(
        u"BEGIN:VCARD\n" + Text(version) + u"\nNOTE:\nEND:VCARD", nullptr, &parser);
    EXPECT_EQ(notesOf(card), TextList{u""});
    EXPECT_TRUE(parser.questions.empty());
  }
}

TEST(NoteFallback, leavesTheCardAloneWhenTheParserFindsNothing) {
  const FakeContactsParser::Answer answers[] = {
      std::nullopt,
      std::vector<ContactRecord>{},
      std::vector<ContactRecord>{{std::nullopt}},
      std::vector<ContactRecord>{{Text()}},
      std::vector<ContactRecord>{{std::nullopt}, {Text(u"second")}},
  };
  for (const auto& answer : answers) {
    FakeContactsParser parser(answer);
    EXPECT_EQ(notesOf(VCard::firstvCardFromString(kEmptyNote, nullptr, &parser)), TextList{u""});
    EXPECT_EQ(parser.questions.size(), 1U);
  }
}

TEST(NoteFallback, leavesTheCardAloneWithoutAParser) {
  EXPECT_EQ(notesOf(VCard::firstvCardFromString(kEmptyNote)), TextList{u""});
}

TEST(NoteFallback, handsOverTheTextOfEachCardFromWhereItsReadingBegan) {
  FakeContactsParser parser = parserWithNote(u"x");
  const Text text = u"\r\nBEGIN:VCARD\r\nVERSION:2.1\r\nFN:Zo\u00EB\r\nEND:VCARD\r\n\r\n"
                    u"BEGIN:VCARD\r\nVERSION:2.1\r\nNOTE:a\r\n b\r\nEND:VCARD\r\n"
                    u"BEGIN:VCARD\r\nVERSION:2.1\r\nFN:B";
  TextScanner scanner{TextView(text)};
  while (VCard::vCardFromScanner(&scanner, &parser) != nullptr) {
  }
  ASSERT_EQ(parser.questions.size(), 2U);
  EXPECT_EQ(parser.questions[0],
            "\r\nBEGIN:VCARD\r\nVERSION:2.1\r\nFN:Zo\xC3\xAB\r\nEND:VCARD\r\n\r\n");
  EXPECT_EQ(parser.questions[1], "BEGIN:VCARD\r\nVERSION:2.1\r\nFN:B");
}

TEST(NoteFallback, canBeCalledByItself) {
  FakeContactsParser parser = parserWithNote(u"x");
  const auto card = VCard::firstvCardFromString(kEmptyNote);
  VCard::updateVCardUsingCNContactSerializer(nullptr, kEmptyNote, &parser);
  VCard::updateVCardUsingCNContactSerializer(card, std::nullopt, &parser);
  VCard::updateVCardUsingCNContactSerializer(card, u"", &parser);
  VCard::updateVCardUsingCNContactSerializer(card, kEmptyNote);
  EXPECT_TRUE(parser.questions.empty());
  VCard::updateVCardUsingCNContactSerializer(card, u"a", &parser);
  EXPECT_EQ(parser.questions, std::vector<std::string>{"a"});
  EXPECT_EQ(notesOf(card), TextList{u"x"});
}

} // namespace
} // namespace cardwright
