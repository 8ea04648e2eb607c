// The state of emission prediction that the whole program shares: the mode table read from
// a mode file, the per-minute tables of the day last predicted, and the activity tables.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvelle {

inline constexpr int kMaxModes = 10;       // the table and the reader
inline constexpr int kPredictedModes = 6;  // the per-minute activity has six mode columns
inline constexpr int kMinutesPerDay = 1440;

// Columns of a mode's row: the CML range and the Io phase range, whole degrees.
enum ModeColumn { CML1 = 1, CML2 = 2, IoP1 = 3, IoP2 = 4 };

struct ModeTableState {
    std::string ModeFileName;
    int16_t NumModes = 0;
    std::array<std::string, kMaxModes + 1> ModeName{};                 // 1 to 10
    std::array<std::array<int16_t, 5>, kMaxModes + 1> ModeTable{};     // [mode 1..10][column 1..4]
    bool ModesLoaded = false;

    // The modes that prediction, reports and automation take: the first six at most.
    int PredictedModes() const { return NumModes < kPredictedModes ? NumModes : kPredictedModes; }
};

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
