#include "model/known_names.h"

#include "model/known_name_table.h"

namespace cardwright {

const KnownName* knownName(TextView name) noexcept {
  return kKnownNames.find(name);
}

detail::TextStorage nameStorage(TextView name) {
  const KnownName* known = knownName(name);
  return known != nullptr ? detail::TextStorage::borrow(known->name) : detail::TextStorage(name);
}

} // namespace cardwright
