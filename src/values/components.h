#pragma once

#include "cardwright/text.h"
#include "cardwright/vcard_value.h"

#include <optional>
#include <span>

namespace cardwright {

/// Walks the components of a structured value: what stands between semicolons that no backslash
/// escapes. There is always at least one.
class ComponentWalker {
 public:
  explicit ComponentWalker(TextView text) noexcept : m_rest(text) {}

  [[nodiscard]] bool atEnd() const noexcept { return m_atEnd; }
  /// The next component, still escaped.
  TextView next() noexcept;

 private:
  TextView m_rest;
  bool m_atEnd = false;
};

/// Reads the components of `text` into the slots, each as a comma-separated list. A slot of an
/// empty component stays as it is; components beyond the slots are ignored.
void readSlots(std::span<std::optional<TextList>> slots, TextView text, const VCardValue& value);

/// Writes all slots with ";" between them, the texts of each with ",".
void writeSlots(Text& output, std::span<const std::optional<TextList>> slots);

/// Writes the texts escaped, with a separator between them.
void writeJoined(Text& output, const TextList& texts, char16_t separator);

} // namespace cardwright
