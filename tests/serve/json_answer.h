#pragma once

#include <rapidjson/document.h>

#include <cstddef>
#include <string>

namespace cardwright::tool {

/// Reads JSON; anything else fails the test.
[[nodiscard]] rapidjson::Document jsonFrom(const std::string& text);

/// The items of a list, and how many it says that there are.
[[nodiscard]] const rapidjson::Value& itemsOf(const rapidjson::Value& object, const char* name);
[[nodiscard]] std::size_t countOf(const rapidjson::Value& object, const char* name);

} // namespace cardwright::tool
