// The live values at the moment a time was fixed; what every display shows in fixed time.
#pragma once

#include "core/astro_core.h"

namespace tarvelle {

struct FixedSnapshot {
    double FixedUT = 0.0;
    float FixedLST = 0.0f;
    double FixedJupAlt = 0.0, FixedJupAz = 0.0, FixedJupRA = 0.0, FixedJupDec = 0.0;
    double FixedSunAlt = 0.0, FixedSunAz = 0.0, FixedSunRA = 0.0, FixedSunDec = 0.0;
    double FixedSunRise = 0.0, FixedSunSet = 0.0, FixedJupRise = 0.0, FixedJupSet = 0.0;
    float FixedCML = 0.0f, FixedIoPhase = 0.0f;
};

// Copies the live values into the snapshot; FixedUT is the caller's to set.
inline void SetFixedTime(const Core& c, FixedSnapshot& f) {
    f.FixedLST = c.LST;
    f.FixedJupAlt = c.JupAlt;
    f.FixedJupAz = c.JupAz;
    f.FixedJupRA = c.JupRA;
    f.FixedJupDec = c.JupDec;
    f.FixedSunAlt = c.SunAlt;
    f.FixedSunAz = c.SunAz;
    f.FixedSunRA = c.SunRA;
    f.FixedSunDec = c.SunDec;
    f.FixedSunRise = c.SunRise;
    f.FixedSunSet = c.SunSet;
    f.FixedJupRise = c.JupRise;
    f.FixedJupSet = c.JupSet;
    f.FixedCML = c.CMLIII;
    f.FixedIoPhase = c.IoPhase;
}

} // namespace tarvelle
