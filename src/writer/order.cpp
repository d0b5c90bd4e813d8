#include "writer/order.h"

#include "base/name_table.h"

#include <algorithm>

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
int rankOf(const Table& table, TextView name) {
  const Rank* row = table.find(name);
  return row != nullptr ? row->value : 0;
}

template <typename Table>
void sortByRank(const Table& table, std::vector<TextView>& names) {
  std::sort(names.begin(), names.end(), [&table](TextView a, TextView b) {
    const int rankOfA = rankOf(table, a);
    const int rankOfB = rankOf(table, b);
    return rankOfA != rankOfB ? rankOfA < rankOfB : a < b;
  });
}

} // namespace

void sortPropertyNames(std::vector<TextView>& names) {
  sortByRank(kPropertyRanks, names);
}

void sortParameterNames(std::vector<TextView>& names) {
  sortByRank(kParameterRanks, names);
}

} // namespace cardwright
