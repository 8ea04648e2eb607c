#include "sky/sky_places.h"

#include "sky/sky_projection.h"

#include <algorithm>

namespace tarvelle {

SkyPlaces PlacesAt(const Core& core, const FixedSnapshot& fixed, int16_t minutePointer) {
    if (!core.RealTimeMode)
        return {fixed.FixedJupAlt, fixed.FixedJupAz, fixed.FixedSunAlt, fixed.FixedSunAz,
                static_cast<double>(fixed.FixedLST)};
    const auto i = static_cast<size_t>(std::clamp<int>(minutePointer, 0, kDayTableSize - 1));
    const DayTables& d = core.Day;
    return {d.DayJupAlt[i], d.DayJupAz[i], d.DaySunAlt[i], d.DaySunAz[i], static_cast<double>(d.DayLST[i])};
}

int16_t PresentMinute(const Core& core, const FixedSnapshot& fixed, double computerClock) {
    const double t = core.RealTimeMode ? core.GMTFromClock(computerClock) : fixed.FixedUT - core.ObsTZ / 24.0;
    return MinutePointerOf(t);
}

} // namespace tarvelle
