#pragma once

#include <cstddef>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright {

/// One example of docs/repairs.md.
struct RepairExample {
  std::size_t line = 0; ///< of the page
  std::vector<std::string> before;
  std::vector<std::string> after;
  std::vector<std::string> told;
};

inline std::vector<RepairExample> repairExamples(const std::string& path) {
  std::ifstream page(path);
  std::vector<RepairExample> examples;
  std::vector<std::string>* block = nullptr;
  std::string line;
  for (std::size_t number = 1; std::getline(page, line); ++number) {
    if (line == "```before") {
      examples.push_back({number, {}, {}, {}});
      block = &examples.back().before;
    } else if (line == "```after") {
      block = &examples.back().after;
    } else if (line == "```told") {
      block = &examples.back().told;
    } else if (line == "```") {
      block = nullptr;
    } else if (block != nullptr && line != "(nothing)") {
      block->push_back(line);
    }
  }
  return examples;
}

inline std::string replaced(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const bool isHere = text.substr(at).starts_with(from);
    result.append(isHere ? to : text.substr(at, 1));
    at += isHere ? from.size() : 1;
  }
  return result;
}

/// Lines as a card, with the line ends that are shown or else CR LF.
inline std::string cardOf(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line;
    if (!line.ends_with("␊")) {
      text += "\r\n";
    }
  }
  const bool showsEnds = text.find("␊") != std::string::npos;
  const std::string end = showsEnds && text.find("␍␍␊") != std::string::npos ? "\r\r\n" : "\r\n";
  text = replaced(replaced(text, "␍", "\r"), "␊", "\n");
  return std::string("BEGIN:VCARD").append(end).append(text).append("END:VCARD").append(end);
}

} // namespace cardwright
