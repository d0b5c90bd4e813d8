#pragma once

#include "support/random_source.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace cardwright {

/// What an invented address book is to hold.
struct AddressBookOptions {
  std::size_t cards = 100;
  std::uint64_t seed = 1;
  int version = 0;             ///< 2, 3 or 4 for all cards; 0 mixes them
  std::size_t photoEvery = 12; ///< one card in so many has a photo; 0 for none
  std::size_t noteLength = 0;  ///< sentences in the note that each person has; 0 for few and rarely
};

/// Invents people, companies and groups of several scripts, and writes them as programs export
/// them: folded, grouped and labelled, in 2.1 quoted-printable. Nothing in them needs a repair. The
/// same options give the same bytes.
class AddressBook {
 public:
  explicit AddressBook(const AddressBookOptions& options)
      : m_options(options), m_random(options.seed) {}

  /// Appends the next card as UTF-8.
  void appendCard(std::string& output);

 private:
  AddressBookOptions m_options;
  RandomSource m_random;
};

/// A whole address book as UTF-8.
[[nodiscard]] std::string addressBook(const AddressBookOptions& options);

} // namespace cardwright
