#include "reading_options.h"

#include "command_options.h"
#include "io/input.h"

namespace cardwright::tool {

namespace {

std::string knownEncoding(const std::string& name) {
  if (!isKnownEncoding(name)) {
    throw WrongUsage("--encoding", "no encoding is called '" + name + "'");
  }
  return name;
}

} // namespace

const std::vector<std::string>& ReadingOptions::inputs() const {
  static const std::vector<std::string> kOnlyStandardInput{std::string(kStandardInput)};
  return files.empty() ? kOnlyStandardInput : files;
}

void addFiles(Command& command, std::vector<std::string>& files) {
  command.addFiles(files, "Files to read; '-' or none is standard input");
}

void addEncodingOption(Command& command, std::optional<std::string>& encoding) {
  command.addOption(
      "--encoding", "NAME", [&](const std::string& name) { encoding = knownEncoding(name); },
      "Encoding of the files; without it, the bytes tell");
}

void addReadingOptions(Command& command, ReadingOptions& options) {
  addFiles(command, options.files);
  addEncodingOption(command, options.read.encoding);
  command.addFlag(
      "--no-clean", [&] { options.read.clean = false; }, "Do not repair what is damaged");
}

} // namespace cardwright::tool
