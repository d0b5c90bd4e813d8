#pragma once

#include <span>
#include <string_view>

namespace cardwright {

/// A name as it is written where it comes from, and as it stands in an e-mail address.
struct LocalName {
  std::string_view native;
  std::string_view latin;
};

struct LocalCity {
  std::string_view name;
  std::string_view postalCode;
  std::string_view position; ///< latitude, ",", longitude
};

/// What people of a language have in their address books.
struct Region {
  std::span<const LocalName> givenNames;
  std::span<const LocalName> familyNames;
  std::span<const std::string_view> streets;
  std::span<const LocalCity> cities;
  std::span<const std::string_view> companies;
  std::span<const std::string_view> titles;
  std::span<const std::string_view> sentences;
  std::string_view country;
  std::string_view countryCode; ///< ISO 3166, lower case
  std::string_view language;
  std::string_view phonePrefix;
  std::string_view utcOffset;
  std::string_view timeZone;
  bool familyNameFirst;
};

[[nodiscard]] std::span<const Region> regions() noexcept;

} // namespace cardwright
