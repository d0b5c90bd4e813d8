#pragma once

#include "base/processor.h"

#include <gtest/gtest.h>

namespace cardwright {

/// Checks what this processor does, and what one without wide lanes does.
template <typename Check>
void withEachLanes(Check check) {
  const bool hasWideLanes = usesWideLanes;
  for (const bool uses : {false, true}) {
    if (uses && !hasWideLanes) {
      continue;
    }
    SCOPED_TRACE(uses ? "with wide lanes" : "without wide lanes");
    usesWideLanes = uses;
    check();
  }
  usesWideLanes = hasWideLanes;
}

} // namespace cardwright
