#include "cli/process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace cardwright::tool {

namespace {

constexpr int kChildCannotStart = 127;

void check(bool isGood, const char* what) {
  if (!isGood) {
    throw std::system_error(errno, std::generic_category(), what);
  }
}

/// A file descriptor that closes itself.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : m_number(number) {}
  Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    close();
    m_number = std::exchange(other.m_number, -1);
    return *this;
  }
  ~Descriptor() { close(); }

  [[nodiscard]] int number() const noexcept { return m_number; }
  [[nodiscard]] bool isOpen() const noexcept { return m_number >= 0; }
  void close() noexcept {
    if (isOpen()) {
      ::close(m_number);
      m_number = -1;
    }
  }

 private:
  int m_number = -1;
};

struct Channel {
  Descriptor readEnd;
  Descriptor writeEnd;
};

Channel makePipe() {
  int ends[2];
  check(::pipe2(ends, O_CLOEXEC) == 0, "pipe2");
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

/// A terminal: what is written to one end can be read from the other.
Channel makeTerminal(unsigned short columns) {
  const winsize size{24, columns, 0, 0};
  int master = -1;
  int slave = -1;
  check(::openpty(&master, &slave, nullptr, nullptr, &size) == 0, "openpty");
  ::fcntl(master, F_SETFD, FD_CLOEXEC);
  ::fcntl(slave, F_SETFD, FD_CLOEXEC);
  return {Descriptor(master), Descriptor(slave)};
}

std::vector<char*> pointers(std::vector<std::string>& strings) {
  std::vector<char*> result;
  result.reserve(strings.size() + 1);
  for (std::string& string : strings) {
    result.push_back(string.data());
  }
  result.push_back(nullptr);
  return result;
}

/// Reads what there is; false at the end.
bool readSome(const Descriptor& descriptor, std::string& text, std::size_t limit) {
  char buffer[4096];
  const std::size_t wanted = std::min(sizeof buffer, limit);
  const ssize_t count = ::read(descriptor.number(), buffer, wanted);
  // A terminal whose other end is closed says EIO.
  if (count <= 0) {
    return count < 0 && errno == EINTR;
  }
  text.append(buffer, static_cast<std::size_t>(count));
  return true;
}

/// Feeds and reads the child until it has closed everything.
void converse(Descriptor& input, Descriptor& output, Descriptor& errors,
              const Invocation& invocation, pid_t child, Outcome& outcome) {
  constexpr int kGlance = 10; // milliseconds
  bool isHeld = invocation.holdInputUntil != nullptr;
  const std::size_t limit = invocation.readOnly.value_or(std::string::npos);
  std::size_t sent = 0;
  while (output.isOpen() || errors.isOpen()) {
    const bool isSent = sent == invocation.input.size();
    if (isHeld && isSent && invocation.holdInputUntil(outcome)) {
      isHeld = false;
      if (invocation.signal) {
        check(::kill(child, *invocation.signal) == 0, "kill");
      }
    }
    if (input.isOpen() && isSent && !isHeld) {
      input.close();
    }
    if (output.isOpen() && outcome.output.size() >= limit) {
      output.close();
    }
    pollfd polled[] = {{isSent ? -1 : input.number(), POLLOUT, 0},
                       {output.number(), POLLIN, 0},
                       {errors.number(), POLLIN, 0}};
    if (::poll(polled, std::size(polled), isHeld ? kGlance : -1) < 0) {
      check(errno == EINTR, "poll");
      continue;
    }
    if (polled[0].revents != 0) {
      const ssize_t count =
          ::write(input.number(), invocation.input.data() + sent, invocation.input.size() - sent);
      if (count > 0) {
        sent += static_cast<std::size_t>(count);
      } else {
        input.close();
      }
    }
    if (polled[1].revents != 0 &&
        !readSome(output, outcome.output, limit - outcome.output.size())) {
      output.close();
    }
    if (polled[2].revents != 0 && !readSome(errors, outcome.errors, std::string::npos)) {
      errors.close();
    }
  }
}

int waitFor(pid_t child, std::size_t& peakBytes) {
  int status = 0;
  rusage usage{};
  while (::wait4(child, &status, 0, &usage) < 0) {
    check(errno == EINTR, "wait4");
  }
  peakBytes = static_cast<std::size_t>(usage.ru_maxrss) * 1024;
  return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace

Outcome runTool(const Invocation& invocation) {
  // A child that does not read its input is no failure of ours.
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));

  Channel input = makePipe();
  Channel errors = invocation.hasErrorTerminal ? makeTerminal(80) : makePipe();
  Channel output =
      invocation.terminalColumns ? makeTerminal(*invocation.terminalColumns) : makePipe();
  if (invocation.outputFile) {
    output = {Descriptor(),
              Descriptor(::open(invocation.outputFile->c_str(), O_WRONLY | O_CLOEXEC))};
    check(output.writeEnd.isOpen(), "open");
  }

  std::vector<std::string> arguments{CARDWRIGHT_TOOL};
  arguments.insert(arguments.end(), invocation.arguments.begin(), invocation.arguments.end());
  std::vector<std::string> environment;
  for (const auto& [name, value] : invocation.environment) {
    environment.push_back(std::string(name).append("=").append(value));
  }
  const auto argumentPointers = pointers(arguments);
  const auto environmentPointers = pointers(environment);

  const pid_t child = ::fork();
  check(child >= 0, "fork");
  if (child == 0) {
    static_cast<void>(::signal(SIGPIPE, SIG_DFL));
    ::dup2(input.readEnd.number(), STDIN_FILENO);
    ::dup2(output.writeEnd.number(), STDOUT_FILENO);
    ::dup2(errors.writeEnd.number(), STDERR_FILENO);
    ::execve(CARDWRIGHT_TOOL, argumentPointers.data(), environmentPointers.data());
    ::_exit(kChildCannotStart);
  }
  input.readEnd.close();
  output.writeEnd.close();
  errors.writeEnd.close();

  Outcome outcome;
  converse(input.writeEnd, output.readEnd, errors.readEnd, invocation, child, outcome);
  outcome.status = waitFor(child, outcome.peakBytes);
  return outcome;
}

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "cardwright-XXXXXX").string();
  check(::mkdtemp(pattern.data()) != nullptr, "mkdtemp");
  m_path = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

std::string TemporaryFolder::write(std::string_view name, std::string_view bytes) const {
  std::string path = m_path + "/" + std::string(name);
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) {
    throw std::runtime_error("cannot write " + path);
  }
  return path;
}

std::vector<std::string> namesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string sourcePath(std::string_view path) {
  return std::string(CARDWRIGHT_SOURCE_DIR "/").append(path);
}

std::string fileContent(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw std::runtime_error("cannot read " + path);
  }
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool hasTerminals() {
  const Descriptor terminal(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
  return terminal.isOpen();
}

} // namespace cardwright::tool
