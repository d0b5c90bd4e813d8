#pragma once

#include "cardwright/vcard.h"

namespace cardwright {

/// How much of an address book is there again, in thousandths, rounded down.
struct Recovery {
  int cards = 0;      ///< that have their UID, or else their FN and N
  int names = 0;      ///< FN and N with their values
  int properties = 0; ///< with group and name, whatever they hold
  int values = 0;     ///< properties of which nothing differs
  int added = 0;      ///< properties that were not there before; rounded up

  friend bool operator==(const Recovery&, const Recovery&) = default;
};

/// Whether no share is smaller and no more was added.
[[nodiscard]] bool isAsGoodAs(const Recovery& measured, const Recovery& promised);

/// What of `before` is in `after`. Order does not count.
[[nodiscard]] Recovery recovered(const VCardList& before, const VCardList& after);

} // namespace cardwright
