#include "cardwright/check.h"
#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "load/doubling.h"
#include "support/hostile_cards.h"

#include <gtest/gtest.h>

#include <string>

namespace cardwright {
namespace {

class HostileFace : public testing::TestWithParam<HostileCard> {};

/// Cards of a text without any have nothing to be measured.
VCardList hostileCards(const HostileCard& hostile, std::size_t size) {
  ReadOptions options;
  options.clean = false;
  return readCards(utf8FromText(hostileText(hostile, size)), nullptr, options);
}

constexpr std::size_t kSize = 200'000;

TEST_P(HostileFace, isConvertedAndWrittenInLinearTime) {
  expectDoubleTimeAtMost(
      kSize, [](std::size_t size) { return hostileCards(GetParam(), size); },
      [](const VCardList& cards) {
        ConversionReport conversion;
        WriteReport writing;
        static_cast<void>(writeCards(convertCards(cards, 4, &conversion), &writing));
      });
}

TEST_P(HostileFace, isCheckedInLinearTime) {
  // All cards are held, seventy times these texts: what is twice as long must fit into the caches
  // too, or each of its bytes takes up to twice the time, however long it is.
  expectDoubleTimeAtMost(
      kSize / 4, [](std::size_t size) { return utf8FromText(hostileText(GetParam(), size)); },
      [](const std::string& text) {
        CheckOptions options;
        options.all = true;
        static_cast<void>(checkText(text, options));
      });
}

const HostileCard kFaceCards[] = {
    {"types to be dropped", u"EMAIL;TYPE=a", u",internet", u":b"},
    {"types to be parked", u"EMAIL;TYPE=a", u",dom", u":b"},
    {"preferred types", u"EMAIL;TYPE=a", u",pref", u":b"},
    {"encodings", u"NOTE;ENCODING=a", u",8bit", u":b"},
    {"beginnings of references in a parameter", u"NOTE;X-A=\"", u"&#", u"\":b"},
    {"blank values", u"NOTE;X-A=a", u",\" \"", u":b"},
    {"labels of addresses", u"", u"ADR:;;a;;;;\r\nLABEL:b\r\n"},
    {"labels of one group", u"g.TEL:1\r\n", u"g.X-ABLABEL:b\r\n"},
    {"versions", u"", u"VERSION:3.0\r\n"},
    {"dates without sense", u"", u"BDAY:a\r\n"},
    {"members of nothing", u"", u"MEMBER:a\r\n"},
    {"equal UIDs", u"UID:a\r\n", u"END:VCARD\r\nBEGIN:VCARD\r\nUID:a\r\n"},
    {"one long picture", u"PHOTO;ENCODING=b:", u"AAAA"},
    {"one long name", u"X-", u"A", u";TYPE=dom:b"},
};

INSTANTIATE_TEST_SUITE_P(FaceLoad, HostileFace, testing::ValuesIn(kFaceCards));
INSTANTIATE_TEST_SUITE_P(AllLoads, HostileFace, testing::ValuesIn(kHostileCards));

} // namespace
} // namespace cardwright
