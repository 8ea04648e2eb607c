#include "cli/cli_sky.h"

#include "formats/antenna_file.h"
#include "formats/horizon_file.h"
#include "sky/beam.h"

namespace tarvelle {

namespace {

// A message box's text on one line, its line breaks written as the two characters \n.
std::string OneLine(const std::string& text) {
    std::string line;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' || text[i] == '\n') {
            line += "\\n";
            if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        } else {
            line += text[i];
        }
    }
    return line;
}

std::string RequireFile(const Options& options) {
    RequireOnly(options, {"file"});
    const auto file = options.find("file");
    if (file == options.end()) throw UsageError("a FILE is required");
    return file->second;
}

int AntennaCommand(const Options& options, std::ostream& out) {
    const std::string path = RequireFile(options);
    if (path.empty() || path == "NONE") return 0;
    Antenna antenna;
    const AntennaLoad load = ReadAntennaFile(path, antenna);
    if (load.status != AntennaStatus::Loaded) {
        out << "message: " << OneLine(load.message) << '\n';
        return 0;
    }
    CalcBeamEdges(antenna);
    out << "AntName = " << antenna.AntName << '\n'
        << "AntPic = " << antenna.AntPic << '\n'
        << "AntHeight = " << antenna.AntHeight << '\n'
        << "Lobes = " << antenna.LobeCount() << '\n';
    for (int k = 1; k <= antenna.LobeCount(); ++k) {
        const AntennaLobe& lobe = antenna.Lobes[static_cast<size_t>(k)];
        out << "lobe " << k << ' ' << Double(lobe.ALT) << ' ' << Double(lobe.AZ) << ' ' << Double(lobe.NSBW) << ' '
            << Double(lobe.EWBW) << ' ' << Double(lobe.GAIN) << '\n';
        for (int t = 0; t < 360; ++t) {
            const BeamEdgePoint& p = lobe.Edge[static_cast<size_t>(t)];
            out << k << ' ' << t << ' ' << Double(p.Alt) << ' ' << Double(p.AzLeft) << ' ' << Double(p.AzRight)
                << '\n';
        }
    }
    return 0;
}

int HorizonCommand(const Options& options, std::ostream& out) {
    const std::string path = RequireFile(options);
    HorizonTable table{};
    const HorizonLoad load = LoadHorizonFile(path, table);
    if (!load.message.empty()) out << "message: " << OneLine(load.message) << '\n';
    if (!load.changed) return 0; // the table was never filled
    for (int a = 0; a <= 360; ++a) out << a << ' ' << Double(table[static_cast<size_t>(a)]) << '\n';
    return 0;
}

} // namespace

std::vector<CliCommand> SkyCommands() {
    return {
        {"antenna", "antenna FILE", {}, Ignoring(AntennaCommand), "file"},
        {"horizon", "horizon FILE", {}, Ignoring(HorizonCommand), "file"},
    };
}

} // namespace tarvelle
