#include "sky/galactic.h"

#include "core/astro_core.h"
#include "core/numeric.h"

#include <cmath>

namespace tarvelle {

namespace {

constexpr double kPoleRA = 3.355395;   // alpha0, radians
constexpr double kPoleDec = 0.4782202; // delta0, radians
constexpr double kNodeL = 0.5759587;   // l0, radians

} // namespace

void GalacticToEquatorial(float& l, double b, double& ra, float& dec) {
    const double lr = static_cast<double>(l) * kDegToRad;
    const auto br = static_cast<double>(static_cast<float>(b * kDegToRad));
    const double s = std::cos(kPoleDec) * std::cos(br) * std::sin(lr - kNodeL) + std::sin(kPoleDec) * std::sin(br);
    const double delta = ArcSin(s);
    const double y = std::cos(lr - kNodeL) * std::cos(br);
    double x = std::sin(br) * std::cos(kPoleDec) - std::cos(br) * std::sin(kPoleDec) * std::sin(lr - kNodeL);
    if (std::fabs(x) < 1e-20) x = 1e-20;
    double alpha = std::atan(y / x) + kPoleRA;
    if (x < 0.0) alpha += kPi;
    if (alpha < 0.0) alpha += kTwoPi;
    if (alpha > kTwoPi) alpha -= kTwoPi;
    ra = alpha * kRadToDeg / 15.0;
    Keep(dec, delta * kRadToDeg);
}

} // namespace tarvelle
