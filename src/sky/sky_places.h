// Where the sky displays put the Sun and Jupiter: in real time the day tables at the minute
// shown, at a fixed time the snapshot taken when the time was fixed.
#pragma once

#include "core/astro_core.h"
#include "core/fixed_snapshot.h"

#include <cstdint>

namespace tarvelle {

struct SkyPlaces {
    double jupAlt = 0.0, jupAz = 0.0, sunAlt = 0.0, sunAz = 0.0; // degrees
    double lst = 0.0;                                          // hours
};

SkyPlaces PlacesAt(const Core& core, const FixedSnapshot& fixed, int16_t minutePointer);

// The minute of the day tables for the present moment: the computer's clock in real time,
// FixedUT at a fixed time, both taken back to GMT by the observer's zone first as the displays
// have always done.
int16_t PresentMinute(const Core& core, const FixedSnapshot& fixed, double computerClock);

} // namespace tarvelle
