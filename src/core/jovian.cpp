// CML III, Io phase, the Jovicentric declination of the Earth and the magnetic latitude.
// UpdateCMLIII carries its own calendar-to-Julian-date step and its own, higher-order Jupiter
// series; UpdateIoPhase carries a third, light theory. Neither uses the positions of the
// two-ellipse model.
#include "core/astro_core.h"
#include "core/date_value.h"
#include "core/numeric.h"

#include <cmath>

namespace tarvelle {

namespace {

constexpr double kArcSecPerRad = 206265.0;

// A mean argument given in revolutions, reduced to one turn, in radians.
double Revolutions(double value) {
    return (value - std::floor(value)) * kTwoPi;
}

// Reduced to 0..360 by dividing by 360, taking away the floor and multiplying by 360.
double Reduce360(double x) {
    return (x / 360.0 - std::floor(x / 360.0)) * 360.0;
}

// Days from J2000 of the whole-second calendar fields of t; no UT to dynamical time.
double DaysFromJ2000(double t) {
    const CalendarFields f = FieldsOf(t);
    const double Y = f.year, M = f.month;
    const double F = f.day + f.hour / 24.0 + f.minute / 1440.0 + f.second / 86400.0;
    const double G = Y < 1582.0 ? 0.0 : 1.0;
    const double I = std::floor(F);
    double X = F - I - 0.5;
    double J = -std::floor(7.0 * (std::floor((M + 9.0) / 12.0) + Y) / 4.0);
    double B = 0.0;
    if (G != 0.0) {
        B = std::floor(Y + Sgn(M - 9.0) * std::floor(std::fabs(M - 9.0) / 7.0));
        B = -std::floor((std::floor(B / 100.0) + 1.0) * 3.0 / 4.0);
    }
    J = J + std::floor(275.0 * M / 9.0) + I + G * B;
    J = J + 1721027.0 + 2.0 * G + 367.0 * Y;
    if (X < 0.0) {
        X = X + 1.0;
        J = J - 1.0;
    }
    return (J - 2451545.0) + X;
}

} // namespace

void Core::UpdateCMLIII(const double& t) {
    const double d = DaysFromJ2000(t);
    const double T1 = d / 36525.0 + 1.0;

    const double Ls = Revolutions(0.779072 + 0.00273790931 * d);
    const double Ms = Revolutions(0.993126 + 0.0027377785 * d);
    const double Lj = Revolutions(0.089608 + 0.00023080893 * d);
    const double Mj = Revolutions(0.056531 + 0.00023080893 * d);
    const double Ma = Revolutions(0.882987 + 9.294371e-05 * d);

    const double sunCorrection = 6910.0 * std::sin(Ms) + 72.0 * std::sin(2.0 * Ms) -
                                 17.0 * T1 * std::sin(Ms) - 7.0 * std::cos(Ms - Mj);
    const double Ls2 = Ls + sunCorrection / kArcSecPerRad;
    const double R = 1.00014 - 0.01675 * std::cos(Ms) - 0.00014 * std::cos(2.0 * Ms);

    double lonCorrection = 19934.0 * std::sin(Mj);
    lonCorrection += 5023.0 * T1;
    lonCorrection += 2511.0;
    lonCorrection += 1093.0 * std::cos(2.0 * Mj - 5.0 * Ma);
    lonCorrection += 601.0 * std::sin(2.0 * Mj);
    lonCorrection += -479.0 * std::sin(2.0 * Mj - 5.0 * Ma);
    lonCorrection += -185.0 * std::sin(2.0 * Mj - 2.0 * Ma);
    lonCorrection += 137.0 * std::sin(3.0 * Mj - 5.0 * Ma);
    lonCorrection += -131.0 * std::sin(Mj - 2.0 * Ma);

    const double latitude =
        -4692.0 * std::cos(Mj) + 227.0 - 227.0 * std::cos(2.0 * Mj) + 30.0 * T1 * std::sin(Mj);

    double r = 5.20883;
    r += -0.25122 * std::cos(Mj);
    r += -0.00604 * std::cos(2.0 * Mj);
    r += 0.0026 * std::cos(2.0 * Mj - 2.0 * Ma);
    r += -0.0017 * std::cos(3.0 * Mj - 5.0 * Ma);
    r += -0.00106 * std::sin(2.0 * Mj - 2.0 * Ma);
    r += -0.00091 * T1 * std::sin(Mj);
    r += -0.00084 * T1 * std::cos(Mj);

    const double Lj2 = Lj + lonCorrection / kArcSecPerRad;
    const double b = latitude / kArcSecPerRad;
    const double y = r * std::cos(b) * std::sin(Lj2 - Ls2);
    const double x = r * std::cos(b) * std::cos(Lj2 - Ls2) + R;
    double& a = carry_.a;
    Keep(a, std::atan(Div(y, x)));
    if (x < 0.0) a = a + kPi;
    const double l = a + Ls2;
    const double Dist = std::sqrt(y * y + x * x + (r * std::sin(b)) * (r * std::sin(b)));
    double s = Div(r * std::sin(b), Dist);
    double& be = carry_.be;
    Keep(be, std::atan(Div(s, std::sqrt(1.0 - s * s))));

    const double e = (84428.0 - 47.0 * T1) / kArcSecPerRad;
    const double y2 = std::sin(l) * std::cos(e) - std::tan(be) * std::sin(e);
    const double x2 = std::cos(l);
    double& ra = carry_.ra;
    Keep(ra, std::atan(Div(y2, x2)));
    if (x2 < 0.0) ra = ra + kPi;
    s = std::sin(be) * std::cos(e) + std::cos(be) * std::sin(e) * std::sin(l);
    double& de = carry_.de;
    Keep(de, std::atan(Div(s, std::sqrt(1.0 - s * s))));

    // Jupiter's pole, then the rotation at the retarded time (0.0057755 days of light per AU).
    const double T = T1 - 1.0;
    const double pa = Reduce360(268.05 + 0.107 * T) * kDegToRad;
    const double pd = Reduce360(64.49 - 0.015 * T) * kDegToRad;
    const double Ax = std::cos(de) * std::sin(pa - ra);
    const double Ay = std::sin(pd) * std::cos(de) * std::cos(pa - ra) - std::cos(pd) * std::sin(de);
    double& Ang = carry_.Ang;
    Keep(Ang, kRadToDeg * std::atan(Div(Ay, Ax)));
    if (Ax < 0.0) Ang = Ang + 180.0;
    const double W = 284.894 + 870.536 * (d - 0.0057755 * Dist) + 1.291 * T;
    const double C = Reduce360(W - Ang);
    Keep(CMLIII, std::floor(100.0 * C + 0.5) / 100.0); // 360.00 can occur
}

void Core::UpdateIoPhase(const double& dayNumber) {
    const double d = 1.0 + dayNumber; // days from JD 2415020.0
    const double V = Mod2Pi(2.34974 + 1.94756e-05 * d);
    const double M = Mod2Pi(6.256586 + 0.01720197 * d);
    const double N = Mod2Pi(3.93272126 + 0.0014501127 * d + 0.00576 * std::sin(V));
    const double J = Mod2Pi(3.8684699 + 0.015751909 * d - 0.00576 * std::sin(V));
    const double A = Mod2Pi(0.0334405 * std::sin(M) + 0.000349 * std::sin(2.0 * M));
    const double B = Mod2Pi(0.0969007 * std::sin(N) + 0.0029147 * std::sin(2.0 * N));
    const double K = Mod2Pi(J + A - B);
    const double R = 1.00014 - 0.01672 * std::cos(M) - 0.0014 * std::cos(2.0 * M);
    const double r = 5.20867 - 0.25192 * std::cos(N) - 0.0061 * std::cos(2.0 * N);
    const double Dist = std::sqrt(R * R + r * r - 2.0 * R * r * std::cos(K));
    double& Psi = carry_.Psi;
    Keep(Psi, ArcSin(Div(R * std::sin(K), Dist)));
    const double d2 = d - Dist / 173.1446; // light time
    const double u1 = Mod2Pi(1.475686 + 3.550102027 * d2 + Psi - B);
    const double u2 = Mod2Pi(0.724338 + 1.767872488 * d2 + Psi - B);
    const double u = Mod2Pi(u1 + 0.0082296 * std::sin(2.0 * (u1 - u2)));
    Keep(IoPhase, u * kRadToDeg + 180.0);
    if (IoPhase > 360.0f) IoPhase = static_cast<float>(static_cast<double>(IoPhase) - 360.0);
}

void Core::UpdateDe() {
    constexpr double kPoleRA = 4.678180527045597;  // radians, fixed for all dates
    constexpr double kPoleDec = 1.125562834611142; // radians
    const double ra = 15.0 * JupRA * kDegToRad;
    const double de = JupDec * kDegToRad;
    const double X =
        -std::sin(kPoleDec) * std::sin(de) - std::cos(de) * std::cos(kPoleDec) * std::cos(kPoleRA - ra);
    Keep(De, std::sin(X) * kRadToDeg); // the sine, which within 3.4 degrees is the arcsine
}

void Core::UpdateMagLat() {
    Keep(MagLat,
         kRadToDeg * 0.17453292519943278 * std::cos((static_cast<double>(CMLIII) - 200.0) * kDegToRad));
}

} // namespace tarvelle
