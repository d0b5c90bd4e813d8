#pragma once

#include <cardwright/face.h>

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace cardwright::tool {

/// What all commands that read cards can be told.
struct ReadingOptions {
  std::vector<std::string> files;
  ReadOptions read;
};

/// Adds them to a command.
/// @param options outlives the command line
void addReadingOptions(CLI::App& command, ReadingOptions& options);

} // namespace cardwright::tool
