// The core's recomputes: once a second in the tick, 1,801 times in the day tables.
#include "bench_observer.h"
#include "core/astro_core.h"
#include "core/date_value.h"

#include <benchmark/benchmark.h>

using namespace tarvelle;

namespace {

// UpdateSiderealTime + UpdatePositions for a fresh second each time. Budget: 3 us.
void BM_FullRecompute(benchmark::State& state) {
    Core c = SampleObserver();
    for (auto _ : state) {
        c.CurrentUT += 1.0 / 86400.0;
        c.UpdateSiderealTime();
        c.UpdatePositions();
        benchmark::DoNotOptimize(c.JupAlt);
    }
}
BENCHMARK(BM_FullRecompute);

// BuildDayTables over 1,801 instants. Budget: 5 ms.
void BM_BuildDayTables(benchmark::State& state) {
    Core c = SampleObserver();
    for (auto _ : state) {
        c.BuildDayTables(c.CurrentUT);
        benchmark::DoNotOptimize(c.Day.DayJupAlt[1800]);
    }
}
BENCHMARK(BM_BuildDayTables)->Unit(benchmark::kMillisecond);

} // namespace
