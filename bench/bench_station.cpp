// The station window: one tick, and start to first readout. Budgets: 1 ms and 400 ms.
#include "core/date_value.h"
#include "ui/main/main_window.h"
#include "bench_station.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>

#include <memory>

using namespace tarvelle;

namespace {

// Read the clock, recompute and relabel, within one date.
void BM_MainWindowTick(benchmark::State& state) {
    Bench b;
    Form1 form(b.station);
    form.Load();
    form.show();
    for (auto _ : state) {
        b.clock.local += 1.0 / 86400.0;
        form.Timer1Tick();
    }
    benchmark::DoNotOptimize(form.LBLJupAlt->text());
}
BENCHMARK(BM_MainWindowTick)->Unit(benchmark::kMicrosecond);

// From nothing to the first readout on a shown window: start-up, day tables, first tick.
void BM_StartToFirstReadout(benchmark::State& state) {
    for (auto _ : state) {
        Bench b;
        Form1 form(b.station);
        form.Load();
        form.show();
        form.Timer1Tick();
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(form.LBLJupAlt->text());
    }
}
BENCHMARK(BM_StartToFirstReadout)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
