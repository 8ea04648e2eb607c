// Mode files (.jmf): the storm regions of the CML-Io phase plane that the station listens for.
//
// A file is a run of five-line records, CR LF line ends, no header:
//
//     Io-A          the name, as typed, without quotes
//      200          CML1: start of the CML range, degrees
//      270          CML2: end of the CML range (below CML1 when the range passes 360)
//      195          IoP1: start of the Io phase range
//      265          IoP2: end of the Io phase range
//
// Numbers are whole degrees in 16 bits, written with a blank before a non-negative number and
// a blank after every number. The reader takes comma-or-line-delimited fields, so a comma in
// a name splits it.
//
// Usage: the start-up sets ModeFileName and calls LoadModeFile; the File menu commands and the
// editor (mode_commands.h, mode_editor_window.h) call the rest.
#pragma once

#include "platform/dialogs.h"
#include "station/prediction_state.h"

#include <array>
#include <string>

namespace tarvelle {

// Reads ModeFileName into the table. The names are cleared first, the rows are not; NumModes is
// the count of records read, at most 10 (the rest of the file is ignored). On a failure (53 no
// such file, 76 no such folder, 75 no access, 57 a read fault, 62 the file ends inside a record,
// 13 a field that is not a number, 6 a number beyond 16 bits) it shows the "FILE ERROR!" message,
// sets status to the error number and leaves ModesLoaded as it was; the records read before the
// failure stay, and NumModes stays 10 once the file was open. status is untouched on success.
void LoadModeFile(ModeTableState& modes, int& status, Dialogs& dialogs);

// Writes exactly six records to path, whatever NumModes is, replacing the file. On a failure it
// shows the "FILE ERROR!" message, naming ModeFileName, and sets status to 1; untouched on success.
void SaveModeFile(const ModeTableState& modes, const std::string& path, int& status, Dialogs& dialogs);

// The file's bytes as SaveModeFile writes them.
std::string ModeFileText(const ModeTableState& modes);

// One row of the editor as typed: the name and the texts of CML1, CML2, IoP1 and IoP2.
struct ModeRowTexts {
    std::string name;
    std::array<std::string, 4> numbers;
};
using ModeEditRows = std::array<ModeRowTexts, kMaxModes>; // rows 0 to 9

// The rows the editor opens with: modes 1 to NumModes in rows 0 onward, the rest empty.
ModeEditRows ModeEditRowsOf(const ModeTableState& modes);

// The editor's rows back into the table. Names are read from rows 0 to 8 only; the first empty
// one ends the list and sets NumModes (with none empty NumModes stays). Each number of modes 1
// to NumModes is the leading number of its text rounded half to even, 0 when there is none; a
// value beyond 16 bits leaves the table's value in place.
void ApplyModeEdits(ModeTableState& modes, const ModeEditRows& rows);

} // namespace tarvelle
