#include "conformance/dumps/model_dump.h"

#include "conformance/dumps/value_dump.h"

namespace cardwright::conformance {
namespace {

[[nodiscard]] Json parametersToJson(const VCardProperty& property) {
  return listToJson(property.parameterDict().value_or(VCardParameterDict()),
                    [](const auto& entry) { return parameterToJson(entry.first, *entry.second); });
}

[[nodiscard]] Json propertyToJson(TextView key, const VCardProperty& property) {
  Json dump = objectToJson("key", key, "group", property.group(), "name", property.name(), "params",
                           parametersToJson(property));
  const std::shared_ptr<VCardValue> value = property.value();
  Json valueDump = value != nullptr ? valueToJson(*value)
                                    : objectToJson("class", Json(), "type", Json(), "qp", false,
                                                   "charset", Json(), "value", Json());
  for (const char* name : {"class", "type", "qp", "charset", "value"}) {
    addMembers(dump, name, std::move(valueDump.FindMember(name)->value));
  }
  return dump;
}

/// The only key of a card that holds nothing but the property.
[[nodiscard]] Text keyOf(const std::shared_ptr<VCardProperty>& property) {
  VCard card;
  card.addProperty(property);
  return card.propertyDict().begin()->first;
}

} // namespace

Json parameterToJson(const VCardParameter& parameter) {
  return objectToJson("name", parameter.name(), "values", parameter.values());
}

Json parameterToJson(TextView key, const VCardParameter& parameter) {
  return objectToJson("key", key, "name", parameter.name(), "values", parameter.values());
}

std::shared_ptr<VCardParameter> parameterFromJson(const Json& dump) {
  auto parameter = std::make_shared<VCardParameter>();
  parameter->setName(textFromJson(memberOf(dump, "name")));
  parameter->addValues(ArgumentReader<TextList>::read(memberOf(dump, "values")));
  return parameter;
}

Json propertyToJson(const std::shared_ptr<VCardProperty>& property) {
  return propertyToJson(keyOf(property), *property);
}

Json propertiesToJson(const VCardPropertyList& properties) {
  return listToJson(properties, [](const auto& property) { return propertyToJson(property); });
}

std::shared_ptr<VCardProperty> propertyFromJson(const Json& dump) {
  auto property =
      VCardProperty::propertyWithName(textFromJson(memberOf(dump, "name")), valueFromJson(dump));
  property->setGroup(ArgumentReader<std::optional<Text>>::read(memberOf(dump, "group")));
  for (const Json& parameter : checkedList(memberOf(dump, "params")).GetArray()) {
    property->addParameter(parameterFromJson(parameter));
  }
  return property;
}

Json cardToJson(const std::shared_ptr<VCard>& card) {
  if (card == nullptr) {
    return {};
  }
  Json properties(rapidjson::kArrayType);
  for (const auto& [key, list] : card->propertyDict()) {
    for (const auto& property : *list) {
      properties.PushBack(propertyToJson(key, *property), jsonAllocator());
    }
  }
  return objectToJson("properties", std::move(properties), "version", card->version(), "kind",
                      static_cast<int>(card->kind()), "uid", card->uid());
}

std::shared_ptr<VCard> cardFromJson(const Json& dump) {
  auto card = std::make_shared<VCard>();
  for (const Json& property : checkedList(memberOf(dump, "properties")).GetArray()) {
    card->addProperty(propertyFromJson(property));
  }
  return card;
}

Json instantToJson(std::optional<std::chrono::sys_seconds> instant) {
  return instant ? toJson(instant->time_since_epoch().count()) : Json();
}

} // namespace cardwright::conformance
