#include "cli/cli_tables.h"

#include "tables/altaz_table.h"
#include "tables/de_graph.h"
#include "tables/ephemeris.h"
#include "tables/visibility.h"

#include <array>
#include <cstdio>

namespace tarvelle {

namespace {

// A message box of the tables' windows: one line, its line breaks as the two characters \n.
void PrintMessage(std::ostream& out, const std::string& text) {
    std::string line;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        if (text[i] == '\r' || text[i] == '\n')
            line += "\\n";
        else
            line += text[i];
    }
    out << "message: " << line << '\n';
}

std::string RequiredText(const Options& options, const char* key) {
    const auto it = options.find(key);
    if (it == options.end()) throw UsageError(std::string("missing --") + key);
    return it->second;
}

// "Y-M-D" into the texts of three date fields, taken as the window takes them.
std::array<std::string, 3> DateFields(const Options& options, const char* key) {
    const std::string t = RequiredText(options, key);
    const size_t a = t.find('-', 1);
    const size_t b = a == std::string::npos ? a : t.find('-', a + 1);
    if (b == std::string::npos) throw UsageError("--" + std::string(key) + " wants YYYY-MM-DD, not '" + t + "'");
    return {t.substr(0, a), t.substr(a + 1, b - a - 1), t.substr(b + 1)};
}

int Ephemeris(const Options& options, std::ostream& out) {
    RequireOnly(options, {"date", "interval", "observer", "lat", "lng", "tz"});
    Core core;
    LoadObserver(core, options);
    const auto [y, m, d] = DateFields(options, "date");
    const EphemerisResult r = ComputeEphemeris(core, {y, m, d, TextOption(options, "interval", "30")});
    if (!r.message.empty()) {
        PrintMessage(out, r.message);
        return 0;
    }
    for (const auto& [name, caption] : r.labels) out << name << " = " << caption << '\n';
    for (const EphemerisRow& row : r.rows) {
        for (size_t c = 0; c < row.size(); ++c) out << (c ? "\t" : "") << row[c];
        out << '\n';
    }
    return 0;
}

int Visibility(const Options& options, std::ostream& out) {
    RequireOnly(options, {"year", "hires", "observer", "lat", "lng", "tz"});
    Core core;
    LoadObserver(core, options);
    const VisibilityResult r =
        ComputeVisibility(core, YearFromText(RequiredText(options, "year")), options.count("hires") > 0);
    if (!r.message.empty()) {
        PrintMessage(out, r.message);
        return 0;
    }
    char index[24];
    for (size_t d = 0; d < r.days.size(); ++d) {
        std::snprintf(index, sizeof index, "%03zu", d);
        out << index << ' ' << r.days[d] << '\n';
    }
    return 0;
}

int De(const Options& options, std::ostream& out) {
    RequireOnly(options, {"from-year", "to-year"});
    Core core;
    const DeGraph g = ComputeDeGraph(core, RequiredText(options, "from-year"), RequiredText(options, "to-year"));
    if (!g.message.empty()) {
        PrintMessage(out, g.message);
        return 0;
    }
    for (const DePoint& p : g.points) out << static_cast<long long>(p.x) << ',' << ShortestSingle(p.De) << '\n';
    return 0;
}

AltAzBodies BodiesOption(const Options& options) {
    const std::string b = TextOption(options, "bodies", "both");
    if (b == "jupiter") return AltAzBodies::Jupiter;
    if (b == "sun") return AltAzBodies::Sun;
    if (b == "both") return AltAzBodies::Both;
    throw UsageError("--bodies wants jupiter, sun or both, not '" + b + "'");
}

int AltAzTable(const Options& options, std::ostream& out) {
    RequireOnly(options, {"from", "to", "step", "out", "text", "no-date", "no-time", "bodies", "observer", "lat",
                          "lng", "tz"});
    Core core;
    LoadObserver(core, options);
    const auto [ys, ms, ds] = DateFields(options, "from");
    const auto [ye, me, de] = DateFields(options, "to");
    AltAzTableInput in{ys, ms, ds, ye, me, de, RequiredText(options, "step")};
    in.randomAccess = options.count("text") == 0;
    in.includeDate = options.count("no-date") == 0;
    in.includeTime = options.count("no-time") == 0;
    in.bodies = BodiesOption(options);
    const std::string path = RequiredText(options, "out");
    const AltAzTableResult r = WriteAltAzTable(core, in, path);
    if (!r.message.empty()) {
        PrintMessage(out, r.message);
        return 0;
    }
    if (!r.written) throw UsageError("cannot write " + path);
    return 0;
}

} // namespace

std::vector<CliCommand> TablesCommands() {
    return {
        {"ephemeris", "ephemeris --date YYYY-MM-DD [--interval TEXT] [observer]", {}, Ignoring(Ephemeris)},
        {"visibility", "visibility --year TEXT [--hires] [observer]", {"hires"}, Ignoring(Visibility)},
        {"de", "de --from-year TEXT --to-year TEXT", {}, Ignoring(De)},
        {"altaz-table",
         "altaz-table --from YYYY-MM-DD --to YYYY-MM-DD --step TEXT --out FILE\n"
         "    [--text [--no-date] [--no-time] [--bodies jupiter|sun|both]] [observer]",
         {"text", "no-date", "no-time"},
         Ignoring(AltAzTable)},
    };
}

} // namespace tarvelle
