// Numeric habits shared by the astronomy core: the constants as the core writes them,
// single-precision stores, and the rule that a faulting statement leaves its target alone.
#pragma once

#include <cfloat>
#include <cmath>
#include <limits>

namespace tarvelle {

inline constexpr double kDegToRad = 0.017453292519943278;
inline constexpr double kRadToDeg = 57.29577951308238;
inline constexpr double kPi = 3.14159265358979;
inline constexpr double kTwoPi = 6.28318530717958;
inline constexpr double kHalfPi = 1.570796326794895; // ArcSin's limit
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// A quotient that faults on a zero divisor: the NaN poisons the statement so that Keep skips it.
inline double Div(double a, double b) {
    return b == 0.0 ? kNaN : a / b;
}

// The fault rule: a statement whose result is not a finite number (a division by zero, the
// square root of a negative, an overflow) is abandoned and its target keeps its value.
inline void Keep(double& target, double value) {
    if (std::isfinite(value)) target = value;
}
inline void Keep(float& target, double value) {
    if (std::isfinite(value) && std::fabs(value) <= static_cast<double>(FLT_MAX))
        target = static_cast<float>(value);
}

// Rounded to a whole number: to the nearest, halves to the even neighbour.
inline double RoundHalfEven(double x) {
    return std::nearbyint(x);
}

// Integer part towards zero, and the sign function that yields -1, 0 or 1.
inline double Fix(double x) {
    return std::trunc(x);
}
inline double Sgn(double x) {
    return x > 0.0 ? 1.0 : (x < 0.0 ? -1.0 : 0.0);
}

} // namespace tarvelle
