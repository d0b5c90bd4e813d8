// Cards of any text are converted to each version: never fewer cards come of it, nor other groups,
// names and values than those that were to be written, the sums add up, and converting again
// changes nothing.

#include "support/conversion_trip.h"
#include "support/round_trip.h"
#include "support/safe_trip.h"

#include <cardwright/cardwright.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

namespace {

void expectNone(const std::string& surprises) {
  if (!surprises.empty()) {
    std::cerr << surprises;
    std::abort();
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace cardwright;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  for (const auto& card : readUncleaned(textFromUtf8(bytes))) {
    // What nobody promises for texts of any kind must be survived all the same.
    static_cast<void>(writeCards(convertCards({card}, 4)));
    removeUnpromised(*card);
    for (const VersionCode version : {2, 3, 4}) {
      expectNone(safeTripSurprises(*card, version));
      expectNone(conversionSurprises(*card, version));
    }
  }
  return 0;
}
