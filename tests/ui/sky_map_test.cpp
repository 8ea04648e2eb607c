// The sky map on its surface and in its window: where bodies, beams and tracks land, the sky's
// colour, and the window's files, settings and read-outs.
#include "core/date_value.h"
#include "render/picture_store.h"
#include "core/text_forms.h"
#include "sky/beam.h"
#include "sky/sky_projection.h"
#include "station_test.h"
#include "ui/sky/sky_map_drawing.h"
#include "ui/sky/sky_map_window.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include <cmath>
#include <memory>
#include <tuple>

using namespace tarvelle;

namespace {

constexpr int kSide = 800;
constexpr int kTrackColour = RGB(255, 128, 0);

class SkyMapDrawingTest : public ::testing::Test {
protected:
    void SetUp() override {
        core.RealTimeMode = false;
        core.ObsLatitude = 39.25f;
        core.ObsLongitude = 76.5f;
        fixed.FixedJupAlt = -10;
        fixed.FixedSunAlt = -20;
        scene.grid = scene.stars = scene.jupTrack = scene.sunTrack = scene.galacticPlane = false;
        for (auto& a : {&core.Day.DayJupAlt, &core.Day.DaySunAlt}) a->fill(-30.0);
    }
    // The pixel of a point of the map in the map's scale.
    QPoint At(double x, double y) const {
        const ScaleFrame f = surface.Frame();
        return {f.PixelColumn(x), f.PixelRow(y)};
    }
    int Pixel(double x, double y) const {
        const QPoint p = At(x, y);
        return surface.Pixel(p.x(), p.y());
    }
    void Draw() {
        DrawSkyMap(surface, scene);
        scalemap(surface);
    }

    Core core;
    FixedSnapshot fixed;
    Form8 pictures;
    SkyMapScene scene{core, fixed, &pictures};
    PlotSurface surface{kSide, kSide, RGB(128, 0, 128)};
};

TEST_F(SkyMapDrawingTest, BodiesLandWhereTheirAltitudeAndAzimuthPutThem) {
    fixed.FixedJupAlt = 45;
    fixed.FixedJupAz = 90; // east: left of the centre, half way out
    fixed.FixedSunAlt = 30;
    fixed.FixedSunAz = 180; // south: below the centre, two thirds out
    Draw();
    // Jupiter's sprite maps +-1 to the edges: corner (190.5, 390.5) rounded to even, and the
    // disc's middle pixel (9, 8) of the block lies at (199, 398).
    EXPECT_EQ(surface.Pixel(199, 398), pictures.PicJup.Pixel(9, 8));
    // The Sun is a yellow disc of radius 0.035 on the scale of +-1: 14 pixels.
    EXPECT_EQ(surface.Pixel(400, 667), QBColor(14));
    EXPECT_EQ(surface.Pixel(400 + 10, 667), QBColor(14));
    EXPECT_NE(surface.Pixel(400 + 18, 667), QBColor(14));
}

TEST_F(SkyMapDrawingTest, TheSkyIsBlueToBlackAtNightAndPaleByDay) {
    const struct {
        double sunAlt;
        int centre, rim;
    } cases[] = {
        {-20.0, RGB(1, 1, 31), RGB(1, 1, 255)},  // s = 1: blue 255 r, the last circle r = 0.12
        {40.4, RGB(40, 40, 255), RGB(40, 40, 255)}, // s = 40: blue saturates everywhere
        {0.5, RGB(1, 1, 31), RGB(1, 1, 255)},       // rounds to 0 (half to even), taken as 1
    };
    for (const auto& c : cases) {
        fixed.FixedSunAlt = c.sunAlt;
        fixed.FixedSunAz = 0;
        Draw();
        EXPECT_EQ(Pixel(0, 0), c.centre) << c.sunAlt;
        EXPECT_EQ(Pixel(0, -0.99), c.rim) << c.sunAlt;
        EXPECT_EQ(surface.Pixel(2, 2), RGB(128, 0, 128)) << c.sunAlt; // the corners keep the background
    }
}

TEST_F(SkyMapDrawingTest, AZenithBeamIsACircleOfItsHalfWidth) {
    Antenna antenna;
    antenna.AntPic = "NONE";
    antenna.Lobes.resize(2);
    antenna.Lobes[1].ALT = 90;
    antenna.Lobes[1].NSBW = antenna.Lobes[1].EWBW = 40;
    CalcBeamEdges(antenna);
    scene.antenna = &antenna;
    Draw();
    // Altitude 70 all round.
    for (int az = 0; az < 360; az += 15) {
        double x = 0, y = 0;
        AltAzToMap(70.0, az, x, y);
        EXPECT_EQ(Pixel(x, y), 65280) << az;
        EXPECT_NE(Pixel(x * 0.85, y * 0.85), 65280) << az; // nothing inside the edge
        EXPECT_NE(Pixel(x * 1.15, y * 1.15), 65280) << az;
    }
    // A lobe whose contour was never worked out draws nothing, not even its cross.
    antenna.Lobes[1].Edge.clear();
    Draw();
    EXPECT_NE(Pixel(0, 0), 65280);
}

// Track colour in the columns between two map points, each column searched a few rows round
// the straight line; the fraction of columns that hold it.
double ColumnsHit(const PlotSurface& s, QPoint a, QPoint b, int colour) {
    if (a.x() > b.x()) std::swap(a, b);
    int columns = 0, hit = 0;
    for (int x = a.x() + 4; x <= b.x() - 4; ++x) {
        const double y = a.y() + (b.y() - a.y()) * double(x - a.x()) / (b.x() - a.x());
        bool found = false;
        for (int dy = -2; dy <= 2; ++dy) found = found || s.Pixel(x, static_cast<int>(std::lround(y)) + dy) == colour;
        ++columns;
        hit += found ? 1 : 0;
    }
    return columns ? double(hit) / columns : 0.0;
}

TEST_F(SkyMapDrawingTest, ATrackBreaksAtTheHorizonAndTurnsDottedAfterTheDay) {
    // Jupiter at altitude 45 from minute 700 to 890, crossing north 10 degrees each 20 minutes;
    // local time 10 hours east of Greenwich ends the day at minute 840.
    core.UseGMT = false;
    core.ObsTZ = 10.0;
    for (size_t i = 0; i < kDayTableSize; ++i) {
        core.Day.DayJupAlt[i] = (i >= 700 && i < 890) ? 45.0 : -5.0;
        core.Day.DayJupAz[i] = std::fmod((static_cast<double>(i) - 850.0) * 0.5 + 720.0, 360.0);
    }
    scene.jupTrack = true;
    Draw();
    const auto point = [this](int i) {
        double x = 0, y = 0;
        AltAzToMap(core.Day.DayJupAlt[static_cast<size_t>(i)], core.Day.DayJupAz[static_cast<size_t>(i)], x, y);
        return At(x, y);
    };
    EXPECT_GT(ColumnsHit(surface, point(820), point(840), kTrackColour), 0.95); // solid
    const double dotted = ColumnsHit(surface, point(860), point(880), kTrackColour);
    EXPECT_TRUE(dotted > 0.3 && dotted < 0.7) << dotted;
    EXPECT_EQ(surface.Pixel(point(840).x(), point(840).y()), kTrackColour); // the fat dot of 20 minutes
}

class SkyMapWindowTest : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        UseSampleObserver();
        core().RealTimeMode = false;
        station->fixed.FixedUT = DateSerial(2026, 11, 22) + 0.25;
        ASSERT_TRUE(QFile::copy(TARVELLE_SOURCE_DATA "/Antennas/dipole.ant", programDir + "dipole.ant"));
    }
    void Open() { map = std::make_unique<FormSkyMap>(*station, pictures); }
    Form8 pictures;
    std::unique_ptr<FormSkyMap> map;
};

TEST_F(SkyMapWindowTest, OpensWithTheStoredAntennaAndHorizon) {
    WriteFile("h.txt", "0 10\n180 30\n");
    settings->save("Skymap", "AntennaFile", programDir + "dipole.ant");
    settings->save("Skymap", "HorizonFileName", programDir + "h.txt");
    settings->save("Skymap", "UseHorizonFile", "1");
    settings->save("Skymap", "StarMag", "3.5");
    Open();
    ASSERT_EQ(map->antenna.LobeCount(), 1);
    EXPECT_FALSE(map->antenna.Lobes[1].Edge.empty()); // its contour worked out for drawing
    EXPECT_TRUE(map->chkHorizon->isChecked());
    EXPECT_NEAR(map->HorizonAlt[90], 20.0, 1e-9); // read (interpolation: SkyFilesTest)
    EXPECT_EQ(map->StarMagLimit, 3.5f);
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(SkyMapWindowTest, AFailedAntennaLoadTellsAndForgetsTheFile) {
    const struct {
        const char* content;
        QString start;
        MsgIcon icon;
        bool forgotten;
    } cases[] = {
        {"", "Empty Antenna File: ", MsgIcon::None, true},
        {"NAME = x\r\n", "", MsgIcon::None, true},
        {"ANTENNA FILE\r\nLOBES = 1\r\nALT = x\r\nSTART LOBE 1\r\nALT = y\r\nAZ = 1\r\nGAIN = 2\r\nEND LOBE 1\r\n",
         "There was and an error loading:", MsgIcon::Critical, true},
        {"ANTENNA FILE\r\nLOBES = 2\r\nSTART LOBE 1\r\nALT = 1\r\nAZ = 1\r\nGAIN = 2\r\nEND LOBE 1\r\n",
         "There was an error in the lobe definition  2", MsgIcon::None, false},
    };
    for (const auto& c : cases) {
        WriteFile("bad.ant", c.content);
        settings->save("Skymap", "AntennaFile", programDir + "bad.ant");
        dialogs.messages.clear();
        Open();
        ASSERT_EQ(dialogs.messages.size(), 1u) << c.content;
        EXPECT_TRUE(dialogs.messages[0].text.startsWith(c.start)) << dialogs.messages[0].text.toStdString();
        EXPECT_EQ(dialogs.messages[0].icon, c.icon);
        EXPECT_EQ(map->AntFileName.isEmpty(), c.forgotten) << c.content;
        // The load error also forgets the setting; the others leave it for cmdAnt to write.
        const bool stored = !settings->get("Skymap", "AntennaFile", "").isEmpty();
        EXPECT_EQ(stored, c.icon != MsgIcon::Critical) << c.content;
    }
}

TEST_F(SkyMapWindowTest, MagnitudeLimitAndSwitchesAreStored) {
    Open();
    const struct {
        std::optional<QString> answer;
        float limit;
    } cases[] = {{QString("7"), 5.0f}, {QString("-1"), 0.0f}, {QString("2.5"), 2.5f}, {std::nullopt, 0.0f}};
    for (const auto& c : cases) {
        dialogs.inputs = {c.answer};
        dialogs.nextInput = 0;
        map->CmdMag->click();
        EXPECT_EQ(map->StarMagLimit, c.limit);
        EXPECT_EQ(ValueOfText(settings->get("Skymap", "StarMag").toStdString()), c.limit);
    }
    map->ChkGrid->click();
    EXPECT_EQ(settings->get("Skymap", "UseGrid"), "0");
    map->chkHorizon->click();
    EXPECT_EQ(map->UseHorizon, 1);
    EXPECT_EQ(settings->get("Skymap", "UseHorizonFile"), "1");
    // A missing horizon file keeps the table as it was and tells so.
    map->HorizonAlt.fill(3.0);
    dialogs.paths = {programDir + "absent.txt"};
    map->cmdHorizon->click();
    EXPECT_EQ(dialogs.messages.back().text, "Horizon File: " + programDir + "absent.txt\r\nNot Found.");
    EXPECT_EQ(map->HorizonAlt[200], 3.0);
}

TEST_F(SkyMapWindowTest, ThePointerReadsAltitudeAndAzimuth) {
    Open();
    for (auto [x, y, shown] : {std::tuple{0.0f, 0.0f, "Pointer - Alt: 90.  Az: 360."},
                               {-0.5f, 0.0f, "Pointer - Alt: 45.  Az: 90."}, {1.0f, 1.0f, "Pointer - Off Map"}}) {
        map->PicSkyMapMouseMove(x, y);
        EXPECT_EQ(map->windowTitle(), shown);
    }
}

} // namespace
