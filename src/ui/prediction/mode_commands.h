// The File menu's mode file commands of the main window: Load, Save and Edit Mode File.
//
// The main window connects its actions MnuLoadModeFile, MnuSaveModeFile and MnuEditModeFile to
// these. None of them rebuilds the day's activity: new modes reach it at the next prediction or
// the next change of day.
#pragma once

#include "station/station.h"

class QWidget;

namespace tarvelle {

// "&Load Mode File": asks for a file, loads it into the mode table and, when it loaded, keeps
// its path under Startup/ModeFileName and tells of modes past the sixth.
void MnuLoadModeFileClick(Station& station);

// "&Save Mode File": asks for a path and writes the table there. ModeFileName and its setting
// stay as they were.
void MnuSaveModeFileClick(Station& station);

// "&Edit Mode File": the editor Form4, modal over parent.
void MnuEditModeFileClick(Station& station, QWidget* parent);

// The prediction, the reports and the automation take six modes at most. When the table holds
// more, says so in a message box ("Mode File", information icon); otherwise does nothing.
void TellOfUnpredictedModes(const ModeTableState& modes, Dialogs& dialogs);

} // namespace tarvelle
