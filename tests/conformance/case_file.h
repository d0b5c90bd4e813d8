#pragma once

#include "conformance/json.h"

#include <filesystem>
#include <functional>
#include <string>

namespace cardwright::conformance {

/// One call with its expected result.
struct Case {
  std::string id;
  std::string operation;
  Json arguments;
  Json expected;
};

/// Hands on every case of the *.jsonl files of a folder, file by file in the order of their names.
/// @throws std::runtime_error naming the place when a folder, file or line cannot be read
void forEachCase(const std::filesystem::path& folder, const std::function<void(const Case&)>& use);

} // namespace cardwright::conformance
