// Cards of any text are written for their own version and read again: they come back as they were,
// but for what the rules of reading and writing change, and never with a crash. What is written of
// their lines is what is written of their properties.

#include "demand.h"
#include "support/afresh.h"
#include "support/round_trip.h"

#include <cardwright/cardwright.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace cardwright;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  for (const auto& card : readUncleaned(textFromUtf8(bytes))) {
    for (const VersionCode version : {2, 3, 4}) {
      demand(written(*card, version) == writtenAfresh(*card, version));
      demand(writeCards({card}, nullptr, {version}) ==
             writeCards({afresh(*card)}, nullptr, {version}));
    }
    const RoundTrip trip = roundTrip(*card);
    if (!trip.surprises.empty()) {
      std::cerr << trip.surprises;
      std::abort();
    }
    // Other versions than its own change more, but must be survived.
    for (const VersionCode version : {0, 2, 3, 4}) {
      static_cast<void>(readUncleaned(written(*card, version)));
    }
  }
  return 0;
}
