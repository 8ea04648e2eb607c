// Antenna files (.ant): a name, a picture identifier, a height text and a list of lobes, each
// a direction and two beam widths. As the writer puts it out (CR LF line ends):
//
//     ANTENNA FILE
//     NAME = Dipole pair, phased
//     PIC = DANS
//     HEIGHT = 3
//     LOBES = 1
//     START LOBE 1
//     ALT = 60
//     AZ = 180
//     NSBW = 70
//     EWBW = 100
//     GAIN = 7.1
//     END LOBE 1
//
// The reader is more tolerant: it reads entries (formats/entries.h, at most 1001), takes keys
// anywhere in an entry in any case ("lobes =" counts), the markers and the magic in capitals
// only, keys of a lobe in any order between its markers, and RA and DEC though nobody writes
// them. Lobe numbers are strict decimal numbers; the lobe count is read leniently first.
#pragma once

#include <string>
#include <vector>

namespace tarvelle {

inline constexpr size_t kAntennaEntries = 1001; // index 0 to 1000
inline constexpr int kBeamEdgeSize = 361;       // entries 0 to 359 in use

// One point pair of a lobe's contour, degrees.
struct BeamEdgePoint {
    double Alt = 0.0;
    double AzLeft = 0.0;
    double AzRight = 0.0;
};

struct AntennaLobe {
    double NSBW = 0.0; // full width across the altitude direction, degrees
    double EWBW = 0.0; // full width across the azimuth direction, degrees
    double ALT = 0.0;  // centre, degrees
    double AZ = 0.0;
    double RA = 0.0; // read and kept, never used nor written
    double DEC = 0.0;
    double GAIN = 0.0;                // dBi
    std::vector<BeamEdgePoint> Edge;  // empty until the contour is worked out
};

struct Antenna {
    std::string AntName, AntPic, AntHeight;
    std::vector<AntennaLobe> Lobes = std::vector<AntennaLobe>(1); // entries 1 to n; 0 unused
    int LobeCount() const { return static_cast<int>(Lobes.size()) - 1; }
};

enum class AntennaStatus {
    Loaded,
    Empty,         // no entries
    NotAntenna,    // no entry holds "ANTENNA FILE"
    NoLobes,       // a lobe count of 0
    LobeError,     // markers missing or too close: lobes read so far stay
    LoadError,     // the file can't be read, or a value isn't a number
};

struct AntennaLoad {
    AntennaStatus status = AntennaStatus::Loaded;
    std::string message; // the text of the message box; empty when loaded
    std::string title;   // the box's title, when it has one
};

// iVal: the text behind the first "=", spaces trimmed; empty without one.
std::string iVal(const std::string& line);

// Reads path into antenna. Loaded, LobeError and LoadError after the count change the lobes
// (sized to the count, earlier lobes gone); name, picture and height change only on Loaded.
// Contours are left empty: the caller works them out (sky/beam.h).
AntennaLoad ReadAntennaFile(const std::string& path, Antenna& antenna);

// The name only, for listing files by their descriptive names: the last "NAME =" value, and a
// status text that is empty when the name is good.
struct AntennaNameRead {
    std::string name;
    std::string status;
    std::string failure; // the system's words when the file couldn't be read
};
AntennaNameRead ReadAntennaName(const std::string& path);

// Writes the file as shown above, lobes 1 to lobeCount; empty, or the system's description of
// the failure.
std::string WriteAntennaFile(const std::string& path, const Antenna& antenna, int lobeCount);

// The number as the writer puts it: its shortest decimal text, without a leading blank.
std::string AntennaNumberText(double x);

} // namespace tarvelle
