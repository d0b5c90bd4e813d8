#pragma once

#include "cardwright/text.h"

#include <optional>
#include <string_view>
#include <vector>

namespace cardwright {

/// What a contacts parser found in one card.
struct ContactRecord {
  std::optional<Text> note;
};

/// Another parser that the host may lend to a reading call, such as that of its platform: it is
/// asked for the note of a version 2.1 card whose own note could not be read.
class [[gnu::visibility("default")]] ContactsParser {
 public:
  ContactsParser() = default;
  ContactsParser(const ContactsParser&) = delete;
  ContactsParser& operator=(const ContactsParser&) = delete;
  virtual ~ContactsParser();

  /// Called on the reading thread.
  /// @param vCard one card in UTF-8
  /// @returns the records in it, or absent for an error
  [[nodiscard]] virtual std::optional<std::vector<ContactRecord>> contactsWithData(
      std::string_view vCard) = 0;
};

} // namespace cardwright
