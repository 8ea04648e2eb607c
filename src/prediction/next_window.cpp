#include "prediction/next_window.h"

#include "prediction/storm_windows.h"

#include <cmath>
#include <cstdio>
#include <memory>
#include <vector>

namespace tarvelle {

namespace {

constexpr int kLastMinute = kMinutesPerDay - 1; // the grid's end of an event that runs to midnight

std::string ClockText(long long minute) {
    const long long m = ((minute % kMinutesPerDay) + kMinutesPerDay) % kMinutesPerDay;
    char b[8];
    std::snprintf(b, sizeof b, "%02lld:%02lld", m / 60, m % 60);
    return b;
}

std::string WaitText(long long minutes) {
    if (minutes <= 0) return "now";
    const std::string m = std::to_string(minutes % 60) + " min";
    return "in " + (minutes >= 60 ? std::to_string(minutes / 60) + " h " + m : m);
}

} // namespace

long long MinuteOf(double ut) {
    return static_cast<long long>(std::floor(ut * kMinutesPerDay + 1e-6));
}

std::vector<NextWindow> WindowsOfTwoDays(const Core& core, const ModeTableState& modes, const ReportExclusions& ex,
                                         double today) {
    auto work = std::make_unique<Core>(core);
    auto activity = std::make_unique<ActivityTable>();
    MinuteTables tables;
    PredictionGrid grid;
    std::vector<NextWindow> windows;
    for (double day : {today, today + 1.0}) {
        work->CurrentUT = day;
        PredictDay(*work, modes, ex, tables, *activity, grid, day);
        const long long base = static_cast<long long>(day) * kMinutesPerDay;
        for (const StormEvent& e : GridEvents(grid, day)) {
            NextWindow w{e.mode, e.name, base + e.begin, base + e.end};
            // Yesterday's window of this mode ran to midnight: this one goes on with it.
            bool joined = false;
            for (NextWindow& before : windows)
                if (e.begin == 0 && before.mode == e.mode && before.end == base - kMinutesPerDay + kLastMinute) {
                    before.end = w.end;
                    joined = true;
                }
            if (!joined) windows.push_back(w);
        }
    }
    return windows;
}

std::optional<NextWindow> FirstWindowAfter(const std::vector<NextWindow>& windows, double now) {
    const long long present = MinuteOf(now);
    std::optional<NextWindow> next;
    for (const NextWindow& w : windows)
        if (w.end > present && (!next || w.begin < next->begin)) next = w;
    return next;
}

std::optional<NextWindow> FindNextWindow(const Core& core, const ModeTableState& modes, const ReportExclusions& ex,
                                         double now) {
    return FirstWindowAfter(WindowsOfTwoDays(core, modes, ex, std::floor(now)), now);
}

std::string NextWindowText(const std::optional<NextWindow>& next, double now, bool gmt, double tzHours) {
    if (!next) return "Next: none in the coming 48 h";
    const long long shift = gmt ? 0 : std::llround(tzHours * 60.0);
    return "Next: " + next->name + " " + ClockText(next->begin + shift) + "-" + ClockText(next->end + shift) +
           (gmt ? " GMT, " : " Local, ") + WaitText(next->begin - MinuteOf(now));
}

ReportExclusions SavedExclusions(const SettingsStore& settings) {
    auto get = [&](const char* key, const char* fallback) {
        return settings.get("Settings", key, fallback).toStdString();
    };
    return ExclusionsFromTexts(get("ReportJupAltMin", "0"), get("ReportSunAltMax", "0"), get("ReportMinHA", "-6"),
                               get("ReportMaxHA", "6"));
}

} // namespace tarvelle
