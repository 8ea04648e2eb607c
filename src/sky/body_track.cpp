#include "sky/body_track.h"

#include "prediction/plane_track.h"

#include <algorithm>

namespace tarvelle {

std::vector<TrackStep> BodyTrackSteps(const std::array<double, kDayTableSize>& alt, bool useGMT, double obsTZ) {
    const auto up = [&alt](int i) { return alt[static_cast<size_t>(i)] > 0.0; };
    int n = 0;
    while (n <= 1800 && alt[static_cast<size_t>(n)] < 0.0) ++n;
    while (n % 20 != 0 && n <= 1800) ++n;
    const int end = std::min(n + 1440, 1800);
    const double boundary = TrackEndOfDay(useGMT, obsTZ);
    std::vector<TrackStep> steps;
    for (int i = n + 20; i <= end; i += 20) {
        if (!up(i) || !up(i - 20)) continue;
        TrackStep step;
        step.i = i;
        step.dotted = i > boundary;
        if (i % 60 == 0) step.hourLabel = TrackHourText(i / 60, useGMT, obsTZ);
        steps.push_back(std::move(step));
    }
    return steps;
}

} // namespace tarvelle
