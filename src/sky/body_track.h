// The day's track of a body across the sky map, from the per-minute tables: from the first
// minute at or above the horizon, moved on to a multiple of 20, over at most a day, a step
// every 20 minutes. A step is drawn only with the body up at both of its ends; steps after
// the end of the day on show are dotted; every hour has a label.
#pragma once

#include "core/astro_core.h"

#include <string>
#include <vector>

namespace tarvelle {

struct TrackStep {
    int i = 0;              // table index of the step's end; its start is i - 20
    bool dotted = false;    // past the end of the day on show
    std::string hourLabel;  // empty between hours
};

// The drawn steps of a track over the tables alt and az (kDayTableSize entries).
std::vector<TrackStep> BodyTrackSteps(const std::array<double, kDayTableSize>& alt, bool useGMT, double obsTZ);

} // namespace tarvelle
