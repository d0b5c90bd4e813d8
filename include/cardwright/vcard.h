#pragma once

#include "cardwright/detail/card_lines.h"
#include "cardwright/detail/keyed_list.h"
#include "cardwright/vcard_object.h"
#include "cardwright/vcard_property_list.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cardwright {

class Arena;
class CardOutput;
class ContactsParser;
class TextScanner;
class VCard;

/// Properties by upper-cased name. The lists are shared with the card.
using VCardPropertyDict = std::map<Text, std::shared_ptr<VCardPropertyList>, std::less<>>;
/// Cards in the order of the text they were read from.
using VCardList = std::vector<std::shared_ptr<VCard>>;

/// What a card describes (RFC 6350, section 6.1.4), as VCard::kind returns it.
enum class VCardKind : int {
  individual = 0, ///< also when the card says nothing
  org = 1,
  group = 2,
  location = 3,
  device = 4,
  application = 5,
  other = 6, ///< any other text
};

/// A card: properties by name. The order of names is not kept, the order within a name is.
///
/// A card that was read keeps its lines until it is asked for the first time, by whichever thread,
/// and only then reads what they say. It shares the text with the other cards read from it, and the
/// text lives as long as any of them or of their parts.
class [[gnu::visibility("default")]] VCard final : public VCardObject {
 public:
  /// A card without properties.
  VCard() = default;

  // Reading

  /// Reads all cards of a text, however damaged: lines that cannot be read are dropped, text
  /// outside cards is skipped.
  /// @param text              cards, and anything else between them
  /// @param cleaningSummaries filled with one line for each repair when anything was repaired,
  ///                          and left untouched otherwise
  /// @param contactsParser    borrowed for the call; asked for empty notes of version 2.1 cards
  /// @returns absent for an absent text, otherwise a list, which may be empty
  [[nodiscard]] static std::optional<VCardList> vCardsFromString(
      std::optional<TextView> text, TextList* cleaningSummaries = nullptr,
      ContactsParser* contactsParser = nullptr);
  /// The same for UTF-8; see readCards for bytes of unknown origin.
  [[nodiscard]] static VCardList vCardsFromString(std::string_view utf8,
                                                  TextList* cleaningSummaries = nullptr,
                                                  ContactsParser* contactsParser = nullptr);

  /// The first card of vCardsFromString, or null.
  [[nodiscard]] static std::shared_ptr<VCard> firstvCardFromString(
      std::optional<TextView> text, TextList* cleaningSummaries = nullptr,
      ContactsParser* contactsParser = nullptr);
  /// The same for UTF-8.
  [[nodiscard]] static std::shared_ptr<VCard> firstvCardFromString(
      std::string_view utf8, TextList* cleaningSummaries = nullptr,
      ContactsParser* contactsParser = nullptr);

  /// Reads the next card and leaves the scanner behind what was consumed. Nothing is cleaned.
  /// @returns null when there is no card, or no scanner
  [[nodiscard]] static std::shared_ptr<VCard> vCardFromScanner(
      TextScanner * scanner, ContactsParser* contactsParser = nullptr);

  // Properties

  /// A copy of the dictionary; the lists in it are the card's own.
  [[nodiscard]] VCardPropertyDict propertyDict() const;
  /// Takes the dictionary as it is, whatever its keys are.
  void setPropertyDict(const VCardPropertyDict& dict);

  /// Appends the property to the list of its upper-cased name. Null is ignored.
  void addProperty(std::shared_ptr<VCardProperty> property);

  /// The card's own list of the properties of a name: changes to it are changes to the card.
  /// Null when no property of the name was ever added.
  [[nodiscard]] std::shared_ptr<VCardPropertyList> propertiesWithName(TextView name) const;
  /// A new list of those whose group equals `group` without regard to case. Absent when the group
  /// is, or when the card has no property of the name.
  [[nodiscard]] std::optional<VCardPropertyList> propertiesWithName(
      TextView name, std::optional<TextView> group) const;
  /// Removes all properties of a name; false when there is no entry for it.
  bool removePropertiesWithName(TextView name);

  /// What the first VERSION property states; 0 without one.
  [[nodiscard]] std::uint64_t version() const;
  /// The text of the first UID property.
  [[nodiscard]] std::optional<TextView> uid() const;
  /// What the first KIND property says, or else the first X-ADDRESSBOOKSERVER-KIND.
  [[nodiscard]] VCardKind kind() const;
  /// The instant of the first REV property.
  [[nodiscard]] std::optional<std::chrono::sys_seconds> rev() const;
  /// Whether the card has an entry for REV, whatever its value.
  [[nodiscard]] bool hasRev() const;

  // Writing

  /// Names of the properties in the order in which they are written.
  [[nodiscard]] TextList propertiesInSortOrder() const;

  /// Appends the card, from BEGIN:VCARD to END:VCARD, each line ended by CR LF. The version code
  /// chooses the syntax; the VERSION property is written as the card holds it.
  void generate(Text & output, VersionCode version, DateFormatter * formatter) const override;
  /// The same in UTF-8, sooner than the text is encoded; a lone surrogate becomes U+FFFD.
  void generateUtf8(std::string & output, VersionCode version, DateFormatter * formatter) const;

  // Repairs of the reader

  /// Replaces numeric character references such as "&#233;" and "&#xE9;" by what they stand for.
  [[nodiscard]] static std::optional<Text> normalizedStringByDecodingNumericEntitiesFromString(
      std::optional<TextView> text);
  /// Reads digits of radix 10 or 16; absent for anything else. Numbers beyond 64 bits read as the
  /// largest.
  [[nodiscard]] static std::optional<std::uint64_t> numberFromString(TextView digits, int radix);
  /// One code point as text; absent for 0 and above 0x10FFFF. Surrogates stand for themselves.
  [[nodiscard]] static std::optional<Text> stringFromUnicodeScalar(std::uint64_t scalar);
  /// Cuts a line into which several X-ADDRESSBOOKSERVER- properties were merged.
  [[nodiscard]] static TextList candidatePropertyLinesFromLine(std::optional<TextView> line);
  /// Fills the empty note of a version 2.1 card with what another parser reads from the card's
  /// text. Without that parser, or when it finds no note, the card stays as it is.
  static void updateVCardUsingCNContactSerializer(const std::shared_ptr<VCard>& card,
                                                  std::optional<TextView> rawVCard,
                                                  ContactsParser* contactsParser = nullptr);

 private:
  friend class CardAssembly;
  friend struct StoredParts;

  using PropertyStore = detail::KeyedList<std::shared_ptr<VCardPropertyList>>;

  /// The properties, made from the unread lines with the first question.
  [[nodiscard]] const PropertyStore& properties() const {
    if (m_isUnread.load(std::memory_order_acquire)) {
      readProperties();
    }
    return m_properties;
  }
  [[nodiscard]] PropertyStore& properties() {
    return const_cast<PropertyStore&>(std::as_const(*this).properties()); // NOLINT: not const here
  }
  [[gnu::visibility("hidden")]] void readProperties() const;
  /// Whether the card still says what its lines say.
  [[nodiscard]] [[gnu::visibility("hidden")]] bool isUnchanged() const noexcept;
  /// Where what the card consists of changes.
  [[gnu::visibility("hidden")]] void changed() noexcept;
  /// addProperty for a new property whose name is upper-cased; its list is made in the arena.
  [[gnu::visibility("hidden")]] static void addUpperCased(
      PropertyStore & properties, std::shared_ptr<VCardProperty> property, Arena * arena);

  /// Appends what is written of an unchanged card from its lines; false for another card, of which
  /// nothing is appended.
  [[gnu::visibility("hidden")]] bool appendLines(CardOutput & output, VersionCode version,
                                                 DateFormatter * formatter) const;
  /// Appends what is written of the properties.
  [[gnu::visibility("hidden")]] void generateProperties(Text & output, VersionCode version,
                                                        DateFormatter * formatter) const;
  [[nodiscard]] [[gnu::visibility("hidden")]] const VCardProperty* firstPropertyWithKey(
      TextView key) const;
  /// Asks the processor for the memory that writing will look at.
  [[gnu::visibility("hidden")]] static void fetchProperties(const PropertyStore& store) noexcept;

  mutable PropertyStore m_properties;
  mutable detail::CardLines m_lines; ///< without a store for a card that was not read
  mutable std::atomic<bool> m_isUnread = false;
  mutable std::once_flag m_reading;
};

} // namespace cardwright
