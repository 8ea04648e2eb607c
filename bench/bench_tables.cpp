// The ephemeris tables: a day at a 1-minute interval, a high-resolution visibility year and a
// 31-day Alt/Az table at a 1-minute step.
#include "bench_observer.h"
#include "core/astro_core.h"
#include "core/date_value.h"
#include "tables/altaz_table.h"
#include "tables/ephemeris.h"
#include "tables/visibility.h"

#include <benchmark/benchmark.h>

#include <filesystem>

using namespace tarvelle;

namespace {

void EphemerisDayAtOneMinute(benchmark::State& state) {
    Core core = SampleObserver();
    for (auto _ : state) {
        const EphemerisResult r = ComputeEphemeris(core, {"2026", "11", "22", "1"});
        benchmark::DoNotOptimize(r.rows.data());
    }
}
BENCHMARK(EphemerisDayAtOneMinute)->Unit(benchmark::kMillisecond);

void VisibilityYearHighResolution(benchmark::State& state) {
    Core core = SampleObserver();
    for (auto _ : state) {
        const VisibilityResult r = ComputeVisibility(core, 2026, true);
        benchmark::DoNotOptimize(r.days.data());
    }
}
BENCHMARK(VisibilityYearHighResolution)->Unit(benchmark::kMillisecond);

void AltAzTable31DaysAtOneMinute(benchmark::State& state) {
    Core core = SampleObserver();
    const std::string path = (std::filesystem::temp_directory_path() / "bench_altaz_table.dat").string();
    for (auto _ : state) {
        std::filesystem::remove(path);
        const AltAzTableResult r = WriteAltAzTable(core, {"2026", "1", "1", "2026", "1", "31", "1"}, path);
        benchmark::DoNotOptimize(r.records);
    }
    std::filesystem::remove(path);
}
BENCHMARK(AltAzTable31DaysAtOneMinute)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
