#include "writer/order.h"

#include <algorithm>

namespace cardwright {

namespace {

struct Rank {
  TextView name;
  int rank;
};

constexpr Rank kPropertyRanks[] = {
    {u"VERSION", -9}, {u"PRODID", -8}, {u"FN", -7},  {u"N", -6},   {u"ORG", -5},
    {u"TITLE", -4},   {u"EMAIL", -3},  {u"TEL", -2}, {u"ADR", -1},
};

constexpr Rank kParameterRanks[] = {
    {u"VALUE", -3},
    {u"ENCODING", -2},
    {u"TYPE", -1},
};

template <std::size_t N>
int rankOf(const Rank (&ranks)[N], TextView name) noexcept {
  for (const Rank& rank : ranks) {
    if (rank.name.size() == name.size() && rank.name.front() == name.front() && rank.name == name) {
      return rank.rank;
    }
  }
  return 0;
}

constexpr unsigned kByteBits = 8;
constexpr std::size_t kFirstUnits = 7;
constexpr std::size_t kFurtherUnits = 8;

constexpr char16_t kBeyondAscii = 0x80;

/// So many units of a key from `at` on, a byte each. Nothing behind a unit beyond ASCII counts.
std::uint64_t bytesOf(TextView key, std::size_t at, std::size_t count) noexcept {
  std::uint64_t bytes = 0;
  std::size_t taken = 0;
  for (; taken < count && at + taken < key.size(); ++taken) {
    const char16_t unit = key[at + taken];
    bytes = bytes << kByteBits | std::min(unit, kBeyondAscii);
    if (unit >= kBeyondAscii) {
      ++taken;
      break;
    }
  }
  return taken == 0 ? 0 : bytes << (count - taken) * kByteBits;
}

} // namespace

std::uint64_t orderOf(int rank, TextView key) noexcept {
  constexpr int kNoRank = 0x7F;
  return static_cast<std::uint64_t>(kNoRank + rank) << kFirstUnits * kByteBits |
         bytesOf(key, 0, kFirstUnits);
}

std::array<std::uint64_t, 2> furtherOrderOf(TextView key) noexcept {
  const auto beyond =
      std::find_if(key.begin(), key.end(), [](char16_t unit) { return unit >= kBeyondAscii; });
  const TextView counting = key.substr(0, static_cast<std::size_t>(beyond - key.begin()) + 1);
  return {bytesOf(counting, kFirstUnits, kFurtherUnits),
          bytesOf(counting, kFirstUnits + kFurtherUnits, kFurtherUnits)};
}

int propertyRank(TextView name) noexcept {
  return rankOf(kPropertyRanks, name);
}

int parameterRank(TextView name) noexcept {
  return rankOf(kParameterRanks, name);
}

} // namespace cardwright
