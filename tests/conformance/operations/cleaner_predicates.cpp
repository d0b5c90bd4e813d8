// What the cleaner asks about single lines.

#include "cardwright/vcard_cleaner.h"
#include "conformance/operation_table.h"

namespace cardwright::conformance {
namespace {

const OperationFamily kCleanerPredicates([](OperationTable& table) {
  table.add("VCardCleaner::firstUnquotedColonIndex", VCardCleaner::firstUnquotedColonIndex);
  table.add("VCardCleaner::propertyNameUpper", VCardCleaner::propertyNameUpper);
  table.add("VCardCleaner::fastContains", VCardCleaner::fastContains);
  table.add("VCardCleaner::countColonsIn", VCardCleaner::countColonsIn);
  table.add("VCardCleaner::trimTrailingWhitespace", VCardCleaner::trimTrailingWhitespace);
  table.add("VCardCleaner::isAllowlistedProperty", VCardCleaner::isAllowlistedProperty);
  table.add("VCardCleaner::startsWithAllowedHeader", VCardCleaner::startsWithAllowedHeader);
  table.add("VCardCleaner::startsWithAnyHeader", VCardCleaner::startsWithAnyHeader);
  table.add("VCardCleaner::lineUsesQuotedPrintable", VCardCleaner::lineUsesQuotedPrintable);
  table.add("VCardCleaner::lineHasQuotedPrintableSoftBreak",
            VCardCleaner::lineHasQuotedPrintableSoftBreak);
  table.add("VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom",
            VCardCleaner::removeQuotedPrintableSoftBreakSuffixFrom);
  table.add("VCardCleaner::lineLooksLikeStandaloneUriContinuation",
            VCardCleaner::lineLooksLikeStandaloneUriContinuation);
  table.add("VCardCleaner::isPlausiblePropertyHeader", VCardCleaner::isPlausiblePropertyHeader);
});

} // namespace
} // namespace cardwright::conformance
