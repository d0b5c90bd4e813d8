#pragma once

#include "cardwright/check.h"
#include "cardwright/cleaning_repair.h"
#include "cardwright/read_report.h"

#include <cstdint>
#include <span>

namespace cardwright {

/// Everything that is looked for, in the order of its table.
enum class Check : std::uint8_t {
  droppedBytes,
  // In the order of CleaningRepairKind.
  separators,
  softBreak,
  memberEntities,
  gluedNote,
  noteEntities,
  mergedProperties,
  tornFragment,
  repeatedProperty,
  // In the order of DropReason.
  outsideCard,
  noName,
  noColon,
  emptyParameterName,
  emptyParameterValue,
  versionNoText,
  behindEnd,
  nestedCard,
  noEnd,
  otherProperty,
  unknownProperty,
  otherParameter,
  unknownParameter,
  otherType,
  otherEncoding,
  unknownEncoding,
  otherValue,
  missingVersion,
  missingFn,
  missingN,
  tooMany,
  badDate,
  badOffset,
  badPosition,
  badBase64,
  badQuotedPrintable,
  lostMember,
  equalUid,
};

struct CheckRow { // NOLINT(clang-analyzer-optin.performance.Padding): in reading order
  Check check;
  std::string_view code;
  Severity severity;
  std::string_view text;
  /// Lines of a card that show it, "\n" between them, for the page; with BEGIN and END of their own
  /// where they begin with "BEGIN".
  std::string_view example;
};

[[nodiscard]] std::span<const CheckRow> checkTable();
[[nodiscard]] const CheckRow& rowOf(Check check);

[[nodiscard]] Check checkOf(CleaningRepairKind kind);
[[nodiscard]] Check checkOf(DropReason reason);

} // namespace cardwright
