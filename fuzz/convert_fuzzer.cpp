// Cards of any text, and those that no text could hold, are converted to each version: never fewer
// cards come of it, nor other groups and names than are reported, the sums add up, and converting
// again changes nothing. Written as they are, they keep their values too.

#include "support/built_card.h"
#include "support/conversion_trip.h"
#include "support/round_trip.h"
#include "support/safe_trip.h"

#include <cardwright/cardwright.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

namespace {

using namespace cardwright;

void expectNone(const std::string& surprises) {
  if (!surprises.empty()) {
    std::cerr << surprises;
    std::abort();
  }
}

void convert(VCard& card) {
  // What nobody promises for texts of any kind must be survived all the same.
  const std::shared_ptr<VCard> borrowed(&card, [](VCard* /*kept*/) {});
  static_cast<void>(writeCards(convertCards({borrowed}, 4)));
  removeUnpromised(card);
  for (const VersionCode version : {2, 3, 4}) {
    expectNone(safeTripSurprises(card, version));
    expectNone(conversionSurprises(card, version));
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const Text text = textFromUtf8(bytes);
  for (const auto& card : readUncleaned(text)) {
    convert(*card);
  }
  if (text.find(u'\0') != Text::npos) {
    convert(*builtCard(text));
  }
  return 0;
}
