#include "cardwright/text_scanner.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard.h"
#include "load/doubling.h"
#include "support/address_book.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

Text repeated(TextView piece, std::size_t count) {
  Text text;
  text.reserve(piece.size() * count);
  for (; count > 0; --count) {
    text += piece;
  }
  return text;
}

Text card(const Text& lines) {
  return Text(u"BEGIN:VCARD\r\nVERSION:3.0\r\n").append(lines).append(u"\r\nEND:VCARD\r\n");
}

void read(const Text& text) {
  TextScanner scanner{TextView(text)};
  while (!scanner.isAtEnd()) {
    static_cast<void>(VCard::vCardFromScanner(&scanner));
  }
}

TEST(ReadingLoad, foldedHeaderWithoutAColon) {
  expectDoubleTimeAtMost(
      1'000'000,
      [](std::size_t size) {
        return card(u"NOTE" + repeated(u"\r\n ;X-SOMETHING=VALUE", size / 21));
      },
      read);
}

TEST(ReadingLoad, foldedHeaderWhoseLinesLookLikeSoftBreaks) {
  expectDoubleTimeAtMost(
      1'000'000,
      [](std::size_t size) { return card(u"NOTE" + repeated(u"\r\n ;X-SOMETHING=", size / 16)); },
      read);
}

TEST(ReadingLoad, quotes) {
  expectDoubleTimeAtMost(
      1'000'000,
      [](std::size_t size) { return card(u"NOTE;X-A=" + repeated(u"\"", size) + u":x"); }, read);
}

TEST(ReadingLoad, quotesOnFoldedLines) {
  expectDoubleTimeAtMost(
      1'000'000,
      [](std::size_t size) { return card(u"NOTE;X-A=" + repeated(u"\"=\r\n ", size / 5)); }, read);
}

TEST(ReadingLoad, differentParameters) {
  expectDoubleTimeAtMost(
      100'000,
      [](std::size_t size) {
        Text line = u"NOTE";
        for (std::size_t i = 0; i < size; ++i) {
          const std::string number = std::to_string(i);
          line.append(u";X-").append(number.begin(), number.end()).append(u"=a");
        }
        return card(line + u":x");
      },
      read);
}

TEST(ReadingLoad, valuesOfOneParameter) {
  expectDoubleTimeAtMost(
      100'000, [](std::size_t size) { return card(u"NOTE;A=b" + repeated(u",c", size) + u":x"); },
      read);
  expectDoubleTimeAtMost(
      100'000, [](std::size_t size) { return card(u"NOTE" + repeated(u";C", size) + u":x"); },
      read);
}

TEST(ReadingLoad, differentNames) {
  expectDoubleTimeAtMost(
      100'000,
      [](std::size_t size) {
        Text lines;
        for (std::size_t i = 0; i < size; ++i) {
          const std::string number = std::to_string(i);
          lines.append(u"X-").append(number.begin(), number.end()).append(u":a\r\n");
        }
        return card(lines);
      },
      read);
}

TEST(ReadingLoad, blankContinuationLines) {
  expectDoubleTimeAtMost(
      100'000, [](std::size_t size) { return card(u"NOTE:a" + repeated(u"\r\n ", size)); }, read);
}

TEST(ReadingLoad, softBreaks) {
  expectDoubleTimeAtMost(
      100'000,
      [](std::size_t size) {
        return card(u"NOTE;ENCODING=QUOTED-PRINTABLE:" + repeated(u"a=\r\n", size));
      },
      read);
}

TEST(ReadingLoad, wronglyIndentedServerProperties) {
  expectDoubleTimeAtMost(
      100'000,
      [](std::size_t size) { return card(repeated(u"X-ADDRESSBOOKSERVER-M:a\r\n ", size)); }, read);
}

TEST(ReadingLoad, linesOutsideOfCards) {
  expectDoubleTimeAtMost(
      100'000, [](std::size_t size) { return repeated(u"junk\r\n\r\n", size); }, read);
}

TEST(ReadingLoad, oneLineOfAHundredMegabytes) {
  expectDoubleTimeAtMost(
      50'000'000, [](std::size_t size) { return std::string("NOTE:").append(size, 'x'); },
      [](const std::string& utf8) {
        static_cast<void>(VCard::vCardsFromString(std::string_view(utf8)));
      });
}

TEST(ReadingLoad, cardsWithinCards) {
  expectDoubleTimeAtMost(
      100'000,
      [](std::size_t size) {
        return utf8FromText(repeated(u"BEGIN:VCARD\r\n", size) +
                            repeated(u"FN:a\r\nEND:VCARD\r\n", size));
      },
      [](const std::string& utf8) {
        ASSERT_FALSE(VCard::vCardsFromString(std::string_view(utf8)).empty());
      });
}

TEST(ReadingLoad, searchForALongStringInRepetitions) {
  expectDoubleTimeAtMost(
      1'000'000, [](std::size_t size) { return Text(size, u'a'); },
      [](const Text& text) {
        TextScanner scanner{TextView(text)};
        scanner.scanUpToString(Text(text.size() / 2, u'a') + u"b");
        ASSERT_TRUE(scanner.isAtEnd());
      });
}

TEST(ReadingLoad, aHundredThousandCards) {
  expectDoubleTimeAtMost(
      50'000,
      [](std::size_t cards) {
        AddressBookOptions options;
        options.cards = cards;
        options.photoEvery = 0;
        return addressBook(options);
      },
      [](const std::string& utf8) {
        static_cast<void>(VCard::vCardsFromString(std::string_view(utf8)));
      });
}

} // namespace
} // namespace cardwright
