#pragma once

#include "cardwright/text.h"

#include <optional>
#include <string_view>
#include <vector>

namespace cardwright {

/// What a contacts parser found in one card.
struct ContactRecord {
  /// The text of its note, decoded; absent when the card has none.
  std::optional<Text> note;
};

/// Another parser that the host may lend to a reading call, such as that of its platform: it is
/// asked for the note of a version 2.1 card whose own note could not be read.
///
/// It is called on the thread that reads, and no longer than the reading call lasts; one that is
/// lent to calls on several threads has to bear that.
class [[gnu::visibility("default")]] ContactsParser {
 public:
  ContactsParser() = default;
  ContactsParser(const ContactsParser&) = delete;
  ContactsParser& operator=(const ContactsParser&) = delete;
  virtual ~ContactsParser();

  /// Reads one card. What it throws, the reading call throws.
  /// @param vCard one card in UTF-8, valid during the call
  /// @returns the records in it, or absent for an error, which leaves the card as it is
  [[nodiscard]] virtual std::optional<std::vector<ContactRecord>> contactsWithData(
      std::string_view vCard) = 0;
};

} // namespace cardwright
