#pragma once

#include <string_view>

namespace cardwright::tool {

/// A file of the page, as a browser is given it.
struct PageFile {
  std::string_view name; ///< empty for the page itself
  std::string_view type;
  std::string_view content;
};

/// Built into the program; null for other names.
[[nodiscard]] const PageFile* pageFile(std::string_view name);

} // namespace cardwright::tool
