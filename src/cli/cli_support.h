// What every subcommand of tarvelle-cli shares: the options of a command line, the observer,
// the mode file, instants, and numbers printed to round-trip precision.
//
// A command area (core, prediction, tables, ...) lists its commands as CliCommand entries;
// RunCli (cli_commands.h) parses the options of the chosen one and runs it. A command throws
// UsageError for bad arguments or files: the message goes to standard error, exit status 2.
#pragma once

#include "core/astro_core.h"
#include "formats/mode_file.h"

#include <functional>
#include <map>
#include <ostream>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarvelle {

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Option name without its dashes -> value ("1" for a flag).
using Options = std::map<std::string, std::string>;

struct CliCommand {
    std::string name;
    std::string usage;           // its lines of the usage text, without the program name
    std::set<std::string> flags; // options that stand alone, without a value ("tables")
    std::function<int(const Options&, std::ostream& out, std::ostream& err)> run;
    std::string positional{}; // the option that takes a lone argument (antenna FILE), if any
};

// The run of a command that writes only to standard output.
template <typename F>
std::function<int(const Options&, std::ostream&, std::ostream&)> Ignoring(F f) {
    return [f](const Options& o, std::ostream& out, std::ostream&) { return f(o, out); };
}

// "--name value" or "--name=value", in any order; a value may start with a minus. With a
// positional name, one argument without dashes (even an empty one) is stored under it.
Options ParseOptions(const std::vector<std::string>& args, size_t from, const std::set<std::string>& flags,
                     const std::string& positional = {});

// Refuses any option not in allowed.
void RequireOnly(const Options& options, std::initializer_list<const char*> allowed);

// The option's text, or fallback when it is absent.
std::string TextOption(const Options& options, const char* key, const char* fallback);

// An option typed as in a window's number field: the text as it stands ("10deg" reads 10), but
// refused unless it starts with a finite number, &H and &O forms included ("", "abc", "nan" and
// "1e309" are refused).
std::string NumberText(const Options& options, const char* key, const char* fallback);

// The observer of --observer FILE or --lat/--lng/--tz, else viewer.obs of the program directory
// (else the bundled one), into the core.
void LoadObserver(Core& core, const Options& options);

// The mode file named by --modes, else UFMODES.JMF of the program directory, else the bundled one.
// A file of more than six modes is told of on notes, naming the modes left out.
void LoadModes(ModeTableState& modes, const Options& options, std::ostream& notes);

// The instant of a required option: "YYYY-MM-DD" (withTime false) or "YYYY-MM-DD HH:MM:SS".
double RequireInstant(const Options& options, const char* key, bool withTime);

// Round-trip texts: %.17g for doubles, %.9g for singles.
std::string Double(double v);
std::string Single(float v);

} // namespace tarvelle
