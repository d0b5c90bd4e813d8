#pragma once

#include "pages/command_table.h"

#include <string>
#include <vector>

namespace cardwright::tool {

// What is installed beside the tool.

[[nodiscard]] std::string manualPage(const std::vector<CommandRow>& table);
[[nodiscard]] std::string bashCompletion(const std::vector<CommandRow>& table);
[[nodiscard]] std::string zshCompletion(const std::vector<CommandRow>& table);
[[nodiscard]] std::string fishCompletion(const std::vector<CommandRow>& table);

} // namespace cardwright::tool
