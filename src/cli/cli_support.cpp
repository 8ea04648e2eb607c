#include "cli/cli_support.h"

#include "core/date_value.h"
#include "core/text_forms.h"
#include "formats/observer_record.h"
#include "platform/program_directory.h"

#include <cstdio>

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

Options ParseOptions(const std::vector<std::string>& args, size_t from, const std::set<std::string>& flags) {
    Options options;
    for (size_t i = from; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a.rfind("--", 0) != 0 || a.size() == 2) {
            // One argument without a name (a command's file) goes under the empty name.
            if (options.count("")) throw UsageError("unexpected argument '" + a + "'");
            options[""] = a;
            continue;
        }
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

} // namespace

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

std::string TextOption(const Options& options, const char* key, const char* fallback) {
    const auto it = options.find(key);
    return it == options.end() ? fallback : it->second;
}

void LoadModes(ModeTableState& modes, const Options& options) {
    std::string path;
    if (options.count("modes")) {
        path = options.at("modes");
    } else {
        path = (DefaultProgramDirectory() + "UFMODES.JMF").toStdString();
        if (!FileExists(path)) path = (BundledDataDirectory() + "/UFMODES.JMF").toStdString();
    }
    modes.ModeFileName = path;
    const int status = ReadModeFile(modes);
    if (status != 0 || !modes.ModesLoaded)
        throw UsageError("cannot read mode file " + path + " (error " + std::to_string(status) + ")");
}

} // namespace tarvelle
