// The readout's texts in real and fixed time, GMT and local.
#include "core/date_value.h"
#include "station/readout.h"

#include <gtest/gtest.h>

using namespace tarvelle;

namespace {

Core LiveCore() {
    Core c;
    c.CurrentUT = DateSerial(2026, 11, 22) + TimeSerial(20, 30, 15);
    c.ObsLatitude = 39.25f;
    c.ObsLongitude = 76.5f;
    c.ObsTZ = -5.0;
    c.SystemClockTZ = -5.0;
    c.UpdateClockOffset();
    c.UpdateSiderealTime();
    c.UpdatePositions();
    return c;
}

} // namespace

TEST(TimeTexts, BoxesFollowModeAndZone) {
    Core c = LiveCore();
    FixedSnapshot f;
    const double computerClock = DateSerial(2026, 11, 22) + TimeSerial(15, 30, 15);
    TimeTexts t = BuildTimeTexts(c, f, computerClock);
    EXPECT_EQ(t.txtY + t.txtM + t.txtD + t.txtH + t.txtN + t.txtS, "20261122203015");
    c.UseGMT = false; // real time, local: the computer's clock as it reads
    t = BuildTimeTexts(c, f, computerClock);
    EXPECT_EQ(t.txtH + t.txtN + t.txtS, "153015");
    // Fixed time, local: FixedUT moved by the zone the clock runs on, not by ObsTZ.
    c.RealTimeMode = false;
    c.ObsTZ = 1.0;
    c.SystemClockTZ = 5.5;
    c.UpdateClockOffset();
    f.FixedUT = DateSerial(2026, 1, 1) + TimeSerial(22, 0, 0);
    t = BuildTimeTexts(c, f, computerClock);
    EXPECT_EQ(t.txtY + "-" + t.txtM + "-" + t.txtD + " " + t.txtH + ":" + t.txtN, "2026-01-02 03:30");
    c.UseGMT = true;
    EXPECT_EQ(BuildTimeTexts(c, f, computerClock).txtH, "22");
}

TEST(TimeTexts, SiderealLineTruncatesToTheSecond) {
    Core c;
    FixedSnapshot f;
    c.LST = 23.99999f;
    EXPECT_EQ(BuildTimeTexts(c, f, 0).Label3, " LMST: 23:59:59");
    c.RealTimeMode = false;
    f.FixedLST = 12.25f;
    EXPECT_EQ(BuildTimeTexts(c, f, 0).Label3, " LMST: 12:15:00");
}

TEST(InfoTexts, PrefixesAndMasksInRealTime) {
    Core c = LiveCore();
    c.CMLIII = 123.45f;
    c.IoPhase = 7.0f;
    c.JupAlt = -5.25;
    c.JupAz = 7.04;
    InfoTexts i = BuildInfoTexts(c, FixedSnapshot{});
    EXPECT_EQ(i.LBlCMIII + "|" + i.LbLSGC + "|" + i.LBLJupAlt + "|" + i.LBLJupAz,
              "CML:  123.45|Io Phase: 007.00|ALT: -05.3|AZ: 007.0");
}

TEST(InfoTexts, HourAnglesFoldOnlyBelowMinusTwelve) {
    Core c = LiveCore();
    c.LST = 23.0f;
    c.JupRA = 1.0; // 22 hours: shown as it is
    c.SunRA = 12.0;
    EXPECT_EQ(BuildInfoTexts(c, FixedSnapshot{}).LBLJupHA, "HA: 22:00");
    c.LST = 1.0f;
    c.JupRA = 14.0; // -13 hours folds to 11
    EXPECT_EQ(BuildInfoTexts(c, FixedSnapshot{}).LBLJupHA, "HA: 11:00");
}

TEST(InfoTexts, RiseAndSetInLocalTimeWrap) {
    Core c = LiveCore();
    c.SunRise = 3.0;
    c.SunSet = 22.5;
    c.JupRise = -1.0; // never rises
    c.UseGMT = false;
    c.ObsTZ = -5.0;
    InfoTexts i = BuildInfoTexts(c, FixedSnapshot{});
    EXPECT_EQ(i.LbLSunRise, "Rise: 22:00");
    EXPECT_EQ(i.LbLSunSet, "Set: 17:30");
    EXPECT_EQ(i.LbLJupRise, "Rise: -01:00"); // "none" is not a time to move into the zone
    c.ObsTZ = 5.5;
    i = BuildInfoTexts(c, FixedSnapshot{});
    EXPECT_EQ(i.LbLSunSet, "Set: 04:00");
    c.UseGMT = true;
    EXPECT_EQ(BuildInfoTexts(c, FixedSnapshot{}).LbLJupRise, "Rise: -01:00");
}

TEST(InfoTexts, FixedTimeReadsTheSnapshot) {
    Core c = LiveCore();
    c.RealTimeMode = false;
    FixedSnapshot f;
    f.FixedCML = 360.0f;
    f.FixedIoPhase = 90.5f;
    f.FixedJupRA = 10.5;
    f.FixedJupDec = -0.5;
    f.FixedLST = 11.0f;
    f.FixedSunAlt = 45.04;
    const InfoTexts i = BuildInfoTexts(c, f);
    EXPECT_EQ(i.LBlCMIII + "|" + i.LbLSGC + "|" + i.LbLJupRA + "|" + i.LbLJupDec + "|" + i.LBLJupHA + "|" + i.LBLSunAlt,
              "CMIII:  360|Io SGC: 090.50|RA: 10:30|DEC: -00:30|HA: 00:30|ALT: 45.0");
}

// East longitudes show as 360 less the west one; a version whose major number is 0 loses it.
TEST(Captions, ObserverLabelAndVersion) {
    Core c;
    c.ObsLatitude = 39.25f;
    c.ObsLongitude = 285.0f;
    EXPECT_EQ(ObserverLabelText(c), "Lat : 39:15:00.0\nLong: 285:00:00.0 W");
    c.DisplayWest = "E";
    EXPECT_EQ(ObserverLabelText(c), "Lat : 39:15:00.0\nLong: 75:00:00.0 E");
    EXPECT_EQ(TitleWithVersion("Tarvelle", 3, 8, 2), "Tarvelle   3.8.2");
    EXPECT_EQ(TitleWithVersion("Tarvelle", 0, 0, 0), "Tarvelle   .0.0");
}
