#include "cardwright/vcard_cleaner.h"
#include "support/hostile_cards.h"

#include <benchmark/benchmark.h>

#include <string>

namespace cardwright {
namespace {

[[maybe_unused]] const bool kRegistered = [] {
  for (const HostileCard& hostile : kHostileCards) {
    const std::string name = std::string("hostile/").append(hostile.name);
    benchmark::RegisterBenchmark(name.c_str(),
                                 [&hostile](benchmark::State& state) {
                                   const Text text = hostileText(
                                       hostile, static_cast<std::size_t>(state.range(0)));
                                   VCardCleaner cleaner;
                                   for (auto _ : state) {
                                     benchmark::DoNotOptimize(cleaner.clean(text));
                                   }
                                   state.SetBytesProcessed(state.iterations() * state.range(0));
                                   state.SetComplexityN(state.range(0));
                                 })
        ->RangeMultiplier(4)
        ->Range(64 << 10, 4 << 20)
        ->Unit(benchmark::kMillisecond)
        ->Complexity(benchmark::oN);
  }
  return true;
}();

} // namespace
} // namespace cardwright
