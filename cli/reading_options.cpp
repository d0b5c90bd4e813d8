#include "reading_options.h"

#include "io/input.h"

#include <CLI/CLI.hpp>

namespace cardwright::tool {

namespace {

std::string knownEncoding(const std::string& name) {
  if (!isKnownEncoding(name)) {
    throw CLI::ValidationError("--encoding", "no encoding is called '" + name + "'");
  }
  return name;
}

} // namespace

const std::vector<std::string>& ReadingOptions::inputs() const {
  static const std::vector<std::string> kOnlyStandardInput{std::string(kStandardInput)};
  return files.empty() ? kOnlyStandardInput : files;
}

void addFiles(CLI::App& command, std::vector<std::string>& files) {
  command.add_option("FILE", files, "Files to read; '-' or none is standard input")->type_name("");
}

void addEncodingOption(CLI::App& command, std::optional<std::string>& encoding) {
  command
      .add_option_function<std::string>(
          "--encoding", [&](const std::string& name) { encoding = knownEncoding(name); },
          "Encoding of the files; without it, the bytes tell")
      ->type_name("NAME");
}

void addReadingOptions(CLI::App& command, ReadingOptions& options) {
  addFiles(command, options.files);
  addEncodingOption(command, options.read.encoding);
  command.add_flag_callback(
      "--no-clean", [&] { options.read.clean = false; }, "Do not repair what is damaged");
}

} // namespace cardwright::tool
