#include "values/components.h"

#include "cardwright/vcard_utils.h"

namespace cardwright {

TextView ComponentWalker::next() noexcept {
  std::size_t end = 0;
  while (end < m_rest.size() && m_rest[end] != u';') {
    end += m_rest[end] == u'\\' ? 2 : 1;
  }
  const TextView component = m_rest.substr(0, end);
  m_atEnd = end >= m_rest.size();
  m_rest.remove_prefix(m_atEnd ? m_rest.size() : end + 1);
  return component;
}

void readSlots(std::span<std::optional<TextList>> slots, TextView text, const VCardValue& value) {
  ComponentWalker walker(text);
  for (std::optional<TextList>& slot : slots) {
    if (walker.atEnd()) {
      return;
    }
    const TextView component = walker.next();
    if (!component.empty()) {
      slot = VCardUtils::decodeTextMultiValue(component, value.quotedPrintable(), value.charset());
    }
  }
}

void writeSlots(Text& output, std::span<const std::optional<TextList>> slots) {
  bool isFirst = true;
  for (const std::optional<TextList>& slot : slots) {
    if (!isFirst) {
      output.push_back(u';');
    }
    isFirst = false;
    if (slot) {
      writeJoined(output, *slot, u',');
    }
  }
}

void writeJoined(Text& output, const TextList& texts, char16_t separator) {
  bool isFirst = true;
  for (const Text& text : texts) {
    if (!isFirst) {
      output.push_back(separator);
    }
    isFirst = false;
    VCardUtils::writeTextValue(text, output, true);
  }
}

} // namespace cardwright
