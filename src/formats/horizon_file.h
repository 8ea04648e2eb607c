// Horizon files: the local horizon as altitude by azimuth, one "azimuth altitude" pair an
// entry (formats/entries.h; no cap on the number of entries), degrees:
//
//     # my garden, from the back door
//     0 12
//     90 5
//     180 20
//
// An entry counts when it has 3 characters or more, no "#", a space at its second character
// or later, an azimuth (the value of the text before the first space) in 0..360 exclusive and
// an altitude (the value of the text behind it) in 0..89. The azimuth is cut to whole degrees
// and a later entry replaces an earlier one. Degrees without a value are filled in straight
// lines between their neighbours, across north too.
#pragma once

#include <array>
#include <string>

namespace tarvelle {

inline constexpr int kHorizonSize = 361;        // index 0 to 360
inline constexpr double kNoHorizonValue = -99.0; // a degree without a value while reading
using HorizonTable = std::array<double, kHorizonSize>;

struct HorizonLoad {
    std::string message;  // the text of a message box; empty when there is none
    std::string toolTip;  // "Horizon File: " and the file's name, when the load went through
    bool changed = false; // the table was written (false: it is as it was)
};

// LoadHorizonFile: an empty path makes the table all 0 (the rim of the map). A missing file
// leaves the table as it was with the message "Horizon File: PATH" / "Not Found.". Too few
// values to bridge north keep what was read, the rest -99, with the message of too few
// values; a file without a single valid entry gives the same message and a table of 0.
HorizonLoad LoadHorizonFile(const std::string& path, HorizonTable& HorizonAlt);

} // namespace tarvelle
