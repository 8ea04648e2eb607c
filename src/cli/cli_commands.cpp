#include "cli_commands.h"

#include "astro_core.h"
#include "clock_source.h"
#include "date_value.h"
#include "observer_record.h"
#include "program_directory.h"
#include "readout.h"
#include "text_forms.h"

#include <cstdio>
#include <map>
#include <optional>
#include <stdexcept>

namespace tarvelle {

namespace {

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

constexpr const char* kUsage =
    "usage: tarvelle-cli positions --ut \"YYYY-MM-DD HH:MM:SS\" [observer]\n"
    "       tarvelle-cli daytables --date YYYY-MM-DD [observer]\n"
    "       tarvelle-cli readout [--ut \"YYYY-MM-DD HH:MM:SS\"] [observer]\n"
    "observer: --observer FILE, or --lat TEXT --lng TEXT --tz HOURS (longitude west);\n"
    "          default: viewer.obs of the program directory";

std::string Double(double v) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.17g", v);
    return buf;
}

std::string Single(float v) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.9g", static_cast<double>(v));
    return buf;
}

using Options = std::map<std::string, std::string>;

Options ParseOptions(const std::vector<std::string>& args, size_t from) {
    Options options;
    for (size_t i = from; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a.rfind("--", 0) != 0) throw UsageError("unexpected argument '" + a + "'");
        if (i + 1 >= args.size()) throw UsageError("option " + a + " needs a value");
        options[a.substr(2)] = args[++i];
    }
    return options;
}

void RequireOnly(const Options& options, std::initializer_list<const char*> allowed) {
    for (const auto& [key, value] : options) {
        bool ok = false;
        for (const char* name : allowed) ok = ok || key == name;
        if (!ok) throw UsageError("unknown option --" + key);
    }
}

void SetObserver(Core& core, std::string lat, std::string lng, const std::string& tz) {
    const double latitude = ParseLatitude(lat);
    const double longitude = ParseLongitude(lng);
    if (latitude == kRejected) throw UsageError("latitude '" + lat + "' is not valid");
    if (longitude == kRejected) throw UsageError("longitude '" + lng + "' is not valid");
    core.ObLatText = lat;
    core.ObLngText = lng;
    core.ObsLatitude = static_cast<float>(latitude);
    core.ObsLongitude = static_cast<float>(longitude);
    core.ObsTZ = ValueOfText(tz);
}

void LoadObserver(Core& core, const Options& options) {
    const bool byTexts = options.count("lat") || options.count("lng") || options.count("tz");
    if (byTexts) {
        if (!options.count("lat") || !options.count("lng")) throw UsageError("--lat and --lng go together");
        SetObserver(core, options.at("lat"), options.at("lng"), options.count("tz") ? options.at("tz") : "0");
        return;
    }
    std::string path;
    if (options.count("observer")) {
        path = options.at("observer");
    } else {
        path = (DefaultProgramDirectory() + "viewer.obs").toStdString();
        if (!FileExists(path)) path = (BundledDataDirectory() + "/viewer.obs").toStdString();
    }
    int errorNumber = 0;
    const auto contents = ReadObserverFile(path, errorNumber);
    if (!contents)
        throw UsageError("cannot read observer file " + path + " (error " + std::to_string(errorNumber) +
                         ")");
    core.ObFileName = path;
    SetObserver(core, contents->latitudeText, contents->longitudeText, contents->timeZoneText);
}

double RequireInstant(const Options& options, const char* key, bool withTime) {
    if (!options.count(key)) throw UsageError(std::string("--") + key + " is required");
    const std::string& text = options.at(key);
    const auto value = ParseIsoDateTime(text);
    const bool hasTime = text.find(':') != std::string::npos;
    if (!value || hasTime != withTime)
        throw UsageError(std::string("--") + key + " '" + text + "' is not " +
                         (withTime ? "YYYY-MM-DD HH:MM:SS" : "YYYY-MM-DD"));
    return *value;
}

int Positions(const Options& options, std::ostream& out) {
    RequireOnly(options, {"ut", "observer", "lat", "lng", "tz"});
    Core core;
    LoadObserver(core, options);
    core.CurrentUT = RequireInstant(options, "ut", true);
    core.UpdateSiderealTime();
    core.UpdatePositions();
    core.UpdateDe();
    core.UpdateMagLat();
    const std::pair<const char*, std::string> lines[] = {
        {"DayNumber", Double(core.DayNumber)},
        {"JD0", Double(core.JD0)},
        {"LST", Single(core.LST)},
        {"LST0", Single(core.LST0)},
        {"SunRA", Double(core.SunRA)},
        {"SunDec", Double(core.SunDec)},
        {"SunRAText", core.SunRAText},
        {"SunDecText", core.SunDecText},
        {"JupRA", Double(core.JupRA)},
        {"JupDec", Double(core.JupDec)},
        {"JupRAText", core.JupRAText},
        {"JupDecText", core.JupDecText},
        {"JupDist", Single(core.JupDist)},
        {"CMLIII", Single(core.CMLIII)},
        {"IoPhase", Single(core.IoPhase)},
        {"De", Single(core.De)},
        {"MagLat", Single(core.MagLat)},
        {"JupAlt", Double(core.JupAlt)},
        {"JupAz", Double(core.JupAz)},
        {"SunAlt", Double(core.SunAlt)},
        {"SunAz", Double(core.SunAz)},
        {"JupRise", Double(core.JupRise)},
        {"JupSet", Double(core.JupSet)},
        {"SunRise", Double(core.SunRise)},
        {"SunSet", Double(core.SunSet)},
    };
    for (const auto& [name, value] : lines) out << name << " = " << value << '\n';
    return 0;
}

int DayTablesCommand(const Options& options, std::ostream& out) {
    RequireOnly(options, {"date", "observer", "lat", "lng", "tz"});
    Core core;
    LoadObserver(core, options);
    core.CurrentUT = RequireInstant(options, "date", false);
    core.UpdateSiderealTime();
    core.BuildDayTables(core.CurrentUT);
    const DayTables& d = core.Day;
    out << "index,DayMinuteTime,DayLST,DayJupAlt,DayJupAz,DaySunAlt,DaySunAz,DayJupHA,DaySunHA,DayCML,"
           "DayIoPhase\n";
    for (size_t k = 0; k < static_cast<size_t>(kDayTableSize); ++k) {
        out << k << ',' << Double(d.DayMinuteTime[k]) << ',' << Single(d.DayLST[k]) << ','
            << Double(d.DayJupAlt[k]) << ',' << Double(d.DayJupAz[k]) << ',' << Double(d.DaySunAlt[k]) << ','
            << Double(d.DaySunAz[k]) << ',' << Single(d.DayJupHA[k]) << ',' << Single(d.DaySunHA[k]) << ','
            << Single(d.DayCML[k]) << ',' << Single(d.DayIoPhase[k]) << '\n';
    }
    return 0;
}

// The station window's readout in real time and GMT, now or at --ut.
int Readout(const Options& options, std::ostream& out) {
    RequireOnly(options, {"ut", "observer", "lat", "lng", "tz"});
    Core core;
    LoadObserver(core, options);
    const SystemClock clock;
    core.DetectedTZ = -clock.ClockTimeZoneBias();
    core.SystemClockTZ = core.DetectedTZ;
    core.UpdateClockOffset();
    core.CurrentUT =
        options.count("ut") ? RequireInstant(options, "ut", true) : core.GMTFromClock(clock.LocalNow());
    core.UpdateSiderealTime();
    core.UpdatePositions();
    const FixedSnapshot none;
    const TimeTexts t = BuildTimeTexts(core, none, core.CurrentUT);
    const InfoTexts i = BuildInfoTexts(core, none);
    out << "GMT " << t.txtY << '-' << t.txtM << '-' << t.txtD << ' ' << t.txtH << ':' << t.txtN << ':'
        << t.txtS << "  " << t.Label3 << '\n'
        << ObserverLabelText(core) << "\n\n"
        << "Jupiter  " << i.LbLJupRA << "   " << i.LbLJupDec << "   " << i.LBlCMIII << "   " << i.LbLSGC
        << '\n'
        << "         " << i.LBLJupAlt << "   " << i.LBLJupAz << "   " << i.LBLJupHA << "   " << i.LbLJupRise
        << "   " << i.LbLJupSet << '\n'
        << "Sun      " << i.LbLSunRA << "   " << i.LbLSunDec << '\n'
        << "         " << i.LBLSunAlt << "   " << i.LBLSunAz << "   " << i.LBLSunHA << "   " << i.LbLSunRise
        << "   " << i.LbLSunSet << '\n';
    return 0;
}

} // namespace

int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    try {
        if (args.empty() || args[0] == "--help" || args[0] == "-h") {
            (args.empty() ? err : out) << kUsage << '\n';
            return args.empty() ? 2 : 0;
        }
        const Options options = ParseOptions(args, 1);
        if (args[0] == "positions") return Positions(options, out);
        if (args[0] == "daytables") return DayTablesCommand(options, out);
        if (args[0] == "readout") return Readout(options, out);
        throw UsageError("unknown command '" + args[0] + "'");
    } catch (const UsageError& e) {
        err << "tarvelle-cli: " << e.what() << '\n';
        return 2;
    }
}

} // namespace tarvelle
