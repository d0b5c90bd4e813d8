#include "writer/order.h"

#include <bit>
#include <cstring>

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
    if (rank.name == name) {
      return rank.rank;
    }
  }
  return 0;
}

constexpr std::size_t kUnitsOfANumber = 4;

/// The units of a key from `at` on as a number that compares like them.
std::uint64_t numberOf(TextView key, std::size_t at) noexcept {
  std::uint64_t number = 0;
  if (key.size() >= at + kUnitsOfANumber && std::endian::native == std::endian::little) {
    std::memcpy(&number, key.data() + at, sizeof number);
    number = number << 32U | number >> 32U;
    return (number & 0x0000FFFF0000FFFFU) << 16U | (number >> 16U & 0x0000FFFF0000FFFFU);
  }
  for (std::size_t i = 0; i < kUnitsOfANumber; ++i) {
    number = number << 16U | (at + i < key.size() ? key[at + i] : 0U);
  }
  return number;
}

} // namespace

KeyHead keyHead(TextView key) noexcept {
  KeyHead head{};
  for (std::size_t i = 0; i < head.size() && i * kUnitsOfANumber < key.size(); ++i) {
    head[i] = numberOf(key, i * kUnitsOfANumber);
  }
  return head;
}

int propertyRank(TextView name) noexcept {
  return rankOf(kPropertyRanks, name);
}

int parameterRank(TextView name) noexcept {
  return rankOf(kParameterRanks, name);
}

} // namespace cardwright
