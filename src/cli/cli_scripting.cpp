#include "cli/cli_scripting.h"

#include "cli/cli_script_host.h"
#include "core/date_value.h"
#include "platform/program_directory.h"
#include "platform/system_clock.h"
#include "platform/system_script_devices.h"
#include "scripting/script_interpreter.h"

#include <QDir>

#include <cstdlib>
#include <deque>
#include <sstream>

namespace tarvelle {

namespace {

std::deque<int32_t> PortInValues(const Options& options) {
    std::deque<int32_t> values;
    if (!options.count("port-in")) return values;
    std::stringstream in(options.at("port-in"));
    for (std::string item; std::getline(in, item, ',');) {
        char* end = nullptr;
        const long v = std::strtol(item.c_str(), &end, 0);
        if (item.empty() || *end != '\0' || v < INT32_MIN || v > INT32_MAX)
            throw UsageError("--port-in takes whole numbers separated by commas, not '" + item + "'");
        values.push_back(static_cast<int32_t>(v));
    }
    return values;
}

int RunScriptCommand(const Options& options, std::ostream& out, std::ostream& err) {
    RequireOnly(options, {"file", "at", "modes", "observer", "lat", "lng", "tz", "port-in", "dry"});
    if (!options.count("file")) throw UsageError("run-script needs a script FILE");
    const bool dry = options.count("dry") != 0;
    if (options.count("at") && !dry) throw UsageError("--at sets the simulated clock of --dry");
    if (options.count("port-in") && !dry) throw UsageError("--port-in gives the port readings of --dry");

    SettingsStore settings;
    SimulatedClock simulated;
    SystemClock system;
    ClockSource& clock = dry ? static_cast<ClockSource&>(simulated) : system;
    CliDialogs dialogs(out);
    CliDesktop desktop;
    const QString programDir = DefaultProgramDirectory();
    QDir().mkpath(programDir);
    Station station(settings, clock, dialogs, desktop, programDir);
    Core& core = station.core;
    LoadObserver(core, options);
    LoadModes(station.modes, options, err);
    if (dry) {
        simulated.local = options.count("at") ? RequireInstant(options, "at", true) : system.LocalNow();
        simulated.biasHours = -core.ObsTZ; // the computer's zone is the observer's
    }
    core.SystemClockTZ = -clock.ClockTimeZoneBias();
    core.UpdateClockOffset();

    DryDevices dryDevices(PortInValues(options));
    std::unique_ptr<SystemScriptDevices> realDevices;
    if (!dry) realDevices = std::make_unique<SystemScriptDevices>(settings);
    ScriptDevices& inner = dry ? static_cast<ScriptDevices&>(dryDevices) : *realDevices;
    TracingDevices devices(inner, out);
    CliScriptHost host(station, out, dry ? &simulated : nullptr);
    ScriptInterpreter interpreter(station, host, devices);
    host.Attach(interpreter);
    host.RefreshLive();

    const std::optional<int> result = interpreter.RunScript(options.at("file"));
    out << "result = " << (result ? std::to_string(*result) : std::string()) << '\n';
    out << "A = " << interpreter.A << '\n';
    return 0;
}

} // namespace

std::vector<CliCommand> ScriptingCommands() {
    return {{"run-script",
             "run-script FILE [--at \"YYYY-MM-DD HH:MM:SS\"] [--modes FILE] [observer] [--port-in V,V,...] [--dry]\n"
             "  runs a script headless; --dry touches no device and simulates the clock from --at",
             {"dry"}, RunScriptCommand, "file"}};
}

} // namespace tarvelle
