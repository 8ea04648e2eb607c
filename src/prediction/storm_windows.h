// The events of a day's grid for other programs: as JSON for scripts, and as iCalendar
// (RFC 5545) events for the observer's calendar.
//
// Usage:
//   PredictDay(core, modes, ex, tables, *activity, grid, date);
//   out << PredictionJson(core, date, ex, GridEvents(grid, date));
// and for a span of days, as the text report lists them:
//   WriteCalendarReport(core, modes, options, ex, dtstamp, out);
#pragma once

#include "core/astro_core.h"
#include "prediction/event_report.h"
#include "prediction/prediction.h"

#include <ostream>
#include <string>
#include <vector>

namespace tarvelle {

// One begin/end pair of the grid.
struct StormEvent {
    int mode = 0;      // the grid row: mode 1, 2, ...
    std::string name;  // the mode's name as the grid shows it (bytes of the mode file)
    double day = 0.0;  // the whole-day date value, GMT
    int begin = 0;     // minutes after 00:00 GMT, as the grid's begin text reads
    int end = 0;       // the same for the end text (23:59 for an event that runs to midnight)

    bool operator==(const StormEvent&) const = default;
};

// The grid's begin/end pairs, mode by mode, pair by pair.
std::vector<StormEvent> GridEvents(const PredictionGrid& grid, double day);

// "YYYY-MM-DDTHH:MMZ" of a minute of a day.
std::string IsoMinute(double day, int minutes);

// The JSON object of one day: the observer, the exclusions in force and the events.
std::string PredictionJson(const Core& core, double date, const ReportExclusions& ex,
                           const std::vector<StormEvent>& events);

// A calendar event: the grid's pair with Jupiter's state at its begin and end.
struct CalendarEvent {
    StormEvent event;
    int16_t cmlBegin = 0, ioBegin = 0, altBegin = 0;
    int16_t cmlEnd = 0, ioEnd = 0, altEnd = 0;
};

// The day's events as the text report lists them: with Io-only, only the modes whose report
// row holds "Io".
std::vector<CalendarEvent> ReportCalendarEvents(const PredictionGrid& grid, const MinuteTables& tables,
                                                const ReportOptions& options, double day);

// One content line folded at 75 octets (never inside a UTF-8 character), each physical line
// ended by CR LF.
std::string FoldContentLine(const std::string& line);

// The whole VCALENDAR. dtstamp is the GMT date value of the writing; observer names the place
// in the UIDs, so that two observers' events never share one.
std::string CalendarText(const std::vector<CalendarEvent>& events, const std::string& versionText, double dtstamp,
                         const std::string& observer);

// The report of a span as a calendar: the same days, exclusions, minimum duration and Io-only
// choice as WriteEventReport, the same hooks. A cancelled report still gives a whole
// calendar, of the days done.
ReportOutcome WriteCalendarReport(Core& core, const ModeTableState& modes, const ReportOptions& options,
                                  const ReportExclusions& exclusions, double dtstamp, std::ostream& out,
                                  const ReportHooks& hooks = {}, const ReportWork* work = nullptr);

} // namespace tarvelle
