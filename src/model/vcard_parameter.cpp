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
  for (const detail::TextStorage& value : m_values) {
    values.emplace_back(value.view());
  }
  return values;
}

std::optional<TextView> VCardParameter::firstValue() const noexcept {
  return m_values.empty() ? std::nullopt : m_values.front().optionalView();
}

void VCardParameter::addValue(TextView rawValue) {
  if (rawValue.find(u'^') == TextView::npos) {
    m_values.emplace_back(rawValue);
  } else {
    m_values.emplace_back(TextView(VCardUtils::decodeParameterTextValue(rawValue)));
  }
}

void VCardParameter::addValues(const TextList& values) {
  m_values.reserve(m_values.size() + values.size());
  for (const Text& value : values) {
    m_values.emplace_back(TextView(value));
  }
}

} // namespace cardwright
