// The next window in which Jupiter can be heard: from the present minute over today and
// tomorrow (GMT), with the modes and exclusions in force, for the main window's status line.
#pragma once

#include "core/astro_core.h"
#include "prediction/prediction.h"
#include "station/settings_store.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvelle {

// A window in whole minutes counted from the date value 0 (GMT).
struct NextWindow {
    int mode = 0;
    std::string name; // bytes of the mode file
    long long begin = 0, end = 0;
};

// The minute of a GMT date value, counted from the date value 0.
long long MinuteOf(double ut);

// The windows of the grids of a GMT day and the next, a window that runs over midnight joined
// into one. core is not moved: the prediction works on a copy.
std::vector<NextWindow> WindowsOfTwoDays(const Core& core, const ModeTableState& modes, const ReportExclusions& ex,
                                         double today);

// The first of those windows that has not ended at the minute of now (one in progress counts).
std::optional<NextWindow> FirstWindowAfter(const std::vector<NextWindow>& windows, double now);

// The first window of today's and tomorrow's grids that has not ended at the minute of now: a
// window in progress counts. A window that runs to midnight and goes on at 00:00 of the next
// day is one window. core is not moved: the search works on a copy.
std::optional<NextWindow> FindNextWindow(const Core& core, const ModeTableState& modes, const ReportExclusions& ex,
                                         double now);

// "Next: Io-B 02:14-03:40 GMT, in 5 h 12 min", "... , now" for a window in progress, or
// "Next: none in the coming 48 h". With local false the times are shifted by tzHours and
// marked "Local". The mode name stays in its Latin-1 bytes.
std::string NextWindowText(const std::optional<NextWindow>& next, double now, bool gmt, double tzHours);

// The exclusions the prediction window last saved, or the defaults.
ReportExclusions SavedExclusions(const SettingsStore& settings);

} // namespace tarvelle
