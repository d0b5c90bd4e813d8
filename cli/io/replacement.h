#pragma once

#include "io/diagnostics.h"

#include <string>
#include <string_view>

namespace cardwright::tool {

/// How a file is put in its place.
struct ReplacementOptions {
  std::string backup{};         ///< path that the old file is kept under; empty for none
  bool replacesExisting = true; ///< else a file or link of the name is an error
  bool followsLinks = true;     ///< else a link is replaced itself; only what replaces follows any
  bool isSynced = true; ///< flushed to disk before and after; else whoever asks sees to that
};

/// Puts new content into a file, all of it or nothing: it is written beside the file, flushed to
/// disk and moved into its place. A link is followed, and an existing file keeps its mode and, as
/// far as that is allowed, its owner. What goes wrong is said. An interrupted process leaves
/// nothing.
class Replacement {
 public:
  /// Begins; nothing of the file itself is touched yet.
  Replacement(const std::string& path, Diagnostics& diagnostics, ReplacementOptions options = {});
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  /// Lets everything written go, unless it was committed.
  ~Replacement();

  /// Whether there is something to write to.
  [[nodiscard]] bool isOpen() const noexcept { return m_descriptor >= 0; }
  [[nodiscard]] int descriptor() const noexcept { return m_descriptor; }

  /// Puts what was written to the descriptor in place.
  /// @returns whether that worked
  bool commit();

 private:
  void fail(int error);
  [[nodiscard]] int moveIntoPlace() const;

  std::string m_path;   ///< as it was given
  std::string m_target; ///< what it leads to
  std::string m_temporary;
  ReplacementOptions m_options;
  int m_descriptor = -1;
  int m_unfinished = -1;
  Diagnostics& m_diagnostics;
};

/// Replaces a file by these bytes.
bool replaceFile(const std::string& path, std::string_view bytes, Diagnostics& diagnostics,
                 ReplacementOptions options = {});

/// Makes all that was written to the folder last.
void syncFolderContent(const std::string& folder);

} // namespace cardwright::tool
