// Constants and support tables.

#include "cardwright/vocabulary.h"

#include "cardwright/utf8.h"
#include "conformance/operation_table.h"
#include "conformance/text_notation.h"
#include "vocabulary_constants.h"

#include <algorithm>

namespace cardwright::conformance {
namespace {

TextView constant(TextView name) {
  const std::string ascii = utf8FromText(name);
  const auto* const found =
      std::find_if(kVocabularyConstants.begin(), kVocabularyConstants.end(),
                   [&](const VocabularyConstant& candidate) { return candidate.name == ascii; });
  if (found == kVocabularyConstants.end()) {
    throw CaseError("no constant: " + ascii);
  }
  return found->text;
}

const OperationFamily kVocabulary([](OperationTable& table) {
  table.add("constant", constant);
  table.add("propertyIsSupportedForVersion", propertyIsSupportedForVersion);
  table.add("parameterIsSupportedForVersion", parameterIsSupportedForVersion);
  table.add("typeIsSupportedForVersion", typeIsSupportedForVersion);
  table.add("encodingIsSupportedForVersion", encodingIsSupportedForVersion);
  table.add("valueIsSupportedForVersion", valueIsSupportedForVersion);
});

} // namespace
} // namespace cardwright::conformance
