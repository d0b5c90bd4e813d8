#include "writer/order.h"

#include "base/name_table.h"

namespace cardwright {

namespace {

using Rank = NameRow<int>;

constexpr NameTable kPropertyRanks({
    Rank{u"VERSION", -9},
    {u"PRODID", -8},
    {u"FN", -7},
    {u"N", -6},
    {u"ORG", -5},
    {u"TITLE", -4},
    {u"EMAIL", -3},
    {u"TEL", -2},
    {u"ADR", -1},
});

constexpr NameTable kParameterRanks({
    Rank{u"VALUE", -3},
    {u"ENCODING", -2},
    {u"TYPE", -1},
});

template <typename Table>
int rankOf(const Table& table, TextView name) noexcept {
  const Rank* row = table.find(name);
  return row != nullptr ? row->value : 0;
}

} // namespace

KeyHead keyHead(TextView key) noexcept {
  constexpr std::size_t kUnitsOfANumber = 4;
  KeyHead head{};
  std::size_t at = 0;
  for (std::uint64_t& number : head) {
    for (std::size_t i = 0; i < kUnitsOfANumber; ++i, ++at) {
      number = number << 16U | (at < key.size() ? key[at] : 0U);
    }
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
