// Observer records: the text forms of latitude and longitude, and the observer file of three
// quoted lines (latitude text, longitude text measured west, time zone in hours east).
#pragma once

#include <optional>
#include <string>

namespace tarvelle {

inline constexpr double kRejected = -999.0; // what a parser returns for a text it refuses

// Degrees, d:m or d:m:s; a leading "-" is south. Trims the text in place. A colon form
// outside -90..90 is refused; a plain number is taken as it is.
double ParseLatitude(std::string& text);
// Degrees west, d:m or d:m:s; a colon form with a leading "-" is east (360 minus it). Trims
// the text in place. A colon form outside 0..360 is refused; a plain number, even a
// negative one, is taken as it is.
double ParseLongitude(std::string& text);
// Commas become decimal points (in place), then the number's value; an empty text is 0.
double ParseNumberComma(std::string& text);

// d:mm:ss.s forms; residues under 18 arc seconds are dropped from a latitude.
std::string FormatLatitudeText(double x);
std::string FormatLongitudeText(double x);

struct ObserverFileContents {
    std::string latitudeText, longitudeText, timeZoneText;
};

// Three items separated by commas or line ends, quotes optional. On failure, errorNumber
// is set (53 file not found, 62 input past end of file, 75 access error, 76 path not found).
std::optional<ObserverFileContents> ReadObserverFile(const std::string& path, int& errorNumber);

} // namespace tarvelle
