#pragma once

#include "json/json_text.h"

#include <cstddef>
#include <string_view>

namespace cardwright::tool {

/// {"items": […], "count": 3}: a list for a page to show. The count tells of all; of items there
/// are only so many as a browser bears.
class Listing {
 public:
  /// @param mostItems that are written; fewer where they are long
  Listing(JsonText& json, std::string_view name, std::size_t mostItems);
  Listing(const Listing&) = delete;
  Listing& operator=(const Listing&) = delete;
  ~Listing();

  /// Counts an item.
  /// @returns whether it is to be written
  [[nodiscard]] bool takes();

 private:
  static constexpr std::size_t kMostBytes = std::size_t{16} * 1024 * 1024;

  JsonText& m_json;
  std::size_t m_mostItems;
  std::size_t m_begin;
  std::size_t m_count = 0;
};

} // namespace cardwright::tool
