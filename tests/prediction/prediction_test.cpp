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

// The minutes of the spans [from, to], in order.
std::vector<int> Minutes(const std::vector<std::pair<int, int>>& spans) {
    std::vector<int> out;
    for (const auto& [from, to] : spans)
        for (int m = from; m <= to; ++m) out.push_back(m);
    return out;
}

} // namespace

// CML ranges include both ends and may run on through 360 to a smaller end; an Io range never
// wraps, so a reversed one matches nothing.
TEST(ModeMatch, InclusiveEndsCMLThroughThreeSixtyAndNoReversedIo) {
    const Mode wrapped = M(200, 10, 100, 120), plain = M(105, 185, 55, 110), one = M(42, 42, 0, 0),
               full = M(0, 360, 0, 360);
    const struct { Mode mode; int cml, io; int16_t expected; } cases[] = {
        {wrapped, 199, 110, 0}, {wrapped, 200, 110, 1}, {wrapped, 360, 110, 1}, {wrapped, 0, 110, 1},
        {wrapped, 10, 110, 1},  {wrapped, 11, 110, 0},  {plain, 104, 80, 0},    {plain, 105, 80, 1},
        {plain, 185, 80, 1},    {plain, 186, 80, 0},    {plain, 150, 54, 0},    {plain, 150, 55, 1},
        {plain, 150, 110, 1},   {plain, 150, 111, 0},   {one, 42, 0, 1},        {one, 43, 0, 0},
        {full, 0, 360, 1},      {full, 360, 360, 1},
        {M(300, 30, 100, 200), 5, 50, 0}, // out of its Io range, off past 360 as well
    };
    for (const auto& c : cases)
        EXPECT_EQ(ModeMatch(static_cast<int16_t>(c.cml), static_cast<int16_t>(c.io), c.mode), c.expected)
            << c.mode[1] << "-" << c.mode[2] << " at " << c.cml << " " << c.io;
    for (const Mode& mode : {M(0, 360, 200, 100), M(300, 30, 200, 100), M(300, 30, 1, 0)})
        for (int cml = 0; cml <= 360; cml += 5)
            for (int io = 0; io <= 360; io += 5)
                ASSERT_EQ(ModeMatch(static_cast<int16_t>(cml), static_cast<int16_t>(io), mode), 0)
                    << cml << " " << io << " " << mode[1] << "-" << mode[2];
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
    EXPECT_TRUE((*a)[1][50] == 0 && (*a)[1][0] == 0 && MinutesWith(*a, 1, 1).size() == 1440u - 5u);
}

TEST(ComputeReportEvents, ExclusionsReadAsTheFieldsGiveThem) {
    const ReportExclusions ex = ExclusionsFromTexts(" 12.5deg", "-6", "abc", "&H4");
    EXPECT_TRUE(ex.ReportJupAltMin == 12.5f && ex.ReportSunAltMax == -6.0f && ex.MinHA == 0.0 &&
                ex.MaxHA == 4.0 && !ex.ReportInProgress);
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
    EXPECT_EQ(MinutesWith(*a, 1, 1), Minutes({{200, 204}, {400, 499}, {1430, 1440}}));
    EXPECT_EQ(MinutesWith(*a, 1, -1), (std::vector<int>{303}));
}

// In a report the measure starts at minute 1 and stops at 1440, which is never cleared; the
// minimum may be a fraction, and 0 filters nothing.
TEST(ComputeReportEvents, DurationFilterAtTheDayEnds) {
    const struct {
        std::vector<std::pair<int, int>> spans;
        float minimum;
        std::vector<std::pair<int, int>> kept;
    } cases[] = {
        {{{1, 4}, {10, 14}}, 5.0f, {{10, 14}}},
        {{{1436, 1440}}, 5.0f, {{1440, 1440}}}, // five minutes, measured as four
        {{{1435, 1440}}, 5.0f, {{1435, 1440}}},
        {{{100, 103}, {200, 204}}, 4.5f, {{200, 204}}},
        {{{1, 1}, {100, 103}}, 0.0f, {{1, 1}, {100, 103}}},
    };
    ReportExclusions ex;
    ex.ReportInProgress = true;
    auto a = Activity();
    for (const auto& c : cases) {
        ex.ReportMinDuration = c.minimum;
        ComputeReportEvents(Spans(c.spans), kSpanMode, ex, *a);
        EXPECT_EQ(MinutesWith(*a, 1, 1), Minutes(c.kept)) << c.minimum << " from " << c.spans[0].first;
    }
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
    EXPECT_EQ(fill({{426, 426}}), (Row{"a", "07:05", "07:06", "", "", "", ""})); // two digits each
    EXPECT_EQ(fill({{1, 1}, {1439, 1440}}), (Row{"a", "00:00", "00:01", "23:58", "23:59", "", ""}));
    EXPECT_EQ(fill({{1440, 1440}}), (Row{"a", "NONE", "", "", "", "", ""}));
    EXPECT_EQ(fill({{10, 10}, {1440, 1440}}), (Row{"a", "00:09", "00:10", "", "", "", ""}));
    EXPECT_EQ(fill({{10, 19}, {30, 39}, {50, 59}, {70, 79}}),
              (Row{"a", "00:09", "00:19", "00:29", "00:39", "00:49", "00:59"}));
    // Fewer events on the next fill leave no stale cells behind.
    EXPECT_EQ(fill({{10, 19}}), (Row{"a", "00:09", "00:19", "", "", "", ""}));
}

TEST(Grid, RowsFollowTheModesAndOldHeadingsStay) {
    ModeTableState eight = Modes({{"1", M(0, 360, 0, 360)}});
    for (size_t i = 2; i <= 8; ++i) eight.ModeTable[i] = M(0, 360, 0, 360);
    eight.NumModes = 8;
    auto a = Activity();
    ComputeReportEvents(QuietTables(), eight, ReportExclusions{}, *a);
    PredictionGrid g;
    FillGrid(g, eight, *a);
    EXPECT_TRUE(g.Rows == 7 && g.Cells[0][6] == " End"); // only six modes are predicted
    // The window's grid keeps the headings of columns that a smaller table no longer sets.
    const ModeTableState two = Modes({{"x", M(0, 360, 0, 360)}, {"y", M(0, 0, 0, 0)}});
    ComputeReportEvents(QuietTables(), two, ReportExclusions{}, *a);
    FillGrid(g, two, *a);
    EXPECT_TRUE(g.Rows == 3 && g.Cells[2][1] == "NONE");
    EXPECT_EQ(g.Cells[0],
              (std::array<std::string, 7>{"", "Begin", " End", "Begin", " End", "Begin", " End"}));
}

// The tables' values, minute for minute, are compared by tests/reference/compare_predict.py, which
// passes dates only: here the time of day must play no part, and the clock must be left alone.
TEST(BuildPredictionTables, TheTimeOfDayPlaysNoPartAndTheClockStays) {
    Core c;
    c.ObsLatitude = 40.0f;
    c.CurrentUT = DateSerial(2026, 2, 3) + 0.75;
    c.UpdateSiderealTime();
    const float lst = c.LST;
    c.SaveCurrentTime();
    MinuteTables late, midnight;
    BuildPredictionTables(c, late, DateSerial(2026, 5, 17) + 0.9);
    EXPECT_TRUE(c.CurrentUT == DateSerial(2026, 2, 3) + 0.75 && c.LST == lst);
    BuildPredictionTables(c, midnight, DateSerial(2026, 5, 17));
    EXPECT_EQ(late.MinuteCML, midnight.MinuteCML);
    EXPECT_EQ(late.MinuteJupHA, midnight.MinuteJupHA);
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
    PredictDay(c, modes, ExclusionsFromTexts("-90", "90", "-48", "48"), t, *a, g, DateSerial(2026, 7, 2));
    EXPECT_TRUE(c.CurrentUT == DateSerial(2026, 7, 1) + 0.5 && c.LST == lst && (*a)[4][77] == 0);
    EXPECT_EQ(MinutesWith(*a, 1, 1), Minutes({{1, 1440}}));
    EXPECT_EQ(g.Cells[1][1] + "-" + g.Cells[1][2], "00:00-23:59");
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
    EXPECT_TRUE(s.ActivityDayOfMonth == 2 && s.TodayActivity[1] == s.ModeActivity[1] &&
                s.TodayActivity[3][5] == 1);
    EXPECT_EQ(MinutesWith(s.TodayActivity, 1, 1), Minutes({{1, 1440}}));
    EXPECT_TRUE(MinutesWith(s.TodayActivity, 2, 1).empty());
    MinuteTables expected;
    Core d;
    d.SaveCurrentTime();
    BuildPredictionTables(d, expected, DateSerial(2026, 3, 2));
    EXPECT_EQ(t.MinuteCML, expected.MinuteCML);
}

TEST(CheckForActivity, NamesTheModesActiveAtTheMinute) {
    Core core;
    const ModeTableState modes =
        Modes({{"Io-A", M(0, 0, 0, 0)}, {"Io-B", M(0, 0, 0, 0)}, {"Io-C", M(0, 0, 0, 0)}});
    ActivityState s;
    s.TodayActivity[1][1] = s.TodayActivity[3][1] = s.TodayActivity[2][61] = 1;
    // 00:00 reads row 0; 00:00:59.6 rounds to 00:01:00; 01:01:30 reads row 61. Names are added on.
    const struct { double seconds; const char *before, *after; bool found; } cases[] = {
        {0.0, "Possible Activity:  ", "Possible Activity:  ", false},
        {59.6, "Possible Activity:  ", "Possible Activity:     Io-A   Io-C", true},
        {3690.0, "", "   Io-B", true}};
    for (const auto& c : cases) {
        core.CurrentUT = DateSerial(2026, 1, 1) + c.seconds / 86400.0;
        bool found = !c.found;
        std::string names = c.before;
        CheckForActivity(core, modes, s, found, names);
        EXPECT_TRUE(found == c.found && names == c.after) << c.seconds << ": " << names;
    }
}
