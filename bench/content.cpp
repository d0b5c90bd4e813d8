#include "content.h"

namespace cardwright {

namespace {

std::size_t lengthOf(const VCardProperty& property) {
  std::size_t length = property.name().size() + property.group().value_or(TextView()).size();
  if (const auto parameters = property.parameterDict()) {
    for (const auto& [name, parameter] : *parameters) {
      length += name.size();
      for (const Text& value : parameter->values()) {
        length += value.size();
      }
    }
  }
  if (property.value()) {
    length += property.textValue().value_or(TextView()).size();
  }
  return length;
}

} // namespace

Content contentOf(const VCardList& cards) {
  Content content;
  for (const auto& card : cards) {
    for (const auto& [name, properties] : card->propertyDict()) {
      content.properties += properties->size();
      for (const auto& property : *properties) {
        content.characters += lengthOf(*property);
      }
    }
  }
  return content;
}

} // namespace cardwright
