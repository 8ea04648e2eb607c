// Date values: a double of whole days since 1899-12-30 00:00, the time of day as the fraction.
// Calendar fields are proleptic Gregorian and come from the value rounded to the nearest second.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvelle {

struct CalendarFields {
    int year = 1899, month = 12, day = 30;
    int hour = 0, minute = 0, second = 0;
};

// The value's fields, seconds rounded (halves to even) with the carry into minutes, hours and
// the date.
CalendarFields FieldsOf(double dateValue);

// The date value of a year, month and day; out-of-range months and days carry over, so month
// 13 is January of the next year and 31 April is 1 May.
double DateSerial(int year, int month, int day);

// The years a date typed by a user may fall in; beyond them date arithmetic fails.
inline constexpr int kFirstDateYear = 100, kLastDateYear = 9999;

// DateSerial of numbers typed by a user (rounded halves to even), or nothing when the date they
// make falls outside kFirstDateYear..kLastDateYear or a number is not finite.
std::optional<double> CheckedDateSerial(double year, double month, double day);

// The date alone of a date value, and the seconds since its midnight, both as its calendar
// fields give them (to the rounded second, with the carry).
double WholeDay(double dateValue);
int SecondsOfDay(double dateValue);

// The fraction of a day of hours, minutes and seconds; out-of-range values carry.
double TimeSerial(double hour, double minute, double second);

// Julian date of a date value.
inline double JulianDate(double dateValue) {
    return dateValue + 2415018.5;
}

// A date value as a date mask pictures it: yyyy, yy, mm (the minute right after an hour), dd,
// hh, nn, ss, in either case; every other character stands as it is.
std::string FormatDateMask(double dateValue, std::string_view mask);

// "YYYY-MM-DD" or "YYYY-MM-DD HH:MM:SS" (also with a "T"), as tools and tests write instants.
std::optional<double> ParseIsoDateTime(std::string_view text);

} // namespace tarvelle
