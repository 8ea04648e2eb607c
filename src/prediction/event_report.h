// The event report: the daily prediction run for every day of a span of dates, its events
// written to a text file with CR LF line ends.
//
// The file is the header (when asked for), one block per day that holds an event time, and
// "End of Report". Each write of the window's writer adds a CR LF of its own to the text it is
// given, so the texts below end with that extra CR LF where a write ends.
//
// Usage: the prediction window, tarvelle-cli and the benchmarks call WriteEventReport; the
// window draws each day's chart from its hooks.
#pragma once

#include "core/astro_core.h"
#include "prediction/prediction.h"
#include "station/prediction_state.h"

#include <functional>
#include <ostream>
#include <string>

namespace tarvelle {

// What the report options window and the prediction window's fields give a report.
struct ReportOptions {
    double ReportStart = 0.0, ReportEnd = 0.0; // date values of the first and last day
    float ReportMinDuration = 0.0f;            // minutes
    bool ReportHeader = true;
    bool ReportIncludeHA = false;
    bool ReportIoOnly = false;
    bool ReportNoNONE = false;
    bool ReportCalendar = false; // an iCalendar file instead of the text
    std::string jupAltMinText = "0", sunAltMaxText = "0"; // the texts of txtJupAltMin and txtSunAltMax
    std::string versionText;
};

// The numbers of a report's span as typed: years, months and days of its first and last day.
struct ReportSpanNumbers {
    double startYear, startMonth, startDay, endYear, endMonth, endDay;
};

inline constexpr const char* kReportSpanReversed = "You entered a which occurs ending date before the start date.";

// Checks a span as the report options window does: years 1900 to 3000, months 1 to 12, days 1
// to 31, the last day not before the first. Returns the message of the first check that fails
// ("Invalid Start Year", ...), or an empty text with start and end set to the two dates.
std::string CheckReportSpan(const ReportSpanNumbers& span, double& start, double& end);

// The longest typed text a report header takes (a limit, a latitude or longitude text).
inline constexpr size_t kMaxReportHeaderText = 64;

// Why the typed texts of a report's header cannot go into the file (one longer than
// kMaxReportHeaderText, naming it), or an empty text when they can. Control bytes are
// dropped from the header rather than refused.
std::string ReportTextRefusal(const Core& core, const ReportOptions& options);

// The header's seven writes. Sets DateHeading through FormatDateByChoice.
std::string ReportHeaderText(Core& core, const ReportOptions& options);

// One grid row as the report shows it: each of the seven cells with a blank behind it, padded
// to ten characters, a "NONE" cell followed by CR LF.
std::string ReportRowText(const PredictionGrid& grid, int row);

// The hour angles under a mode's row: Jupiter's hour angle at the minute each time names.
std::string ReportHourAngleRow(const PredictionGrid& grid, int row, const MinuteTables& tables);

// One day's block as built in memory, from the grid of that day. afterRow runs after each grid
// row: the window lets other events in there.
std::string ReportDayBlock(double predictDate, const PredictionGrid& grid, const MinuteTables& tables,
                           const ReportOptions& options, const std::function<void()>& afterRow = {});

// What the file receives for a block: nothing when it holds no ":" (no event time), else the
// block and the write's CR LF.
std::string ReportBlockBytes(const std::string& block);

// The last write of a report that was not cancelled.
std::string ReportEndText();

// The default file name: the first day as yyyymmdd and "JP.TXT".
std::string DefaultReportFileName(double reportStart);

enum class ReportOutcome { Completed, Cancelled };

// What a window does while a report is written; any of them may be left empty.
struct ReportHooks {
    std::function<bool(double day)> beforeDay; // false cancels
    std::function<void()> afterPrediction;     // the day's tables and grid are ready to draw
    std::function<void()> afterRow;            // after each grid row of the day's block
};

// Where the days' predictions are kept: the window's own tables, so that it can draw them.
struct ReportWork {
    MinuteTables& tables;
    ActivityTable& activity;
    PredictionGrid& grid;
};

using ReportDayFunction = std::function<void(double day, const PredictionGrid& grid, const MinuteTables& tables)>;

// The days of a report from ReportStart to ReportEnd: beforeDay (false cancels), the day's
// prediction with the exclusions while a report is in progress and the options' minimum
// duration, afterPrediction, then onDay with the day's grid and tables.
ReportOutcome ForEachReportDay(Core& core, const ModeTableState& modes, const ReportOptions& options,
                               const ReportExclusions& exclusions, const ReportHooks& hooks, const ReportWork* work,
                               const ReportDayFunction& onDay);

// The whole report, for the prediction window and tarvelle-cli alike. For each day from
// ReportStart to ReportEnd: beforeDay is asked first (false cancels, as the cancel button does:
// what is written stays and "End of Report" is not written), then the prediction with the
// exclusions while a report is in progress (the minimum duration is the options'), then the
// day's block. The tables are work's when given, else the writer's own. CurrentUT is as it was
// afterwards; LST and the live positions are stale, as after any prediction.
ReportOutcome WriteEventReport(Core& core, const ModeTableState& modes, const ReportOptions& options,
                               const ReportExclusions& exclusions, std::ostream& out,
                               const ReportHooks& hooks = {}, const ReportWork* work = nullptr);

} // namespace tarvelle
