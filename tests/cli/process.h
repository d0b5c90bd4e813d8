#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cardwright::tool {

struct Outcome {
  int status = -1;           ///< exit status; minus the number of the signal that ended it
  std::size_t peakBytes = 0; ///< of memory that it held at once
  std::string output;
  std::string errors;
};

/// How a program is started. It sees no environment but what is named here.
struct Invocation {
  std::vector<std::string> arguments;
  std::string input; ///< what stands on standard input
  std::vector<std::pair<std::string, std::string>> environment{};
  /// Standard output is a terminal of this many columns.
  std::optional<unsigned short> terminalColumns{};
  /// Standard output goes to this file instead.
  std::optional<std::string> outputFile{};
  /// Standard output is closed by its reader after this many bytes.
  std::optional<std::size_t> readOnly{};
  /// Standard error is a terminal.
  bool hasErrorTerminal = false;
  /// Standard input stays open until this is true of what was seen so far.
  std::function<bool(const Outcome&)> holdInputUntil{};
  /// Sent then.
  std::optional<int> signal{};
};

/// Runs the cardwright command that was built.
[[nodiscard]] Outcome runTool(const Invocation& invocation);

/// A folder that goes when the test ends.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::string& path() const noexcept { return m_path; }
  /// Makes a file and returns its path.
  std::string write(std::string_view name, std::string_view bytes) const;

 private:
  std::string m_path;
};

/// The names of what is in a folder, in order.
[[nodiscard]] std::vector<std::string> namesIn(const std::string& folder);

/// A file of the source tree.
[[nodiscard]] std::string sourcePath(std::string_view path);
[[nodiscard]] std::string fileContent(const std::string& path);

/// Whether this system can make terminals; a bare chroot cannot.
[[nodiscard]] bool hasTerminals();

} // namespace cardwright::tool
