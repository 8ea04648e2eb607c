// The daily prediction: one day scanned and matched, and a year's event report.
#include "bench_observer.h"
#include "core/astro_core.h"
#include "core/date_value.h"
#include "prediction/event_report.h"
#include "prediction/prediction.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <memory>

using namespace tarvelle;

namespace {

// Six modes of the usual kind: Io-related, wrapped CML ranges and one without Io.
ModeTableState SixModes() {
    ModeTableState modes;
    const struct {
        const char* name;
        int16_t cml1, cml2, io1, io2;
    } rows[] = {{"Io-A", 200, 270, 195, 265}, {"Io-B", 105, 185, 55, 110},    {"Io-C", 280, 20, 225, 260},
                {"Io-D", 0, 200, 95, 130},    {"non-Io-A", 200, 260, 0, 360}, {"non-Io-B", 330, 60, 0, 360}};
    for (size_t i = 0; i < 6; ++i) {
        modes.ModeName[i + 1] = rows[i].name;
        modes.ModeTable[i + 1] = {0, rows[i].cml1, rows[i].cml2, rows[i].io1, rows[i].io2};
    }
    modes.NumModes = 6;
    modes.ModesLoaded = true;
    return modes;
}

// BuildPredictionTables + MatchModes for one day. Budget: 0.5 ms.
void BM_PredictOneDay(benchmark::State& state) {
    Core c = SampleObserver();
    const ModeTableState modes = SixModes();
    MinuteTables tables;
    const auto activity = std::make_unique<ActivityTable>();
    double day = DateSerial(2026, 1, 1);
    for (auto _ : state) {
        c.SaveCurrentTime();
        BuildPredictionTables(c, tables, day);
        MatchModes(tables, modes, *activity);
        benchmark::DoNotOptimize((*activity)[6][1440]);
        day += 1.0;
    }
}
BENCHMARK(BM_PredictOneDay)->Unit(benchmark::kMicrosecond);

ReportOptions YearReport() {
    ReportOptions o;
    o.ReportStart = DateSerial(2026, 1, 1);
    o.ReportEnd = DateSerial(2026, 12, 31);
    o.ReportMinDuration = 5.0f;
    o.ReportIncludeHA = true;
    o.versionText = "3.8.2";
    return o;
}

// A 365-day report written headless to a file. Budget: 0.3 s.
void BM_YearReportToFile(benchmark::State& state) {
    Core c = SampleObserver();
    const ModeTableState modes = SixModes();
    const ReportOptions o = YearReport();
    const auto path = std::filesystem::temp_directory_path() / "bench_prediction_report.txt";
    for (auto _ : state) {
        std::ofstream file(path, std::ios::binary | std::ios::trunc);
        const ReportOutcome outcome = WriteEventReport(c, modes, o, ReportExclusions{}, file);
        benchmark::DoNotOptimize(outcome);
    }
    std::filesystem::remove(path);
}
BENCHMARK(BM_YearReportToFile)->Unit(benchmark::kMillisecond);

} // namespace
