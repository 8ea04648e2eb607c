// Geocentric places of the Sun and Jupiter from two Keplerian ellipses, in one closed step:
// no Kepler iteration, no light time, no aberration or nutation.
#include "core/astro_core.h"
#include "core/numeric.h"

#include <cmath>

namespace tarvelle {

namespace {

struct Elements {
    double P;  // period, days
    double e;  // eccentricity
    double a;  // semi-major axis, AU
    double w;  // longitude of perihelion, radians
    double n;  // longitude of the ascending node, radians
    double i;  // inclination, radians
    double t0; // epoch offset, days
};

constexpr Elements kEarth{365.2564, 0.016719, 1.0, 1.789792, 0.0, 0.0, 101.9};
constexpr Elements kJupiter{4332.0446, 0.0479528, 5.202168, 0.244685, 1.748931, 0.022786, 2875.5};
constexpr double kObliquity = 0.40928; // radians, for all dates

struct Rect {
    double x, y, z;
};

Rect Heliocentric(const Elements& el, double dayNumber) {
    const double L = ((dayNumber + el.t0) / el.P) * kTwoPi; // not reduced to one turn
    const double K = (1.0 + el.e) / (1.0 - el.e);
    const double M = L - el.w;
    double v = 2.0 * std::atan(std::tan(M / 2.0) * K);
    if (v < 0.0) v += kTwoPi;
    const double r = el.a * (1.0 - el.e * el.e) / (1.0 + el.e * std::cos(v));
    const double l = v + el.w;
    const double b = el.i * std::sin(l - el.n); // small-inclination form
    return {r * std::cos(l) * std::cos(b), r * std::sin(l) * std::cos(b), r * std::sin(b)};
}

} // namespace

void Core::UpdateSunJupiterPositions() {
    const Rect earth = Heliocentric(kEarth, DayNumber);
    Rect bodies[2] = {{-earth.x, -earth.y, 0.0}, Heliocentric(kJupiter, DayNumber)};
    bodies[1].x = bodies[1].x - earth.x;
    bodies[1].y = bodies[1].y - earth.y;

    for (int body = 0; body < 2; ++body) {
        double x = bodies[body].x, y = bodies[body].y, z = bodies[body].z;
        // Ecliptic to equator, about the x axis.
        const double q = std::sqrt(y * y + z * z);
        if (z == 0.0) z = 1e-30;
        double& g = carry_.g;
        Keep(g, std::atan(Div(z, y)));
        if (g < 0.0) g = g + kPi;
        if (z < 0.0) g = g + kPi;
        g = g + kObliquity;
        z = q * std::sin(g);
        y = q * std::cos(g);

        const double r = std::sqrt(x * x + y * y + z * z);
        double& A = carry_.A;
        Keep(A, std::atan(Div(y, x)));
        if (A < 0.0) A = kPi + A;
        if (y < 0.0) A = kPi + A;
        const double ra = (A / 15.0) * kRadToDeg;
        const double s = Div(z, r);
        double& D = carry_.D;
        Keep(D, std::atan(Div(s, std::sqrt(1.0 - s * s))));
        const double dec = D * kRadToDeg;

        if (body == 0) {
            SunRA = ra;
            SunDec = dec;
            SunRAText = FormatHours(ra);
            SunDecText = FormatDegrees(dec);
        } else {
            JupRA = ra;
            JupDec = dec;
            JupRAText = FormatHours(ra);
            JupDecText = FormatDegrees(dec);
            Keep(JupDist, r);
        }
    }
}

} // namespace tarvelle
