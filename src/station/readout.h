// The texts of the station window's live readout, from the core's values in real time and
// from the fixed snapshot in fixed time. The window only puts them on its controls.
#pragma once

#include "core/astro_core.h"
#include "core/fixed_snapshot.h"

#include <string>

namespace tarvelle {

// The date and time boxes and the sidereal time line.
struct TimeTexts {
    double shown = 0.0; // the date value the boxes show
    std::string txtY, txtM, txtD, txtH, txtN, txtS;
    std::string Label3; // " LMST: hh:mm:ss"
};

// The position labels, named as the controls that show them.
struct InfoTexts {
    std::string LbLSunRise, LbLSunSet, LbLJupRise, LbLJupSet, LBLJupHA, LBLSunHA;
    std::string LbLJupRA, LbLJupDec, LBlCMIII, LbLSGC, LBLJupAlt, LBLJupAz;
    std::string LbLSunRA, LbLSunDec, LBLSunAlt, LBLSunAz;
};

// computerClock is the computer's local date and time, shown in real time when not in GMT.
TimeTexts BuildTimeTexts(const Core& core, const FixedSnapshot& fixed, double computerClock);
InfoTexts BuildInfoTexts(const Core& core, const FixedSnapshot& fixed);
// The two lines of the observer label, west or east by DisplayWest.
std::string ObserverLabelText(const Core& core);
// The title bar: the title, then "  (GMT)" or "  (Local Time)".
std::string CaptionText(const std::string& titleText, bool useGMT);
// "Tarvelle   3.8.2": the title with the version as the masks "##", "#0", "#0" show it.
std::string TitleWithVersion(const std::string& titleText, int major, int minor, int revision);

} // namespace tarvelle
