// Altitude, azimuth, hour angle, rise and set for the observer, and the per-minute tables of
// a date. The horizon is geometric: no refraction, parallax or semi-diameter.
#include "core/astro_core.h"
#include "core/numeric.h"

#include <cmath>

namespace tarvelle {

namespace {

// The spherical step shared by both directions of the conversion: from a first angle p and a
// second angle q (radians) at a latitude given by its sine and cosine, the angle r and the
// angle m.
void SphericalKernel(double p, double q, double sinL, double cosL, double& r, double& m) {
    const double sinP = std::sin(p), cosP = std::cos(p), sinQ = std::sin(q), cosQ = std::cos(q);
    const double w = sinP * sinL + cosP * cosL * cosQ;
    if (w == 1.0)
        r = 1.570796327;
    else
        r = ArcSin(w);
    double c = cosL * std::cos(r);
    if (c < 1e-20) c = 1e-20; // keeps the poles and the zenith finite
    const double k = (sinP - sinL * w) / c;
    m = ArcCos(k);
    if (sinQ > 0.0) m = 6.283185308 - m;
}

void RiseSetOf(double ra, double dec, float lst0, float latitude, double& rise, double& set) {
    double A = ra - static_cast<double>(lst0);
    if (A < 0.0) A += 24.0;
    const double v = -std::tan(static_cast<double>(latitude) * kDegToRad) * std::tan(dec * kDegToRad);
    if (std::fabs(v) > 1.0) { // never crosses the horizon
        rise = -1.0;
        set = -1.0;
        return;
    }
    const double a = 2.0 * std::atan(v / (1.0 + std::sqrt(1.0 - v * v) + 1e-20)); // arcsine of v
    const double h = ((2.0 * std::atan(1.0)) - a) * kRadToDeg / 15.0;             // semi-arc, hours
    rise = A - h;
    rise = StepUp(rise, 0.0, 24.0);
    set = A + h;
    set = StepDown(set, 24.0, 24.0);
}

} // namespace

namespace {

void EquatorialToHorizontal(double sinL, double cosL, double lst, double ra, double dec, double& alt, double& az) {
    double H = lst - ra;
    H = StepUp(H, 0.0, 24.0);
    double r = 0.0, m = 0.0;
    SphericalKernel(dec * kDegToRad, H * 15.0 * kDegToRad, sinL, cosL, r, m);
    az = m * kRadToDeg;
    az = StepDown(az, 360.0, 360.0);
    alt = r * kRadToDeg;
}

} // namespace

void ConvertEquatorialHorizontal(double lat, double /*lng*/, double lst, double& ra, double& dec, double& alt,
                                 double& az, bool toEquatorial) {
    const double L = lat * kDegToRad;
    const double sinL = std::sin(L), cosL = std::cos(L);
    if (!toEquatorial) {
        EquatorialToHorizontal(sinL, cosL, lst, ra, dec, alt, az);
        return;
    }
    double r = 0.0, m = 0.0;
    SphericalKernel(alt * kDegToRad, az * kDegToRad, sinL, cosL, r, m);
    const double H = m * kRadToDeg / 15.0;
    dec = r * kRadToDeg;
    ra = lst - H;
    ra = StepUp(ra, 0.0, 24.0);
    ra = StepDown(ra, 24.0, 24.0);
}

void AngularSeparation(double ra1, double dec1, double ra2, double dec2, double& out) {
    const double r1 = ra1 * 15.0 * kDegToRad, d1 = dec1 * kDegToRad;
    const double r2 = ra2 * 15.0 * kDegToRad, d2 = dec2 * kDegToRad;
    const double a = std::sin((d1 - d2) / 2.0);
    const double b = std::sin((r1 - r2) / 2.0);
    const double h = a * a + std::cos(d1) * std::cos(d2) * b * b;
    const double g = std::sqrt(h);
    const double n = std::sqrt(1.0 - g * g);
    Keep(out, 2.0 * std::atan(Div(g, n)) / kDegToRad);
}

void Core::UpdateHorizonCoords() {
    const double L = static_cast<double>(ObsLatitude) * kDegToRad;
    const double sinL = std::sin(L), cosL = std::cos(L), lst = LST;
    EquatorialToHorizontal(sinL, cosL, lst, JupRA, JupDec, JupAlt, JupAz);
    EquatorialToHorizontal(sinL, cosL, lst, SunRA, SunDec, SunAlt, SunAz);
}

// Times of day in GMT from sidereal differences, for the positions of this instant.
void Core::UpdateRiseSet() {
    RiseSetOf(static_cast<float>(JupRA), static_cast<float>(JupDec), LST0, ObsLatitude, JupRise, JupSet);
    RiseSetOf(static_cast<float>(SunRA), static_cast<float>(SunDec), LST0, ObsLatitude, SunRise, SunSet);
}

// Sidereal time advances by a fixed increment a step and is not recomputed inside the loop;
// the step is 0.00069444 day, so entry 1440 falls about 0.55 s before the next midnight.
void Core::BuildDayTables(double t) {
    if (ShuttingDown) return;
    SaveCurrentTime();
    const float keptLST = LST;
    const double keptDayNumber = DayNumber;
    if (YieldToEvents) YieldToEvents();
    CurrentUT = std::floor(t);
    double u = CurrentUT;
    UpdateSiderealTime();
    const double L = static_cast<double>(ObsLatitude) * kDegToRad;
    const double sinL = std::sin(L), cosL = std::cos(L);
    for (int k = 0; k < kDayTableSize; ++k) {
        UpdateSunJupiterPositions();
        UpdateCMLIII(u);
        UpdateIoPhase(DayNumber);
        JupHA = static_cast<float>(static_cast<double>(LST) - JupRA);
        if (JupHA > 12.0f) JupHA = static_cast<float>(static_cast<double>(JupHA) - 24.0);
        if (JupHA < -12.0f) JupHA = static_cast<float>(static_cast<double>(JupHA) + 24.0);
        EquatorialToHorizontal(sinL, cosL, LST, JupRA, JupDec, JupAlt, JupAz);
        SunHA = static_cast<float>(static_cast<double>(LST) - SunRA);
        if (SunHA < -12.0f) SunHA = static_cast<float>(static_cast<double>(SunHA) + 24.0);
        if (SunHA > 12.0f) SunHA = static_cast<float>(static_cast<double>(SunHA) - 24.0);
        EquatorialToHorizontal(sinL, cosL, LST, SunRA, SunDec, SunAlt, SunAz);

        const auto i = static_cast<size_t>(k);
        Day.DayMinuteTime[i] = u;
        Day.DayLST[i] = LST;
        Day.DayJupAlt[i] = JupAlt;
        Day.DayJupAz[i] = JupAz;
        Day.DaySunAlt[i] = SunAlt;
        Day.DaySunAz[i] = SunAz;
        Day.DayJupHA[i] = JupHA;
        Day.DaySunHA[i] = SunHA;
        Day.DayCML[i] = CMLIII;
        Day.DayIoPhase[i] = IoPhase;

        LST = static_cast<float>(static_cast<double>(LST) + kSiderealMinute);
        if (LST > 24.0f) LST = static_cast<float>(static_cast<double>(LST) - 24.0);
        DayNumber = DayNumber + kDayTableStep;
        u = u + kDayTableStep;
    }
    RestoreCurrentTime();
    LST = keptLST;
    DayNumber = keptDayNumber;
}

} // namespace tarvelle
