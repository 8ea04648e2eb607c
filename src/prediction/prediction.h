// The daily prediction: a day scanned minute by minute into whole degrees, each minute matched
// against the mode table, and the result turned into the activity tables and the grid of
// begin and end times that the prediction window, the event report and the activity line read.
//
// Usage (what the prediction window does for one day):
//   core.SaveCurrentTime();
//   activity.ModeActivity = {};
//   BuildPredictionTables(core, minutes, date);      // ends with RestoreCurrentTime
//   ComputeReportEvents(minutes, modes, exclusions, activity.ModeActivity);
//   FillGrid(grid, modes, activity.ModeActivity);
//   core.RestoreCurrentTime();
// PredictDay does exactly these steps. All times are GMT; minute rows run 1 to 1440 and row 0
// stays zero. Only the first six modes are predicted (ModeTableState::PredictedModes).
#pragma once

#include "core/astro_core.h"
#include "station/prediction_state.h"

#include <array>
#include <string>

namespace tarvelle {

inline constexpr int kGridColumns = 7; // the mode name, then three begin/end pairs
inline constexpr int kGridRows = kPredictedModes + 1;

// Fills the five per-minute tables for the calendar day of date (GMT). Sun, Jupiter, CML III
// and Io are computed once, at 00:10, and carried on at fixed rates; only the horizon is
// recomputed each minute, from a sidereal time that is stepped and never reduced. Moves
// CurrentUT, LST and the live positions; puts LST back and ends with RestoreCurrentTime, so
// the caller calls SaveCurrentTime first.
void BuildPredictionTables(Core& core, MinuteTables& tables, double date);

// The match of one minute's whole-degree CML and Io phase against a mode's ranges: 1 inside,
// 0 outside. A CML range whose end is below its start runs through 360; an Io range never does.
int16_t ModeMatch(int16_t cml, int16_t io, const std::array<int16_t, 5>& mode);

// ModeActivity from the tables, without exclusions, for minutes 1 to 1440 and the predicted
// modes. Other rows and modes keep what they hold.
void MatchModes(const MinuteTables& tables, const ModeTableState& modes, ActivityTable& activity);

// What takes a matching minute out of a report: the texts of the prediction window's fields
// as numbers, and the report's own state.
struct ReportExclusions {
    float ReportJupAltMin = 0.0f; // degrees; a minute with Jupiter lower is excluded
    float ReportSunAltMax = 0.0f; // degrees; a minute with the Sun higher is excluded
    double MinHA = -6.0;          // hours, the number in txtMinHA
    double MaxHA = 6.0;           // hours, the number in txtMaxHA
    bool ReportInProgress = false;
    float ReportMinDuration = 0.0f; // minutes; only while a report is in progress
};

// The exclusions as the window reads them from its four fields (the value of each text).
ReportExclusions ExclusionsFromTexts(const std::string& jupAltMin, const std::string& sunAltMax,
                                     const std::string& minHA, const std::string& maxHA);

// The match with exclusions (an excluded minute becomes -1), then, while a report is in
// progress, the removal of events shorter than ReportMinDuration.
void ComputeReportEvents(const MinuteTables& tables, const ModeTableState& modes, const ReportExclusions& ex,
                         ActivityTable& activity);

// "hh:mm" of a count of minutes.
std::string MinutesToHHMM(int minutes);

// The grid of the prediction window as text, cell by cell: row 0 the headings, row i the
// mode i with up to three events.
struct PredictionGrid {
    int Rows = 1; // rows in use: the predicted modes plus the heading row
    std::array<std::array<std::string, kGridColumns>, kGridRows> Cells{}; // [row][column]

    const std::string& Text(int row, int column) const {
        return Cells[static_cast<size_t>(row)][static_cast<size_t>(column)];
    }
};

// Fills the grid from ModeActivity as the window does after a prediction. Cells outside the
// rows and columns that the filling touches keep their text, as the window's grid does.
void FillGrid(PredictionGrid& grid, const ModeTableState& modes, const ActivityTable& activity);

// The computing part of the prediction window's DoPredictions for one date: save the time,
// clear ModeActivity, build the tables, match with exclusions, fill the grid, restore the time.
void PredictDay(Core& core, const ModeTableState& modes, const ReportExclusions& ex, MinuteTables& tables,
                ActivityTable& activity, PredictionGrid& grid, double date);

// The main window's refresh of the day's activity: the tables of the GMT date of the
// computer's clock reading (a local date value), matched without exclusions and copied to
// TodayActivity. Does not save the time: the next tick sets CurrentUT anew.
void UpdateTodayActivity(Core& core, const ModeTableState& modes, MinuteTables& tables, ActivityState& state,
                         double computerClock);

// The modes active in TodayActivity at the minute of CurrentUT: found, and each name added
// to names after three blanks.
void CheckForActivity(const Core& core, const ModeTableState& modes, const ActivityState& state, bool& found,
                      std::string& names);

} // namespace tarvelle
