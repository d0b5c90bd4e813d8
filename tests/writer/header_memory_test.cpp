#include "support/random_source.h"
#include "support/seed.h"
#include "support/text_printer.h"
#include "writer/unchanged/line.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace cardwright {
namespace {

struct Outcome {
  bool hasName = false;
  Rewriting rewriting = Rewriting::done;
  Text key;
  std::string bytes;
  Text quotedPrintable;

  friend bool operator==(const Outcome&, const Outcome&) = default;
  friend void PrintTo(const Outcome& outcome, std::ostream* stream) {
    *stream << outcome.hasName << static_cast<int>(outcome.rewriting)
            << testing::PrintToString(outcome.key) << testing::PrintToString(outcome.bytes);
  }
};

/// @param behind how many units may be read behind the line
/// @param stated 0, or what the card states, where it is written as writeCards does it
Outcome rewrite(HeaderMemory& memory, TextView line, VersionCode readAs, VersionCode version,
                VersionCode stated, std::size_t behind) {
  std::vector<char16_t> units(line.begin(), line.end());
  units.resize(line.size() + behind, u':');
  const auto room = std::make_unique<char[]>(roomForLine(line)); // NOLINT: exactly so many
  Bytes output(room.get(), roomForLine(line));
  const TextView text(units.data(), line.size());
  const RewrittenLine rewritten =
      rewriteLine(output, {{text, units.data() + units.size()}, readAs, stated}, version, memory);
  Outcome result;
  result.hasName = rewritten.name != nullptr;
  result.rewriting = rewritten.rewriting;
  result.key = result.hasName ? rewritten.name->key(text) : TextView();
  result.bytes = output.view();
  result.quotedPrintable = rewritten.quotedPrintable;
  return result;
}

class Memory : public testing::Test {
 protected:
  /// Expects what a memory of nothing tells.
  void expectTheSame(TextView line, VersionCode readAs, VersionCode version) {
    for (const VersionCode stated : {VersionCode{0}, readAs == 0 ? VersionCode{3} : readAs}) {
      HeaderMemory fresh;
      const Outcome expected = rewrite(fresh, line, readAs, version, stated, 0);
      for (const std::size_t behind : {0U, 200U, 200U, 0U}) {
        ASSERT_EQ(rewrite(m_memory, line, readAs, version, stated, behind), expected)
            << testing::PrintToString(line) << " from " << readAs << " to " << version;
      }
    }
  }

  HeaderMemory m_memory;
};

TEST_F(Memory, tellsApartWhatDiffersAnywhere) {
  for (std::size_t size = 1; size < 70; ++size) {
    const Text name = u"X-" + Text(size, u'A');
    for (std::size_t at = 2; at < name.size(); ++at) {
      Text other = name;
      other[at] = u'B';
      expectTheSame(other + u":v", 3, 3);
    }
    expectTheSame(name + u":v", 3, 3);
    expectTheSame(name + u";A:v", 3, 3);
  }
}

TEST_F(Memory, tellsApartVersions) {
  for (const TextView line : {u"TEL;CELL:1", u"TEL;TYPE=cell;VALUE=uri:tel:1", u"BDAY:19800102",
                              u"FN;ENCODING=QUOTED-PRINTABLE:=41", u"KIND:group"}) {
    for (const VersionCode readAs : {0, 2, 3, 4}) {
      for (const VersionCode version : {2, 3, 4}) {
        expectTheSame(line, readAs, version);
      }
    }
  }
}

TEST_F(Memory, doesNotTakeOneUnitForAnother) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const Text line = Text(u"TEL;TYPE=a") + static_cast<char16_t>(unit) + u"b:1";
    HeaderMemory fresh;
    ASSERT_EQ(rewrite(m_memory, line, 3, 3, 0, 100), rewrite(fresh, line, 3, 3, 0, 0)) << unit;
  }
}

TEST_F(Memory, tellsNothingElseHoweverMuchItHasSeen) {
  RandomSource random(testSeed());
  static constexpr std::array<TextView, 16> kPieces = {u"item1.",
                                                       u"TEL",
                                                       u";TYPE=",
                                                       u"home",
                                                       u"a",
                                                       u",",
                                                       u";X-P=",
                                                       u"\"q;r\"",
                                                       u"N",
                                                       u";PREF",
                                                       u"-",
                                                       u"\u00E9",
                                                       u";VALUE=uri",
                                                       u"X-ABCDEFGHIJKLMNOPQRSTUVW",
                                                       u";CHARSET=UTF-8",
                                                       u";ENCODING=QUOTED-PRINTABLE"};
  for (int i = 0; i < 20'000; ++i) {
    Text line;
    for (std::size_t pieces = random.below(7); pieces > 0; --pieces) {
      line += random.oneOf(kPieces);
    }
    expectTheSame(line + u":v", random.oneIn(2) ? 3 : 4, random.oneIn(2) ? 3 : 2);
    ASSERT_FALSE(HasFatalFailure());
  }
}

} // namespace
} // namespace cardwright
