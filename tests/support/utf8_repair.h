#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace cardwright {

/// What GNU libiconv makes of broken UTF-8, spelt out: ASCII is copied; a byte that begins no
/// character goes alone; a first byte with too few bytes behind it fails the whole call; a legal
/// sequence is copied, and of any other the first byte goes.
inline std::string repairedByTheRule(std::string_view bytes) {
  std::string output;
  while (!bytes.empty()) {
    const auto at = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = at(0);
    if (lead < 0x80) {
      output.push_back(bytes[0]);
      bytes.remove_prefix(1);
      continue;
    }
    const std::size_t length = lead < 0xC2   ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF8 ? 4
                                             : 0;
    if (length == 0) {
      bytes.remove_prefix(1);
      continue;
    }
    if (bytes.size() < length) {
      return {};
    }
    bool isLegal = true;
    for (std::size_t i = 1; i < length; ++i) {
      isLegal = isLegal && at(i) >= 0x80 && at(i) <= 0xBF;
    }
    isLegal = isLegal && !(lead == 0xE0 && at(1) < 0xA0) && !(lead == 0xED && at(1) > 0x9F) &&
              !(lead == 0xF0 && at(1) < 0x90) && !(lead == 0xF4 && at(1) > 0x8F) && lead <= 0xF4;
    if (isLegal) {
      output.append(bytes.substr(0, length));
    }
    bytes.remove_prefix(isLegal ? length : 1);
  }
  return output;
}

} // namespace cardwright
