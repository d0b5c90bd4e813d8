#include "io/input.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <memory>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace cardwright::tool {

namespace {

/// A file descriptor that closes itself, unless it is standard input.
class Descriptor {
 public:
  explicit Descriptor(const std::string& path)
      : m_number(path == kStandardInput ? STDIN_FILENO
                                        : ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY)),
        m_error(m_number < 0 ? errno : 0) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (m_number > STDIN_FILENO) {
      ::close(m_number);
    }
  }

  [[nodiscard]] int number() const noexcept { return m_number; }
  /// Why it could not be opened; 0 when it is open.
  [[nodiscard]] int error() const noexcept { return m_error; }

 private:
  int m_number;
  int m_error;
};

/// Makes a buffer larger, in large pages where the system has any: to fetch hundreds of megabytes
/// in small ones takes as long as to read them.
void enlarge(std::string& bytes, std::size_t size) {
  bytes.reserve(size);
#if defined(MADV_HUGEPAGE)
  constexpr std::size_t kPage = std::size_t{2} * 1024 * 1024;
  void* begin = bytes.data() + bytes.size();
  std::size_t room = bytes.capacity() - bytes.size();
  if (std::align(kPage, kPage, begin, room) != nullptr) {
    // Advice that is not taken changes nothing.
    static_cast<void>(::madvise(begin, room / kPage * kPage, MADV_HUGEPAGE));
  }
#endif
  bytes.resize(size);
}

/// Reads to the end; the system's error number, or 0.
int readAll(int descriptor, std::string& bytes, Progress& progress) {
  constexpr std::size_t kFirstStep = std::size_t{64} * 1024;
  constexpr std::size_t kLargestStep = std::size_t{16} * 1024 * 1024;
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) {
    return errno;
  }
  if (S_ISDIR(status.st_mode)) {
    return EISDIR;
  }
  // One byte more than a regular file has, to see its end without growing.
  std::size_t room = kFirstStep;
  if (S_ISREG(status.st_mode) && status.st_size > 0) {
    room = static_cast<std::size_t>(status.st_size) + 1;
  }
  if (::isatty(descriptor) == 0) {
    progress.begin("reading", room == kFirstStep ? 0 : room);
  }
  std::size_t used = 0;
  while (true) {
    if (used == bytes.size()) {
      enlarge(bytes, used == 0 ? room : used * 2);
    }
    const ssize_t count =
        ::read(descriptor, bytes.data() + used, std::min(bytes.size() - used, kLargestStep));
    if (count == 0) {
      bytes.resize(used);
      return 0;
    }
    if (count > 0) {
      used += static_cast<std::size_t>(count);
      progress.show(used);
    } else if (errno != EINTR) {
      return errno;
    }
  }
}

} // namespace

std::string_view displayName(std::string_view path) noexcept {
  return path == kStandardInput ? "standard input" : path;
}

std::optional<std::string> readFile(const std::string& path, Diagnostics& diagnostics) {
  if (path == kStandardInput && ::isatty(STDIN_FILENO) != 0) {
    diagnostics.note("reading from the keyboard; end with Ctrl-D");
  }
  const Descriptor file(path);
  std::string bytes;
  const int error =
      file.error() != 0 ? file.error() : readAll(file.number(), bytes, diagnostics.progress());
  diagnostics.progress().end();
  if (error != 0) {
    diagnostics.error(displayName(path), systemMessage(error));
    return std::nullopt;
  }
  return bytes;
}

} // namespace cardwright::tool
