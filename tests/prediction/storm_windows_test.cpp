// The calendar's lines and the next audible window. The events themselves are checked against the
// grid and the text report over a month by check_storm_windows.py.
#include "prediction/next_window.h"
#include "prediction/storm_windows.h"

#include "../support/station_test.h"
#include "core/date_value.h"
#include "formats/mode_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

using namespace tarvelle;

namespace {

ModeTableState BundledModes() {
    ModeTableState modes;
    modes.ModeFileName = TARVELLE_SOURCE_DATA "/UFMODES.JMF";
    EXPECT_EQ(ReadModeFile(modes), 0);
    return modes;
}

ModeTableState OneMode(const std::string& name, int16_t cml1, int16_t cml2, int16_t io1, int16_t io2) {
    ModeTableState modes;
    modes.NumModes = 1;
    modes.ModeName[1] = name;
    modes.ModeTable[1] = {0, cml1, cml2, io1, io2};
    modes.ModesLoaded = true;
    return modes;
}

// The day's events at the station's sample observer, read from the grid (the grid's events are
// checked against the text report by check_storm_windows.py).
std::vector<StormEvent> DayEvents(const ModeTableState& modes, double day) {
    Core core;
    core.ObsLatitude = 39.25f;
    core.ObsLongitude = 76.5f;
    MinuteTables tables;
    auto activity = std::make_unique<ActivityTable>();
    PredictionGrid grid;
    PredictDay(core, modes, {}, tables, *activity, grid, day);
    return GridEvents(grid, day);
}

// Lines fold after 75 octets with CR LF, a blank opening each continuation, and no character is
// cut. check_storm_windows.py folds a name with a character at the fold; the octet counts at the
// edges are checked here.
TEST(CalendarLines, FoldAt75OctetsWithoutCuttingACharacter) {
    const std::string e = "\xc3\xa9", a73(73, 'a'), a74(74, 'a'), a75(75, 'a'); // e: two octets
    const std::pair<std::string, std::string> cases[] = {
        {a75, a75 + "\r\n"},
        {a75 + "a", a75 + "\r\n a\r\n"},
        {a75 + a75, a75 + "\r\n " + a74 + "\r\n a\r\n"}, // a continuation holds 74 after its blank
        {a73 + e + "b", a73 + e + "\r\n b\r\n"},        // the character ends at octet 75
        {a74 + e, a74 + "\r\n " + e + "\r\n"},          // it would end at octet 76
    };
    for (const auto& [line, folded] : cases) EXPECT_EQ(FoldContentLine(line), folded) << line.size();
}

std::vector<std::string> Uids(const std::string& calendar) {
    std::vector<std::string> uids;
    for (size_t at = calendar.find("UID:"); at != std::string::npos; at = calendar.find("UID:", at + 1))
        uids.push_back(calendar.substr(at, calendar.find("\r\n", at) - at));
    return uids;
}

// check_storm_windows.py finds the UIDs unique at each place and the same on a second run; they
// must also differ from place to place, and for events apart by one minute only.
TEST(CalendarLines, UidsAreApartForEachPlaceAndMinute) {
    const std::vector<CalendarEvent> events = {{{1, "Io-A", DateSerial(2026, 11, 3), 60, 90}},
                                               {{1, "Io-A", DateSerial(2026, 11, 3), 61, 90}}};
    const auto here = Uids(CalendarText(events, "1.0", DateSerial(2026, 1, 1), "39:15 76:30"));
    const auto elsewhere = Uids(CalendarText(events, "1.0", DateSerial(2026, 1, 1), "-33:52 208:47"));
    ASSERT_EQ(here.size(), 2u);
    EXPECT_TRUE(here[0] != here[1] && here[0] != elsewhere[0] && here[1] != elsewhere[1]);
}

// The next window on the station's own clock, set by hand (five hours west of Greenwich).
class NextWindowTest : public StationTest {
protected:
    void SetGMT(double gmt) {
        UseSampleObserver();
        clock.local = gmt - 5.0 / 24.0;
        station->ReadClock();
        ASSERT_NEAR(core().CurrentUT, gmt, 1e-9);
    }
    std::string Line(const ModeTableState& modes) {
        const double now = core().CurrentUT;
        return NextWindowText(FindNextWindow(core(), modes, SavedExclusions(*settings), now), now, core().UseGMT,
                              core().ObsTZ);
    }
    void AllowEveryMinute() {
        for (const auto& [key, value] : {std::pair{"ReportJupAltMin", "-90"}, {"ReportSunAltMax", "90"},
                                         {"ReportMinHA", "-99"}, {"ReportMaxHA", "99"}})
            settings->save("Settings", key, value);
    }
};

TEST_F(NextWindowTest, LateInTheDayTheNextWindowIsTomorrowsFirst) {
    const ModeTableState modes = BundledModes();
    int checked = 0;
    for (int k = 0; k < 30; ++k) {
        const double today = DateSerial(2026, 11, 1) + k;
        const auto late = DayEvents(modes, today), tomorrow = DayEvents(modes, today + 1.0);
        if (tomorrow.empty() ||
            std::any_of(late.begin(), late.end(), [](const StormEvent& e) { return e.end > 23 * 60 + 30; }))
            continue;
        const StormEvent first = *std::min_element(tomorrow.begin(), tomorrow.end(),
                                                   [](auto& a, auto& b) { return a.begin < b.begin; });
        SetGMT(today + TimeSerial(23, 30, 0));
        const int wait = 30 + first.begin;
        const std::string in = "in " + (wait >= 60 ? std::to_string(wait / 60) + " h " : "") +
                               std::to_string(wait % 60) + " min";
        core().UseGMT = true;
        EXPECT_EQ(Line(modes), "Next: " + first.name + " " + MinutesToHHMM(first.begin) + "-" + MinutesToHHMM(first.end) + " GMT, " + in);
        core().UseGMT = false; // five hours west
        EXPECT_EQ(Line(modes), "Next: " + first.name + " " + MinutesToHHMM((first.begin + 19 * 60) % 1440) + "-" +
                                   MinutesToHHMM((first.end + 19 * 60) % 1440) + " Local, " + in);
        ++checked;
    }
    EXPECT_GT(checked, 3);
}

TEST_F(NextWindowTest, AWindowThroughMidnightIsOneWindowAndCountsWhileItLasts) {
    AllowEveryMinute();
    const ModeTableState modes = OneMode("All", 0, 360, 0, 360);
    const double today = DateSerial(2026, 11, 22);
    SetGMT(today + TimeSerial(23, 50, 0));
    const auto next = FindNextWindow(core(), modes, SavedExclusions(*settings), core().CurrentUT);
    ASSERT_TRUE(next.has_value());
    EXPECT_EQ(next->begin, MinuteOf(today));
    EXPECT_EQ(next->end, MinuteOf(today + 1.0) + 1439);
    EXPECT_EQ(Line(modes), "Next: All 00:00-23:59 GMT, now");
}

TEST_F(NextWindowTest, NoneInTheComing48Hours) {
    const struct {
        ModeTableState modes;
        const char* jupAltMin; // the stored exclusion
        bool none;
    } cases[] = {
        {OneMode("Never", 0, 360, 200, 100), "-90", true}, // an Io range backwards never matches
        {OneMode("Always", 0, 360, 0, 360), "91", true},   // Jupiter never that high
        {OneMode("Always", 0, 360, 0, 360), "-90", false}, // the limit alone made it none
    };
    SetGMT(DateSerial(2026, 11, 22) + TimeSerial(23, 59, 0));
    AllowEveryMinute();
    for (const auto& c : cases) {
        settings->save("Settings", "ReportJupAltMin", c.jupAltMin);
        EXPECT_EQ(Line(c.modes) == "Next: none in the coming 48 h", c.none) << c.modes.ModeName[1];
    }
}

} // namespace
