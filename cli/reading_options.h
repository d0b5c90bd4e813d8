#pragma once

#include <cardwright/face.h>

#include <optional>
#include <string>
#include <vector>

namespace cardwright::tool {

class Command;

/// What all commands that read cards can be told.
struct ReadingOptions {
  std::vector<std::string> files;
  ReadOptions read;

  /// The files, or standard input where none was named.
  [[nodiscard]] const std::vector<std::string>& inputs() const;
};

/// Adds the files to a command.
/// @param options outlives the command line
void addFiles(Command& command, std::vector<std::string>& files);

/// Adds --encoding to a command.
/// @param encoding outlives the command line
void addEncodingOption(Command& command, std::optional<std::string>& encoding);

/// Adds all of them to a command.
/// @param options outlives the command line
void addReadingOptions(Command& command, ReadingOptions& options);

} // namespace cardwright::tool
