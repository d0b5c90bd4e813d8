#include "writer/order.h"

#include <algorithm>

namespace cardwright {

std::array<std::uint64_t, 2> furtherOrderOf(TextView key) noexcept {
  constexpr std::size_t kUnits = 8;
  const auto beyond =
      std::find_if(key.begin(), key.end(), [](char16_t unit) { return unit >= 0x80; });
  const TextView counting = key.substr(0, static_cast<std::size_t>(beyond - key.begin()) + 1);
  return {detail::orderBytesOf(counting, detail::kFirstOrderUnits, kUnits),
          detail::orderBytesOf(counting, detail::kFirstOrderUnits + kUnits, kUnits)};
}

} // namespace cardwright
