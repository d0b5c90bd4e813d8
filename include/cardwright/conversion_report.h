#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace cardwright {

/// What became of something that the other version does not have, or has in another form. The
/// numbers are stable.
enum class ConversionKind {
  renamed = 1,   ///< under another name
  reencoded = 2, ///< in the form of the version
  parked = 3,    ///< under "X-" and its name, from where converting back returns it
  restored = 4,  ///< from where an earlier conversion had parked it
  dropped = 5,   ///< left out
  added = 6,     ///< made of what the card holds, because the version asks for it
  broken = 7,    ///< damaged, and so left in the form in which it is
};

/// A short English word for a kind, such as "renamed"; "unknown" for a number without one. May
/// be called from any thread.
[[nodiscard]] [[gnu::visibility("default")]] std::string_view
conversionKindText(ConversionKind kind);

/// One conversion.
struct ConversionChange {
  ConversionKind kind{}; ///< what became of it
  std::size_t card = 0;  ///< counted from 0, in the list that was converted
  std::string property;  ///< its name before, behind its group and "."; UTF-8
  std::string part;      ///< the parameter or type; empty for the property itself
  std::string target;    ///< what it is now; empty for nothing
  std::string text;      ///< what it was
};

/// What one converting call did.
struct ConversionReport {
  std::size_t cards = 0; ///< how many were converted
  // Properties: those before and those added are those after, merged and dropped.
  std::size_t properties = 0;            ///< before
  std::size_t added = 0;                 ///< made anew
  std::size_t converted = 0;             ///< after
  std::size_t merged = 0;                ///< that are part of another one now
  std::size_t dropped = 0;               ///< left out
  std::vector<ConversionChange> changes; ///< each change, in the order of the cards
};

} // namespace cardwright
