#pragma once

#include <cardwright/text.h>

#include <cstddef>
#include <map>
#include <set>
#include <string>

namespace cardwright::tool {

/// What a file can be called after a name, on any usual system: without what separates paths,
/// steers a terminal or cannot be seen, without dots and dashes in front, not too long, and no name
/// of a device. Empty when nothing is left.
/// @returns UTF-8
[[nodiscard]] std::string safeFileName(TextView name);

/// Gives names that differ from each other even where case and the way of writing characters make
/// no difference.
class FileNames {
 public:
  /// @param name      as safeFileName() returns it
  /// @param extension with its dot
  /// @returns the name, or the first of "name 2", "name 3", … that was not given before, and the
  ///          extension
  [[nodiscard]] std::string give(const std::string& name, const std::string& extension);

 private:
  std::set<Text> m_given;
  std::map<Text, std::size_t> m_next; ///< the number to try next
};

} // namespace cardwright::tool
