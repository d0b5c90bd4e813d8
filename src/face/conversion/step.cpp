#include "face/conversion/step.h"

#include "cardwright/date_formatter.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard_text_value.h"
#include "face/writing/safe_values.h"

namespace cardwright {

void ConversionRecorder::cardBegins(std::size_t properties) noexcept {
  if (m_report != nullptr) {
    ++m_report->cards;
    m_report->properties += properties;
  }
}

void ConversionRecorder::cardEnds(std::size_t properties) noexcept {
  if (m_report != nullptr) {
    m_report->converted += properties;
  }
}

void ConversionRecorder::changed(ConversionKind kind, const Draft& draft, TextView part,
                                 TextView target, TextView text) {
  if (m_report != nullptr) {
    m_report->changes.push_back({kind, m_report->cards - 1, utf8FromText(draft.origin),
                                 utf8FromText(part), utf8FromText(target), utf8FromText(text)});
  }
}

void ConversionRecorder::propertyAdded(const Draft& draft, TextView madeOf) {
  if (m_report != nullptr) {
    ++m_report->added;
    changed(ConversionKind::added, draft, {}, draft.name, madeOf);
  }
}

void ConversionRecorder::propertyGone(bool isMerged) noexcept {
  if (m_report != nullptr) {
    ++(isMerged ? m_report->merged : m_report->dropped);
  }
}

Text wholeText(const VCardValue& value) {
  if (const auto* text = dynamic_cast<const VCardTextValue*>(&value)) {
    return Text(text->text().value_or(TextView()));
  }
  DateFormatter formatter("en_US_POSIX");
  return safeValue(value, 4, {}, formatter).text;
}

std::shared_ptr<VCardValue> valueOfType(TextView type, TextView text) {
  auto value = VCardValue::valueWithType(type);
  if (auto* asText = dynamic_cast<VCardTextValue*>(value.get())) {
    asText->setText(text);
  } else {
    DateFormatter formatter("en_US_POSIX");
    value->parse(text, 4, &formatter);
  }
  return value;
}

std::string_view conversionKindText(ConversionKind kind) {
  switch (kind) {
  case ConversionKind::renamed:
    return "renamed";
  case ConversionKind::reencoded:
    return "re-encoded";
  case ConversionKind::parked:
    return "parked";
  case ConversionKind::restored:
    return "restored";
  case ConversionKind::dropped:
    return "dropped";
  case ConversionKind::added:
    return "added";
  case ConversionKind::broken:
    return "broken";
  }
  return "unknown";
}

} // namespace cardwright
