// The clock, sidereal time and the shared helpers of the core.
#include "core/astro_core.h"
#include "core/date_value.h"
#include "core/numeric.h"
#include "core/text_forms.h"

#include <cmath>
#include <filesystem>
#include <fstream>

namespace tarvelle {

void Core::UpdateClockOffset() {
    ClockOffset = ObsTZ - SystemClockTZ;
}

void Core::UpdateDayNumbers() {
    JD0 = std::floor(CurrentUT) + 2415018.5;
    DayNumber = CurrentUT - 2.5;
}

// Mean sidereal time, no equation of the equinoxes; longitude enters as hours west.
void Core::UpdateSiderealTime() {
    const CalendarFields f = FieldsOf(CurrentUT);
    const double S = f.hour * 3600.0 + f.minute * 60.0 + f.second;
    UpdateDayNumbers();
    const double T = (JD0 - 2451545.0) / 36525.0;
    double G = 8640184.812866 * T + 0.093104 * T * T - 6.2e-06 * T * T * T;
    G = StepUp(G, 0.0, 86400.0);
    const double B = 24110.54841 + G;
    LST0 = static_cast<float>(B / 3600.0);
    LST0 = StepDown(LST0, 24.0, 24.0);
    LST0 = static_cast<float>(static_cast<double>(LST0) - static_cast<double>(ObsLongitude) / 15.0);
    LST0 = StepUp(LST0, 0.0, 24.0);
    double Y = (S * 1.002737908 + B) / 3600.0;
    Y = StepDown(Y, 24.0, 24.0);
    Y = StepUp(Y, 0.0, 24.0);
    LST = static_cast<float>(Y - static_cast<double>(ObsLongitude) / 15.0);
    LST = StepUp(LST, 0.0, 24.0);
}

void Core::UpdatePositions() {
    UpdateSunJupiterPositions();
    UpdateCMLIII(CurrentUT);
    UpdateIoPhase(DayNumber);
    UpdateHorizonCoords();
    UpdateRiseSet();
}

std::string Core::FormatDateByChoice(double t) {
    switch (DateFormatChoice) {
    case 0:
        DateHeading = "YYYY  MM  DD";
        return FormatDateMask(t, "yyyy/mm/dd");
    case 1:
        DateHeading = "MM  DD YYYY";
        return FormatDateMask(t, "mm/dd/yyyy");
    case 2:
        DateHeading = "DD  MM  YYYY";
        return FormatDateMask(t, "dd/mm/yyyy");
    default:
        return {};
    }
}

double ArcSin(double x) {
    if (std::fabs(x) >= 1.0) return Sgn(x) * kHalfPi;
    return std::atan(x / std::sqrt(1.0 - x * x));
}

double ArcCos(double x) {
    return 1.570796327 - ArcSin(x);
}

double Mod2Pi(double x) {
    return x - kTwoPi * std::floor(x / kTwoPi);
}

// Minutes are rounded by the mask and never carry into the hours: 5.9999 h is 05:60.
std::string FormatHours(double x) {
    const double h = std::floor(std::fabs(x));
    const double m = 60.0 * (std::fabs(x) - h);
    std::string text = FormatNumberMask(h, "00") + ":" + FormatNumberMask(m, "00");
    return x < 0.0 ? "-" + text : text;
}

// Minutes are truncated; a value between -1 and 0 keeps its minus sign.
std::string FormatDegrees(double x) {
    const double d = Fix(x);
    const double m = std::floor(std::fabs((std::fabs(x) - std::fabs(d)) * 60.0));
    std::string text = FormatNumberMask(d, "00") + ":" + FormatNumberMask(m, "00");
    return (x < 0.0 && x > -1.0) ? "-" + text : text;
}

bool FileExists(const std::string& path) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) return false;
    std::ifstream in(path, std::ios::binary);
    return in.is_open();
}

} // namespace tarvelle
