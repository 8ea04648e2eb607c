// The ephemeris grid: its refusals, its size for an interval, the day's labels and the core
// left as it was found. Every cell and label is compared with tests/reference/compare_tables.py.
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
    const std::string interval = "Interval must be 1 to 360 Minutes.", date = "Invalid Date";
    const struct { EphemerisInput in; std::string message; } cases[] = {
        {{"2024", "5", "5", "0"}, interval},   {{"2024", "5", "5", "361"}, interval},
        {{"2024", "5", "5", "0.99"}, interval}, {{"2024", "5", "5", "abc"}, interval},
        {{"1899", "12", "31", "30"}, date},     {{"2301", "1", "1", "30"}, date}, {{"2024", "13", "1", "30"}, date},
        {{"2024", "0", "1", "30"}, date},       {{"2024", "1", "32", "30"}, date}, {{"2024", "1", "0", "30"}, date},
    };
    for (const auto& c : cases) {
        Core core = Observer(40.0f, 75.0f, -5.0);
        const double before = core.CurrentUT;
        const EphemerisResult r = ComputeEphemeris(core, c.in);
        EXPECT_EQ(r.message, c.message) << c.in.year << "-" << c.in.month << "-" << c.in.day << " i=" << c.in.interval;
        EXPECT_EQ(r.exclamation, c.message == interval) << "only the interval's message has the exclamation icon";
        EXPECT_TRUE(r.rows.empty());
        EXPECT_EQ(core.CurrentUT, before);
    }
}

TEST(Ephemeris, GridSizeAndLastRowFollowTheInterval) {
    const struct {
        const char* interval;
        int gridRows;        // with the empty last row
        const char* lastGMT; // of the last filled row
    } cases[] = {{"360", 5, "12:00"},    {"30", 49, "23:00"},   {"7", 206, "23:41"},
                 {"1", 1441, "23:58"},   {"2.5", 577, "23:55"}, {"60abc", 25, "22:00"}};
    for (const auto& c : cases) {
        Core core = Observer(52.0f, 0.0f, 0.0);
        int yields = 0;
        const EphemerisResult r = ComputeEphemeris(core, {"2024", "2", "29", c.interval}, [&] { ++yields; });
        ASSERT_TRUE(r.message.empty()) << c.interval;
        EXPECT_EQ(core.CurrentUT, DateSerial(2026, 11, 23) + 0.25) << "the core is left at its instant";
        EXPECT_EQ(r.gridRows, c.gridRows) << c.interval;
        ASSERT_EQ(static_cast<int>(r.rows.size()), c.gridRows - 1) << c.interval;
        EXPECT_EQ(yields, c.gridRows - 2) << "one yield a filled row";
        EXPECT_EQ(r.rows[0], EphemerisHeadings());
        EXPECT_EQ(r.rows[1][0], "00:00");
        EXPECT_EQ(r.rows.back()[0], c.lastGMT) << c.interval;
    }
}

TEST(Ephemeris, LocalDateAndTimesFollowTheZoneAndTheCalendarCarries) {
    const struct { EphemerisInput in; double tz; const char *localDate, *firstLocal; } cases[] = {
        {{"2023", "2", "31", "60"}, 0.0, "Local Date Begins: 2023/03/03", "00:00"},
        {{"2024", "3", "1", "60"}, -5.0, "Local Date Begins: 2024/02/29", "19:00"},
        {{"1900", "2", "29", "60"}, 9.5, "Local Date Begins: 1900/03/01", "09:30"},
        {{"2000", "1", "1", "60"}, -0.5, "Local Date Begins: 1999/12/31", "23:30"},
    };
    for (const auto& c : cases) {
        Core core = Observer(-33.0f, 210.0f, c.tz);
        const EphemerisResult r = ComputeEphemeris(core, c.in);
        ASSERT_TRUE(r.message.empty());
        EXPECT_EQ(r.labels.front().first, "LBLLocalDate");
        EXPECT_EQ(Label(r, "LBLLocalDate"), c.localDate);
        EXPECT_EQ(r.rows[1][1], c.firstLocal);
    }
}

} // namespace
