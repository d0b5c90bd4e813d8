#pragma once

#include "cardwright/text.h"

#include <rapidjson/document.h>

#include <concepts>
#include <cstdint>
#include <optional>
#include <ranges>
#include <string>
#include <string_view>
#include <utility>

namespace cardwright::conformance {

/// A JSON value that owns all it holds.
using Json = rapidjson::GenericValue<rapidjson::UTF8<>, rapidjson::CrtAllocator>;
using JsonDocument = rapidjson::GenericDocument<rapidjson::UTF8<>, rapidjson::CrtAllocator>;

/// The allocator of all values; it has no state.
[[nodiscard]] rapidjson::CrtAllocator& jsonAllocator();

/// The compact text of a value.
[[nodiscard]] std::string textOfJson(const Json& value);

// Results as JSON; absent things are null.

[[nodiscard]] inline Json toJson(Json&& value) {
  return std::move(value);
}
template <std::same_as<bool> Boolean>
[[nodiscard]] Json toJson(Boolean value) {
  return Json(value);
}
template <std::integral Number>
requires(!std::same_as<Number, bool>) [[nodiscard]] Json toJson(Number value) {
  if constexpr (std::signed_integral<Number>) {
    return Json(static_cast<std::int64_t>(value));
  } else {
    return Json(static_cast<std::uint64_t>(value));
  }
}
/// A text in the notation of the case files.
[[nodiscard]] Json toJson(TextView text);
/// Characters that are ASCII already, such as the name of a class.
[[nodiscard]] Json asciiToJson(std::string_view ascii);
/// Bytes as {"hex": "c3a9"}.
[[nodiscard]] Json bytesToJson(std::string_view bytes);

template <std::ranges::input_range Items>
requires(!std::convertible_to<const Items&, TextView>) [[nodiscard]] Json
    toJson(const Items& items);

template <typename Value>
[[nodiscard]] Json toJson(const std::optional<Value>& value) {
  return value ? toJson(*value) : Json();
}

/// A list of what `convert` makes of each item.
template <typename Items, typename Convert>
[[nodiscard]] Json listToJson(const Items& items, Convert convert) {
  Json list(rapidjson::kArrayType);
  for (const auto& item : items) {
    list.PushBack(convert(item), jsonAllocator());
  }
  return list;
}

template <std::ranges::input_range Items>
requires(!std::convertible_to<const Items&, TextView>) Json toJson(const Items& items) {
  return listToJson(items, [](const auto& item) { return toJson(item); });
}

inline void addMembers(Json& /*object*/) {}
template <typename Value, typename... Rest>
void addMembers(Json& object, const char* name, Value&& value, Rest&&... rest) {
  object.AddMember(Json(name, jsonAllocator()), toJson(std::forward<Value>(value)),
                   jsonAllocator());
  addMembers(object, std::forward<Rest>(rest)...);
}
/// An object of names and values in turn.
template <typename... Members>
[[nodiscard]] Json objectToJson(Members&&... members) {
  Json object(rapidjson::kObjectType);
  addMembers(object, std::forward<Members>(members)...);
  return object;
}

} // namespace cardwright::conformance
