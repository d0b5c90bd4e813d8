#include "cardwright/vcard_parameter.h"

#include "base/case.h"
#include "cardwright/vcard_utils.h"
#include "model/known_names.h"

namespace cardwright {

std::shared_ptr<VCardParameter> VCardParameter::parameterWithName(TextView name,
                                                                  TextView rawValue) {
  auto parameter = std::make_shared<VCardParameter>();
  parameter->m_name = nameStorage(UpperCasedName(name).view());
  parameter->addValue(rawValue);
  return parameter;
}

TextList VCardParameter::values() const {
  TextList values;
  values.reserve(m_values.size());
  for (std::size_t i = 0; i < m_values.size(); ++i) {
    values.emplace_back(m_values[i].view());
  }
  return values;
}

std::optional<TextView> VCardParameter::firstValue() const noexcept {
  return m_values.empty() ? std::nullopt : m_values[0].optionalView();
}

void VCardParameter::addValue(TextView rawValue) {
  changed();
  if (rawValue.find(u'^') == TextView::npos) {
    m_values.push_back(detail::TextStorage(rawValue));
  } else {
    m_values.push_back(
        detail::TextStorage(TextView(VCardUtils::decodeParameterTextValue(rawValue))));
  }
}

void VCardParameter::addValues(const TextList& values) {
  changed();
  for (const Text& value : values) {
    m_values.push_back(detail::TextStorage(TextView(value)));
  }
}

} // namespace cardwright
