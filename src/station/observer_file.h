// Loading the current observer record into the core.
#pragma once

#include "core/astro_core.h"
#include "platform/dialogs.h"

namespace tarvelle {

// Reads ObFileName into ObLatText, ObLngText, ObsTZ, ObsLatitude and ObsLongitude. On failure
// says so in a message box and leaves the values as they were; returns whether it loaded.
bool LoadObserverFile(Core& core, Dialogs& dialogs);

} // namespace tarvelle
