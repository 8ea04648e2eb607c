// The checks and the saving of the automation parameters window's OK button, apart from the
// window: the entries in, messages through the station's dialogs, the record and the settings
// out.
#pragma once

#include "scripting/automation.h"
#include "station/time_entry.h"

#include <array>
#include <string>

namespace tarvelle {

// What the window's controls hold when OK is clicked. The angles and the Run boxes are already
// in the record: their controls put them there as they change.
struct AutomationEntries {
    bool useJupAz = false, useJupAlt = false, sunIsDown = false;
    bool doDaily = false, doOnThisDate = false, doAtThisTime = false;
    bool optGMT = false, optJup = true;
    bool altChanges = false, azChanges = false, audibleAlert = false;
    std::array<std::string, kTaskScripts + 1> paths{}; // 1 to 4
    DateTimeBoxes boxes;                               // Y, M, D, H, N
    std::string altChangeText, azChangeText;
};

// Runs the checks and saves in their order. A failing check shows its message and returns
// false, with what was saved before it left saved; entries whose boxes the rules correct
// (hours, minutes, a bad date) are corrected in `entries`. programTitle titles two messages.
bool SaveAutomationEntries(Station& station, AutomationParameters& p, AutomationEntries& entries,
                           const QString& programTitle);

} // namespace tarvelle
