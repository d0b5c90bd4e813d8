#pragma once

#include "cardwright/vcard_property.h"
#include "cardwright/write_report.h"

#include <cstddef>

namespace cardwright {

/// Writes down what a writing call does, when somebody wants to know.
class WriteRecorder {
 public:
  explicit WriteRecorder(WriteReport* report) noexcept : m_report(report) {}

  void cardBegins() noexcept;
  void propertyFound() noexcept;
  /// Something of a property was changed.
  void changed(WriteChangeKind kind, const VCardProperty& property, TextView text);
  /// A property is not written.
  void dropped(WriteChangeKind kind, const VCardProperty& property, TextView text);

 private:
  WriteReport* m_report;
};

} // namespace cardwright
