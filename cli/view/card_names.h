#pragma once

#include <cardwright/vcard.h>

#include <map>
#include <optional>
#include <string>

namespace cardwright::tool {

/// What a card is called: its formatted name, or else whatever there is to call it by. Empty when
/// there is nothing.
[[nodiscard]] Text cardName(const VCard& card);

/// The property that cardName() takes the name from; null when there is none.
[[nodiscard]] const VCardProperty* nameProperty(const VCard& card);

/// Finds cards of one file by their identifiers, so that members and relations can be shown by
/// name.
class CardNames {
 public:
  /// @param cards outlives this object
  explicit CardNames(const VCardList& cards) noexcept : m_cards(cards) {}

  /// The name of the card that a URI such as "urn:uuid:…" points to; absent when it points outside
  /// the file.
  [[nodiscard]] std::optional<Text> nameOf(TextView uri);

 private:
  const VCardList& m_cards;
  std::map<Text, const VCard*> m_byIdentifier; ///< ordered: hashes of chosen texts could collide
  bool m_isFilled = false;
};

} // namespace cardwright::tool
