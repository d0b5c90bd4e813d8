// Any bytes are checked: findings stand in the order of the text and within it, and a mistake that
// is told once has the count of those that are told each time.

#include <cardwright/check.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace cardwright;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckOptions options;
  std::size_t counted = 0;
  for (const Finding& finding : checkText(bytes, options)) {
    counted += finding.count;
  }
  options.all = true;
  const auto all = checkText(bytes, options);
  const bool isOrdered =
      std::is_sorted(all.begin(), all.end(), [](const Finding& a, const Finding& b) {
        return a.place.offset < b.place.offset;
      });
  const bool isPlaced = std::all_of(all.begin(), all.end(), [size](const Finding& finding) {
    return finding.place.line >= 1 && finding.column >= 1 && finding.place.offset <= size;
  });
  if (!isOrdered || !isPlaced || counted != all.size()) {
    std::abort();
  }
  return 0;
}
