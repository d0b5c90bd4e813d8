#pragma once

#include "cardwright/vcard.h"

#include <memory>
#include <optional>
#include <vector>

namespace cardwright {

struct DraftParameter {
  Text key; ///< the name in upper case
  TextList values;
};

/// A property while it is converted.
struct Draft {
  std::optional<Text> group;
  Text name;   ///< in upper case
  Text origin; ///< name and group before the conversion, for the report
  std::vector<DraftParameter> parameters;
  std::shared_ptr<VCardValue> value; ///< never changed: it may be that of the card that was given
  bool isDropped = false;

  [[nodiscard]] const TextList* valuesOf(TextView key) const noexcept;
  [[nodiscard]] std::optional<TextView> firstOf(TextView key) const noexcept;
  /// Gives a parameter these values, in its old place if it has one.
  void set(TextView key, TextList values);
  void append(TextView key, Text further);
  void remove(TextView key);
  /// Whether a type is among those of the property, without regard to case.
  [[nodiscard]] bool hasType(TextView type) const;
  void removeType(TextView type);
  /// The text of a text, URI or extension value.
  [[nodiscard]] std::optional<TextView> text() const noexcept;
  void setText(TextView text);
  void setUri(TextView uri);
};

using Drafts = std::vector<Draft>;

/// A property that was not there before.
[[nodiscard]] Draft newDraft(TextView name, std::shared_ptr<VCardValue> value);

/// How reports call a property: by its name and group.
[[nodiscard]] Text originOf(const Draft& draft);

[[nodiscard]] Drafts draftsOf(const VCard& card);
[[nodiscard]] std::shared_ptr<VCard> cardOf(const Drafts& drafts);

} // namespace cardwright
