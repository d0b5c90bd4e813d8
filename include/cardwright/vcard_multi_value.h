#pragma once

#include "cardwright/vcard_value.h"

#include <vector>

namespace cardwright {

class Arena;

/// Values in order.
using VCardValueList = std::vector<std::shared_ptr<VCardValue>>;

/// A comma-separated list of values of one type, such as that of CATEGORIES.
class [[gnu::visibility("default")]] VCardMultiValue final : public VCardValue {
 public:
  VCardMultiValue() = default;

  /// Makes an empty list whose elements are made with this type name.
  [[nodiscard]] static std::shared_ptr<VCardMultiValue> valueWithType(
      std::optional<TextView> elementType);

  /// The element type name.
  [[nodiscard]] std::optional<TextView> type() const noexcept override;

  /// A copy of the list; absent until the first element was added.
  [[nodiscard]] std::optional<VCardValueList> values() const {
    return m_values;
  }
  /// Sets the list, or takes it away.
  void setValues(std::optional<VCardValueList> values) {
    changed();
    m_values = std::move(values);
  }

  /// Appends a VCardTextValue that holds the text.
  void addTextValue(std::optional<TextView> text);
  /// Appends each text in order.
  void addTextValues(const TextList& texts);

  /// Appends one element for each piece between unescaped commas; blanks at its ends are trimmed.
  /// An empty text gives one empty element. Always true; stops the process when the formatter is
  /// null.
  bool parse(TextView text, VersionCode version, DateFormatter * formatter) override;
  /// Writes the elements with "," between them.
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;

 private:
  friend struct StoredParts;
  friend std::shared_ptr<VCardValue> multiValueWithTypeIn(TextView type, Arena * arena);

  [[gnu::visibility("hidden")]] void appendElement(std::shared_ptr<VCardValue> element);

  detail::SharedText m_elementType;
  std::optional<VCardValueList> m_values;
};

} // namespace cardwright
