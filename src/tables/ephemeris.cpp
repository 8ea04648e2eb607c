#include "tables/ephemeris.h"

#include "core/date_value.h"
#include "core/numeric.h"
#include "core/text_forms.h"

#include <cmath>

namespace tarvelle {

namespace {

// An hour angle of the window: a double, folded once each way.
double HourAngle(float lst, double ra) {
    double ha = static_cast<double>(lst) - ra;
    if (ha > 12.0) ha -= 24.0;
    if (ha < -12.0) ha += 24.0;
    return ha;
}

int WholeField(const std::string& text) {
    return static_cast<int>(RoundHalfEven(ValueOfText(text)));
}

void SetDayLabels(Core& core, EphemerisResult& result) {
    double separation = 0.0;
    AngularSeparation(core.JupRA, core.JupDec, core.SunRA, core.SunDec, separation);
    result.labels.insert(result.labels.end(), {
        {"LbLSep", "Jup/Sun Angular Separation = " + FormatNumberMask(separation, "000.0") + " deg."},
        {"LbLJupRA", "JUP RA: " + core.JupRAText},
        {"LbLJupDec", "JUP DEC: " + core.JupDecText},
        {"LbLSunRA", "SUN RA: " + core.SunRAText},
        {"LbLSunDec", "SUN DEC: " + core.SunDecText},
        {"LBLDe", "De =  " + FormatNumberMask(core.De, "0.0") + " deg."},
        {"LbLDist", "Dist: " + StrForm(core.JupDist) + " A.U."},
    });
}

} // namespace

const EphemerisRow& EphemerisHeadings() {
    static const EphemerisRow headings = {"GMT ",    "Local ",   "Jup Alt", "Jup Az",  "Jup HA", "CML III",
                                          "Io Phase", "Mag Lat", "Sun Alt", "Sun Az", "Sun HA"};
    return headings;
}

EphemerisRow EphemerisRowNow(Core& core) {
    const CalendarFields gmt = FieldsOf(core.CurrentUT);
    return {FormatNumberMask(gmt.hour, "00") + ":" + FormatNumberMask(gmt.minute, "00"),
            FormatDateMask(core.CurrentUT + core.ObsTZ / 24.0, "HH:nn"),
            FormatNumberMask(core.JupAlt, "00.0"),
            FormatNumberMask(core.JupAz, "000.0"),
            FormatNumberMask(HourAngle(core.LST, core.JupRA), "00.00"),
            Trim(StrForm(core.CMLIII)),
            FormatNumberMask(core.IoPhase, "000.00"),
            FormatNumberMask(core.MagLat, "00.0"),
            FormatNumberMask(core.SunAlt, "00.0"),
            FormatNumberMask(core.SunAz, "000.0"),
            FormatNumberMask(HourAngle(core.LST, core.SunRA), "00.00")};
}

EphemerisResult ComputeEphemeris(Core& core, const EphemerisInput& input, const std::function<void()>& yield) {
    EphemerisResult result;
    const double interval = ValueOfText(input.interval);
    if (interval > 360.0 || interval < 1.0) {
        result.message = "Interval must be 1 to 360 Minutes.";
        result.exclamation = true;
        return result;
    }
    const double y = ValueOfText(input.year), m = ValueOfText(input.month), d = ValueOfText(input.day);
    if (y < 1900.0 || y > 2300.0 || m > 12.0 || m < 1.0 || d > 31.0 || d < 1.0) {
        result.message = "Invalid Date";
        return result;
    }

    result.gridRows = static_cast<int>(std::floor(1440.0 / interval)) + 1;
    const int last = result.gridRows - 2;
    core.SaveCurrentTime();
    core.CurrentUT = DateSerial(WholeField(input.year), WholeField(input.month), WholeField(input.day));
    result.firstUT = core.CurrentUT;
    result.labels.emplace_back("LBLLocalDate",
                               "Local Date Begins: " + core.FormatDateByChoice(core.CurrentUT + core.ObsTZ / 24.0));
    core.UpdateDayNumbers();
    core.UpdatePositions();
    core.UpdateDe();
    SetDayLabels(core, result);

    result.rows.reserve(static_cast<size_t>(last) + 1);
    result.rows.push_back(EphemerisHeadings());
    int row = 1;
    do {
        core.UpdateSiderealTime();
        core.UpdatePositions();
        core.UpdateMagLat();
        if (yield) yield();
        result.rows.push_back(EphemerisRowNow(core));
        ++row;
        core.CurrentUT += interval / 1440.0;
    } while (row <= last);
    core.RestoreCurrentTime();
    return result;
}

} // namespace tarvelle
