#pragma once

#include "cardwright/vcard_property.h"
#include "cardwright/write_report.h"

#include <cstddef>
#include <optional>

namespace cardwright {

/// What a report calls a property.
struct PropertyName {
  std::optional<TextView> group;
  TextView name;

  PropertyName(std::optional<TextView> ofGroup, TextView ofProperty) noexcept
      : group(ofGroup), name(ofProperty) {}
  PropertyName(const VCardProperty& property) // NOLINT: stands for its name
      : group(property.group()), name(property.name()) {}
};

/// Writes down what a writing call does, when somebody wants to know.
class WriteRecorder {
 public:
  explicit WriteRecorder(WriteReport* report) noexcept : m_report(report) {}

  void cardBegins() noexcept;
  void propertyFound() noexcept;
  /// Something of a property was changed.
  void changed(WriteChangeKind kind, const PropertyName& property, TextView text);
  /// A property is not written.
  void dropped(WriteChangeKind kind, const PropertyName& property, TextView text);

 private:
  WriteReport* m_report;
};

} // namespace cardwright
