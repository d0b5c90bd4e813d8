// Writing.

#include "conformance/dumps/model_dump.h"
#include "conformance/operation_table.h"
#include "conformance/operations/formatter.h"
#include "writer/folding.h"

namespace cardwright::conformance {
namespace {

Text generatedCard(const VCard& card, VersionCode version) {
  return generatedText(card, version);
}

TextList sortedProperties(const VCard& card) {
  return card.propertiesInSortOrder();
}

Text generatedProperty(const VCardProperty& property, VersionCode version) {
  return generatedText(property, version);
}

Text generatedParameter(const VCardParameter& parameter, VersionCode version) {
  return generatedText(parameter, version);
}

Json withValueParameter(const std::shared_ptr<VCardProperty>& property, VersionCode version) {
  property->addValueParameterIfNecessaryForVersion(version);
  return propertyToJson(property);
}

Text foldedLine(TextView line) {
  Text output;
  appendFolded(output, line);
  return output;
}

TextList readAndWritten(TextView text, VersionCode version) {
  TextList texts;
  for (const auto& card : VCard::vCardsFromString(text).value_or(VCardList())) {
    texts.push_back(generatedText(*card, version));
  }
  return texts;
}

const OperationFamily kWriter([](OperationTable& table) {
  table.add("VCard::generate", generatedCard);
  table.add("VCard::propertiesInSortOrder", sortedProperties);
  table.add("VCardProperty::generate", generatedProperty);
  table.add("VCardProperty::addValueParameterIfNecessaryForVersion", withValueParameter);
  table.add("VCardParameter::generate", generatedParameter);
  table.add("content line/fold", foldedLine);
  table.add("card text/read and write", readAndWritten);
});

} // namespace
} // namespace cardwright::conformance
