#include "core/date_value.h"

#include "core/numeric.h"

#include <cctype>
#include <cmath>
#include <cstdio>

namespace tarvelle {

namespace {

// Days from 1970-01-01 of a proleptic Gregorian date (after H. Hinnant's days_from_civil).
long long DaysFromCivil(long long y, long long m, long long d) {
    y -= m <= 2 ? 1 : 0;
    const long long era = (y >= 0 ? y : y - 399) / 400;
    const long long yoe = y - era * 400;
    const long long doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const long long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

void CivilFromDays(long long z, int& year, int& month, int& day) {
    z += 719468;
    const long long era = (z >= 0 ? z : z - 146096) / 146097;
    const long long doe = z - era * 146097;
    const long long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const long long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const long long mp = (5 * doy + 2) / 153;
    day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    year = static_cast<int>(yoe + era * 400 + (month <= 2 ? 1 : 0));
}

constexpr long long kEpochFrom1970 = -25569; // 1899-12-30 counted from 1970-01-01

std::string TwoDigits(int v) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d", v);
    return buf;
}

bool StartsWithToken(std::string_view s, size_t i, std::string_view token) {
    if (i + token.size() > s.size()) return false;
    for (size_t k = 0; k < token.size(); ++k)
        if (std::tolower(static_cast<unsigned char>(s[i + k])) != token[k]) return false;
    return true;
}

} // namespace

CalendarFields FieldsOf(double dateValue) {
    double days = std::floor(dateValue);
    double seconds = RoundHalfEven((dateValue - days) * 86400.0);
    if (seconds >= 86400.0) {
        days += 1.0;
        seconds -= 86400.0;
    }
    CalendarFields f;
    CivilFromDays(static_cast<long long>(days) + kEpochFrom1970, f.year, f.month, f.day);
    const int s = static_cast<int>(seconds);
    f.hour = s / 3600;
    f.minute = (s / 60) % 60;
    f.second = s % 60;
    return f;
}

double DateSerial(int year, int month, int day) {
    const long long m0 = static_cast<long long>(month) - 1;
    const long long y = year + (m0 >= 0 ? m0 / 12 : (m0 - 11) / 12);
    const long long m = ((m0 % 12) + 12) % 12 + 1;
    return static_cast<double>(DaysFromCivil(y, m, 1) - kEpochFrom1970 + day - 1);
}

std::optional<double> CheckedDateSerial(double year, double month, double day) {
    // Bounds that keep the carries within an int; the result's year decides.
    if (!(std::fabs(year) <= 1e5 && std::fabs(month) <= 1e6 && std::fabs(day) <= 1e7)) return std::nullopt;
    const double t = DateSerial(static_cast<int>(RoundHalfEven(year)), static_cast<int>(RoundHalfEven(month)),
                                static_cast<int>(RoundHalfEven(day)));
    const int y = FieldsOf(t).year;
    if (y < kFirstDateYear || y > kLastDateYear) return std::nullopt;
    return t;
}

double WholeDay(double dateValue) {
    const CalendarFields f = FieldsOf(dateValue);
    return DateSerial(f.year, f.month, f.day);
}

int SecondsOfDay(double dateValue) {
    const CalendarFields f = FieldsOf(dateValue);
    return f.hour * 3600 + f.minute * 60 + f.second;
}

double TimeSerial(double hour, double minute, double second) {
    return (hour * 3600.0 + minute * 60.0 + second) / 86400.0;
}

std::string FormatDateMask(double dateValue, std::string_view mask) {
    const CalendarFields f = FieldsOf(dateValue);
    std::string out;
    bool afterHour = false;
    for (size_t i = 0; i < mask.size();) {
        if (StartsWithToken(mask, i, "yyyy")) {
            char buf[16];
            std::snprintf(buf, sizeof buf, "%04d", f.year);
            out += buf;
            i += 4;
            afterHour = false;
        } else if (StartsWithToken(mask, i, "yy")) {
            out += TwoDigits(((f.year % 100) + 100) % 100);
            i += 2;
            afterHour = false;
        } else if (StartsWithToken(mask, i, "mm")) {
            out += TwoDigits(afterHour ? f.minute : f.month);
            i += 2;
            afterHour = false;
        } else if (StartsWithToken(mask, i, "dd")) {
            out += TwoDigits(f.day);
            i += 2;
            afterHour = false;
        } else if (StartsWithToken(mask, i, "hh")) {
            out += TwoDigits(f.hour);
            i += 2;
            afterHour = true;
        } else if (StartsWithToken(mask, i, "nn")) {
            out += TwoDigits(f.minute);
            i += 2;
            afterHour = false;
        } else if (StartsWithToken(mask, i, "ss")) {
            out += TwoDigits(f.second);
            i += 2;
            afterHour = false;
        } else {
            out += mask[i++];
        }
    }
    return out;
}

std::optional<double> ParseIsoDateTime(std::string_view text) {
    int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0;
    const std::string t(text);
    int consumed = 0;
    if (std::sscanf(t.c_str(), "%d-%d-%d%n", &y, &mo, &d, &consumed) != 3) return std::nullopt;
    std::string_view rest = text.substr(static_cast<size_t>(consumed));
    if (!rest.empty()) {
        const std::string r(rest.substr(1));
        int used = 0;
        if ((rest[0] != ' ' && rest[0] != 'T') ||
            std::sscanf(r.c_str(), "%d:%d:%d%n", &h, &mi, &s, &used) != 3 ||
            static_cast<size_t>(used) != r.size())
            return std::nullopt;
    }
    // Years past 9999 are refused, as everywhere in the station.
    if (y < 100 || y > 9999 || mo < 1 || mo > 12 || d < 1 || d > 31 || h < 0 || h > 23 || mi < 0 || mi > 59 ||
        s < 0 || s > 59)
        return std::nullopt;
    if (FieldsOf(DateSerial(y, mo, d)).day != d) return std::nullopt; // 31 April and the like
    return DateSerial(y, mo, d) + TimeSerial(h, mi, s);
}

} // namespace tarvelle
