// The sky map's full redraw at 800 x 800: sky and grid, the bright stars from star.dat, an
// antenna with its beam, a horizon, both tracks and marks, and the galactic plane.
#include "core/date_value.h"
#include "formats/antenna_file.h"
#include "formats/horizon_file.h"
#include "render/picture_store.h"
#include "sky/beam.h"
#include "ui/sky/sky_map_drawing.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include <memory>

namespace {

using namespace tarvelle;

struct SkyMapBench {
    SkyMapBench() {
        core.ObsLatitude = 39.25f;
        core.ObsLongitude = 76.5f;
        core.ObsTZ = -5.0;
        core.CurrentUT = DateSerial(2026, 11, 23) + TimeSerial(7, 0, 0);
        core.UpdateSiderealTime();
        core.BuildDayTables(core.CurrentUT);
        core.UpdatePositions();
        ReadAntennaFile(TARVELLE_DATA "/Antennas/dipole_pair.ant", antenna);
        CalcBeamEdges(antenna);
        LoadHorizonFile(TARVELLE_DATA "/horizon_sample.txt", horizon);
        scene.MinutePointer = 420;
        scene.antenna = &antenna;
        scene.useHorizon = true;
        scene.horizon = &horizon;
        scene.starFile = TARVELLE_DATA "/star.dat";
    }
    Core core;
    FixedSnapshot fixed;
    Form8 pictures;
    Antenna antenna;
    HorizonTable horizon{};
    SkyMapScene scene{core, fixed, &pictures};
};

void BM_SkyMapFullRedraw800(benchmark::State& state) {
    static SkyMapBench bench;
    PlotSurface surface(800, 800, RGB(128, 0, 128));
    for (auto _ : state) {
        const SkyPlaces shown = DrawSkyMap(surface, bench.scene);
        benchmark::DoNotOptimize(shown);
        benchmark::DoNotOptimize(surface.Image().constBits());
    }
}
BENCHMARK(BM_SkyMapFullRedraw800)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv); // fonts for the labels
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
