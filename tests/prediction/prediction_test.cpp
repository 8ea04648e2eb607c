// The daily prediction: the mode match, the scan of a day, exclusions, the duration filter,
// the grid and the activity line. Most cases build the minute tables by hand so that the
// expected activity and grid follow from the rules alone.
#include "prediction/prediction.h"

#include "core/date_value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

using namespace tarvelle;

namespace {

using Mode = std::array<int16_t, 5>;

Mode M(int cml1, int cml2, int io1, int io2) {
    return {0, static_cast<int16_t>(cml1), static_cast<int16_t>(cml2), static_cast<int16_t>(io1),
            static_cast<int16_t>(io2)};
}

ModeTableState Modes(std::vector<std::pair<std::string, Mode>> rows) {
    ModeTableState modes;
    for (size_t i = 0; i < rows.size(); ++i) {
        modes.ModeName[i + 1] = rows[i].first;
        modes.ModeTable[i + 1] = rows[i].second;
    }
    modes.NumModes = static_cast<int16_t>(rows.size());
    modes.ModesLoaded = true;
    return modes;
}

// Tables in which nothing is excluded by the default limits: Jupiter up, the Sun down, the
// hour angle at 0. Io phase 10 and CML 100 everywhere.
MinuteTables QuietTables() {
    MinuteTables t;
    const size_t n = kMinutesPerDay + 1;
    t.MinuteCML.assign(n, 100);
    t.MinuteIo.assign(n, 10);
    t.MinuteJupAlt.assign(n, 30);
    t.MinuteSunAlt.assign(n, -20);
    t.MinuteJupHA.assign(n, 0.0f);
    return t;
}

// Tables whose Io phase is 10 in the listed minute spans [from, to] and 200 elsewhere, with a
// mode that matches Io 0 to 20 at any CML: the spans are the events.
MinuteTables Spans(std::vector<std::pair<int, int>> spans) {
    MinuteTables t = QuietTables();
    for (auto& io : t.MinuteIo) io = 200;
    for (const auto& [from, to] : spans)
        for (int m = from; m <= to; ++m) t.MinuteIo[static_cast<size_t>(m)] = 10;
    return t;
}

const ModeTableState kSpanMode = Modes({{"Io-A", M(0, 360, 0, 20)}});

std::unique_ptr<ActivityTable> Activity() {
    return std::make_unique<ActivityTable>();
}

// The minutes of a mode's row that hold a value.
std::vector<int> MinutesWith(const ActivityTable& a, size_t mode, int16_t value) {
    std::vector<int> out;
    for (size_t m = 0; m <= static_cast<size_t>(kMinutesPerDay); ++m)
        if (a[mode][m] == value) out.push_back(static_cast<int>(m));
    return out;
}

std::vector<int> Range(int from, int to) {
    std::vector<int> out;
    for (int m = from; m <= to; ++m) out.push_back(m);
    return out;
}

Core Place(float latitude, float longitudeWest) {
    Core c;
    c.ObsLatitude = latitude;
    c.ObsLongitude = longitudeWest;
    return c;
}

// The sky at minute m of a prediction: 00:10 GMT plus m minutes, all positions recomputed.
Core SkyAtMinute(float latitude, float longitudeWest, double day, size_t m) {
    Core sky = Place(latitude, longitudeWest);
    sky.CurrentUT = day + (10.0 + static_cast<double>(m)) / 1440.0;
    sky.UpdateSiderealTime();
    sky.UpdatePositions();
    return sky;
}

} // namespace

TEST(ModeMatch, CMLRangeThroughThreeSixtyAndInclusiveEnds) {
    const Mode wrapped = M(200, 10, 100, 120); // 200 up through 360 and on to 10
    const struct {
        int cml;
        int16_t expected;
    } cases[] = {{199, 0}, {200, 1}, {290, 1}, {359, 1}, {360, 1},
                 {0, 1},   {1, 1},   {10, 1},  {11, 0},  {100, 0}};
    for (const auto& c : cases)
        EXPECT_EQ(ModeMatch(static_cast<int16_t>(c.cml), 110, wrapped), c.expected) << "CML " << c.cml;

    const Mode plain = M(105, 185, 55, 110);
    const struct {
        int cml, io;
        int16_t expected;
    } ends[] = {{104, 80, 0}, {105, 80, 1}, {185, 80, 1}, {186, 80, 0},
                {150, 54, 0}, {150, 55, 1}, {150, 110, 1}, {150, 111, 0}};
    for (const auto& c : ends)
        EXPECT_EQ(ModeMatch(static_cast<int16_t>(c.cml), static_cast<int16_t>(c.io), plain), c.expected)
            << c.cml << " " << c.io;
    // A range of one degree, and the full circle.
    EXPECT_EQ(ModeMatch(42, 0, M(42, 42, 0, 0)), 1);
    EXPECT_EQ(ModeMatch(43, 0, M(42, 42, 0, 0)), 0);
    for (int cml : {0, 1, 180, 360})
        EXPECT_EQ(ModeMatch(static_cast<int16_t>(cml), 360, M(0, 360, 0, 360)), 1);
}

TEST(ModeMatch, ReversedIoRangeNeverMatchesEvenWithAWrappedCML) {
    for (const Mode& mode : {M(0, 360, 200, 100), M(300, 30, 200, 100), M(300, 30, 1, 0)})
        for (int cml = 0; cml <= 360; cml += 5)
            for (int io = 0; io <= 360; io += 5)
                ASSERT_EQ(ModeMatch(static_cast<int16_t>(cml), static_cast<int16_t>(io), mode), 0)
                    << cml << " " << io << " " << mode[1] << "-" << mode[2];
    // Out of its Io range a wrapped mode stays off in the part past 360 as well.
    EXPECT_EQ(ModeMatch(5, 50, M(300, 30, 100, 200)), 0);
}

TEST(MatchModes, FillsMinutesOneToLastForTheFirstSixModesOnly) {
    MinuteTables t = QuietTables();
    t.MinuteCML[1] = 300;
    t.MinuteCML[1440] = 300;
    ModeTableState modes;
    for (int i = 1; i <= 8; ++i) modes.ModeTable[static_cast<size_t>(i)] = M(250, 350, 0, 20);
    modes.NumModes = 8;
    auto a = Activity();
    (*a)[1][0] = 7; // row 0 is not the match's
    MatchModes(t, modes, *a);
    for (size_t i = 1; i <= 6; ++i) EXPECT_EQ(MinutesWith(*a, i, 1), (std::vector<int>{1, 1440})) << i;
    EXPECT_EQ((*a)[1][0], 7);
}

TEST(ComputeReportEvents, ExclusionsMarkMatchedMinutesOnlyAndTheirLimitsStay) {
    MinuteTables t = QuietTables();
    // Minute by minute: the limit itself, then just past it.
    t.MinuteJupAlt[10] = 5;
    t.MinuteJupAlt[11] = 4;
    t.MinuteSunAlt[20] = -3;
    t.MinuteSunAlt[21] = -2;
    t.MinuteJupHA[30] = -4.0f;
    t.MinuteJupHA[31] = -4.01f;
    t.MinuteJupHA[40] = 3.5f;
    t.MinuteJupHA[41] = 3.51f;
    t.MinuteCML[50] = 10; // not a match: stays 0 even though excluded
    t.MinuteJupAlt[50] = -40;
    const ModeTableState modes = Modes({{"A", M(90, 110, 0, 20)}});
    ReportExclusions ex;
    ex.ReportJupAltMin = 5.0f;
    ex.ReportSunAltMax = -3.0f;
    ex.MinHA = -4.0;
    ex.MaxHA = 3.5;
    auto a = Activity();
    ComputeReportEvents(t, modes, ex, *a);
    EXPECT_EQ(MinutesWith(*a, 1, -1), (std::vector<int>{11, 21, 31, 41}));
    EXPECT_EQ((*a)[1][50], 0);
    EXPECT_EQ(MinutesWith(*a, 1, 1).size(), 1440u - 5u);
    EXPECT_EQ((*a)[1][0], 0);
}

TEST(ComputeReportEvents, ExclusionsReadAsTheFieldsGiveThem) {
    const ReportExclusions ex = ExclusionsFromTexts(" 12.5deg", "-6", "abc", "&H4");
    EXPECT_EQ(ex.ReportJupAltMin, 12.5f);
    EXPECT_EQ(ex.ReportSunAltMax, -6.0f);
    EXPECT_EQ(ex.MinHA, 0.0);
    EXPECT_EQ(ex.MaxHA, 4.0);
    EXPECT_FALSE(ex.ReportInProgress);
    // A number too large for a single leaves the limit at 0.
    EXPECT_EQ(ExclusionsFromTexts("1e60", "0", "0", "0").ReportJupAltMin, 0.0f);
}

TEST(ComputeReportEvents, DurationFilterOnlyDuringAReport) {
    // Events of 4 and 5 minutes, one of 3 + 3 split by an excluded minute, one of 1 minute
    // just after a long event, and one to the end of the day.
    MinuteTables t = Spans({{100, 103}, {200, 204}, {300, 306}, {400, 499}, {501, 501}, {1430, 1440}});
    t.MinuteJupAlt[303] = -10; // excluded: the minute in the middle becomes -1
    ReportExclusions ex;
    ex.ReportMinDuration = 5.0f;

    auto a = Activity();
    ComputeReportEvents(t, kSpanMode, ex, *a); // not in a report: nothing is dropped
    EXPECT_EQ(MinutesWith(*a, 1, 1).size(), 4u + 5u + 6u + 100u + 1u + 11u);

    ex.ReportInProgress = true;
    ComputeReportEvents(t, kSpanMode, ex, *a);
    std::vector<int> kept = Range(200, 204);
    for (int m : Range(400, 499)) kept.push_back(m);
    for (int m : Range(1430, 1440)) kept.push_back(m);
    EXPECT_EQ(MinutesWith(*a, 1, 1), kept);
    EXPECT_EQ(MinutesWith(*a, 1, -1), (std::vector<int>{303}));

    ex.ReportMinDuration = 0.0f; // filters nothing
    ComputeReportEvents(t, kSpanMode, ex, *a);
    EXPECT_EQ(MinutesWith(*a, 1, 1).size(), 4u + 5u + 6u + 100u + 1u + 11u);
}

TEST(ComputeReportEvents, DurationFilterAtTheDayEnds) {
    ReportExclusions ex;
    ex.ReportInProgress = true;
    ex.ReportMinDuration = 5.0f;
    auto a = Activity();

    // An event from minute 1 is measured from minute 1.
    ComputeReportEvents(Spans({{1, 4}, {10, 14}}), kSpanMode, ex, *a);
    EXPECT_EQ(MinutesWith(*a, 1, 1), Range(10, 14));

    // Minutes 1436 to 1440 are five, but the measure stops at 1440: four, so 1436 to 1439
    // go, and minute 1440 is never cleared.
    ComputeReportEvents(Spans({{1436, 1440}}), kSpanMode, ex, *a);
    EXPECT_EQ(MinutesWith(*a, 1, 1), (std::vector<int>{1440}));
    ComputeReportEvents(Spans({{1435, 1440}}), kSpanMode, ex, *a);
    EXPECT_EQ(MinutesWith(*a, 1, 1), Range(1435, 1440));

    // A fractional minimum: 4 minutes fall short of 4.5, 5 do not.
    ex.ReportMinDuration = 4.5f;
    ComputeReportEvents(Spans({{100, 103}, {200, 204}}), kSpanMode, ex, *a);
    EXPECT_EQ(MinutesWith(*a, 1, 1), Range(200, 204));
}

TEST(Grid, HeadingsNamesAndNone) {
    MinuteTables t = QuietTables();
    const ModeTableState modes =
        Modes({{"Io-A", M(90, 110, 0, 20)}, {"never", M(0, 360, 30, 20)}, {"excluded", M(90, 110, 0, 20)}});
    auto a = Activity();
    ComputeReportEvents(t, modes, ReportExclusions{}, *a);
    for (size_t m = 1; m <= 1440; ++m) (*a)[3][m] = -1; // all excluded: still none in the grid
    PredictionGrid g;
    FillGrid(g, modes, *a);
    ASSERT_EQ(g.Rows, 4);
    const std::array<std::string, 7> heading = {"", "Begin", " End", "Begin", "", "", ""};
    EXPECT_EQ(g.Cells[0], heading);
    EXPECT_EQ(g.Cells[1], (std::array<std::string, 7>{"Io-A", "00:00", "23:59", "", "", "", ""}));
    EXPECT_EQ(g.Cells[2], (std::array<std::string, 7>{"never", "NONE", "", "", "", "", ""}));
    EXPECT_EQ(g.Cells[3], (std::array<std::string, 7>{"excluded", "NONE", "", "", "", "", ""}));
}

TEST(Grid, EventEdgesAndAtMostThreeEvents) {
    const ModeTableState modes = Modes({{"a", M(0, 360, 0, 20)}});
    PredictionGrid g;
    auto a = Activity();
    auto fill = [&](std::vector<std::pair<int, int>> spans) {
        ComputeReportEvents(Spans(std::move(spans)), modes, ReportExclusions{}, *a);
        FillGrid(g, modes, *a);
        return g.Cells[1];
    };
    using Row = std::array<std::string, 7>;
    // A begin shows the minute before its first row, an end the minute before the row after.
    EXPECT_EQ(fill({{61, 120}}), (Row{"a", "01:00", "02:00", "", "", "", ""}));
    EXPECT_EQ(fill({{426, 426}}), (Row{"a", "07:05", "07:06", "", "", "", ""})); // two digits each
    EXPECT_EQ(fill({{1, 1}, {1439, 1440}}), (Row{"a", "00:00", "00:01", "23:58", "23:59", "", ""}));
    EXPECT_EQ(fill({{1440, 1440}}), (Row{"a", "NONE", "", "", "", "", ""}));
    EXPECT_EQ(fill({{10, 10}, {1440, 1440}}), (Row{"a", "00:09", "00:10", "", "", "", ""}));
    EXPECT_EQ(fill({{10, 19}, {30, 39}, {50, 59}, {70, 79}}),
              (Row{"a", "00:09", "00:19", "00:29", "00:39", "00:49", "00:59"}));
    // Fewer events on the next fill leave no stale cells behind.
    EXPECT_EQ(fill({{10, 19}}), (Row{"a", "00:09", "00:19", "", "", "", ""}));
}

TEST(Grid, AnExcludedMinuteEndsAnEventButStaysInTheActivity) {
    MinuteTables t = Spans({{100, 200}});
    t.MinuteSunAlt[150] = 10;
    const ModeTableState modes = Modes({{"a", M(0, 360, 0, 20)}});
    auto a = Activity();
    ComputeReportEvents(t, modes, ReportExclusions{}, *a);
    EXPECT_EQ((*a)[1][150], -1);
    PredictionGrid g;
    FillGrid(g, modes, *a);
    EXPECT_EQ(g.Cells[1], (std::array<std::string, 7>{"a", "01:39", "02:29", "02:30", "03:20", "", ""}));
}

TEST(Grid, RowsFollowTheModesAndOldHeadingsStay) {
    ModeTableState eight = Modes({{"1", M(0, 360, 0, 360)}});
    for (size_t i = 2; i <= 8; ++i) eight.ModeTable[i] = M(0, 360, 0, 360);
    eight.NumModes = 8;
    auto a = Activity();
    ComputeReportEvents(QuietTables(), eight, ReportExclusions{}, *a);
    PredictionGrid g;
    FillGrid(g, eight, *a);
    EXPECT_EQ(g.Rows, 7); // only six modes are predicted
    EXPECT_EQ(g.Cells[0][6], " End");
    // The window's grid keeps the headings of columns that a smaller table no longer sets.
    const ModeTableState two = Modes({{"x", M(0, 360, 0, 360)}, {"y", M(0, 0, 0, 0)}});
    ComputeReportEvents(QuietTables(), two, ReportExclusions{}, *a);
    FillGrid(g, two, *a);
    EXPECT_EQ(g.Rows, 3);
    EXPECT_EQ(g.Cells[0],
              (std::array<std::string, 7>{"", "Begin", " End", "Begin", " End", "Begin", " End"}));
    EXPECT_EQ(g.Cells[2][1], "NONE");
}

TEST(BuildPredictionTables, PositionsFixedAtTenPastMidnight) {
    Core c = Place(40.0f, 75.0f);
    c.CurrentUT = DateSerial(2026, 2, 3) + 0.75;
    c.UpdateSiderealTime();
    const double now = c.CurrentUT;
    const float lst = c.LST;
    c.SaveCurrentTime();
    MinuteTables t;
    BuildPredictionTables(c, t, DateSerial(2026, 5, 17) + 0.9); // the time of day plays no part
    EXPECT_EQ(c.CurrentUT, now);
    EXPECT_EQ(c.LST, lst);
    ASSERT_EQ(t.MinuteCML.size(), 1441u);

    const Core at = SkyAtMinute(40.0f, 75.0f, DateSerial(2026, 5, 17), 0); // 00:10, the first row
    EXPECT_EQ(t.MinuteCML[1], static_cast<int16_t>(std::floor(at.CMLIII)));
    EXPECT_EQ(t.MinuteIo[1], static_cast<int16_t>(std::floor(at.IoPhase)));
    EXPECT_EQ(t.MinuteCML[0], 0);
    EXPECT_EQ(t.MinuteJupHA[0], 0.0f);

    // CML III turns 870.5 degrees in 1439 minutes, Io 203.4.
    auto turned = [](int a, int b) { return (b - a + 720) % 360; };
    EXPECT_NEAR(turned(t.MinuteCML[1], t.MinuteCML[1440]), std::fmod(1439 * 0.6045389117618717, 360.0), 1.0);
    EXPECT_NEAR(turned(t.MinuteIo[1], t.MinuteIo[1440]), 1439 * 0.14132278123233466, 1.0);
}

// Whole degrees count up to 360 and go on at 1: 0 never follows a reduction and no step
// jumps from 359.
TEST(BuildPredictionTables, LongitudesReachThreeSixtyAndGoOnAtOne) {
    int wraps = 0, sixties = 0;
    for (double day = DateSerial(2025, 1, 1); day < DateSerial(2025, 1, 9); day += 1.0) {
        Core c;
        MinuteTables t;
        c.SaveCurrentTime();
        BuildPredictionTables(c, t, day);
        for (const auto* column : {&t.MinuteCML, &t.MinuteIo}) {
            for (size_t m = 2; m <= 1440; ++m) {
                const int prev = (*column)[m - 1], cur = (*column)[m];
                ASSERT_GE(cur, 0);
                ASSERT_LE(cur, 360);
                if (cur < prev) {
                    ++wraps;
                    EXPECT_EQ(prev, 360) << day << " " << m;
                    EXPECT_EQ(cur, 1) << day << " " << m;
                } else {
                    EXPECT_LE(cur - prev, 1);
                }
                if (cur == 360) ++sixties;
            }
        }
    }
    EXPECT_GT(wraps, 16);
    EXPECT_GE(sixties, wraps);
}

// The sidereal time runs on past 24 without reduction, so the single fold each way leaves
// hour angles above 12 late in the day.
TEST(BuildPredictionTables, HourAnglesFollowTheSkyWithoutReduction) {
    const double day = DateSerial(2026, 4, 10);
    Core c = Place(-30.0f, 231.0f);
    c.SaveCurrentTime();
    MinuteTables t;
    BuildPredictionTables(c, t, day);
    bool aboveTwelve = false;
    for (size_t m = 1; m <= 1440; m += 7) {
        const Core sky = SkyAtMinute(-30.0f, 231.0f, day, m);
        const double ha = static_cast<double>(t.MinuteJupHA[m]);
        // Jupiter's right ascension is held at its 00:10 value; it drifts less than 0.03 h a day.
        EXPECT_NEAR(std::remainder(ha - (static_cast<double>(sky.LST) - sky.JupRA), 24.0), 0.0, 0.03) << m;
        EXPECT_GE(ha, -12.0);
        EXPECT_LT(ha, 36.0);
        aboveTwelve = aboveTwelve || ha > 12.0;
    }
    // Here the day begins with the sidereal time some 15 hours past Jupiter's right ascension.
    EXPECT_TRUE(aboveTwelve);
}

// Altitudes are floors: -0.3 degrees is -1. The Sun and Jupiter drift a little from their
// fixed places, so compare in the first hour only and away from whole degrees.
TEST(BuildPredictionTables, AltitudesAreFloorsBelowTheHorizonToo) {
    const double day = DateSerial(2026, 4, 10);
    Core c = Place(-30.0f, 0.0f); // night, with Jupiter below the horizon
    c.SaveCurrentTime();
    MinuteTables t;
    BuildPredictionTables(c, t, day);
    int negatives = 0;
    for (size_t m = 1; m < 60; ++m) {
        const Core sky = SkyAtMinute(-30.0f, 0.0f, day, m);
        for (const auto& [table, alt] :
             {std::pair{&t.MinuteSunAlt, sky.SunAlt}, std::pair{&t.MinuteJupAlt, sky.JupAlt}}) {
            if (std::fabs(alt - std::round(alt)) < 0.1) continue;
            EXPECT_EQ((*table)[m], static_cast<int16_t>(std::floor(alt))) << m;
            negatives += alt < 0.0 ? 1 : 0;
        }
    }
    EXPECT_GT(negatives, 60);
}

TEST(PredictDay, ClearsTheActivityAndRestoresTheClock) {
    Core c;
    c.ObsLatitude = 52.0f;
    c.CurrentUT = DateSerial(2026, 7, 1) + 0.5;
    c.UpdateSiderealTime();
    const float lst = c.LST;
    const ModeTableState modes = Modes({{"any", M(0, 360, 0, 360)}});
    auto a = Activity();
    (*a)[4][77] = 1; // a mode the table does not have
    MinuteTables t;
    PredictionGrid g;
    ReportExclusions open;
    open.ReportJupAltMin = -90.0f;
    open.ReportSunAltMax = 90.0f;
    open.MinHA = -48.0;
    open.MaxHA = 48.0;
    PredictDay(c, modes, open, t, *a, g, DateSerial(2026, 7, 2));
    EXPECT_EQ(c.CurrentUT, DateSerial(2026, 7, 1) + 0.5);
    EXPECT_EQ(c.LST, lst);
    EXPECT_EQ((*a)[4][77], 0);
    EXPECT_EQ(MinutesWith(*a, 1, 1), Range(1, 1440));
    EXPECT_EQ(g.Cells[1][1], "00:00");
    EXPECT_EQ(g.Cells[1][2], "23:59");
}

TEST(TodayActivity, BuildsTheGMTDayAndCopiesTheMatch) {
    Core c;
    c.ObsTZ = -5.0;
    c.SystemClockTZ = -5.0;
    c.UpdateClockOffset();
    ModeTableState modes = Modes({{"a", M(0, 360, 0, 360)}, {"b", M(0, 360, 20, 10)}});
    ActivityState s;
    s.TodayActivity[3][5] = 1; // beyond the modes: left alone
    MinuteTables t;
    // 23:30 on the computer's clock five hours west of Greenwich is 04:30 GMT the next day.
    UpdateTodayActivity(c, modes, t, s, DateSerial(2026, 3, 1) + 23.5 / 24.0);
    EXPECT_EQ(s.ActivityDayOfMonth, 2);
    EXPECT_EQ(s.TodayActivity[1], s.ModeActivity[1]);
    EXPECT_EQ(MinutesWith(s.TodayActivity, 1, 1), Range(1, 1440));
    EXPECT_TRUE(MinutesWith(s.TodayActivity, 2, 1).empty());
    EXPECT_EQ(s.TodayActivity[3][5], 1);
    MinuteTables expected;
    Core d;
    d.SaveCurrentTime();
    BuildPredictionTables(d, expected, DateSerial(2026, 3, 2));
    EXPECT_EQ(t.MinuteCML, expected.MinuteCML);
    EXPECT_EQ(t.MinuteJupAlt, expected.MinuteJupAlt);
}

TEST(CheckForActivity, NamesTheModesActiveAtTheMinute) {
    Core c;
    const ModeTableState modes =
        Modes({{"Io-A", M(0, 0, 0, 0)}, {"Io-B", M(0, 0, 0, 0)}, {"Io-C", M(0, 0, 0, 0)}});
    ActivityState s;
    s.TodayActivity[1][1] = 1;
    s.TodayActivity[3][1] = 1;
    s.TodayActivity[2][61] = 1;
    bool found = true;
    std::string names = "Possible Activity:  ";

    c.CurrentUT = DateSerial(2026, 1, 1); // 00:00 reads row 0
    CheckForActivity(c, modes, s, found, names);
    EXPECT_FALSE(found);
    EXPECT_EQ(names, "Possible Activity:  ");

    c.CurrentUT = DateSerial(2026, 1, 1) + 59.6 / 86400.0; // rounds to 00:01:00
    CheckForActivity(c, modes, s, found, names);
    EXPECT_TRUE(found);
    EXPECT_EQ(names, "Possible Activity:     Io-A   Io-C");

    names.clear();
    c.CurrentUT = DateSerial(2026, 1, 1) + 61.0 / 1440.0 + 30.0 / 86400.0;
    CheckForActivity(c, modes, s, found, names);
    EXPECT_TRUE(found);
    EXPECT_EQ(names, "   Io-B");
}
