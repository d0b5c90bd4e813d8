// The cleaner as a whole, and its steps.

#include "cardwright/vcard_cleaner.h"
#include "conformance/operation_table.h"

namespace cardwright::conformance {
namespace {

Json cleaned(TextView text) {
  VCardCleaner cleaner;
  const Text result = cleaner.cleanWithVCardString(text);
  return objectToJson("text", TextView(result), "didClean", cleaner.lastDidClean(), "summaries",
                      cleaner.lastCleaningSummaries());
}

const OperationFamily kCleaner([](OperationTable& table) {
  table.add("VCardCleaner::cleanWithVCardString", cleaned);
  table.add("VCardCleaner::unfoldLines", VCardCleaner::unfoldLines);
  table.add("VCardCleaner::mergeQuotedPrintableSoftBreaks",
            VCardCleaner::mergeQuotedPrintableSoftBreaks);
  table.add("VCardCleaner::foldLine75", VCardCleaner::foldLine75);
  table.add("VCardCleaner::segmentMergedLineIfSafe", VCardCleaner::segmentMergedLineIfSafe);
  table.add("VCardCleaner::postProcessSegmentsAfterSplit",
            VCardCleaner::postProcessSegmentsAfterSplit);
  table.add("VCardCleaner::containsSingularPropertyIn", VCardCleaner::containsSingularPropertyIn);
  table.add("VCardCleaner::deduplicateSingularProperties",
            VCardCleaner::deduplicateSingularProperties);
  table.add("VCardCleaner::deduplicateSingularPropertiesWithinCard",
            VCardCleaner::deduplicateSingularPropertiesWithinCard);
  table.add("VCardCleaner::deduplicateMemberDuplicatesWithinCard",
            VCardCleaner::deduplicateMemberDuplicatesWithinCard);
  table.add("VCardCleaner::splitMemberNumericEntitiesWithHeader",
            VCardCleaner::splitMemberNumericEntitiesWithHeader);
  table.add("VCardCleaner::decodeNoteNumericEntitiesToEscapes",
            VCardCleaner::decodeNoteNumericEntitiesToEscapes);
  table.add("VCardCleaner::trimTrailingNoteSeparators", VCardCleaner::trimTrailingNoteSeparators);
  table.add("VCardCleaner::trimDanglingExtendedFragmentsInValue",
            VCardCleaner::trimDanglingExtendedFragmentsInValue);
  table.add("VCardCleaner::asciiUppercased", VCardCleaner::asciiUppercased);
  table.add("VCardCleaner::asciiLowercased", VCardCleaner::asciiLowercased);
});

} // namespace
} // namespace cardwright::conformance
