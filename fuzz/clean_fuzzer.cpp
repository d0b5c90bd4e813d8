// Any text is cleaned; what comes out must be what the plain passes make of it, and what is told
// must fit what was done.

#include "demand.h"
#include "support/reference_cleaning.h"

#include <cardwright/face.h>
#include <cardwright/utf8.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace cardwright;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const Text text = textFromUtf8(bytes);
  VCardCleaner cleaner;
  const Text cleaned = cleaner.clean(text);
  demand(cleaner.lastDidClean() == !cleaner.lastCleaningSummaries().empty());
  demand(cleaner.lastDidClean() || cleaned == text);
  for (const CleaningRepair& repair : cleaner.lastRepairs()) {
    demand(repair.place.offset <= text.size());
  }
  // The plain passes judge the character before a property by its last unit: letters with marks
  // aside, that is the same.
  const bool isPlain =
      std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
  if (isPlain && size < 4096) {
    ReferenceCleaning reference;
    demand(reference.clean(text) == cleaned);
    demand(reference.summaries == cleaner.lastCleaningSummaries());
  }
  ReadReport told;
  static_cast<void>(cleanText(bytes, nullptr, std::nullopt, &told));
  ReadReport read;
  static_cast<void>(readCards(bytes, &read));
  demand(told.cards == read.cards && told.properties == read.properties);
  demand(told.droppedLines.size() == read.droppedLines.size());
  return 0;
}
