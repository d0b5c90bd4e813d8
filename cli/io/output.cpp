#include "io/output.h"

#include "io/progress.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace cardwright::tool {

namespace {

/// Writes everything; the system's error number, or 0.
int writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
      // Somebody else made the descriptor non-blocking; wait for room.
      pollfd ready{descriptor, POLLOUT, 0};
      ::poll(&ready, 1, -1);
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

} // namespace

void Output::write(std::string_view bytes) {
  if (bytes.size() >= m_buffer.size()) {
    flush();
    send(bytes);
    return;
  }
  while (!bytes.empty()) {
    if (m_used == m_buffer.size()) {
      flush();
    }
    const std::size_t count = std::min(bytes.size(), m_buffer.size() - m_used);
    std::copy_n(bytes.data(), count, m_buffer.data() + m_used);
    m_used += count;
    bytes.remove_prefix(count);
  }
}

void Output::flush() {
  send({m_buffer.data(), m_used});
  m_used = 0;
}

void Output::send(std::string_view bytes) {
  if (!isOpen() || bytes.empty()) {
    return;
  }
  if (m_progress != nullptr) {
    m_progress->stepAside();
  }
  m_error = writeAll(m_descriptor, bytes);
}

int Output::error() const noexcept {
  return m_error == EPIPE ? 0 : m_error;
}

} // namespace cardwright::tool
