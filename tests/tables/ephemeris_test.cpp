// The ephemeris grid: what tests/reference/compare_tables.py cannot see through tarvelle-cli (the
// message's icon, the core left as it was found, the yields, a trailing junk interval). Every
// cell, label and message is compared there.
#include "tables/ephemeris.h"

#include "core/date_value.h"

#include <gtest/gtest.h>

using namespace tarvelle;

namespace {

TEST(Ephemeris, RefusalsLeaveTheCoreAndOnlyTheIntervalHasTheExclamation) {
    const std::string interval = "Interval must be 1 to 360 Minutes.", date = "Invalid Date";
    const struct { EphemerisInput in; std::string message; } cases[] = {
        {{"2024", "5", "5", "0.99"}, interval}, {{"2024", "13", "1", "30"}, date}};
    for (const auto& c : cases) {
        Core core;
        core.CurrentUT = DateSerial(2026, 11, 23) + 0.25;
        const EphemerisResult r = ComputeEphemeris(core, c.in);
        EXPECT_EQ(r.message, c.message) << c.in.interval;
        EXPECT_EQ(r.exclamation, c.message == interval);
        EXPECT_TRUE(r.rows.empty());
        EXPECT_EQ(core.CurrentUT, DateSerial(2026, 11, 23) + 0.25);
    }
}

// One yield a filled row; the interval is the value of its leading number; the core keeps its instant.
TEST(Ephemeris, GridFollowsTheIntervalYieldingARowAtATime) {
    const struct { const char* interval; int gridRows; const char* lastGMT; } cases[] = {
        {"7", 206, "23:41"}, {"60abc", 25, "22:00"}};
    for (const auto& c : cases) {
        Core core;
        core.CurrentUT = DateSerial(2026, 11, 23) + 0.25;
        int yields = 0;
        const EphemerisResult r = ComputeEphemeris(core, {"2024", "2", "29", c.interval}, [&] { ++yields; });
        ASSERT_TRUE(r.message.empty()) << c.interval;
        EXPECT_EQ(core.CurrentUT, DateSerial(2026, 11, 23) + 0.25);
        EXPECT_EQ(r.gridRows, c.gridRows) << c.interval;
        ASSERT_EQ(static_cast<int>(r.rows.size()), c.gridRows - 1) << "with the empty last row";
        EXPECT_EQ(yields, c.gridRows - 2);
        EXPECT_EQ(r.rows.back()[0], c.lastGMT) << c.interval;
    }
}

// A zone of minus half an hour (no observer of tests/reference has one) carries the local date
// back across the year.
TEST(Ephemeris, ANegativeHalfHourZoneCarriesTheLocalDateBack) {
    Core core;
    core.ObsTZ = -0.5;
    const EphemerisResult r = ComputeEphemeris(core, {"2000", "1", "1", "60"});
    ASSERT_TRUE(r.message.empty());
    EXPECT_EQ(r.labels.front(), std::make_pair(std::string("LBLLocalDate"), std::string("Local Date Begins: 1999/12/31")));
    EXPECT_EQ(r.rows[1][1], "23:30");
}

} // namespace
