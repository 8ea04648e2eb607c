#include "prediction/prediction.h"

#include "core/date_value.h"
#include "core/numeric.h"
#include "core/text_forms.h"

#include <cmath>
#include <cstdio>

namespace tarvelle {

namespace {

constexpr double kPredictionBase = 0.006944444;      // 00:10, where the day's positions are taken
constexpr double kCMLPerMinute = 0.6045389117618717; // degrees of CML III a minute
constexpr double kIoPerMinute = 0.14132278123233466; // degrees of Io phase a minute
constexpr double kHalfIoMinute = 0.07066139061616733;
constexpr double kHalfCMLMinute = 0.30226945588093584;
constexpr size_t kLastMinute = kMinutesPerDay;

// Whole degrees of a longitude carried on from the day's start: 360 stays 360, 361 becomes 1.
int16_t WholeDegrees(double degrees) {
    double v = std::floor(degrees);
    while (v >= 361.0) v -= 360.0;
    return static_cast<int16_t>(v);
}

// A mode's limits with the half-minute margins applied, worked out once per mode rather than
// once per minute. With whole degrees on both sides the margins only make the ends inclusive.
struct ModeLimits {
    double ioLow, ioHigh, cmlLow, cmlHigh;
    bool wraps;      // CML2 below CML1: the range runs on through 360
    double wrapHigh; // the end of the part past 360
};

ModeLimits LimitsOf(const std::array<int16_t, 5>& mode) {
    ModeLimits l{};
    l.ioLow = mode[IoP1] - kHalfIoMinute;
    l.ioHigh = mode[IoP2] + kHalfIoMinute;
    l.cmlLow = mode[CML1] - kHalfCMLMinute;
    l.cmlHigh = (mode[CML2] >= mode[CML1] ? mode[CML2] : 360) + kHalfCMLMinute;
    l.wraps = mode[CML2] < mode[CML1];
    l.wrapHigh = mode[CML2] + kHalfCMLMinute;
    return l;
}

inline int16_t Match(const ModeLimits& l, int16_t cml, int16_t io) {
    if (io < l.ioLow || io > l.ioHigh) return 0;
    int16_t element = (l.cmlLow <= cml && cml <= l.cmlHigh) ? 1 : 0;
    if (l.wraps && cml <= l.wrapHigh) element = 1;
    return element;
}

bool IsExcluded(const MinuteTables& t, size_t m, const ReportExclusions& ex) {
    return static_cast<float>(t.MinuteJupAlt[m]) < ex.ReportJupAltMin ||
           static_cast<float>(t.MinuteSunAlt[m]) > ex.ReportSunAltMax ||
           static_cast<double>(t.MinuteJupHA[m]) < ex.MinHA ||
           static_cast<double>(t.MinuteJupHA[m]) > ex.MaxHA;
}

// Takes out events shorter than the minimum. An event is measured only up to row 1440, so
// that row is never cleared; the minute after each event is stepped over.
void DropShortEvents(std::array<int16_t, kMinutesPerDay + 1>& row, float minDuration) {
    int s = 0;
    do {
        ++s;
        if (row[static_cast<size_t>(s)] == 1) {
            int e = s;
            while (e < kMinutesPerDay && row[static_cast<size_t>(e)] == 1) ++e;
            if (static_cast<float>(e - s) < minDuration)
                for (int k = s; k < e; ++k) row[static_cast<size_t>(k)] = 0;
            s = e;
        }
    } while (s < kMinutesPerDay);
}

} // namespace

void BuildPredictionTables(Core& core, MinuteTables& tables, double date) {
    const size_t rows = kLastMinute + 1;
    tables.MinuteCML.assign(rows, 0);
    tables.MinuteIo.assign(rows, 0);
    tables.MinuteSunAlt.assign(rows, 0);
    tables.MinuteJupAlt.assign(rows, 0);
    tables.MinuteJupHA.assign(rows, 0.0f);

    const float keptLST = core.LST;
    core.CurrentUT = std::floor(date) + kPredictionBase;
    core.UpdateSiderealTime();
    core.UpdateSunJupiterPositions();
    core.UpdateCMLIII(core.CurrentUT);
    core.UpdateIoPhase(core.DayNumber);
    core.UpdateRiseSet();

    const double cml = static_cast<double>(core.CMLIII);
    const double io = static_cast<double>(core.IoPhase);
    for (size_t m = 1; m <= kLastMinute; ++m) {
        core.LST = static_cast<float>(static_cast<double>(core.LST) + kSiderealMinute);
        core.UpdateHorizonCoords();
        // The sidereal time runs on past 24, so one fold each way can leave an angle above 12.
        double ha = static_cast<double>(core.LST) - core.JupRA;
        if (ha < -12.0) ha += 24.0;
        if (ha > 12.0) ha -= 24.0;
        tables.MinuteJupHA[m] = static_cast<float>(ha);
        tables.MinuteJupAlt[m] = static_cast<int16_t>(std::floor(core.JupAlt));
        tables.MinuteSunAlt[m] = static_cast<int16_t>(std::floor(core.SunAlt));
        const double steps = static_cast<double>(m - 1);
        tables.MinuteCML[m] = WholeDegrees(cml + steps * kCMLPerMinute);
        tables.MinuteIo[m] = WholeDegrees(io + steps * kIoPerMinute);
    }

    core.LST = keptLST;
    core.RestoreCurrentTime();
}

int16_t ModeMatch(int16_t cml, int16_t io, const std::array<int16_t, 5>& mode) {
    return Match(LimitsOf(mode), cml, io);
}

void MatchModes(const MinuteTables& tables, const ModeTableState& modes, ActivityTable& activity) {
    const size_t n = static_cast<size_t>(modes.PredictedModes());
    std::array<ModeLimits, kPredictedModes + 1> limits{};
    for (size_t i = 1; i <= n; ++i) limits[i] = LimitsOf(modes.ModeTable[i]);
    for (size_t m = 1; m <= kLastMinute; ++m)
        for (size_t i = 1; i <= n; ++i)
            activity[i][m] = Match(limits[i], tables.MinuteCML[m], tables.MinuteIo[m]);
}

ReportExclusions ExclusionsFromTexts(const std::string& jupAltMin, const std::string& sunAltMax,
                                     const std::string& minHA, const std::string& maxHA) {
    ReportExclusions ex;
    Keep(ex.ReportJupAltMin, ValueOfText(jupAltMin));
    Keep(ex.ReportSunAltMax, ValueOfText(sunAltMax));
    ex.MinHA = ValueOfText(minHA);
    ex.MaxHA = ValueOfText(maxHA);
    return ex;
}

void ComputeReportEvents(const MinuteTables& tables, const ModeTableState& modes, const ReportExclusions& ex,
                         ActivityTable& activity) {
    const size_t n = static_cast<size_t>(modes.PredictedModes());
    std::array<ModeLimits, kPredictedModes + 1> limits{};
    for (size_t i = 1; i <= n; ++i) limits[i] = LimitsOf(modes.ModeTable[i]);
    for (size_t m = 1; m <= kLastMinute; ++m) {
        for (size_t i = 1; i <= n; ++i) {
            int16_t element = Match(limits[i], tables.MinuteCML[m], tables.MinuteIo[m]);
            if (element == 1 && IsExcluded(tables, m, ex)) element = -1;
            activity[i][m] = element;
        }
    }
    if (ex.ReportInProgress && ex.ReportMinDuration > 0.0f)
        for (size_t i = 1; i <= n; ++i) DropShortEvents(activity[i], ex.ReportMinDuration);
}

std::string MinutesToHHMM(int minutes) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02d:%02d", minutes / 60, minutes % 60);
    return buf;
}

void FillGrid(PredictionGrid& grid, const ModeTableState& modes, const ActivityTable& activity) {
    for (size_t r = 1; r < kGridRows; ++r)
        for (size_t c = 1; c < kGridColumns; ++c) grid.Cells[r][c].clear();
    const int n = modes.PredictedModes();
    grid.Rows = n + 1;
    for (size_t r = static_cast<size_t>(grid.Rows); r < kGridRows; ++r) grid.Cells[r] = {}; // dropped rows
    for (int c = 1; c <= n; ++c) grid.Cells[0][static_cast<size_t>(c)] = c % 2 == 1 ? "Begin" : " End";

    for (size_t i = 1; i <= static_cast<size_t>(n); ++i) {
        auto& row = grid.Cells[i];
        const auto& element = activity[i];
        auto at = [&element](int m) { return element[static_cast<size_t>(m)]; };
        row[0] = modes.ModeName[i];
        int m = 0;
        while (at(m) != 1 && m != kMinutesPerDay) ++m;
        if (m == kMinutesPerDay) { // an event that begins only in the last row is no event
            row[1] = "NONE";
            continue;
        }
        size_t column = 1;
        for (int event = 0; event < 3; ++event) {
            row[column] = MinutesToHHMM(m - 1);
            while (!(at(m) < 1 || m >= kMinutesPerDay)) ++m; // -1 ends an event as 0 does
            row[++column] = MinutesToHHMM(m - 1);
            if (m >= kMinutesPerDay) break;
            ++column;
            while (!(at(m) == 1 || m >= kMinutesPerDay)) ++m;
            if (m >= kMinutesPerDay) break;
        }
    }
}

void PredictDay(Core& core, const ModeTableState& modes, const ReportExclusions& ex, MinuteTables& tables,
                ActivityTable& activity, PredictionGrid& grid, double date) {
    core.SaveCurrentTime();
    activity = {};
    BuildPredictionTables(core, tables, date);
    ComputeReportEvents(tables, modes, ex, activity);
    FillGrid(grid, modes, activity);
    core.RestoreCurrentTime();
}

void UpdateTodayActivity(Core& core, const ModeTableState& modes, MinuteTables& tables, ActivityState& state,
                         double computerClock) {
    core.CurrentUT = core.GMTFromClock(computerClock);
    const double built = std::floor(core.CurrentUT);
    BuildPredictionTables(core, tables, core.CurrentUT);
    MatchModes(tables, modes, state.ModeActivity);
    const size_t n = static_cast<size_t>(modes.PredictedModes());
    for (size_t i = 1; i <= n; ++i) state.TodayActivity[i] = state.ModeActivity[i];
    state.ActivityDayOfMonth = FieldsOf(built).day;
}

void CheckForActivity(const Core& core, const ModeTableState& modes, const ActivityState& state, bool& found,
                      std::string& names) {
    found = false;
    const CalendarFields now = FieldsOf(core.CurrentUT);
    const size_t k = static_cast<size_t>(now.hour * 60 + now.minute);
    const size_t n = static_cast<size_t>(modes.PredictedModes());
    for (size_t i = 1; i <= n; ++i) {
        if (state.TodayActivity[i][k] == 1) {
            found = true;
            names += "   " + modes.ModeName[i];
        }
    }
}

} // namespace tarvelle
