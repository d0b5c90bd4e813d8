#include "cardwright/vcard_text_value.h"

#include "cardwright/vcard_uri_value.h"
#include "cardwright/vcard_utils.h"
#include "cardwright/vcard_x_value.h"
#include "cardwright/vocabulary.h"

namespace cardwright {

namespace {

template <typename Value>
std::shared_ptr<Value> makeWithText(std::optional<TextView> text) {
  auto value = std::make_shared<Value>();
  value->setText(text);
  return value;
}

} // namespace

std::shared_ptr<VCardTextValue> VCardTextValue::valueWithText(std::optional<TextView> text) {
  return makeWithText<VCardTextValue>(text);
}

std::shared_ptr<VCardURIValue> VCardURIValue::valueWithText(std::optional<TextView> text) {
  return makeWithText<VCardURIValue>(text);
}

std::shared_ptr<VCardXValue> VCardXValue::valueWithText(std::optional<TextView> text) {
  return makeWithText<VCardXValue>(text);
}

std::shared_ptr<VCardXValue> VCardXValue::valueWithType(std::optional<TextView> type) {
  auto value = std::make_shared<VCardXValue>();
  value->setType(type);
  return value;
}

std::optional<TextView> VCardTextValue::type() const noexcept {
  return cVCardValue_TEXT;
}

std::optional<TextView> VCardURIValue::type() const noexcept {
  return cVCardValue_URI;
}

std::optional<TextView> VCardXValue::type() const noexcept {
  return m_type.optionalView();
}

bool VCardTextValue::parse(TextView text, VersionCode /*version*/, DateFormatter* /*formatter*/) {
  changed();
  if (!quotedPrintable() && !charset() && text.find(u'\\') == TextView::npos) {
    m_text = isTextLent() ? detail::TextStorage::lend(text) : detail::TextStorage(text);
  } else {
    m_text = detail::TextStorage(
        std::optional<TextView>(VCardUtils::decodeTextValue(text, quotedPrintable(), charset())));
  }
  return true;
}

void VCardTextValue::generate(Text& output, VersionCode version,
                              DateFormatter* /*formatter*/) const {
  VCardUtils::writeTextValue(text(), output, version == 3);
}

} // namespace cardwright
