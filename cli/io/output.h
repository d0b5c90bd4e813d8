#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace cardwright::tool {

class Progress;

/// Bytes on their way to a file descriptor, gathered into large writes. What is large already goes
/// as it is.
///
/// Once a write has failed, everything that follows is dropped: whoever produces much asks
/// isOpen() from time to time and stops.
class Output {
 public:
  explicit Output(int descriptor) noexcept : m_descriptor(descriptor) {}
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  void write(std::string_view bytes);
  void put(char byte) {
    if (m_used == m_buffer.size()) {
      flush();
    }
    m_buffer[m_used++] = byte;
  }
  void flush();

  /// Wipes somebody's line before each write: the two are on the same terminal.
  void sharesTerminalWith(Progress& progress) noexcept { m_progress = &progress; }

  [[nodiscard]] int descriptor() const noexcept { return m_descriptor; }
  [[nodiscard]] bool isOpen() const noexcept { return m_error == 0; }
  /// The system's number of the error that closed it; 0 while it is open, and when the one who
  /// read from it has closed its end, which is no error.
  [[nodiscard]] int error() const noexcept;

 private:
  /// Writes at once, if anything can be written.
  void send(std::string_view bytes);

  static constexpr std::size_t kBufferSize = std::size_t{64} * 1024;

  int m_descriptor;
  int m_error = 0;
  Progress* m_progress = nullptr;
  std::size_t m_used = 0;
  std::array<char, kBufferSize> m_buffer;
};

} // namespace cardwright::tool
