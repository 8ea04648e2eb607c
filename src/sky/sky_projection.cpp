#include "sky/sky_projection.h"

#include "core/numeric.h"
#include "core/text_forms.h"

#include <cmath>

namespace tarvelle {

namespace {

void PolarToMap(double r, double az, double& x, double& y) {
    double t = az + 90.0;
    while (t > 360.0) t -= 360.0;
    t *= kDegToRad;
    x = std::cos(t) * r;
    y = std::sin(t) * r;
}

} // namespace

void AltAzToMap(double alt, double az, double& x, double& y) {
    if (!(alt > 0.0)) return;
    PolarToMap(1.0 - alt / 90.0, az, x, y);
}

void HorizonPointToMap(double alt, double az, double& x, double& y) {
    const double r = 1.0 - alt / 90.0;
    double t = az + 90.0;
    if (t > 360.0) t -= 360.0;
    t *= kDegToRad;
    x = std::cos(t) * r;
    y = std::sin(t) * r;
}

int16_t MinutePointerOf(double t) {
    const double f = t - std::floor(t);
    return static_cast<int16_t>(std::floor(f / 0.000694444));
}

MapPointer PointerAt(double x, double y) {
    MapPointer p;
    const double r = std::sqrt(x * x + y * y);
    p.alt = (1.0 - r) * 90.0;
    if (p.alt < 0.0) return p;
    p.onMap = true;
    double c = 0.0;
    if (x == 0.0 && y == 0.0) {
        c = 0.0;
        p.alt = 90.0;
    } else if (y == 0.0) {
        c = x > 0.0 ? 90.0 : 270.0;
    } else if (x == 0.0) {
        c = y > 0.0 ? 0.0 : 180.0;
    } else if (x > 0.0) {
        c = 90.0 - std::atan(y / x) * kRadToDeg;
    } else {
        c = 270.0 - std::atan(y / x) * kRadToDeg;
    }
    p.az = 360.0 - c;
    return p;
}

std::string PointerText(const MapPointer& p) {
    if (!p.onMap) return "Pointer - Off Map";
    return "Pointer - Alt: " + FormatNumberMask(p.alt, "###.#") + "  Az: " + FormatNumberMask(p.az, "##.#");
}

} // namespace tarvelle
