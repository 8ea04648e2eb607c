// The interpreter on a long script of plain commands (no waits, no devices): commands a second.
#include "doubles.h"

#include "scripting/script_interpreter.h"
#include "station/settings_store.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <fstream>

using namespace tarvelle;

namespace {

void BM_PlainCommands(benchmark::State& state) {
    QTemporaryDir dir;
    const std::string path = dir.filePath("long.scp").toStdString();
    {
        // 1,000 lines: the most a script keeps.
        std::ofstream out(path);
        const char* lines[] = {"A = (JUPAZ)", "IF A > (100)", "OR A WITH (1)", "AND A WITH (&HFF)",
                               "XOR A WITH (3)", "IF A < (5)", "A = (A)", "FORMATLEADINGZEROS",
                               "IO_PORT = (888)", "NOSTOPONERR"};
        for (int i = 0; i < 1000; ++i) out << lines[i % 10] << "\r\n";
    }
    SettingsStore settings(dir.filePath("s.ini"));
    FakeClock clock;
    ScriptedDialogs dialogs;
    RecordingDesktop desktop;
    Station station(settings, clock, dialogs, desktop, dir.path() + "/");
    station.core.JupAz = 123.4;
    QuietScriptHost host;
    RecordingScriptDevices devices;
    ScriptInterpreter script(station, host, devices);
    int64_t commands = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(script.RunScript(path));
        commands += static_cast<int64_t>(script.ScriptLines.size());
    }
    state.counters["commands_per_s"] = benchmark::Counter(static_cast<double>(commands), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_PlainCommands)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
