// Where things stand on the CML-Io phase plane.
#include "prediction/plane_track.h"

#include <gtest/gtest.h>

using namespace tarvelle;

TEST(PlaneTrack, ShiftHourTextsAndTheEndOfTheDay) {
    EXPECT_EQ(PlaneX(30, 45), 345.0);
    EXPECT_EQ(PlaneX(45, 45), 0.0);
    EXPECT_EQ(PlaneX(360, 0), 0.0);
    EXPECT_EQ(TrackHourText(3, true, 5.5), "3");
    EXPECT_EQ(TrackHourText(0, false, 5.5), "5.5");
    EXPECT_EQ(TrackHourText(19, false, 5), "0"); // 24 is written as 0
    EXPECT_EQ(TrackHourText(2, false, -5), "21");
    EXPECT_EQ(TrackEndOfDay(true, -5), 1440.0);
    EXPECT_EQ(TrackEndOfDay(false, -5), 1740.0);
}

TEST(PlaneTrack, MarkerCornerAndPointer) {
    // A 19-pixel block centred on CML 30 with the shift: -24.5 rounds to even, then wraps.
    const BlockCorner shifted = MarkerCorner(30, 90, 45, 360, 360, 19, 19);
    EXPECT_EQ(shifted.left, 336);
    EXPECT_EQ(shifted.top, 260);
    EXPECT_EQ(MarkerCorner(30, 90, 0, 360, 360, 19, 19).left, 20);
    EXPECT_EQ(DayPointerOf(10.5), 720); // noon is minute 720 in the tables' steps
    EXPECT_EQ(DayPointerOf(3.0), 0);
    const PlanePoint p = PlanePointAt(315, 270, 45);
    EXPECT_EQ(p.cml, 0.0f); // 360 folds to 0
    EXPECT_EQ(p.io, 90.0f);
}
