// The sky map drawn on a plot surface, apart from its window so that tests and benchmarks
// draw it without one. The surface is square; scalemap gives it the scale of +-1.02 with the
// zenith at (0, 0), north up and east on the left (sky/sky_projection.h).
//
//   SkyMapScene scene{core, fixed, &pictures};
//   scene.MinutePointer = PresentMinute(core, fixed, clock);   // sky/sky_places.h
//   scene.antenna = &antenna;  scene.horizon = &table;  scene.starFile = ".../star.dat";
//   SkyPlaces shown = DrawSkyMap(surface, scene);           // labels are the window's
#pragma once

#include "core/astro_core.h"
#include "core/fixed_snapshot.h"
#include "formats/antenna_file.h"
#include "formats/horizon_file.h"
#include "render/picture_store.h"
#include "render/plot_surface.h"
#include "sky/sky_places.h"

#include <cstdint>
#include <functional>
#include <string>

namespace tarvelle {

struct SkyMapScene {
    SkyMapScene(const Core& c, const FixedSnapshot& f, const Form8* p = nullptr) : core(c), fixed(f), pictures(p) {}
    const Core& core;
    const FixedSnapshot& fixed;
    const Form8* pictures = nullptr; // Jupiter's sprite and mask; no mark without them
    int16_t MinutePointer = 0;
    bool grid = true, stars = true, jupTrack = true, sunTrack = true, galacticPlane = true;
    float StarMagLimit = 5.0f;
    bool useHorizon = false;
    const HorizonTable* horizon = nullptr;
    const Antenna* antenna = nullptr; // nothing loaded: null
    std::string starFile;
    // Where the map lets other events in; empty when drawing off the screen.
    std::function<void()> yield;
};

// One complete redraw in the station's order: sky and grid, antenna and beams, horizon,
// Jupiter's track and mark, the Sun's track and mark, the galactic plane. Returns the places
// the marks were drawn for.
SkyPlaces DrawSkyMap(PlotSurface& s, const SkyMapScene& scene);

// The steps, for the windows that draw parts of the map.
void scalemap(PlotSurface& s);
// The sky shaded by the Sun's altitude, the grid when asked; letters and stars when asked.
void DrawSkyGrid(PlotSurface& s, const SkyMapScene& scene, bool letters);
void DrawStars(PlotSurface& s, const SkyMapScene& scene);
void DrawAnt(PlotSurface& s, const std::string& AntPic);
// Cross, gain and contour of one lobe; a lobe without a worked-out contour draws nothing.
void SkyMap_PlotBeam(PlotSurface& s, const AntennaLobe& lobe);
// The contour only, in one colour (the antenna editor's lobes).
void PlotBeamEdge(PlotSurface& s, const AntennaLobe& lobe, int colour);
void DrawHorizon(PlotSurface& s, const HorizonTable& HorizonAlt);
void DrawBodyTrack(PlotSurface& s, const Core& core, bool jupiter);
void PlotJup(PlotSurface& s, const Form8& pictures, double alt, double az);
void PlotSun(PlotSurface& s, double alt, double az);
void DrawGalacticPlane(PlotSurface& s, const Core& core);

// The sky's colour at radius r of the disc for the Sun at sunAlt degrees.
int SkyColour(double sunAlt, double r);

} // namespace tarvelle
