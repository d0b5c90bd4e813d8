#include "cardwright/cardwright.h"
#include "support/address_book.h"
#include "support/afresh.h"
#include "support/seed.h"
#include "support/strange_cards.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace cardwright {
namespace {

// A card that nobody changed is written from its lines, and one that somebody changed as it is.

constexpr TextView kCard =
    u"BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ann\r\nN:Doe;Ann;;;\r\nitem1.TEL;TYPE=CELL:1\r\n"
    u"item1.X-ABLabel:Own\r\nADR:;;Road;Town;;1;Land\r\nORG:A;B\r\nNICKNAME:x,y\r\n"
    u"BDAY:1980-02-03\r\nTZ:+01:00\r\nGEO:1.500000;2.500000\r\nGENDER:F;x\r\nX-CUSTOM:a-=+=-b\r\n"
    u"URL:http://"
    u"a\r\nX-QP;ENCODING=QUOTED-PRINTABLE:=41\r\nX-OWN;VALUE=other:v\r\nNOTE:n\r\nEND:VCARD\r\n";

std::shared_ptr<VCard> card() {
  return VCard::firstvCardFromString(kCard);
}

std::shared_ptr<VCardProperty> propertyOf(const VCard& card, TextView name) {
  return card.propertiesWithName(name)->front();
}

template <typename Value>
std::shared_ptr<Value> valueOf(const VCard& card, TextView name) {
  auto value = std::dynamic_pointer_cast<Value>(propertyOf(card, name)->value());
  EXPECT_NE(value, nullptr);
  return value;
}

/// Expects that the change is written in each version, though the card was written before.
void expectWritten(const std::function<void(VCard&)>& change) {
  const auto unchanged = card();
  const auto changed = card();
  EXPECT_EQ(written(*changed, 3), written(*unchanged, 3));
  change(*changed);
  for (const VersionCode version : {2, 3, 4}) {
    EXPECT_EQ(written(*changed, version), writtenAfresh(*changed, version));
    EXPECT_NE(written(*changed, version), written(*unchanged, version));
  }
}

std::string writtenUtf8(const VCard& card, VersionCode version) {
  DateFormatter formatter;
  std::string output = "before";
  card.generateUtf8(output, version, &formatter);
  return output;
}

void expectAfresh(const VCardList& cards) {
  for (const auto& card : cards) {
    for (const VersionCode version : {0, 2, 3, 4, 5}) {
      const Text expected = writtenAfresh(*card, version);
      ASSERT_EQ(written(*card, version), expected);
      ASSERT_EQ(writtenUtf8(*card, version), "before" + utf8FromText(expected));
    }
  }
}

TEST(UnchangedCard, isWrittenAsItsPropertiesAre) {
  expectAfresh({card()});
  const auto cards = VCard::vCardsFromString(
      TextView(u"BEGIN:VCARD\nVERSION:3.0\nX-ABADR;A=b:lonely\nitem1.X-ABADR:de\nitem1.ADR:a\n"
               u"ITEM1.X-ABLABEL:b\nitem1.X-ABLABEL:c\nitem1.TEL:1\nitem1.PHOTO:\nitem1.PHOTO:x\n"
               u"TEL:2\ntel:3\nX-PHONETIC-LAST-NAME:l\nX-PHONETIC-FIRST-NAME:f\nEND:VCARD\n"
               u"BEGIN:VCARD\nFN:no version\nEND:VCARD\n"
               u"BEGIN:VCARD\nPHOTO:before the version\nVERSION:4.0\nX-Own:mixed\nEND:VCARD\n"
               u"BEGIN:VCARD\nVERSION:4.0\nVERSION:3.0\nEND:VCARD\n"));
  ASSERT_EQ(cards->size(), 4U);
  expectAfresh(*cards);
}

TEST(UnchangedCard, isWrittenAsItsPropertiesAreInAnAddressBook) {
  AddressBookOptions options;
  options.cards = 3'000;
  options.seed = testSeed();
  expectAfresh(VCard::vCardsFromString(std::string_view(addressBook(options))));
}

TEST(UnchangedCard, isWrittenAsItsPropertiesAreHoweverStrange) {
  const std::uint64_t seed = testSeed();
  StrangeCards cards(seed);
  for (int i = 0; i < 5'000; ++i) {
    const Text text = cards.card();
    expectAfresh(*VCard::vCardsFromString(TextView(text)));
    ASSERT_FALSE(testing::Test::HasFailure())
        << "card " << i << ", seed " << seed << ": " << testing::PrintToString(text);
  }
}

TEST(UnchangedCardDeathTest, needsAFormatterForItsDatesAllTheSame) {
  Text output;
  EXPECT_DEATH(card()->generate(output, 3, nullptr), "Date formatter is nil!");
}

TEST(UnchangedCard, mayHaveAnyNumberOfLines) {
  for (const std::size_t count : {0U, 1U, 62U, 63U, 64U, 65U, 200U}) {
    Text text = u"BEGIN:VCARD\r\nVERSION:3.0\r\n";
    for (std::size_t i = 0; i < count; ++i) {
      text += i % 3 == 0 ? u"TEL:1\r\n" : i % 3 == 1 ? u"a.X-ABLABEL:x\r\n" : u"a.EMAIL:y\r\n";
    }
    expectAfresh(*VCard::vCardsFromString(TextView(text + u"END:VCARD\r\n")));
  }
}

TEST(UnchangedCard, mayHaveLinesOfAnyLength) {
  for (const TextView piece : {u"x", u"\\,", u"\\N", u"a,", u"\u00E9", u"\u4E2D;"}) {
    for (std::size_t size = 1'000; size < 40'000; size += size / 5) {
      Text text = u"BEGIN:VCARD\r\nVERSION:3.0\r\n";
      for (const TextView name : {u"FN:", u"NOTE:", u"X-LONG:", u"TITLE:"}) {
        text += name;
        for (std::size_t used = 0; used < size; used += piece.size()) {
          text += piece;
        }
        text += u"\r\n";
      }
      expectAfresh(*VCard::vCardsFromString(TextView(text + u"END:VCARD\r\n")));
      ASSERT_FALSE(HasFatalFailure()) << size;
    }
  }
}

TEST(UnchangedCard, keepsLoneSurrogatesOfItsPropertiesInText) {
  Text text = u"BEGIN:VCARD\r\nVERSION:3.0\r\nFN:A\r\nNOTE:x";
  text += char16_t{0xD800};
  text += u"y\r\nEND:VCARD\r\n";
  expectAfresh(*VCard::vCardsFromString(TextView(text)));
}

TEST(UnchangedCard, isOneNoLongerWhenItsListsChange) {
  const auto note = VCardProperty::propertyWithName(u"NOTE", TextView(u"other"));
  expectWritten([&](VCard& card) { card.addProperty(note); });
  expectWritten([](VCard& card) { card.removePropertiesWithName(u"note"); });
  expectWritten([](VCard& card) { card.setPropertyDict({}); });
  expectWritten([&](VCard& card) { card.propertiesWithName(u"NOTE")->push_back(note); });
  expectWritten([&](VCard& card) { card.propertiesWithName(u"NOTE")->replace(0, note); });
  expectWritten([](VCard& card) { card.propertiesWithName(u"NOTE")->clear(); });
  expectWritten([](VCard& card) { card.propertiesWithName(u"NOTE")->pop_back(); });
  expectWritten([&](VCard& card) { *card.propertiesWithName(u"NOTE") = VCardPropertyList{note}; });
  expectWritten([](VCard& card) {
    const VCardPropertyList taken = std::move(*card.propertiesWithName(u"NOTE"));
    EXPECT_EQ(taken.size(), 1U);
  });
  expectWritten([](VCard& card) {
    *card.propertiesWithName(u"NOTE") = std::move(*card.propertiesWithName(u"FN"));
  });
  expectWritten([&](VCard& card) {
    const auto list = card.propertiesWithName(u"NOTE");
    list->insert(list->begin(), note);
  });
  expectWritten([&](VCard& card) {
    const auto list = card.propertiesWithName(u"NOTE");
    const VCardPropertyList more = {note, note};
    list->insert(list->end(), more.begin(), more.end());
  });
  expectWritten([](VCard& card) {
    const auto list = card.propertiesWithName(u"NOTE");
    list->erase(list->begin());
  });
  expectWritten([](VCard& card) {
    const auto list = card.propertyDict()[u"NOTE"];
    list->erase(list->begin(), list->end());
  });
  expectWritten([](VCard& card) {
    erase_if(*card.propertiesWithName(u"NOTE"), [](const auto&) { return true; });
  });
}

TEST(UnchangedCard, isOneNoLongerWhenAPropertyChanges) {
  const auto change = [](const std::function<void(VCardProperty&)>& made) {
    expectWritten([&](VCard& card) { made(*propertyOf(card, u"TEL")); });
  };
  DateFormatter formatter;
  const auto other = VCardParameter::parameterWithName(u"TYPE", u"HOME");
  change([](VCardProperty& tel) { tel.setGroup(u"item2"); });
  change([](VCardProperty& tel) { tel.setName(u"PHONE"); });
  change([](VCardProperty& tel) { tel.setValue(VCardTextValue::valueWithText(u"2")); });
  change([](VCardProperty& tel) { tel.setParameterDict(std::nullopt); });
  change([&](VCardProperty& tel) { tel.addParameter(other); });
  change([](VCardProperty& tel) { tel.removeParameterWithName(u"type"); });
  change([&](VCardProperty& tel) { EXPECT_TRUE(tel.parse(u"TEL:3", 3, &formatter)); });
  change([](VCardProperty& tel) { tel.parameterWithName(u"TYPE")->setName(u"KIND"); });
  change([](VCardProperty& tel) { tel.parameterWithName(u"TYPE")->addValue(u"WORK"); });
  change([](VCardProperty& tel) { tel.parameterWithName(u"TYPE")->addValues({u"WORK"}); });
  expectWritten([](VCard& card) { propertyOf(card, u"X-QP")->value()->setQuotedPrintable(false); });
  expectWritten([](VCard& card) {
    propertyOf(card, u"URL")->setValue(VCardXValue::valueWithText(u"v"));
    propertyOf(card, u"URL")->addValueParameterIfNecessaryForVersion(3);
  });
}

TEST(UnchangedCard, isOneNoLongerWhenATextChanges) {
  DateFormatter formatter;
  expectWritten([](VCard& card) { valueOf<VCardTextValue>(card, u"FN")->setText(u"x"); });
  expectWritten([](VCard& card) { valueOf<VCardURIValue>(card, u"URL")->setText(u"x"); });
  expectWritten([](VCard& card) { valueOf<VCardXValue>(card, u"X-OWN")->setText(u"x"); });
  expectWritten([&](VCard& card) {
    EXPECT_TRUE(valueOf<VCardTextValue>(card, u"FN")->parse(u"x", 3, &formatter));
  });
  const auto custom = [](const std::function<void(VCardCustomValue&)>& change) {
    expectWritten([&](VCard& card) { change(*valueOf<VCardCustomValue>(card, u"X-CUSTOM")); });
  };
  custom([](VCardCustomValue& value) { value.setLabel(u"x"); });
  custom([](VCardCustomValue& value) { value.setValue(u"x"); });
  custom([&](VCardCustomValue& value) { EXPECT_TRUE(value.parse(u"x", 3, &formatter)); });
  const auto gender = [](const std::function<void(VCardGenderValue&)>& change) {
    expectWritten([&](VCard& card) { change(*valueOf<VCardGenderValue>(card, u"GENDER")); });
  };
  gender([](VCardGenderValue& value) { value.setSex(u"M"); });
  gender([](VCardGenderValue& value) { value.setIdentity(u"z"); });
  gender([&](VCardGenderValue& value) { EXPECT_TRUE(value.parse(u"O;z", 3, &formatter)); });
}

TEST(UnchangedCard, isOneNoLongerWhenAComponentChanges) {
  DateFormatter formatter;
  for (const auto set : {&VCardNValue::setLast, &VCardNValue::setFirst, &VCardNValue::setMiddle,
                         &VCardNValue::setPrefix, &VCardNValue::setSuffix}) {
    expectWritten([&](VCard& card) { (*valueOf<VCardNValue>(card, u"N").*set)(TextList{u"x"}); });
  }
  for (const auto set : {&VCardAddressValue::setPoBox, &VCardAddressValue::setExtended,
                         &VCardAddressValue::setStreet, &VCardAddressValue::setLocality,
                         &VCardAddressValue::setRegion, &VCardAddressValue::setPostalCode,
                         &VCardAddressValue::setCountry}) {
    expectWritten(
        [&](VCard& card) { (*valueOf<VCardAddressValue>(card, u"ADR").*set)(TextList{u"x"}); });
  }
  expectWritten([](VCard& card) { valueOf<VCardOrgValue>(card, u"ORG")->setParts({u"x"}); });
  expectWritten([&](VCard& card) {
    EXPECT_TRUE(valueOf<VCardNValue>(card, u"N")->parse(u"x;y", 3, &formatter));
  });
  expectWritten([&](VCard& card) {
    EXPECT_TRUE(valueOf<VCardAddressValue>(card, u"ADR")->parse(u"x;y", 3, &formatter));
  });
  expectWritten([&](VCard& card) {
    EXPECT_TRUE(valueOf<VCardOrgValue>(card, u"ORG")->parse(u"x;y", 3, &formatter));
  });
}

TEST(UnchangedCard, isOneNoLongerWhenAListChanges) {
  DateFormatter formatter;
  const auto change = [](const std::function<void(VCardMultiValue&)>& made) {
    expectWritten([&](VCard& card) { made(*valueOf<VCardMultiValue>(card, u"NICKNAME")); });
  };
  change([](VCardMultiValue& names) { names.setValues(std::nullopt); });
  change([](VCardMultiValue& names) { names.addTextValue(u"z"); });
  change([](VCardMultiValue& names) { names.addTextValues({u"z"}); });
  change([&](VCardMultiValue& names) { EXPECT_TRUE(names.parse(u"z", 3, &formatter)); });
  change([](VCardMultiValue& names) {
    std::dynamic_pointer_cast<VCardTextValue>(names.values()->back())->setText(u"z");
  });
}

TEST(UnchangedCard, isOneNoLongerWhenANumberChanges) {
  DateFormatter formatter;
  const auto day = [](const std::function<void(VCardDateTimeValue&)>& change) {
    expectWritten([&](VCard& card) { change(*valueOf<VCardDateTimeValue>(card, u"BDAY")); });
  };
  DateComponents comps;
  comps.year = 1999;
  day([&](VCardDateTimeValue& date) { date.setComps(comps); });
  day([&](VCardDateTimeValue& date) { EXPECT_TRUE(date.parse(u"1999", 3, &formatter)); });
  day([](VCardDateTimeValue& date) { date.parseDate(u"1999-01-01"); });
  day([](VCardDateTimeValue& date) { date.parseTime(u"10:00:00"); });
  expectWritten([](VCard& card) { valueOf<VCardUTCOffsetValue>(card, u"TZ")->setOffset(60); });
  expectWritten([&](VCard& card) {
    EXPECT_TRUE(valueOf<VCardUTCOffsetValue>(card, u"TZ")->parse(u"+02:00", 3, &formatter));
  });
  expectWritten([](VCard& card) { valueOf<VCardGeoValue>(card, u"GEO")->setLatitude(9); });
  expectWritten([](VCard& card) { valueOf<VCardGeoValue>(card, u"GEO")->setLongitude(9); });
  expectWritten([&](VCard& card) {
    EXPECT_TRUE(valueOf<VCardGeoValue>(card, u"GEO")->parse(u"9;9", 3, &formatter));
  });
}

TEST(UnchangedCard, isWrittenWhateverHappensToItsPartsElsewhere) {
  const auto first = card();
  const auto second = card();
  second->addProperty(propertyOf(*first, u"NOTE"));
  propertyOf(*first, u"NOTE")->setValue(nullptr);
  expectAfresh({first, second});
  const auto third = card();
  propertyOf(*second, u"FN")->addParameter(propertyOf(*third, u"TEL")->parameterWithName(u"TYPE"));
  propertyOf(*second, u"FN")->parameterWithName(u"TYPE")->addValue(u"HOME");
  expectAfresh({second, third});
}

} // namespace
} // namespace cardwright
