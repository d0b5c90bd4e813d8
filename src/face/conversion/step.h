#pragma once

#include "cardwright/conversion_report.h"
#include "face/conversion/draft.h"
#include "face/conversion/table.h"

namespace cardwright {

/// Writes down what a converting call does, when somebody wants to know.
class ConversionRecorder {
 public:
  explicit ConversionRecorder(ConversionReport* report) noexcept : m_report(report) {}

  void cardBegins(std::size_t properties) noexcept;
  void cardEnds(std::size_t properties) noexcept;
  void changed(ConversionKind kind, const Draft& draft, TextView part, TextView target,
               TextView text);
  void propertyAdded(const Draft& draft, TextView madeOf);
  /// A property became part of another one, or is not there any longer.
  void propertyGone(bool isMerged) noexcept;

 private:
  ConversionReport* m_report;
};

/// One step between neighbouring versions.
struct ConversionStep {
  const ConversionTable& table;
  const ConversionTable& back;
  ConversionRecorder& recorder;

  [[nodiscard]] bool isUp() const noexcept { return table.to > table.from; }
};

/// The value as one text that fromText() reads again: that of a text itself, the written form of
/// any other.
[[nodiscard]] Text wholeText(const VCardValue& value);
/// A value of a type that reads the text.
[[nodiscard]] std::shared_ptr<VCardValue> valueOfType(TextView type, TextView text);

} // namespace cardwright
