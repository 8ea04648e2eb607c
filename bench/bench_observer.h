// The sample observer every computing benchmark starts from: 39°15' N, 76°30' W, GMT-5, at
// 07:12 GMT on 2026-11-22, with the sidereal time of that instant.
#pragma once

#include "core/astro_core.h"
#include "core/date_value.h"

namespace tarvelle {

inline Core SampleObserver() {
    Core c;
    c.ObsLatitude = 39.25f;
    c.ObsLongitude = 76.5f;
    c.ObLatText = "39:15:00";
    c.ObLngText = "76:30:00";
    c.ObsTZ = -5.0;
    c.CurrentUT = DateSerial(2026, 11, 22) + 0.3;
    c.UpdateSiderealTime();
    return c;
}

} // namespace tarvelle
