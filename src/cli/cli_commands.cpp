#include "cli/cli_commands.h"

#include "cli/cli_support.h"
#include "cli/cli_tables.h"
#include "cli/cli_sky.h"
#include "cli/cli_scripting.h"

#include "core/astro_core.h"
#include "station/clock_source.h"
#include "core/date_value.h"
#include "prediction/event_report.h"
#include "formats/file_io.h"
#include "formats/mode_file.h"
#include "core/numeric.h"
#include "formats/observer_record.h"
#include "prediction/prediction.h"
#include "prediction/prob_table.h"
#include "prediction/storm_windows.h"
#include "platform/program_directory.h"
#include "platform/system_clock.h"
#include "station/readout.h"
#include "station/version.h"
#include "core/text_forms.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>

namespace tarvelle {

namespace {


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

// The --format choice: the default or the one other form a command offers.
std::string FormatOption(const Options& options, const char* standard, const char* other) {
    const std::string choice = TextOption(options, "format", standard);
    if (choice != standard && choice != other)
        throw UsageError("--format '" + choice + "' is not " + standard + " or " + other);
    return choice;
}

ReportExclusions Exclusions(const Options& options) {
    return ExclusionsFromTexts(NumberText(options, "jup-alt-min", "0"), NumberText(options, "sun-alt-max", "0"),
                               NumberText(options, "min-ha", "-6"), NumberText(options, "max-ha", "6"));
}

// The prediction window's grid after a prediction of the date, and with --tables the day's
// minute tables and ModeActivity.
int Predict(const Options& options, std::ostream& out, std::ostream& err) {
    RequireOnly(options, {"date", "modes", "jup-alt-min", "sun-alt-max", "min-ha", "max-ha", "tables",
                          "format", "observer", "lat", "lng", "tz"});
    const ReportExclusions exclusions = Exclusions(options); // options are checked before any file is read
    const bool json = FormatOption(options, "grid", "json") == "json";
    if (json && options.count("tables")) throw UsageError("--tables goes with the grid only");
    Core core;
    LoadObserver(core, options);
    const double date = RequireInstant(options, "date", false);
    if (FieldsOf(date).year < 1900) throw UsageError("Dates Prior to 1900 are not permitted.");
    ModeTableState modes;
    LoadModes(modes, options, err);

    MinuteTables tables;
    const auto activity = std::make_unique<ActivityTable>();
    PredictionGrid grid;
    core.CurrentUT = date;
    PredictDay(core, modes, exclusions, tables, *activity, grid, date);
    if (json) {
        out << PredictionJson(core, date, exclusions, GridEvents(grid, date));
        return 0;
    }

    for (int r = 0; r < grid.Rows; ++r) {
        for (int c = 0; c < kGridColumns; ++c) out << (c > 0 ? "\t" : "") << grid.Text(r, c);
        out << '\n';
    }
    if (!options.count("tables")) return 0;
    const int n = modes.PredictedModes();
    out << "\nm,MinuteCML,MinuteIo,MinuteSunAlt,MinuteJupAlt,MinuteJupHA";
    for (int i = 1; i <= n; ++i) out << ",ModeActivity" << i;
    out << '\n';
    for (size_t m = 0; m <= static_cast<size_t>(kMinutesPerDay); ++m) {
        out << m << ',' << tables.MinuteCML[m] << ',' << tables.MinuteIo[m] << ',' << tables.MinuteSunAlt[m]
            << ',' << tables.MinuteJupAlt[m] << ',' << Single(tables.MinuteJupHA[m]);
        for (size_t i = 1; i <= static_cast<size_t>(n); ++i) out << ',' << (*activity)[i][m];
        out << '\n';
    }
    return 0;
}

// The event report file, as the prediction window writes it for the same choices.
int Report(const Options& options, std::ostream& err) {
    RequireOnly(options, {"from", "to", "out", "modes", "min-duration", "no-header", "io-only", "no-none",
                          "hour-angle", "date-format", "format", "jup-alt-min", "sun-alt-max", "min-ha", "max-ha",
                          "observer", "lat", "lng", "tz"});
    const ReportExclusions exclusions = Exclusions(options); // options are checked before any file is read
    Core core;
    LoadObserver(core, options);
    ReportOptions report;
    const CalendarFields from = FieldsOf(RequireInstant(options, "from", false));
    const CalendarFields to = FieldsOf(RequireInstant(options, "to", false));
    const ReportSpanNumbers span{double(from.year), double(from.month), double(from.day),
                                 double(to.year),   double(to.month),   double(to.day)};
    if (const std::string refusal = CheckReportSpan(span, report.ReportStart, report.ReportEnd); !refusal.empty())
        throw UsageError(refusal);
    if (!options.count("out")) throw UsageError("--out is required");
    const std::string path = options.at("out");
    if (options.count("date-format")) {
        const std::string& choice = options.at("date-format");
        if (choice != "0" && choice != "1" && choice != "2")
            throw UsageError("--date-format '" + choice + "' is not 0, 1 or 2");
        core.DateFormatChoice = choice[0] - '0';
    }
    // A negative minimum becomes "0", as the options window sets it.
    double minimum = ValueOfText(NumberText(options, "min-duration", "0"));
    if (minimum < 0.0) minimum = 0.0;
    Keep(report.ReportMinDuration, minimum);
    report.ReportHeader = !options.count("no-header");
    report.ReportIncludeHA = options.count("hour-angle") > 0;
    report.ReportIoOnly = options.count("io-only") > 0;
    report.ReportNoNONE = options.count("no-none") > 0;
    report.jupAltMinText = TextOption(options, "jup-alt-min", "0");
    report.sunAltMaxText = TextOption(options, "sun-alt-max", "0");
    report.versionText = kVersionText;
    if (const std::string refusal = ReportTextRefusal(core, report); !refusal.empty()) throw UsageError(refusal);
    ModeTableState modes;
    LoadModes(modes, options, err);

    // The file is replaced only once the whole report is in hand.
    const bool calendar = FormatOption(options, "text", "ics") == "ics";
    std::ostringstream bytes;
    core.CurrentUT = report.ReportStart;
    if (calendar) {
        const SystemClock clock;
        const double stamp = clock.LocalNow() + clock.ClockTimeZoneBias() / 24.0;
        WriteCalendarReport(core, modes, report, exclusions, stamp, bytes);
    } else {
        WriteEventReport(core, modes, report, exclusions, bytes);
    }
    const FileFailure failure = WriteFileAtomically(path, bytes.str());
    if (failure.number != 0)
        throw UsageError("There was an error trying to save " + path + ": " + failure.description);
    return 0;
}

// A whole number of the table as plain digits.
std::string Percent(double v) {
    return std::to_string(static_cast<long>(v));
}

// An angle option of `probability`: a plain number from 0 to 360.
double AngleOption(const Options& options, const char* key) {
    if (!options.count(key)) throw UsageError(std::string("--") + key + " is required");
    const std::string& text = options.at(key);
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !(value >= 0.0 && value <= 360.0))
        throw UsageError(std::string("--") + key + " '" + text + "' is not a number from 0 to 360");
    return value;
}

// The emission probability at an Io phase and CML, or with --dump the whole table.
int Probability(const Options& options, std::ostream& out) {
    RequireOnly(options, {"io", "cml", "dump"});
    const bool dump = options.count("dump") > 0;
    if (dump && (options.count("io") || options.count("cml"))) throw UsageError("--dump stands alone");
    double io = 0.0, cml = 0.0;
    if (!dump) {
        io = AngleOption(options, "io");
        cml = AngleOption(options, "cml");
    }
    ProbabilityTable table;
    std::string failure;
    if (!LoadProbTable(table, failure)) throw UsageError("Error Loading Probability" + failure);
    if (!dump) {
        out << Percent(ProbabilityAt(table, io, cml)) << '\n';
        return 0;
    }
    for (const auto& row : table) {
        for (size_t c = 0; c < row.size(); ++c) out << (c > 0 ? "," : "") << Percent(row[c]);
        out << '\n';
    }
    return 0;
}

// The commands of the core and of prediction.
std::vector<CliCommand> StationCommands() {
    return {
        {"positions", "positions --ut \"YYYY-MM-DD HH:MM:SS\" [observer]", {}, Ignoring(Positions)},
        {"daytables", "daytables --date YYYY-MM-DD [observer]", {}, Ignoring(DayTablesCommand)},
        {"readout", "readout [--ut \"YYYY-MM-DD HH:MM:SS\"] [observer]", {}, Ignoring(Readout)},
        {"predict", "predict --date YYYY-MM-DD [--modes FILE] [exclusions] [--tables | --format json]\n"
         "    [observer]", {"tables"},
         Predict},
        {"report",
         "report --from YYYY-MM-DD --to YYYY-MM-DD --out FILE [--modes FILE]\n"
         "    [--min-duration N] [--no-header] [--io-only] [--no-none] [--hour-angle]\n"
         "    [--date-format 0|1|2] [--format text|ics] [exclusions] [observer]",
         {"no-header", "io-only", "no-none", "hour-angle"},
         [](const Options& o, std::ostream&, std::ostream& err) { return Report(o, err); }},
        {"probability", "probability --io DEGREES --cml DEGREES | --dump", {"dump"}, Ignoring(Probability)},
    };
}

// Every area's commands, in the order of the usage text.
std::vector<CliCommand> AllCommands() {
    std::vector<CliCommand> all;
    for (const auto& area : {StationCommands(), TablesCommands(), SkyCommands(), ScriptingCommands()})
        all.insert(all.end(), area.begin(), area.end());
    return all;
}

std::string Usage(const std::vector<CliCommand>& commands) {
    std::string text;
    for (const CliCommand& c : commands) {
        std::string lines = c.usage;
        for (size_t at = lines.find('\n'); at != std::string::npos; at = lines.find('\n', at + 1))
            lines.insert(at + 1, "             ");
        text += (text.empty() ? "usage: tarvelle-cli " : "       tarvelle-cli ") + lines + "\n";
    }
    return text +
           "exclusions: --jup-alt-min X --sun-alt-max Y --min-ha H --max-ha H (texts as typed; defaults 0 0 -6 6)\n"
           "modes: default UFMODES.JMF of the program directory, else of the bundled data\n"
           "observer: --observer FILE, or --lat TEXT --lng TEXT --tz HOURS (longitude west);\n"
           "          default: viewer.obs of the program directory\n"
           "options: --name value or --name=value, in any order";
}

} // namespace

int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    const std::vector<CliCommand> commands = AllCommands();
    try {
        if (args.empty() || args[0] == "--help" || args[0] == "-h") {
            (args.empty() ? err : out) << Usage(commands) << '\n';
            return args.empty() ? 2 : 0;
        }
        for (const CliCommand& c : commands)
            if (c.name == args[0]) return c.run(ParseOptions(args, 1, c.flags, c.positional), out, err);
        throw UsageError("unknown command '" + args[0] + "'");
    } catch (const UsageError& e) {
        err << "tarvelle-cli: " << e.what() << '\n';
        return 2;
    }
}

} // namespace tarvelle
