#include "base/processor.h"

#include "base/wide_lanes.h"

namespace cardwright {

#ifdef CARDWRIGHT_WIDE

bool usesWideLanes = // NOLINT: written by tests only
    __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl") &&
    __builtin_cpu_supports("avx512vbmi") && __builtin_cpu_supports("avx512vbmi2") &&
    __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2") &&
    __builtin_cpu_supports("popcnt");

#else

bool usesWideLanes = false; // NOLINT: never true

#endif

} // namespace cardwright
