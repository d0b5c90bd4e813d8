#pragma once

#include "cardwright/date_components.h"

#include <ostream>

namespace cardwright {

// Found by GoogleTest when a comparison fails.
inline void PrintTo(const DateComponents& components, std::ostream* stream) {
  for (const auto& field : {components.year, components.month, components.day, components.hour,
                            components.minute, components.second}) {
    if (field) {
      *stream << *field << ' ';
    } else {
      *stream << "- ";
    }
  }
  if (!components.timeZone) {
    *stream << "no zone";
  } else if (components.timeZone->isUniversal()) {
    *stream << "universal";
  } else {
    *stream << components.timeZone->secondsFromUtc() << " s";
  }
}

} // namespace cardwright
