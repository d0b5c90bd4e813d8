#include "cardwright/text_scanner.h"
#include "cardwright/vcard_utils.h"
#include "exhaustive/reference_look_ahead.h"
#include "exhaustive/short_texts.h"
#include "support/text_printer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace cardwright {
namespace {

/// What the short texts stand between.
constexpr std::array<std::pair<TextView, TextView>, 8> kSurroundings{
    {{u"", u""},
     {u"", u"tel:1"},
     {u"item1.TEL", u":1"},
     {u"", u"END:VCARD"},
     {u"begin:vcard", u""},
     {u"", u"X-ADDRESSBOOKSERVER-M:1"},
     {u"x-addressbookserver-", u""},
     {u" A", u"X-AddressBookServer-:"}}};

template <typename Test>
void forEachSurroundedText(Test test) {
  for (const auto& [before, after] : kSurroundings) {
    forEachShortText([&, front = before, back = after](const Text& part) {
      test(Text(front).append(part).append(back));
    });
  }
}

TEST(ExhaustiveLookAhead, knowsAddressBookServerLinesLikeTheReference) {
  forEachSurroundedText([](const Text& text) {
    ASSERT_EQ(VCardUtils::lineIsAddressBookServerProperty(text),
              ReferenceLookAhead::isAddressBookServerLine(text))
        << testing::PrintToString(text);
  });
}

TEST(ExhaustiveLookAhead, findsAddressBookServerPropertiesLikeTheReference) {
  forEachSurroundedText([](const Text& text) {
    const TextScanner scanner{TextView(text)};
    for (const std::size_t at : {std::size_t{0}, std::size_t{1}, text.size()}) {
      std::size_t start = 0;
      const bool isOne =
          VCardUtils::lineBeginsWithAddressBookServerPropertyAtLocation(scanner, at, &start);
      ASSERT_EQ(isOne ? std::optional(start) : std::nullopt,
                ReferenceLookAhead::addressBookServerProperty(text, at))
          << testing::PrintToString(text) << " at " << at;
    }
  });
}

TEST(ExhaustiveLookAhead, knowsBoundariesLikeTheReference) {
  forEachSurroundedText([](const Text& text) {
    const TextScanner scanner{TextView(text)};
    for (const std::size_t at : {std::size_t{0}, std::size_t{1}, text.size()}) {
      ASSERT_EQ(VCardUtils::nextLineIsVCardBoundaryAtLocation(
                    scanner, at, VCardUtils::lineTerminatorCharacterSet()),
                ReferenceLookAhead::isBoundary(text, at))
          << testing::PrintToString(text) << " at " << at;
    }
  });
}

TEST(ExhaustiveLookAhead, knowsRecoverablePropertiesLikeTheReference) {
  forEachSurroundedText([](const Text& text) {
    const TextScanner scanner{TextView(text)};
    for (const std::size_t at : {std::size_t{0}, std::size_t{1}, text.size()}) {
      ASSERT_EQ(VCardUtils::nextLineLooksLikeRecoverableStandalonePropertyAtLocation(
                    scanner, at, VCardUtils::lineTerminatorCharacterSet(),
                    VCardUtils::headerWhitespaceCharacterSet()),
                ReferenceLookAhead::isRecoverableProperty(text, at))
          << testing::PrintToString(text) << " at " << at;
    }
  });
}

} // namespace
} // namespace cardwright
