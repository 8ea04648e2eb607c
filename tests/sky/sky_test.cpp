// The sky map's projection, the galactic plane, antenna beams and the bodies' tracks.
#include "core/numeric.h"
#include "sky/beam.h"
#include "sky/body_track.h"
#include "sky/galactic.h"
#include "sky/sky_projection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace tarvelle;

namespace {

TEST(SkyProjectionTest, AltitudeAndAzimuthToTheDisc) {
    const struct { double alt, az, x, y; } cases[] = {
        {90, 0, 0, 0},        {45, 0, 0, 0.5},    {45, 90, -0.5, 0}, {0.000001, 180, 0, -1},
        {30, 270, 2.0 / 3, 0}, {45, 355, 0.5 * std::sin(5 * kDegToRad), 0.5 * std::cos(5 * kDegToRad)},
    };
    for (const auto& c : cases) {
        double x = 9, y = 9;
        AltAzToMap(c.alt, c.az, x, y);
        EXPECT_NEAR(x, c.x, 1e-6) << c.alt << " " << c.az;
        EXPECT_NEAR(y, c.y, 1e-6) << c.alt << " " << c.az;
    }
    // At and below the horizon the caller's values stay.
    for (double alt : {0.0, -10.0}) {
        double x = 0.25, y = -0.75;
        AltAzToMap(alt, 10, x, y);
        EXPECT_TRUE(x == 0.25 && y == -0.75) << alt;
    }
}

TEST(SkyProjectionTest, PointerReadsBackWhatWasProjected) {
    for (double az : {10.0, 135.0, 200.0, 300.0}) {
        double x = 0, y = 0;
        AltAzToMap(40, az, x, y);
        const MapPointer p = PointerAt(x, y);
        ASSERT_TRUE(p.onMap);
        EXPECT_NEAR(p.alt, 40, 1e-9) << az;
        EXPECT_NEAR(p.az, az, 1e-9) << az;
    }
    // Straight north reads 360; the masks show no trailing 0.
    EXPECT_EQ(PointerText(PointerAt(0, 0)), "Pointer - Alt: 90.  Az: 360.");
    EXPECT_EQ(PointerText(PointerAt(0.8, 0.8)), "Pointer - Off Map");
}

TEST(SkyProjectionTest, MinutePointerCountsWholeMinutesOfTheDay) {
    const std::pair<double, int> cases[] = {{0, 0}, {720, 720}, {719.9, 719}, {1439.99, 1439}};
    for (const auto& [minutes, pointer] : cases) EXPECT_EQ(MinutePointerOf(45000.0 + minutes / 1440), pointer) << minutes;
}

// Galactic centre and north galactic pole in the equator of 1950: IAU definition of the
// galactic system (Blaauw et al. 1960, MNRAS 121, 123): pole at RA 12h49m, Dec +27.4 deg; the
// centre (l = 0, b = 0) at RA 17h42.4m, Dec -28 deg 55 min. Tolerance 0.01 h and 0.05 deg.
TEST(GalacticTest, CentreAndPoleWhereTheIauPutThem) {
    const struct { float l; double b, ra, dec; } cases[] = {
        {0.0f, 0.0, 17.0 + 42.4 / 60, -(28.0 + 55.0 / 60)},
        {123.0f, 90.0, 12.0 + 49.0 / 60, 27.4},
    };
    for (const auto& c : cases) {
        float l = c.l, dec = 0;
        double ra = 0;
        GalacticToEquatorial(l, c.b, ra, dec);
        EXPECT_NEAR(ra, c.ra, 0.01) << c.l;
        EXPECT_NEAR(dec, c.dec, 0.05) << c.l;
        EXPECT_EQ(l, c.l);
    }
}

AntennaLobe Lobe(double alt, double az, double nsbw, double ewbw) {
    AntennaLobe lobe;
    lobe.ALT = alt;
    lobe.AZ = az;
    lobe.NSBW = nsbw;
    lobe.EWBW = ewbw;
    CalcBeamEdge(lobe);
    return lobe;
}

TEST(BeamTest, ContoursOfAZenithLobePastTheZenithAndAcrossNorth) {
    // A zenith lobe is a circle of its half width.
    const AntennaLobe zenith = Lobe(90, 0, 40, 40);
    ASSERT_EQ(zenith.Edge.size(), 361u);
    for (int t = 0; t < 360; ++t) EXPECT_NEAR(zenith.Edge[static_cast<size_t>(t)].Alt, 70.0, 1e-9) << t;
    // ALT 80 with a vertical width of 30 passes the zenith: there the contour turns over to
    // the far side, azimuths near 180 + 0 rather than near 0.
    const AntennaLobe over = Lobe(80, 0, 30, 20);
    const BeamEdgePoint& top = over.Edge[90]; // y = +15: e = 95 -> 85 on the far side
    EXPECT_NEAR(top.Alt, 85.0, 1e-9);
    EXPECT_NEAR(top.AzLeft, 180.0, 1e-3);
    EXPECT_NEAR(over.Edge[270].Alt, 65.0, 1e-9); // y = -15: 65 on the near side
    EXPECT_NEAR(std::fmod(over.Edge[270].AzRight + 180.0, 360.0), 180.0, 1e-3);
    // AZ 350 with a horizontal width of 40: the right side wraps into the low azimuths.
    const AntennaLobe north = Lobe(30, 350, 20, 40);
    const BeamEdgePoint& side = north.Edge[0];
    EXPECT_GT(side.AzRight, 0.0);
    EXPECT_LT(side.AzRight, 20.0);
    EXPECT_GT(side.AzLeft, 320.0);
    for (const BeamEdgePoint& p : north.Edge) {
        EXPECT_TRUE(p.AzLeft >= 0.0 && p.AzLeft < 360.0) << p.AzLeft;
        EXPECT_TRUE(p.AzRight >= 0.0 && p.AzRight < 360.0) << p.AzRight;
    }
}

std::array<double, kDayTableSize> AltitudeUp(int from, int to) {
    std::array<double, kDayTableSize> alt{};
    for (int i = 0; i < kDayTableSize; ++i) alt[static_cast<size_t>(i)] = (i >= from && i <= to) ? 30.0 : -5.0;
    return alt;
}

TEST(TrackTest, StartsAtTheFirstRiseAndBreaksWhereTheBodyIsDown) {
    // Up from minute 305 to 1000 and again from 1500: the track starts at 320, its first step
    // ends at 340, it stops at 1000, and resumes once both ends are up again.
    std::array<double, kDayTableSize> alt = AltitudeUp(305, 1000);
    for (int i = 1500; i <= 1800; ++i) alt[static_cast<size_t>(i)] = 30.0;
    const std::vector<TrackStep> steps = BodyTrackSteps(alt, true, 0.0);
    ASSERT_FALSE(steps.empty());
    EXPECT_EQ(steps.front().i, 340);
    int last = 0;
    for (const TrackStep& s : steps) {
        EXPECT_TRUE((s.i >= 340 && s.i <= 1000) || s.i >= 1520) << s.i;
        EXPECT_EQ(s.dotted, s.i > 1440) << s.i;
        last = s.i;
    }
    EXPECT_EQ(last, 1760); // at most a day from the start
    EXPECT_TRUE(BodyTrackSteps(AltitudeUp(2000, 2000), true, 0.0).empty()); // never rises
}

TEST(TrackTest, HourLabelsAndTheEndOfTheDayInLocalTime) {
    // Up all day from minute 300: the track runs from 320 to 1740.
    const std::array<double, kDayTableSize> alt = AltitudeUp(300, 1800);
    const struct { bool gmt; double tz; int i; const char* label; bool dotted; } cases[] = {
        {true, 0, 1500, "1", true},       {false, -5, 480, "3", false},    {false, -5, 1500, "20", false},
        {false, 5.5, 600, "15.5", false}, {false, 5.5, 1140, "0.5", true}, {true, 0, 1440, "0", false},
        {false, -5, 1740, "0", false},    {true, 0, 320, "", false},
    };
    for (const auto& c : cases) {
        const std::vector<TrackStep> steps = BodyTrackSteps(alt, c.gmt, c.tz);
        const auto s = std::find_if(steps.begin(), steps.end(), [&](const TrackStep& t) { return t.i == c.i; });
        ASSERT_NE(s, steps.end()) << c.i;
        EXPECT_TRUE(s->hourLabel == c.label && s->dotted == c.dotted) << c.i << " " << c.tz << ": " << s->hourLabel;
    }
}

} // namespace
