// The yearly visibility chart: for each day of a year and each step of the local day, which of
// Jupiter and the Sun stand above the observer's horizon.
//
// Usage: YearFromText gives the year as the window keeps it; ComputeVisibility refuses a year
// outside 1900..2100 with `message`, else hands each finished day to `onDay` (day index from 0,
// one letter a step) and returns all days. The core's CurrentUT is saved and put back.
#pragma once

#include "core/astro_core.h"

#include <functional>
#include <string>
#include <vector>

namespace tarvelle {

// B both up, S the Sun only, J Jupiter only, N neither.
enum class Visible : char { Both = 'B', Sun = 'S', Jupiter = 'J', Neither = 'N' };

struct VisibilityResolution {
    double lastHour;  // the last hour a step starts at
    double hourStep;  // width of a step on the chart, hours
    double timeStep;  // the same step added to CurrentUT, days
};
VisibilityResolution ResolutionOf(bool hiRes);

inline constexpr int kVisibilityDays = 365; // also in a leap year

// The year of TxtGraphYear's text: its leading number, to the nearest whole.
int YearFromText(const std::string& text);

// The letter for two altitudes; at exactly 0 no case applies and `previous` stays.
Visible VisibilityOf(double jupAlt, double sunAlt, Visible previous);

struct VisibilityResult {
    std::string message; // a refusal; empty when computed
    std::string title;   // of the refusal
    std::vector<std::string> days; // one string of letters a day
};

VisibilityResult ComputeVisibility(Core& core, int year, bool hiRes,
                                   const std::function<void(int day, const std::string& letters)>& onDay = {});

} // namespace tarvelle
