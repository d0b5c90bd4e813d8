#include "io/replacement.h"

#include "io/interruption.h"
#include "io/output.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace cardwright::tool {

namespace {

/// Where a path leads when links are followed. A link to nowhere leads to what it names.
std::string followed(const std::string& path) {
  constexpr int kMostLinks = 40;
  std::string target = path;
  for (int links = 0; links < kMostLinks; ++links) {
    std::string content(PATH_MAX, '\0');
    const ssize_t length = ::readlink(target.c_str(), content.data(), content.size());
    if (length < 0) {
      break;
    }
    content.resize(static_cast<std::size_t>(length));
    const std::size_t folder = target.rfind('/');
    const bool isRelative = !content.starts_with('/') && folder != std::string::npos;
    if (isRelative) {
      content.insert(0, target, 0, folder + 1);
    }
    target = std::move(content);
  }
  return target;
}

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

/// Makes a new file look like the one it takes the place of, or like any new file.
int copyStatus(const std::string& target, int descriptor) {
  struct stat status {};
  if (::stat(target.c_str(), &status) != 0) {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return ::fchmod(descriptor, 0666 & ~mask) == 0 ? 0 : errno;
  }
  if (S_ISDIR(status.st_mode)) {
    return EISDIR;
  }
  // Only root may give files away; keeping the group alone is next best. The mode comes last, for
  // a change of owner can take bits of it away.
  if (::fchown(descriptor, status.st_uid, status.st_gid) != 0 &&
      ::fchown(descriptor, static_cast<uid_t>(-1), status.st_gid) != 0 && errno != EPERM) {
    return errno;
  }
  return ::fchmod(descriptor, status.st_mode & 07777) == 0 ? 0 : errno;
}

/// Makes a move in a folder last.
void syncFolder(const std::string& folder) {
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor >= 0) {
    ::fsync(descriptor);
    ::close(descriptor);
  }
}

/// Keeps the file under a second name, whatever that name held.
int keepBackup(const std::string& target, const std::string& backup) {
  if (::access(target.c_str(), F_OK) != 0) {
    return 0;
  }
  ::unlink(backup.c_str());
  return ::link(target.c_str(), backup.c_str()) == 0 ? 0 : errno;
}

} // namespace

Replacement::Replacement(const std::string& path, Diagnostics& diagnostics,
                         ReplacementOptions options)
    : m_path(path),
      m_target(options.replacesExisting && options.followsLinks ? followed(path) : path),
      m_temporary(m_target + ".XXXXXX"),
      m_options(std::move(options)),
      m_diagnostics(diagnostics) {
  struct stat status {};
  if (::stat(m_target.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
    m_temporary.clear();
    diagnostics.error(m_path, systemMessage(EISDIR));
    return;
  }
  const UninterruptedMoment moment;
  m_descriptor = ::mkostemp(m_temporary.data(), O_CLOEXEC);
  if (m_descriptor < 0) {
    const int error = errno;
    m_temporary.clear();
    diagnostics.error(m_path, systemMessage(error));
  } else {
    m_unfinished = rememberUnfinished(m_temporary);
  }
}

Replacement::~Replacement() {
  if (m_descriptor >= 0) {
    ::close(m_descriptor);
  }
  if (!m_temporary.empty()) {
    ::unlink(m_temporary.c_str());
  }
  forgetUnfinished(m_unfinished);
}

void Replacement::fail(int error) {
  m_diagnostics.error(m_path, systemMessage(error));
}

int Replacement::moveIntoPlace() const {
  if (m_options.replacesExisting) {
    return ::rename(m_temporary.c_str(), m_target.c_str()) == 0 ? 0 : errno;
  }
  // A second name never takes the place of a file; not every file system has second names.
  if (::link(m_temporary.c_str(), m_target.c_str()) == 0) {
    ::unlink(m_temporary.c_str());
    return 0;
  }
  if (errno != EPERM && errno != EOPNOTSUPP) {
    return errno;
  }
  struct stat status {};
  if (::lstat(m_target.c_str(), &status) == 0) {
    return EEXIST;
  }
  return ::rename(m_temporary.c_str(), m_target.c_str()) == 0 ? 0 : errno;
}

bool Replacement::commit() {
  int error = copyStatus(m_target, m_descriptor);
  if (error == 0 && m_options.isSynced && ::fsync(m_descriptor) != 0) {
    error = errno;
  }
  const UninterruptedMoment moment;
  if (error == 0 && !m_options.backup.empty()) {
    error = keepBackup(m_target, m_options.backup);
  }
  if (error == 0) {
    error = moveIntoPlace();
  }
  if (error != 0) {
    fail(error);
    return false;
  }
  m_temporary.clear();
  forgetUnfinished(std::exchange(m_unfinished, -1));
  if (m_options.isSynced) {
    syncFolder(folderOf(m_target));
  }
  return true;
}

bool replaceFile(const std::string& path, std::string_view bytes, Diagnostics& diagnostics,
                 ReplacementOptions options) {
  Replacement replacement(path, diagnostics, std::move(options));
  if (!replacement.isOpen()) {
    return false;
  }
  Output output(replacement.descriptor());
  output.write(bytes);
  output.flush();
  if (!output.isOpen()) {
    diagnostics.error(path, systemMessage(output.error()));
    return false;
  }
  return replacement.commit();
}

void syncFolderContent(const std::string& folder) {
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor >= 0) {
    ::syncfs(descriptor);
    ::close(descriptor);
  }
}

} // namespace cardwright::tool
