// The information server's protocol, apart from any socket: the block of live values a client
// reads, the parameters in the settings store, and what a client's data asks for.
//
// A client connects to JISIP:JISPort (127.0.0.1:4711 by default) and gets nothing until it
// asks. Every line ends in CR LF; there is no header, length or end mark. A sample exchange
// with the sample observer (39:15 N, 76:30 W), all options on:
//
//   client: P43000.5          (moves the whole station to 2017-09-22 12:00 GMT, then as "J")
//   server: Year = 2017\r\n
//           Month = 09\r\n
//           Day = 22\r\n
//           Hour = 12\r\n
//           Minute = 00\r\n
//           Second = 00\r\n
//           LMSTTIME =  LMST: 07:00:10\r\n
//           JUP ALT = -59\r\n
//           JUP AZ = 344\r\n
//           CML3 = 208.2\r\n
//           IO PHASE = 104.7\r\n
//           MODE =    non-Io-B\r\n
//           SUN ALT = -47\r\n
//           SUNAZ = 026\r\n
//   client: J                 (the same block again)
//
// Only capitals count: "j" is ignored. Data holding both letters gets two blocks, "J" first.
#pragma once

#include "station/station.h"

#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace tarvelle {

// The values the block reports, as the last tick (or the fixed time) left them.
struct JisValues {
    double CurrentUT = 0.0; // GMT
    std::string Label3;     // the main window's sidereal time line, " LMST: hh:mm:ss"
    double JupAlt = 0.0, JupAz = 0.0;
    float CMLIII = 0.0f, IoPhase = 0.0f;
    bool modeFound = false;
    std::string modeNames; // as CheckForActivity gives them, each after three blanks
    double SunAlt = 0.0, SunAz = 0.0;
};

// The live values of the station now; label3 is the text of the main window's Label3.
JisValues CurrentJisValues(const Station& station, const std::string& label3);

// The block for the options in force; empty when all five options are off.
std::string BuildJISBlock(const ServerSchedule& options, const JisValues& v);

// What one read event's data asks for, in the order it is to be served.
struct JisRequest {
    bool sendBlock = false;          // a "J" anywhere
    std::optional<double> moveTo;    // a "P" anywhere: the date value after the first character
};
JisRequest ReadJISRequest(std::string_view data);

// Reads the parameters from section "Settings". On a value that cannot be read, stops there
// (the rest keep their values) and returns the message the user is shown.
std::optional<QString> LoadJISParameters(const SettingsStore& settings, ServerSchedule& p);
// Writes all ten keys.
void SaveJISParameters(SettingsStore& settings, const ServerSchedule& p);

} // namespace tarvelle
