// Where things stand on the CML-Io phase plane.
#include "prediction/plane_track.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using namespace tarvelle;

TEST(PlaneTrack, ShiftHourTextsAndTheEndOfTheDay) {
    EXPECT_TRUE(PlaneX(30, 45) == 345.0 && PlaneX(45, 45) == 0.0 && PlaneX(360, 0) == 0.0);
    // GMT hours as they are; local ones moved by the zone, 24 written as 0.
    EXPECT_EQ(TrackHourText(3, true, 5.5) + " " + TrackHourText(0, false, 5.5), "3 5.5");
    EXPECT_EQ(TrackHourText(19, false, 5) + " " + TrackHourText(2, false, -5), "0 21");
    EXPECT_TRUE(TrackEndOfDay(true, -5) == 1440.0 && TrackEndOfDay(false, -5) == 1740.0);
}

TEST(PlaneTrack, MarkerCornerAndPointer) {
    // A 19-pixel block centred on CML 30 with the shift: -24.5 rounds to even, then wraps.
    const BlockCorner shifted = MarkerCorner(30, 90, 45, 360, 360, 19, 19);
    EXPECT_TRUE(shifted.left == 336 && shifted.top == 260);
    EXPECT_EQ(MarkerCorner(30, 90, 0, 360, 360, 19, 19).left, 20);
    // Noon is minute 720 in the tables' steps.
    EXPECT_TRUE(DayPointerOf(10.5) == 720 && DayPointerOf(3.0) == 0);
    const PlanePoint p = PlanePointAt(315, 270, 45);
    EXPECT_TRUE(p.cml == 0.0f && p.io == 90.0f); // 360 folds to 0
}

TEST(PlaneTrack, EachHourTextOnceAndWithinTheDayShown) {
    struct Case {
        bool gmt;
        double zone;
        size_t firstRow; // where the day shown starts carrying its texts
    };
    const Case cases[] = {{true, -5, 0}, {false, -5, 300}, {false, 5, 0}, {false, 5.5, 0},
                          {false, -12, 720}, {false, 14, 0}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "gmt " << c.gmt << " zone " << c.zone);
        const std::vector<size_t> rows = TrackHourRows(c.gmt, c.zone);
        std::set<std::string> texts;
        for (const size_t k : rows) {
            EXPECT_EQ(k % 60, 0u);
            EXPECT_LE(k, 1800u);
            EXPECT_TRUE(texts.insert(TrackHourText(static_cast<double>(k) / 60.0, c.gmt, c.zone)).second)
                << "repeated at row " << k;
        }
        EXPECT_EQ(rows.size(), 24u); // every hour of the day, none twice
        // The day shown's own hours come first; the track beyond its end adds only what is missing.
        const double end = TrackEndOfDay(c.gmt, c.zone);
        for (size_t k = 0; k <= 1800; k += 60) {
            const auto m = static_cast<double>(k);
            const bool shown = k == c.firstRow || (m >= end - 1440.0 && m < end);
            EXPECT_TRUE(!shown || std::find(rows.begin(), rows.end(), k) != rows.end()) << k;
        }
    }
}

TEST(PlaneTrack, ReadoutsWithoutATrailingDot) {
    const std::pair<double, const char*> cases[] = {
        {137.0, "137"}, {137.4, "137.4"}, {359.96, "360"}, {0.0, "0"}, {0.5, "0.5"}, {12.04, "12"}, {90.26, "90.3"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(PlaneReadoutText(value), text) << value;
}
