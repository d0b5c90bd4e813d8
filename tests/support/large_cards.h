#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace cardwright {

// Sound cards of which one thing is far too much. `size` tells how many of it.

struct LargeCard {
  const char* name;
  std::size_t size; ///< how many any reader may meet
  std::string (*make)(std::size_t size);
};

namespace large_cards {

inline std::string card(std::string_view lines) {
  return std::string("BEGIN:VCARD\r\nVERSION:3.0\r\n").append(lines).append("\r\nEND:VCARD\r\n");
}

/// `piece(i)` for each number below `size`.
template <typename Piece>
std::string all(std::size_t size, Piece piece) {
  std::string text;
  for (std::size_t i = 0; i < size; ++i) {
    text += piece(i);
  }
  return text;
}

inline std::string repeated(std::size_t size, std::string_view piece) {
  return all(size, [piece](std::size_t) { return piece; });
}

/// Each number below `size` between two texts.
inline std::string numbered(std::size_t size, std::string_view before, std::string_view behind) {
  return all(size, [&](std::size_t i) {
    return std::string(before).append(std::to_string(i)).append(behind);
  });
}

inline std::string properties(std::size_t size) {
  constexpr std::array<std::string_view, 4> kLines = {
      "TEL;TYPE=HOME:+15550100\r\n", "EMAIL:jane@example.com\r\n", "NOTE:likes tea\r\n",
      "URL:https://example.com/\r\n"};
  return card(all(size, [&](std::size_t i) { return kLines[i % kLines.size()]; }));
}

inline std::string names(std::size_t size) {
  return card(numbered(size, "X-", ":a\r\n"));
}

inline std::string equalNames(std::size_t size) {
  return card(repeated(size, "TEL:+15550100\r\n"));
}

inline std::string smallCards(std::size_t size) {
  return numbered(size, "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Jane Doe\r\nUID:", "\r\nEND:VCARD\r\n");
}

inline std::string photo(std::size_t size) {
  return card(std::string("PHOTO;ENCODING=b;TYPE=JPEG:").append(size, 'A'));
}

inline std::string parameters(std::size_t size) {
  return card(std::string("NOTE").append(numbered(size, ";X-", "=a")).append(":x"));
}

inline std::string parameterValues(std::size_t size) {
  return card(std::string("NOTE").append(repeated(size, ";X-A=b")).append(":x"));
}

inline std::string labels(std::size_t size) {
  return card(std::string("g.TEL:+15550100\r\n").append(repeated(size, "g.X-ABLabel:Desk\r\n")));
}

inline std::string values(std::size_t size) {
  return card(std::string("CATEGORIES:a").append(repeated(size, ",a")));
}

inline std::string groups(std::size_t size) {
  return card(all(size, [](std::size_t i) {
    const std::string group = std::string("item").append(std::to_string(i));
    return std::string(group)
        .append(".TEL:+15550100\r\n")
        .append(group)
        .append(".X-ABLabel:Desk\r\n");
  }));
}

} // namespace large_cards

inline constexpr std::size_t kManyProperties = 1'000'000;
inline constexpr std::size_t kManyParts = 100'000;

inline constexpr LargeCard kLargeCards[] = {
    {"properties", kManyProperties, large_cards::properties},
    {"different names", kManyProperties, large_cards::names},
    {"equal names", kManyParts, large_cards::equalNames},
    {"parameters of one property", kManyParts, large_cards::parameters},
    {"values of one parameter", kManyParts, large_cards::parameterValues},
    {"labels of one group", kManyParts, large_cards::labels},
    {"values of one list", kManyParts, large_cards::values},
    {"groups with a label each", kManyParts, large_cards::groups},
};

/// Those that are bounded by the memory of a machine alone.
inline constexpr LargeCard kBoundlessCards[] = {
    {"small cards", kManyParts, large_cards::smallCards},
    {"characters of a photo", 10'000'000, large_cards::photo},
};

} // namespace cardwright
