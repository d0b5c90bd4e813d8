#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace cardwright {

/// The files of the folder that CARDWRIGHT_CORPUS names, in order; absent when it names none.
inline std::optional<std::vector<std::filesystem::path>> corpusFiles() {
  const char* folder = std::getenv("CARDWRIGHT_CORPUS"); // NOLINT(concurrency-mt-unsafe)
  if (folder == nullptr) {
    return std::nullopt;
  }
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file() && entry.path().filename() != "README.md") {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

inline std::string bytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  file.exceptions(std::ios::badbit | std::ios::failbit);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace cardwright
