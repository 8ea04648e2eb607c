// The ephemeris grid: its refusals, its size for an interval, the day's labels and the core
// left as it was found.
#include "tables/ephemeris.h"

#include "core/date_value.h"

#include <gtest/gtest.h>

using namespace tarvelle;

namespace {

Core Observer(float lat, float lngWest, double tz) {
    Core core;
    core.ObsLatitude = lat;
    core.ObsLongitude = lngWest;
    core.ObsTZ = tz;
    core.CurrentUT = DateSerial(2026, 11, 23) + 0.25;
    return core;
}

std::string Label(const EphemerisResult& r, const std::string& name) {
    for (const auto& [n, caption] : r.labels)
        if (n == name) return caption;
    return "(missing " + name + ")";
}

TEST(Ephemeris, RefusesBadIntervalsAndDatesBeforeTouchingTheCore) {
    struct Case {
        EphemerisInput in;
        const char* message;
        bool exclamation;
    } cases[] = {
        {{"2024", "5", "5", "0"}, "Interval must be 1 to 360 Minutes.", true},
        {{"2024", "5", "5", "361"}, "Interval must be 1 to 360 Minutes.", true},
        {{"2024", "5", "5", "0.99"}, "Interval must be 1 to 360 Minutes.", true},
        {{"2024", "5", "5", "abc"}, "Interval must be 1 to 360 Minutes.", true},
        {{"1899", "12", "31", "30"}, "Invalid Date", false},
        {{"2301", "1", "1", "30"}, "Invalid Date", false},
        {{"2024", "13", "1", "30"}, "Invalid Date", false},
        {{"2024", "0", "1", "30"}, "Invalid Date", false},
        {{"2024", "1", "32", "30"}, "Invalid Date", false},
        {{"2024", "1", "0", "30"}, "Invalid Date", false},
    };
    for (const Case& c : cases) {
        Core core = Observer(40.0f, 75.0f, -5.0);
        const double before = core.CurrentUT;
        const EphemerisResult r = ComputeEphemeris(core, c.in);
        EXPECT_EQ(r.message, c.message) << c.in.year << "-" << c.in.month << "-" << c.in.day << " i=" << c.in.interval;
        EXPECT_EQ(r.exclamation, c.exclamation);
        EXPECT_TRUE(r.rows.empty());
        EXPECT_EQ(core.CurrentUT, before);
    }
}

TEST(Ephemeris, GridSizeAndLastRowFollowTheInterval) {
    struct Case {
        const char* interval;
        int gridRows;        // with the empty last row
        const char* lastGMT; // of the last filled row
    } cases[] = {
        {"360", 5, "12:00"}, {"30", 49, "23:00"}, {"7", 206, "23:41"},
        {"1", 1441, "23:58"}, {"2.5", 577, "23:55"}, {"60abc", 25, "22:00"},
    };
    for (const Case& c : cases) {
        Core core = Observer(52.0f, 0.0f, 0.0);
        int yields = 0;
        const EphemerisResult r = ComputeEphemeris(core, {"2024", "2", "29", c.interval}, [&] { ++yields; });
        ASSERT_TRUE(r.message.empty()) << c.interval;
        EXPECT_EQ(r.gridRows, c.gridRows) << c.interval;
        ASSERT_EQ(static_cast<int>(r.rows.size()), c.gridRows - 1) << c.interval;
        EXPECT_EQ(yields, c.gridRows - 2) << "one yield a filled row";
        EXPECT_EQ(r.rows[0], EphemerisHeadings());
        EXPECT_EQ(r.rows[1][0], "00:00");
        EXPECT_EQ(r.rows.back()[0], c.lastGMT) << c.interval;
    }
}

TEST(Ephemeris, LocalDateAndTimesFollowTheZoneAndTheCalendarCarries) {
    struct Case {
        EphemerisInput in;
        double tz;
        const char* localDate;
        const char* firstLocal;
    } cases[] = {
        {{"2023", "2", "31", "60"}, 0.0, "Local Date Begins: 2023/03/03", "00:00"},
        {{"2024", "3", "1", "60"}, -5.0, "Local Date Begins: 2024/02/29", "19:00"},
        {{"1900", "2", "29", "60"}, 9.5, "Local Date Begins: 1900/03/01", "09:30"},
        {{"2000", "1", "1", "60"}, -0.5, "Local Date Begins: 1999/12/31", "23:30"},
    };
    for (const Case& c : cases) {
        Core core = Observer(-33.0f, 210.0f, c.tz);
        const EphemerisResult r = ComputeEphemeris(core, c.in);
        ASSERT_TRUE(r.message.empty());
        EXPECT_EQ(r.labels.front().first, "LBLLocalDate");
        EXPECT_EQ(Label(r, "LBLLocalDate"), c.localDate);
        EXPECT_EQ(r.rows[1][1], c.firstLocal);
    }
}

TEST(Ephemeris, CellsAreTheCoreValuesOfEachRowInstant) {
    Core core = Observer(39.25f, 76.5f, -5.0);
    const double before = core.CurrentUT;
    const EphemerisResult r = ComputeEphemeris(core, {"2024", "7", "4", "90"});
    EXPECT_EQ(core.CurrentUT, before);
    ASSERT_EQ(r.rows.size(), 16u);
    // Row 5 is 06:00 GMT: a fresh core put at that instant gives the same texts.
    Core at = Observer(39.25f, 76.5f, -5.0);
    at.CurrentUT = DateSerial(2024, 7, 4) + 0.25;
    at.UpdateSiderealTime();
    at.UpdatePositions();
    at.UpdateMagLat();
    EXPECT_EQ(r.rows[5], EphemerisRowNow(at));
    EXPECT_EQ(r.rows[5][0], "06:00");
    // Hour angles stay within half a day either way.
    for (size_t i = 1; i < r.rows.size(); ++i)
        for (int c : {4, 10}) {
            const double ha = std::stod(r.rows[i][static_cast<size_t>(c)]);
            EXPECT_LE(std::abs(ha), 12.0) << i;
        }
    EXPECT_EQ(Label(r, "LbLDist").rfind("Dist:  ", 0), 0u) << "the Str form keeps its blank";
    EXPECT_NE(r.rows[1][5].front(), ' ') << "CML III without the blank";
}

} // namespace
