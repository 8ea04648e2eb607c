// The state of emission prediction that the whole program shares: the mode table read from
// a mode file, the per-minute tables of the day last predicted, and the activity tables.
#pragma once

#include "formats/mode_file.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvelle {

inline constexpr int kMinutesPerDay = 1440;

// Rows 0 to 1440 of the day last predicted; row 0 stays zero.
struct MinuteTables {
    std::vector<int16_t> MinuteCML, MinuteIo, MinuteSunAlt, MinuteJupAlt;
    std::vector<float> MinuteJupHA;
};

using ActivityTable = std::array<std::array<int16_t, kMinutesPerDay + 1>, kPredictedModes + 1>; // [mode][minute]

struct ActivityState {
    ActivityTable ModeActivity{};  // 0 none, 1 heard, -1 taken out by an exclusion
    ActivityTable TodayActivity{}; // 0 or 1, the current day
    int ActivityDayOfMonth = 0;
};

// The emission probability in whole percent by Io phase (first index) and CML (second), both
// whole degrees 0 to 360; row 0 and column 0 stay 0.
using ProbabilityTable = std::vector<std::array<double, 361>>;

} // namespace tarvelle
