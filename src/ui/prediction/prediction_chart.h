// The day chart of the prediction window, drawn from a copy of the day's tables so that it
// can be drawn again at a new size, or with the present minute moved on, without the shared
// tables (which the main window refills for today).
//
// The chart's frame is seconds of the GMT day across (0 to 86400) and rows down (0 to 9.5):
// the hour band on top (0 to 1.5), mode i's bar from i + 0.5 to i + 2, the local band at the
// foot (8 to 9.5).
#pragma once

#include "render/plot_surface.h"
#include "station/prediction_state.h"

#include <optional>
#include <vector>

namespace tarvelle {

struct ChartDay {
    // Rows 0 to 1440, whole degrees.
    std::vector<int16_t> jupAlt = std::vector<int16_t>(kMinutesPerDay + 1);
    std::vector<int16_t> sunAlt = std::vector<int16_t>(kMinutesPerDay + 1);
    ActivityTable activity{};            // 1 heard, -1 taken out by a limit, 0 none
};

ChartDay ChartDayOf(const MinuteTables& tables, const ActivityTable& activity);

// The colours of the legend and of each mode's bars, modes 1 to 6.
int ModeColour(int mode);

// The colour of Jupiter's or the Sun's altitude above the horizon.
int AltitudeColour(int altitude);

// Jupiter's altitude minute by minute (blue below the horizon), the 20-minute and hour lines
// and the modes' bars: a heard event solid in its mode's colour and edged in black, so that
// every colour stands out on the pale and on the blue ground; an event taken out by the
// altitude, Sun or hour-angle limits only hatched in its colour, so that it is never read as
// one to listen for.
void DrawChartBody(PlotSurface& s, const ChartDay& day);

// The GMT hours in the top band and the same moments in the zone's local time in the foot band.
void DrawHourBands(PlotSurface& s, double obsTZ);

// The Sun's altitude, black while it is down.
void DrawSunBar(PlotSurface& s, const ChartDay& day);

// Where the present minute stands on the chart of a day, in seconds of the day: only when
// the date shown (GMT, any time of that day) is the GMT date of now.
std::optional<double> NowLineSecond(double shownDate, double gmtNow);

// A line down the whole chart at that second: white between two black lines, seen on every
// ground.
void DrawNowLine(PlotSurface& s, double second);

} // namespace tarvelle
