// Properties and parameters.

#include "cardwright/vcard_property.h"
#include "conformance/dumps/model_dump.h"
#include "conformance/operation_table.h"
#include "conformance/operations/formatter.h"

#include <algorithm>
#include <vector>

namespace cardwright::conformance {
namespace {

using PropertyPointer = std::shared_ptr<VCardProperty>;

// Making

Json propertyWithName(TextView name, std::optional<TextView> text) {
  return propertyToJson(VCardProperty::propertyWithName(name, text));
}

Json propertyForVersion(VersionCode version) {
  return propertyToJson(VCardProperty::propertyForVersion(version));
}

Json parsedProperty(TextView line, VersionCode version) {
  const auto property = std::make_shared<VCardProperty>();
  DateFormatter formatter = newFormatter();
  const bool ok = property->parse(line, version, &formatter);
  return objectToJson("ok", ok, "property", ok ? propertyToJson(property) : Json());
}

// Asking

TextView defaultType(TextView name, VersionCode version) {
  VCardProperty property;
  property.setName(name);
  return property.defaultTypeForVersion(version);
}

bool isMultiValue(const VCardProperty& property) {
  return property.isMultiValueProperty();
}

Json textValue(const VCardProperty& property) {
  return toJson(property.textValue());
}

Json dateValue(const VCardProperty& property) {
  return instantToJson(property.dateValue());
}

std::uint64_t versionValue(const VCardProperty& property) {
  return property.versionValue();
}

// Parameters

Json withParameters(const PropertyPointer& property,
                    const std::vector<std::pair<Text, Text>>& namesAndValues) {
  for (const auto& [name, value] : namesAndValues) {
    property->addParameter(VCardParameter::parameterWithName(name, value));
  }
  return propertyToJson(property);
}

Json withoutParameter(const PropertyPointer& property, TextView name) {
  property->removeParameterWithName(name);
  return propertyToJson(property);
}

Json parameterOfProperty(const VCardProperty& property, TextView name) {
  const std::shared_ptr<VCardParameter> parameter = property.parameterWithName(name);
  return parameter == nullptr ? Json() : parameterToJson(*parameter);
}

Json valueOfParameter(const VCardProperty& property, TextView name) {
  return toJson(property.valueOfParameterWithName(name));
}

Json extensionParameters(const VCardProperty& property) {
  const VCardParameterList parameters = property.xParameters();
  // The list is in no order; its members are told from one another by identity.
  Json dumps(rapidjson::kArrayType);
  std::size_t found = 0;
  for (const auto& [key, parameter] : property.parameterDict().value_or(VCardParameterDict())) {
    const auto count = std::count(parameters.begin(), parameters.end(), parameter);
    for (auto i = count; i > 0; --i) {
      dumps.PushBack(parameterToJson(key, *parameter), jsonAllocator());
      ++found;
    }
  }
  return found == parameters.size() ? std::move(dumps) : Json("parameters of no key");
}

TextList sortedParameters(const VCardProperty& property) {
  return property.parametersInSortOrder();
}

Json newParameter(TextView name, TextView rawValue, const TextList& rawValues,
                  const TextList& texts) {
  const std::shared_ptr<VCardParameter> parameter =
      VCardParameter::parameterWithName(name, rawValue);
  for (const Text& value : rawValues) {
    parameter->addValue(value);
  }
  parameter->addValues(texts);
  return parameterToJson(*parameter);
}

const OperationFamily kProperties([](OperationTable& table) {
  table.add("VCardProperty::propertyWithName", propertyWithName);
  table.add("VCardProperty::propertyForVersion", propertyForVersion);
  table.add("VCardProperty::parse", parsedProperty);
  table.add("VCardProperty::defaultTypeForVersion", defaultType);
  table.add("VCardProperty::isMultiValueProperty", isMultiValue);
  table.add("VCardProperty::textValue", textValue);
  table.add("VCardProperty::dateValue", dateValue);
  table.add("VCardProperty::versionValue", versionValue);
  table.add("VCardProperty::addParameter", withParameters);
  table.add("VCardProperty::removeParameterWithName", withoutParameter);
  table.add("VCardProperty::parameterWithName", parameterOfProperty);
  table.add("VCardProperty::valueOfParameterWithName", valueOfParameter);
  table.add("VCardProperty::xParameters", extensionParameters);
  table.add("VCardProperty::parametersInSortOrder", sortedParameters);
  table.add("VCardParameter::parameterWithName", newParameter);
});

} // namespace
} // namespace cardwright::conformance
