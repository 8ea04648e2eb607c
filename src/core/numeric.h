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

// The step-by-step reductions of angles and times: `while (x > top) x -= step;` and
// `while (x < bottom) x += step;`, each step computed in double and stored back in x's own
// precision, exactly as the loops do. They stop after kMaxWrapSteps steps, so that no value
// (a year of 100,000,000, a longitude of 1e12, an infinity) can keep them going: what is still
// out of range then is brought in at once, and a value that is not finite is left as it is.
inline constexpr int kMaxWrapSteps = 100000;

template <typename T>
T StepDown(T x, double top, double step) {
    for (int i = 0; i < kMaxWrapSteps && static_cast<double>(x) > top; ++i)
        x = static_cast<T>(static_cast<double>(x) - step);
    if (static_cast<double>(x) > top && std::isfinite(static_cast<double>(x)))
        x = static_cast<T>(top - step + std::fmod(static_cast<double>(x) - (top - step), step));
    return x;
}

template <typename T>
T StepUp(T x, double bottom, double step) {
    for (int i = 0; i < kMaxWrapSteps && static_cast<double>(x) < bottom; ++i)
        x = static_cast<T>(static_cast<double>(x) + step);
    if (static_cast<double>(x) < bottom && std::isfinite(static_cast<double>(x)))
        x = static_cast<T>(bottom + step - std::fmod(bottom + step - static_cast<double>(x), step));
    return x;
}

// Integer part towards zero, and the sign function that yields -1, 0 or 1.
inline double Fix(double x) {
    return std::trunc(x);
}
inline double Sgn(double x) {
    return x > 0.0 ? 1.0 : (x < 0.0 ? -1.0 : 0.0);
}

} // namespace tarvelle
