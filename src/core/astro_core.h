// The astronomy core: one clock in GMT, the observer's place, the Sun and Jupiter, CML III,
// Io phase, the local sky and the per-minute tables of a date.
//
// Usage: set CurrentUT (GMT) and the observer, call UpdateSiderealTime(), then
// UpdatePositions(), then read the live values. To compute at a time of one's own, bracket
// the work with SaveCurrentTime() and RestoreCurrentTime(), and call UpdateSiderealTime()
// before UpdatePositions() for every instant. Nothing here yields to the event loop except
// BuildDayTables, once, through YieldToEvents.
//
// Angles are degrees, right ascensions, hour angles and sidereal times hours; longitude is
// measured westward, 0 to 360; time zones are hours, positive east. Members declared float
// are single precision on purpose: their values are what the readout shows.
#pragma once

#include <array>
#include <functional>
#include <string>

namespace tarvelle {

inline constexpr int kDayTableSize = 1801; // 30 hours, one entry a minute, from 00:00 GMT
inline constexpr double kDayTableStep = 0.00069444;   // a minute in days, as the tables step it
inline constexpr double kSiderealMinute = 0.016712298; // one minute of mean time in sidereal hours

// The per-minute tables of one date.
struct DayTables {
    std::array<double, kDayTableSize> DayMinuteTime{}; // date value of the entry
    std::array<float, kDayTableSize> DayLST{};
    std::array<double, kDayTableSize> DayJupAlt{}, DayJupAz{};
    std::array<double, kDayTableSize> DaySunAlt{}, DaySunAz{};
    std::array<float, kDayTableSize> DayJupHA{}, DaySunHA{};
    std::array<float, kDayTableSize> DayCML{}, DayIoPhase{};
};

class Core {
public:
    // Clock and day numbers.
    double CurrentUT = 0.0; // date value, GMT
    double SavedUT = 0.0;   // the one save slot
    double DayNumber = 0.0; // CurrentUT - 2.5, JD - 2415021.0
    double JD0 = 0.0;       // Julian date of 0h GMT of the date
    float LST = 0.0f;       // local mean sidereal time, hours
    float LST0 = 0.0f;      // local mean sidereal time at 0h GMT of the date, hours

    // Time zones, hours east of Greenwich.
    double ObsTZ = 0.0;
    double DetectedTZ = 0.0;
    double SystemClockTZ = 0.0;
    double ClockOffset = 0.0;

    bool RealTimeMode = true;
    bool UseGMT = true;
    bool UseDetectedTZ = true;
    bool ShuttingDown = false;

    // The observer.
    float ObsLatitude = 0.0f;  // degrees, north positive
    float ObsLongitude = 0.0f; // degrees west, 0 to 360
    std::string ObLatText, ObLngText, ObFileName;
    std::string DisplayWest = "W";

    int DateFormatChoice = 0; // 0 year first, 1 month first, 2 day first
    std::string DateHeading;

    // Sun and Jupiter, geocentric, geometric.
    double SunRA = 0.0, SunDec = 0.0, JupRA = 0.0, JupDec = 0.0;
    std::string SunRAText, SunDecText, JupRAText, JupDecText;
    float JupDist = 0.0f; // AU

    // Jovian longitudes and Io.
    float CMLIII = 0.0f;  // degrees, System III, rounded to 0.01
    float IoPhase = 0.0f; // degrees from superior geocentric conjunction
    float De = 0.0f;      // Jovicentric declination of the Earth, degrees
    float MagLat = 0.0f;  // degrees

    // The local sky.
    double JupAlt = 0.0, JupAz = 0.0, SunAlt = 0.0, SunAz = 0.0;
    float JupHA = 0.0f, SunHA = 0.0f;
    double JupRise = 0.0, JupSet = 0.0, SunRise = 0.0, SunSet = 0.0; // hours GMT, or -1

    DayTables Day;

    // Called once by BuildDayTables to let other events in; empty in headless use.
    std::function<void()> YieldToEvents;

    // Clock.
    void UpdateClockOffset();
    void UpdateDayNumbers();
    void UpdateSiderealTime();
    void SaveCurrentTime() { SavedUT = CurrentUT; }
    void RestoreCurrentTime() { CurrentUT = SavedUT; }
    // GMT of a reading of the computer's clock (a local date value).
    double GMTFromClock(double computerClock) const { return computerClock + (ClockOffset - ObsTZ) / 24.0; }

    // Recompute.
    void UpdatePositions();
    void UpdateSunJupiterPositions();
    void UpdateCMLIII(const double& t);
    void UpdateIoPhase(const double& d);
    void UpdateDe();
    void UpdateMagLat();
    void UpdateHorizonCoords();
    void UpdateRiseSet();
    void BuildDayTables(double t);

    // The date of t as text by DateFormatChoice; sets DateHeading to match.
    std::string FormatDateByChoice(double t);

private:
    // Intermediate values that outlive a faulting statement, as the fault rule requires.
    struct Carry {
        double g = 0.0, A = 0.0, D = 0.0;                        // Sun and Jupiter reduction
        double a = 0.0, be = 0.0, ra = 0.0, de = 0.0, Ang = 0.0; // CML III
        double Psi = 0.0;                                        // Io
    } carry_;
};

// Helpers shared across the program.
double ArcSin(double x);
double ArcCos(double x);
double Mod2Pi(double x);
std::string FormatHours(double x);
std::string FormatDegrees(double x);
bool FileExists(const std::string& path);

void ConvertEquatorialHorizontal(double lat, double lng, double lst, double& ra, double& dec, double& alt,
                                 double& az, bool toEquatorial);
void AngularSeparation(double ra1, double dec1, double ra2, double dec2, double& out);

} // namespace tarvelle
