#include "face/conversion/table.h"

#include "base/case.h"
#include "face/conversion/table_2_to_3.h"
#include "face/conversion/table_3_to_2.h"
#include "face/conversion/table_3_to_4.h"
#include "face/conversion/table_4_to_3.h"

#include <algorithm>

namespace cardwright {

namespace {

constexpr ConversionTable kTables[] = {
    {2, 3, {}, kParameters2To3, {}, kEncodings2To3},
    {3, 4, kProperties3To4, kParameters3To4, kTypes3To4, kEncodings3To4},
    {4, 3, kProperties4To3, kParameters4To3, kTypes4To3, {}},
    {3, 2, kProperties3To2, kParameters3To2, kTypes3To2, kEncodings3To2},
};

} // namespace

std::span<const ConversionTable> conversionTables() {
  return kTables;
}

const ConversionTable& conversionTable(VersionCode from, VersionCode to) {
  return *std::find_if(std::begin(kTables), std::end(kTables), [=](const ConversionTable& table) {
    return table.from == from && table.to == to;
  });
}

const Rule* ruleFor(std::span<const Rule> rules, TextView name) {
  const auto rule = std::find_if(rules.begin(), rules.end(), [name](const Rule& candidate) {
    return equalIgnoringCase(candidate.name, name);
  });
  return rule != rules.end() ? &*rule : nullptr;
}

const Rule* parkedRule(std::span<const Rule> rulesBack, TextView name) {
  constexpr TextView kPrefix = u"X-";
  if (!equalIgnoringCase(name.substr(0, kPrefix.size()), kPrefix)) {
    return nullptr;
  }
  const Rule* rule = ruleFor(rulesBack, name.substr(kPrefix.size()));
  const bool parks =
      rule != nullptr && (rule->action == Action::park || rule->action == Action::reencodeOrPark);
  return parks ? rule : nullptr;
}

} // namespace cardwright
