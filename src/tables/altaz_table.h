// The Alt/Az table file: the altitude and azimuth of Jupiter and the Sun from 00:00 GMT of a
// first date to the last step of a last date, at a step of minutes.
//
// The record file (random access) is a run of 18-byte records, no header: 16 bytes of ASCII
// text padded with blanks ("07 123 -12 254": Jupiter's altitude and azimuth, then the Sun's,
// whole degrees) and CR LF. Record k holds the moment start + k x step. An existing file is
// appended to. The text table is a readable table with a heading line, written anew.
//
// Usage: fill AltAzTableInput with the texts of the fields, call WriteAltAzTable. `onRecord`
// gets each record's text (the progress label) and lets other events in. The core's CurrentUT
// and LST are put back afterwards.
#pragma once

#include "core/astro_core.h"

#include <functional>
#include <string>

namespace tarvelle {

inline constexpr int kAltAzRecordBytes = 18;

enum class AltAzBodies { Jupiter, Sun, Both };

struct AltAzTableInput {
    std::string startYear, startMonth, startDay; // txtYS, txtMS, txtDS
    std::string endYear, endMonth, endDay;       // txtYE, txtME, txtDE
    std::string stepMinutes = "10";              // Combo1
    bool randomAccess = true;                    // chkRandomAccess
    bool includeDate = true, includeTime = true; // ChkIncludeDate, chkIncludeTime (text table)
    AltAzBodies bodies = AltAzBodies::Both;      // OptJup, OptSun, OptBoth (text table)
};

struct AltAzTableResult {
    std::string message; // a refusal: nothing written
    long records = 0;
    bool written = false; // false when the file could not be opened
};

// The 16 text bytes of the record for the core's live values, before padding.
std::string AltAzRecordText(const Core& core);

AltAzTableResult WriteAltAzTable(Core& core, const AltAzTableInput& input, const std::string& path,
                                 const std::function<void(const std::string&)>& onRecord = {});

} // namespace tarvelle
