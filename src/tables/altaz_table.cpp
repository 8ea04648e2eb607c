#include "tables/altaz_table.h"

#include "core/date_value.h"
#include "core/numeric.h"
#include "core/text_forms.h"

#include <cmath>
#include <fstream>

namespace tarvelle {

namespace {

std::optional<double> DateOfFields(const std::string& y, const std::string& m, const std::string& d) {
    return CheckedDateSerial(ValueOfText(y), ValueOfText(m), ValueOfText(d));
}

std::string RightAligned(const std::string& text, size_t width) {
    return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}

std::string TextTableHeading(const AltAzTableInput& in) {
    std::string line;
    if (in.includeDate) line += "Date      ";
    if (in.includeTime) line += line.empty() ? "Time " : "  Time ";
    if (in.bodies != AltAzBodies::Sun) line += " Jup Alt  Jup Az";
    if (in.bodies != AltAzBodies::Jupiter) line += " Sun Alt  Sun Az";
    return line;
}

std::string TextTableRow(Core& core, const AltAzTableInput& in) {
    std::string line;
    if (in.includeDate) line += FormatDateMask(core.CurrentUT, "yyyy-mm-dd");
    if (in.includeTime) line += (line.empty() ? "" : "  ") + FormatDateMask(core.CurrentUT, "hh:nn");
    auto pair = [&line](double alt, double az) {
        line += RightAligned(FormatNumberMask(alt, "0.0"), 8) + RightAligned(FormatNumberMask(az, "0.0"), 8);
    };
    if (in.bodies != AltAzBodies::Sun) pair(core.JupAlt, core.JupAz);
    if (in.bodies != AltAzBodies::Jupiter) pair(core.SunAlt, core.SunAz);
    return line;
}

} // namespace

std::string AltAzRecordText(const Core& core) {
    return FormatNumberMask(core.JupAlt, "00") + " " + FormatNumberMask(core.JupAz, "000") + " " +
           FormatNumberMask(core.SunAlt, "00") + " " + FormatNumberMask(core.SunAz, "000");
}

AltAzTableResult WriteAltAzTable(Core& core, const AltAzTableInput& in, const std::string& path,
                                 const std::function<void(const std::string&)>& onRecord) {
    AltAzTableResult result;
    const double step = ValueOfText(in.stepMinutes);
    // A step of nothing would never reach the end date.
    if (!(step > 0.0)) {
        result.message = "The time increment must be more than 0 minutes.";
        return result;
    }
    const std::optional<double> start = DateOfFields(in.startYear, in.startMonth, in.startDay);
    const std::optional<double> end = DateOfFields(in.endYear, in.endMonth, in.endDay);
    if (!start || !end) {
        result.message = "Invalid Date";
        return result;
    }
    std::ofstream file;
    if (in.randomAccess)
        file.open(path, std::ios::binary | std::ios::app);
    else
        file.open(path, std::ios::binary | std::ios::trunc);
    result.written = static_cast<bool>(file);

    const float keptLST = core.LST;
    core.SaveCurrentTime();
    core.CurrentUT = *start;
    const double perDay = 1440.0 / step;
    if (!in.randomAccess && file) file << TextTableHeading(in) << '\n';
    while (WholeDay(core.CurrentUT) <= *end) {
        core.UpdateSiderealTime();
        core.UpdateSunJupiterPositions();
        core.UpdateHorizonCoords();
        std::string text = AltAzRecordText(core);
        if (onRecord) onRecord(text);
        if (in.randomAccess) {
            text.resize(kAltAzRecordBytes - 2, ' ');
            file << text << "\r\n";
        } else {
            file << TextTableRow(core, in) << '\n';
        }
        ++result.records;
        core.CurrentUT += 1.0 / perDay;
    }
    core.LST = keptLST;
    core.RestoreCurrentTime();
    return result;
}

} // namespace tarvelle
