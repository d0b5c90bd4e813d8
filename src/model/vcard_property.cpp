#include "cardwright/vcard_property.h"

#include "base/case.h"
#include "base/numbers.h"
#include "cardwright/vcard_date_time_value.h"
#include "cardwright/vcard_text_value.h"
#include "cardwright/vocabulary.h"
#include "model/known_names.h"
#include "model/stated_version.h"

#include <array>
#include <cmath>
#include <stdexcept>
#include <string>

namespace cardwright {

std::shared_ptr<VCardProperty> VCardProperty::propertyWithName(TextView name,
                                                               std::shared_ptr<VCardValue> value) {
  auto property = std::make_shared<VCardProperty>();
  property->m_name = nameStorage(name);
  property->m_value = std::move(value);
  return property;
}

std::shared_ptr<VCardProperty> VCardProperty::propertyWithName(TextView name,
                                                               std::optional<TextView> textValue) {
  return propertyWithName(name,
                          std::shared_ptr<VCardValue>(VCardTextValue::valueWithText(textValue)));
}

std::shared_ptr<VCardProperty> VCardProperty::propertyForVersion(VersionCode version) {
  constexpr VersionCode kFirst = 2;
  static constexpr std::array<TextView, 3> kTexts = {u"2.1", u"3.0", u"4.0"};
  if (version < kFirst || version > 4) {
    throw std::invalid_argument("vCard: invalid version: " + std::to_string(version));
  }
  return propertyWithName(cVCardProperty_VERSION,
                          kTexts[static_cast<std::size_t>(version - kFirst)]);
}

std::optional<VCardParameterDict> VCardProperty::parameterDict() const {
  if (!m_hasParameters) {
    return std::nullopt;
  }
  VCardParameterDict dict;
  for (const auto& [key, parameter] : m_parameters.entries()) {
    dict.emplace(key.view(), parameter);
  }
  return dict;
}

void VCardProperty::setParameterDict(const std::optional<VCardParameterDict>& dict) {
  changed();
  m_parameters = {};
  m_hasParameters = dict.has_value();
  if (dict) {
    for (const auto& [key, parameter] : *dict) {
      m_parameters.add(nameStorage(key), parameter);
    }
  }
}

void VCardProperty::addParameter(const std::shared_ptr<VCardParameter>& parameter) {
  if (parameter == nullptr) {
    return;
  }
  changed();
  m_hasParameters = true;
  const UpperCasedName key(parameter->name());
  std::shared_ptr<VCardParameter>* stored = m_parameters.find(key.view());
  if (stored == nullptr) {
    m_parameters.add(nameStorage(key.view()), parameter);
    return;
  }
  if (*stored == nullptr) {
    *stored = parameter;
    return;
  }
  (*stored)->changed();
  auto& values = (*stored)->m_values;
  // By index: a parameter may be added to itself.
  const std::size_t count = parameter->m_values.size();
  for (std::size_t i = 0; i < count; ++i) {
    values.push_back(detail::TextStorage(parameter->m_values[i]));
  }
}

void VCardProperty::takeParameter(std::shared_ptr<VCardParameter> parameter) {
  m_hasParameters = true;
  // Upper-cased names are their own keys.
  std::shared_ptr<VCardParameter>* stored = m_parameters.find(parameter->name());
  if (stored == nullptr) {
    detail::TextStorage key = parameter->m_name;
    m_parameters.add(std::move(key), std::move(parameter));
  } else {
    (*stored)->m_values.take(std::move(parameter->m_values));
  }
}

std::shared_ptr<VCardParameter> VCardProperty::parameterWithName(TextView name) const {
  const std::shared_ptr<VCardParameter>* found = m_parameters.find(UpperCasedName(name).view());
  return found != nullptr ? *found : nullptr;
}

void VCardProperty::removeParameterWithName(TextView name) {
  changed();
  m_parameters.remove(UpperCasedName(name).view());
}

std::optional<TextView> VCardProperty::valueOfParameterWithName(TextView name) const {
  return m_parameters.empty() ? std::nullopt : valueOfParameterWithKey(UpperCasedName(name).view());
}

std::optional<TextView> VCardProperty::valueOfParameterWithKey(TextView key) const {
  const std::shared_ptr<VCardParameter>* found = m_parameters.find(key);
  return found != nullptr && *found != nullptr ? (*found)->firstValue() : std::nullopt;
}

VCardParameterList VCardProperty::xParameters() const {
  VCardParameterList list;
  for (const auto& [key, parameter] : m_parameters.entries()) {
    if (parameter != nullptr && key.view().starts_with(u"X-")) {
      list.push_back(parameter);
    }
  }
  return list;
}

std::optional<TextView> VCardProperty::textValue() const noexcept {
  const auto* text = dynamic_cast<const VCardTextValue*>(m_value.get());
  return text != nullptr ? text->text() : std::nullopt;
}

std::optional<std::chrono::sys_seconds> VCardProperty::dateValue() const {
  const auto* date = dynamic_cast<const VCardDateTimeValue*>(m_value.get());
  if (date == nullptr) {
    return std::nullopt;
  }
  return dateFromComponents(date->comps());
}

std::uint64_t VCardProperty::versionValue() const {
  if (!equalIgnoringCase(name(), cVCardProperty_VERSION)) {
    return 0;
  }
  return versionStatedBy(textValue().value_or(TextView()));
}

std::uint64_t versionStatedBy(TextView text) {
  const double number = std::trunc(leadingNumber(text));
  constexpr double kTwoTo64 = 18446744073709551616.0;
  return number >= 0 && number < kTwoTo64 ? static_cast<std::uint64_t>(number) : 0;
}

} // namespace cardwright
