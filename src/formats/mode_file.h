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
// Usage: the start-up sets ModeFileName and calls LoadModeFile (station/file_messages.h), which
// reads with ReadModeFile and tells the user of a failure; the File menu commands and the editor
// (ui/prediction) call the rest.
#pragma once

#include "formats/file_io.h"

#include <array>
#include <cstdint>
#include <string>

namespace tarvelle {

inline constexpr int kMaxModes = 10;      // the table and the reader
inline constexpr int kPredictedModes = 6; // the per-minute activity has six mode columns

// Columns of a mode's row: the CML range and the Io phase range, whole degrees.
enum ModeColumn { CML1 = 1, CML2 = 2, IoP1 = 3, IoP2 = 4 };

struct ModeTableState {
    std::string ModeFileName;
    int16_t NumModes = 0;
    std::array<std::string, kMaxModes + 1> ModeName{};             // 1 to 10
    std::array<std::array<int16_t, 5>, kMaxModes + 1> ModeTable{}; // [mode 1..10][column 1..4]
    bool ModesLoaded = false;

    // The modes that prediction, reports and automation take: the first six at most.
    int PredictedModes() const { return NumModes < kPredictedModes ? NumModes : kPredictedModes; }
};

// Reads ModeFileName into the table and returns 0, or the error number of the failure.
// NumModes is the count of records read, at most 10 (the rest of the file is ignored); rows past
// it are cleared; ModesLoaded is set. Failures: 53 no such file, 76 no such folder, 75 no access
// or not a regular file, 7 a file over 1 MB, 57 a read fault, 62 the file ends inside a record,
// 13 a field that is not a number, 6 a number beyond 16 bits. A failure leaves the table as it
// was, and failedLine (when given) names the line of the faulty field.
int ReadModeFile(ModeTableState& modes, int* failedLine = nullptr);

// Writes six records to path, or NumModes records when there are more, replacing the file in one
// step; number 0 when it was written.
FileFailure WriteModeFile(const ModeTableState& modes, const std::string& path);

// The file's bytes as WriteModeFile writes them.
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
