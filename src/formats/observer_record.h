// Observer records: the text forms of latitude and longitude, and the observer file of three
// quoted lines (latitude text, longitude text measured west, time zone in hours east).
#pragma once

#include <optional>
#include <string>

namespace tarvelle {

inline constexpr double kRejected = -999.0; // what a parser returns for a text it refuses

// What the user is told when a latitude or longitude text is refused, naming the field.
std::string LatitudeRefusal(const std::string& text);
std::string LongitudeRefusal(const std::string& text);

// Degrees, d:m or d:m:s; a leading "-" is south. Trims the text in place. A value outside
// -90..90, or a plain number that is not finite, is refused.
double ParseLatitude(std::string& text);
// Degrees west, d:m or d:m:s; a colon form with a leading "-" is east (360 minus it). Trims
// the text in place. A colon form outside 0..360 is refused; a plain number, even a
// negative one, is taken as it is within -360..360, and refused beyond or when not finite.
double ParseLongitude(std::string& text);
// Whether a text has the form of an observer file's numbers: an optional sign, digits with an
// optional decimal point or comma, and for an angle up to two more ":"-separated parts; blanks
// around it allowed. "1e309", "nan", "abc" and "" are not.
bool IsObserverNumberForm(const std::string& text, bool angle);

// Commas become decimal points (in place), then the number's value; an empty text is 0.
double ParseNumberComma(std::string& text);

// d:mm:ss.s forms; residues under 18 arc seconds are dropped from a latitude.
std::string FormatLatitudeText(double x);
std::string FormatLongitudeText(double x);

struct ObserverFileContents {
    std::string latitudeText, longitudeText, timeZoneText;
};

// Three items separated by commas or line ends, quotes optional, after a UTF-8 byte-order mark
// if there is one. On failure, errorNumber is set (53 file not found, 62 input past end of file,
// 75 access error or not a regular file, 7 over 1 MB, 76 path not found).
std::optional<ObserverFileContents> ReadObserverFile(const std::string& path, int& errorNumber);

// Whether a text can stand in a station file as one quoted item: no control bytes, no quote,
// at most maxBytes long.
bool IsFileText(const std::string& text, size_t maxBytes);
inline constexpr size_t kMaxObserverItem = 200;

// Writes the three quoted lines, each ended by CR LF, replacing the file in one step. False
// with a description of the failure when it cannot be written (nor an item that IsFileText
// refuses).
bool WriteObserverFile(const std::string& path, const ObserverFileContents& contents, std::string& failure);

// The values typed into the observer window, checked as applying them requires.
struct ObserverInput {
    enum class Status { Ok, BadLatitude, BadLongitude, BadTimeZone, BadSystemClockZone } status = Status::Ok;
    double latitude = 0.0;      // degrees north
    double longitudeWest = 0.0; // degrees west, whichever way the box showed it
    double timeZone = 0.0;
    double systemClockZone = 0.0;
};
// An east box ("E") holds 360 minus the west longitude. Zones must lie within -24..24.
ObserverInput CheckObserverInput(std::string latText, std::string lngText, const std::string& tzText,
                                 const std::string& systemClockText, const std::string& displayWest);

inline constexpr const char* kTimeZoneErrorText = "You entered an invalid value for Time Zone. Please re-enter.";
inline constexpr const char* kSystemClockZoneErrorText =
    "You entered an invalid value for the System Clock Time Zone. Please re-enter.";

} // namespace tarvelle
