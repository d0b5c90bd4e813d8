#include "cardwright/codes.h"

namespace cardwright {

namespace {

/// The kinds count from 1.
template <std::size_t N, typename Kind>
std::string_view nameIn(const std::string_view (&names)[N], Kind kind) {
  const auto index = static_cast<std::size_t>(kind) - 1;
  return index < N ? names[index] : "unknown";
}

} // namespace

std::string_view codeOf(CleaningRepairKind kind) {
  static constexpr std::string_view kNames[] = {
      "separators",    "soft-break",        "member-entities", "glued-note",
      "note-entities", "merged-properties", "torn-fragment",   "repeated-property",
  };
  return nameIn(kNames, kind);
}

std::string_view codeOf(DropReason reason) {
  static constexpr std::string_view kNames[] = {
      "outside-card",          "no-name",         "no-colon",   "empty-parameter-name",
      "empty-parameter-value", "version-no-text", "behind-end",
  };
  return nameIn(kNames, reason);
}

std::string_view codeOf(WriteChangeKind kind) {
  static constexpr std::string_view kNames[] = {
      "group-cleaned",      "name-cleaned",      "parameter-name-cleaned", "parameter-cleaned",
      "parameter-left-out", "encoding-left-out", "value-stated",           "value-cleaned",
      "repeat-left-out",    "nameless-left-out", "frame-left-out",         "version-left-out",
  };
  return nameIn(kNames, kind);
}

std::string_view codeOf(ConversionKind kind) {
  static constexpr std::string_view kNames[] = {
      "renamed", "re-encoded", "parked", "restored", "dropped", "added", "broken",
  };
  return nameIn(kNames, kind);
}

} // namespace cardwright
