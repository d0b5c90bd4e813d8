#pragma once

#include "io/exit_status.h"
#include "io/output.h"
#include "io/progress.h"

#include <string>
#include <string_view>

namespace cardwright::tool {

/// What there is to say on standard error, in lines "cardwright: FILE: what is wrong".
class Diagnostics {
 public:
  /// @param output is flushed before each line, so that the two stay in order on a terminal
  explicit Diagnostics(Output& output) noexcept : m_output(output) {}

  /// Something failed: the exit status will say so.
  void error(std::string_view file, std::string_view message);
  /// Something worth knowing, about a file or about nothing in particular.
  void note(std::string_view file, std::string_view message);
  void note(std::string_view message);
  /// The command line could not be understood.
  void wrongUsage(std::string_view message);

  /// What was to be looked for is there. A failure weighs more.
  void found() noexcept;

  /// How far the work is, which is told there too.
  [[nodiscard]] Progress& progress() noexcept { return m_progress; }

  [[nodiscard]] ExitStatus status() const noexcept { return m_status; }

 private:
  void print(std::string_view file, std::string_view message);

  Output& m_output;
  Progress m_progress;
  ExitStatus m_status = ExitStatus::done;
};

/// The system's words for an error number, such as "No such file or directory".
[[nodiscard]] std::string systemMessage(int error);

} // namespace cardwright::tool
