// Loading and saving the station's files, telling the user of a failure in a message box.
#pragma once

#include "core/astro_core.h"
#include "formats/mode_file.h"
#include "station/dialogs.h"

#include <string>

namespace tarvelle {

// Reads ObFileName into ObLatText, ObLngText, ObsTZ, ObsLatitude and ObsLongitude. On failure
// says so in a message box and leaves the values as they were; returns whether it loaded.
bool LoadObserverFile(Core& core, Dialogs& dialogs);

// ReadModeFile; on a failure the "FILE ERROR!" message with the error's text, and status set
// to the error number (untouched on success).
void LoadModeFile(ModeTableState& modes, int& status, Dialogs& dialogs);

// WriteModeFile; on a failure the "FILE ERROR!" message, naming ModeFileName, and status set to
// 1 (untouched on success).
void SaveModeFile(const ModeTableState& modes, const std::string& path, int& status, Dialogs& dialogs);

} // namespace tarvelle
