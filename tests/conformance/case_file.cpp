#include "conformance/case_file.h"

#include <rapidjson/error/en.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace cardwright::conformance {
namespace {

[[nodiscard]] std::vector<std::filesystem::path> caseFiles(const std::filesystem::path& folder) {
  std::error_code error;
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    if (entry.path().extension() == ".jsonl") {
      files.push_back(entry.path());
    }
  }
  if (error) {
    throw std::runtime_error(folder.string() + ": " + error.message());
  }
  if (files.empty()) {
    throw std::runtime_error(folder.string() + ": no *.jsonl file in it");
  }
  std::sort(files.begin(), files.end());
  return files;
}

[[nodiscard]] Json takeMember(Json& object, const char* name) {
  if (!object.HasMember(name)) {
    throw std::runtime_error(std::string("a case without \"") + name + '"');
  }
  return std::move(object.FindMember(name)->value);
}

[[nodiscard]] std::string takeString(Json& object, const char* name) {
  const Json value = takeMember(object, name);
  if (!value.IsString()) {
    throw std::runtime_error(std::string("\"") + name + "\" is no string");
  }
  return {value.GetString(), value.GetStringLength()};
}

[[nodiscard]] Case caseFromLine(const std::string& line) {
  JsonDocument document;
  document.Parse<rapidjson::kParseFullPrecisionFlag>(line.data(), line.size());
  if (document.HasParseError()) {
    throw std::runtime_error(rapidjson::GetParseError_En(document.GetParseError()));
  }
  if (!document.IsObject()) {
    throw std::runtime_error("no object");
  }
  return {takeString(document, "id"), takeString(document, "op"), takeMember(document, "args"),
          takeMember(document, "expect")};
}

void forEachCaseOfFile(const std::filesystem::path& path,
                       const std::function<void(const Case&)>& use) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw std::runtime_error(path.string() + ": cannot be opened");
  }
  std::string line;
  for (std::size_t number = 1; std::getline(file, line); ++number) {
    if (line.find_first_not_of(" \t\r") == std::string::npos) {
      continue;
    }
    Case testCase;
    try {
      testCase = caseFromLine(line);
    } catch (const std::runtime_error& error) {
      throw std::runtime_error(path.string() + ":" + std::to_string(number) + ": " + error.what());
    }
    use(testCase);
  }
  if (file.bad()) {
    throw std::runtime_error(path.string() + ": cannot be read");
  }
}

} // namespace

void forEachCase(const std::filesystem::path& folder, const std::function<void(const Case&)>& use) {
  for (const std::filesystem::path& path : caseFiles(folder)) {
    forEachCaseOfFile(path, use);
  }
}

} // namespace cardwright::conformance
