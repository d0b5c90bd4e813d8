#pragma once

#include "cardwright/detail/keyed_list.h"
#include "cardwright/detail/text_storage.h"
#include "cardwright/vcard_object.h"
#include "cardwright/vcard_parameter.h"
#include "cardwright/vcard_value.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>

namespace cardwright {

/// Parameters by upper-cased name.
using VCardParameterDict = std::map<Text, std::shared_ptr<VCardParameter>, std::less<>>;
/// Parameters in order.
using VCardParameterList = std::vector<std::shared_ptr<VCardParameter>>;

/// One content line of a card: an optional group, a name, parameters and a value
/// (RFC 6350, section 3.3).
class [[gnu::visibility("default")]] VCardProperty final : public VCardObject {
 public:
  VCardProperty() = default;

  /// Builds the registry of default value types. It is made by the compiler; calling this is
  /// never necessary.
  static void initialize();

  /// Makes a property with exactly this name and value, without group and parameters.
  [[nodiscard]] static std::shared_ptr<VCardProperty> propertyWithName(
      TextView name, std::shared_ptr<VCardValue> value);
  /// The same for a text, which is wrapped in a VCardTextValue.
  [[nodiscard]] static std::shared_ptr<VCardProperty> propertyWithName(
      TextView name, std::optional<TextView> textValue);

  /// Makes a VERSION property for version code 2, 3 or 4.
  /// @throws std::invalid_argument "vCard: invalid version: N" for any other code
  [[nodiscard]] static std::shared_ptr<VCardProperty> propertyForVersion(VersionCode version);

  /// The part of the name before ".", in the case in which it was read; absent without one. An
  /// empty group is a group.
  [[nodiscard]] std::optional<TextView> group() const noexcept {
    return m_group.optionalView();
  }
  /// Sets the group, or takes it away.
  void setGroup(std::optional<TextView> group) {
    changed();
    m_group.assign(group);
  }

  /// Upper-cased when it was read from text; otherwise as it was given.
  [[nodiscard]] TextView name() const noexcept {
    return m_name.view();
  }
  /// Stores the name as it is given, without upper-casing it.
  void setName(TextView name) {
    changed();
    m_name.assign(name);
  }

  /// Null when there is none.
  [[nodiscard]] std::shared_ptr<VCardValue> value() const noexcept {
    return m_value;
  }
  /// Shares the value with the caller; null takes it away.
  void setValue(std::shared_ptr<VCardValue> value) noexcept {
    changed();
    m_value = std::move(value);
  }

  /// A copy of the dictionary; absent when no parameter was ever added.
  [[nodiscard]] std::optional<VCardParameterDict> parameterDict() const;
  /// Takes the dictionary as it is, whatever its keys are.
  void setParameterDict(const std::optional<VCardParameterDict>& dict);

  /// Stores the parameter under its upper-cased name. When one is there already, the values of
  /// the new one are appended to it and the new object is let go. Null is ignored.
  void addParameter(const std::shared_ptr<VCardParameter>& parameter);
  /// The parameter stored under the upper-cased name, or null.
  [[nodiscard]] std::shared_ptr<VCardParameter> parameterWithName(TextView name) const;
  /// Removes the parameter stored under the upper-cased name, if there is one.
  void removeParameterWithName(TextView name);
  /// The first value of that parameter; absent when there is none.
  [[nodiscard]] std::optional<TextView> valueOfParameterWithName(TextView name) const;
  /// The parameters whose key begins with "X-", in no particular order.
  [[nodiscard]] VCardParameterList xParameters() const;

  /// Whether the name, compared exactly, is one of a comma-separated list.
  [[nodiscard]] bool isMultiValueProperty() const noexcept;
  /// The text of a text, URI or extension value; absent for any other value.
  [[nodiscard]] std::optional<TextView> textValue() const noexcept;
  /// The instant that a date-time value names; absent for any other value.
  [[nodiscard]] std::optional<std::chrono::sys_seconds> dateValue() const;
  /// The version that a VERSION property states: the leading number of its text without its
  /// fraction, so 2 for "2.1". 0 for other properties, without a number, and for a number below
  /// zero or beyond 64 bits.
  [[nodiscard]] std::uint64_t versionValue() const;

  /// The type name of the value class that a property of this name holds in a version.
  [[nodiscard]] TextView defaultTypeForVersion(VersionCode version) const noexcept;

  /// Makes the VALUE parameter state the value's type where it differs from the default of the
  /// version, and removes it where it does not.
  void addValueParameterIfNecessaryForVersion(VersionCode version);

  /// Names of the parameters in the order in which they are written.
  [[nodiscard]] TextList parametersInSortOrder() const;

  /// Reads a content line: [group "."] name *(";" parameter) ":" value.
  /// @returns false when the line is no usable property; the object is then to be let go
  bool parse(TextView contentLine, VersionCode version, DateFormatter * formatter) override;

  /// Appends the content line, folded at 75 UTF-8 bytes, each physical line ended by CR LF.
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;

 private:
  friend class ContentLineParser;
  friend class VCard;
  friend struct StoredParts;

  /// valueOfParameterWithName for a name that is upper-cased already.
  [[nodiscard]] [[gnu::visibility("hidden")]] std::optional<TextView> valueOfParameterWithKey(
      TextView key) const;
  /// addParameter for a parameter that nobody else holds: its values may be taken.
  [[gnu::visibility("hidden")]] void takeParameter(std::shared_ptr<VCardParameter> parameter);

  using ParameterStore = detail::KeyedList<std::shared_ptr<VCardParameter>>;

  detail::TextStorage m_group;
  detail::TextStorage m_name;
  ParameterStore m_parameters;
  std::shared_ptr<VCardValue> m_value;
  bool m_hasParameters = false; ///< whether any was ever added
};

} // namespace cardwright
