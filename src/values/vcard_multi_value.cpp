#include "cardwright/vcard_multi_value.h"

#include "base/fatal.h"
#include "base/whitespace.h"
#include "cardwright/vcard_text_value.h"
#include "values/text_codec.h"

namespace cardwright {

std::shared_ptr<VCardMultiValue>
VCardMultiValue::valueWithType(std::optional<TextView> elementType) {
  auto value = std::make_shared<VCardMultiValue>();
  value->m_elementType.assign(elementType);
  return value;
}

std::optional<TextView> VCardMultiValue::type() const noexcept {
  return m_elementType.optionalView();
}

void VCardMultiValue::addTextValue(std::optional<TextView> text) {
  if (!m_values) {
    m_values.emplace();
  }
  m_values->push_back(VCardTextValue::valueWithText(text));
}

void VCardMultiValue::addTextValues(const TextList& texts) {
  for (const Text& text : texts) {
    addTextValue(text);
  }
}

bool VCardMultiValue::parse(TextView text, VersionCode version, DateFormatter* formatter) {
  if (formatter == nullptr) {
    fatalError("Formatter is nil");
  }
  const std::optional<TextView> elementType = type();
  if (!elementType) {
    return true;
  }
  if (!m_values) {
    m_values.emplace();
  }
  forEachListPiece(text, [&](TextView piece) {
    const std::shared_ptr<VCardValue> element = VCardValue::valueWithType(elementType);
    element->setQuotedPrintable(quotedPrintable());
    element->setCharset(charset());
    element->parse(trimWhitespace(piece), version, formatter);
    m_values->push_back(element);
  });
  return true;
}

void VCardMultiValue::generate(Text& output, VersionCode version, DateFormatter* formatter) const {
  if (!m_values) {
    return;
  }
  for (const std::shared_ptr<VCardValue>& element : *m_values) {
    // A repeat of the first object itself gets no comma before it.
    if (element != m_values->front()) {
      output.push_back(u',');
    }
    if (element != nullptr) {
      element->generate(output, version, formatter);
    }
  }
}

} // namespace cardwright
