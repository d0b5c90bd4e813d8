#include "io/diagnostics.h"

#include "text/printable.h"

#include <cardwright/utf8.h>

#include <string>
#include <system_error>
#include <unistd.h>

namespace cardwright::tool {

void Diagnostics::error(std::string_view file, std::string_view message) {
  m_status = ExitStatus::failed;
  print(file, message);
}

void Diagnostics::note(std::string_view file, std::string_view message) {
  print(file, message);
}

void Diagnostics::note(std::string_view message) {
  print({}, message);
}

void Diagnostics::wrongUsage(std::string_view message) {
  m_status = ExitStatus::wrongUsage;
  print({}, message);
}

void Diagnostics::found() noexcept {
  if (m_status == ExitStatus::done) {
    m_status = ExitStatus::found;
  }
}

void Diagnostics::print(std::string_view file, std::string_view message) {
  m_output.flush();
  std::string line = "cardwright: ";
  if (!file.empty()) {
    // Names of files and lines of cards come from anywhere.
    line.append(utf8FromText(printable(textFromUtf8(file)))).append(": ");
  }
  line.append(utf8FromText(printable(textFromUtf8(message)))).append("\n");

  m_progress.stepAside();
  // One write for the whole line; when even that fails there is nobody left to tell.
  Output standardError(STDERR_FILENO);
  standardError.write(line);
  standardError.flush();
}

std::string systemMessage(int error) {
  return std::generic_category().message(error);
}

} // namespace cardwright::tool
