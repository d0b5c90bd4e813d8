#pragma once

#include "cardwright/detail/text_sequence.h"
#include "cardwright/detail/text_storage.h"
#include "cardwright/vcard_object.h"

#include <memory>
#include <optional>
#include <vector>

namespace cardwright {

/// A parameter of a content line: a name and its values in the order in which they came
/// (RFC 6350, section 5).
class [[gnu::visibility("default")]] VCardParameter final : public VCardObject {
 public:
  VCardParameter() = default;

  /// Makes a parameter with the upper-cased name and one value, decoded from its raw form by
  /// VCardUtils::decodeParameterTextValue.
  [[nodiscard]] static std::shared_ptr<VCardParameter> parameterWithName(TextView name,
                                                                         TextView rawValue);

  /// Upper-cased when it was read from text; otherwise as it was given.
  [[nodiscard]] TextView name() const noexcept {
    return m_name.view();
  }
  /// Stores the name as it is given, without upper-casing it.
  void setName(TextView name) {
    changed();
    m_name.assign(name);
  }

  /// A copy of the values.
  [[nodiscard]] TextList values() const;
  /// The first value; absent when there is none.
  [[nodiscard]] std::optional<TextView> firstValue() const noexcept;

  /// Appends a value in raw form, decoding it.
  void addValue(TextView rawValue);
  /// Appends texts as they are: they count as decoded already.
  void addValues(const TextList& values);

  /// Appends the parameter's items for one content line, without a leading ";": each value as an
  /// item of its own, in double quotes when it holds ":", ";" or ",".
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;

 private:
  friend class VCardProperty;
  friend class ContentLineParser;
  friend struct StoredParts;

  detail::TextStorage m_name;
  detail::TextSequence m_values;
};

} // namespace cardwright
