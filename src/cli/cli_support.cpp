#include "cli/cli_support.h"

#include "core/date_value.h"
#include "core/text_forms.h"
#include "formats/error_text.h"
#include "formats/observer_record.h"
#include "platform/program_directory.h"

#include <array>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace tarvelle {

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

Options ParseOptions(const std::vector<std::string>& args, size_t from, const std::set<std::string>& flags,
                     const std::string& positional) {
    Options options;
    for (size_t i = from; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (!positional.empty() && a.rfind("--", 0) != 0 && !options.count(positional)) {
            options[positional] = a;
            continue;
        }
        if (a.rfind("--", 0) != 0 || a.size() == 2) throw UsageError("unexpected argument '" + a + "'");
        const size_t equals = a.find('=');
        const std::string name = a.substr(2, equals == std::string::npos ? std::string::npos : equals - 2);
        if (flags.count(name)) {
            if (equals != std::string::npos) throw UsageError("option --" + name + " takes no value");
            options[name] = "1";
            continue;
        }
        if (equals != std::string::npos) {
            options[name] = a.substr(equals + 1);
            continue;
        }
        if (i + 1 >= args.size()) throw UsageError("option --" + name + " needs a value");
        options[name] = args[++i];
    }
    return options;
}

void RequireOnly(const Options& options, std::initializer_list<const char*> allowed) {
    for (const auto& [key, value] : options) {
        bool ok = false;
        for (const char* name : allowed) ok = ok || key == name;
        if (!ok) throw UsageError(key.empty() ? "unexpected argument '" + value + "'" : "unknown option --" + key);
    }
}

namespace {

// names: how the three values are called in a message ("--lat (latitude)", or the file's line).
void SetObserver(Core& core, std::string lat, std::string lng, const std::string& tz,
                 const std::array<std::string, 3>& names) {
    const struct {
        const std::string& text;
        const std::string& name;
        bool angle;
    } fields[] = {{lat, names[0], true}, {lng, names[1], true}, {tz, names[2], false}};
    for (const auto& f : fields)
        if (!IsObserverNumberForm(f.text, f.angle)) throw UsageError(f.name + " '" + f.text + "' is not a number");
    const double latitude = ParseLatitude(lat);
    const double longitude = ParseLongitude(lng);
    const double zone = ValueOfText(tz);
    if (latitude == kRejected) throw UsageError(names[0] + " '" + lat + "' is not valid");
    if (longitude == kRejected) throw UsageError(names[1] + " '" + lng + "' is not valid");
    if (zone < -24.0 || zone > 24.0) throw UsageError(names[2] + " '" + tz + "' is not from -24 to 24");
    core.ObLatText = lat;
    core.ObLngText = lng;
    core.ObsLatitude = static_cast<float>(latitude);
    core.ObsLongitude = static_cast<float>(longitude);
    core.ObsTZ = ValueOfText(tz);
}

} // namespace

void LoadObserver(Core& core, const Options& options) {
    const bool byTexts = options.count("lat") || options.count("lng") || options.count("tz");
    if (byTexts) {
        if (!options.count("lat") || !options.count("lng")) throw UsageError("--lat and --lng go together");
        SetObserver(core, options.at("lat"), options.at("lng"), options.count("tz") ? options.at("tz") : "0",
                    {"--lat (latitude)", "--lng (longitude)", "--tz (time zone)"});
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
    SetObserver(core, contents->latitudeText, contents->longitudeText, contents->timeZoneText,
                {"latitude (line 1 of " + path + ")", "longitude (line 2 of " + path + ")",
                 "time zone (line 3 of " + path + ")"});
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

std::string TextOption(const Options& options, const char* key, const char* fallback) {
    const auto it = options.find(key);
    return it == options.end() ? fallback : it->second;
}

std::string NumberText(const Options& options, const char* key, const char* fallback) {
    const std::string text = TextOption(options, key, fallback);
    for (const char c : text)
        if (static_cast<unsigned char>(c) < 32 && c != '\t')
            throw UsageError(std::string("--") + key + " holds control characters");
    if (text.size() > 64) throw UsageError(std::string("--") + key + " is longer than any number");
    size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
    // &H and &O numbers count, as the windows read them.
    const bool based = i + 2 < text.size() && text[i] == '&' && std::strchr("HhOo", text[i + 1]) != nullptr;
    if (based) i += 2;
    else if (i < text.size() && text[i] == '.') ++i;
    const bool digit = i < text.size() && std::isxdigit(static_cast<unsigned char>(text[i])) &&
                       (based || std::isdigit(static_cast<unsigned char>(text[i])));
    if (!digit || !std::isfinite(std::strtod(text.c_str(), nullptr)))
        throw UsageError(std::string("--") + key + " '" + text + "' is not a number");
    return text;
}

void LoadModes(ModeTableState& modes, const Options& options, std::ostream& notes) {
    std::string path;
    if (options.count("modes")) {
        path = options.at("modes");
    } else {
        path = (DefaultProgramDirectory() + "UFMODES.JMF").toStdString();
        if (!FileExists(path)) path = (BundledDataDirectory() + "/UFMODES.JMF").toStdString();
    }
    modes.ModeFileName = path;
    int line = 0;
    const int status = ReadModeFile(modes, &line);
    if (status != 0 || !modes.ModesLoaded)
        throw UsageError("cannot read mode file " + path + " (error " + std::to_string(status) + ": " +
                         ErrorText(status) + (line > 0 ? ", line " + std::to_string(line) : std::string()) + ")");
    // Only six modes are predicted: say which are left out rather than drop them silently.
    if (modes.NumModes > kPredictedModes) {
        notes << "tarvelle-cli: " << path << " holds " << modes.NumModes
              << " modes; only the first six are predicted, leaving out";
        for (int i = kPredictedModes + 1; i <= modes.NumModes; ++i)
            notes << (i > kPredictedModes + 1 ? ", " : " ") << '"' << modes.ModeName[static_cast<size_t>(i)] << '"';
        notes << '\n';
    }
}

} // namespace tarvelle
