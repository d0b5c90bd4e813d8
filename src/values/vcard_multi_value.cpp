#include "cardwright/vcard_multi_value.h"

#include "base/fatal.h"
#include "base/whitespace.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vcard_x_value.h"
#include "values/text_codec.h"
#include "values/value_maker.h"

namespace cardwright {

std::shared_ptr<VCardMultiValue>
VCardMultiValue::valueWithType(std::optional<TextView> elementType) {
  auto value = std::make_shared<VCardMultiValue>();
  value->m_elementType.assign(elementType);
  return value;
}

std::shared_ptr<VCardValue> multiValueWithTypeIn(TextView type, Arena* arena) {
  auto value = makeIn<VCardMultiValue>(arena);
  value->m_elementType.assign(type);
  return value;
}

std::optional<TextView> VCardMultiValue::type() const noexcept {
  return m_elementType.optionalView();
}

void VCardMultiValue::appendElement(std::shared_ptr<VCardValue> element) {
  changed();
  if (!m_values) {
    m_values.emplace();
  }
  m_values->push_back(std::move(element));
}

void VCardMultiValue::addTextValue(std::optional<TextView> text) {
  appendElement(VCardTextValue::valueWithText(text));
}

void VCardMultiValue::addTextValues(const TextList& texts) {
  for (const Text& text : texts) {
    addTextValue(text);
  }
}

bool VCardMultiValue::parse(TextView text, VersionCode version, DateFormatter* formatter) {
  changed();
  if (formatter == nullptr) {
    fatalError("Formatter is nil");
  }
  const std::optional<TextView> elementType = type();
  if (!elementType) {
    return true;
  }
  const ValueMaker maker = valueMakerFor(*elementType);
  Arena* const arena = isTextLent() ? Arena::of(*this) : nullptr;
  forEachListPiece(text, [&](TextView piece) {
    std::shared_ptr<VCardValue> element;
    if (maker != nullptr) {
      element = maker(*elementType, arena);
    } else {
      // Names of types and charsets can be as long as the list: its elements share them.
      auto extension = makeIn<VCardXValue>(arena);
      extension->m_type = m_elementType;
      element = std::move(extension);
    }
    element->m_charset = m_charset;
    element->setQuotedPrintable(quotedPrintable());
    if (arena != nullptr) {
      ValueReading::parseLent(*element, trimWhitespace(piece), version, formatter);
    } else {
      element->parse(trimWhitespace(piece), version, formatter);
    }
    appendElement(std::move(element));
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
