#include "formats/observer_record.h"

#include "formats/error_text.h"
#include "formats/file_io.h"

#include "core/numeric.h"
#include "core/text_forms.h"

#include <cerrno>
#include <cctype>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

namespace tarvelle {

std::string LatitudeRefusal(const std::string& text) {
    return "The latitude \"" + text +
           "\" is not valid: give degrees, or degrees:minutes:seconds, from -90 to 90 (north positive).";
}

std::string LongitudeRefusal(const std::string& text) {
    return "The longitude \"" + text +
           "\" is not valid: give degrees, or degrees:minutes:seconds, from 0 to 360 west "
           "(a negative value is east).";
}

namespace {

// d, d:m or d:m:s without a sign; degrees (and minutes of d:m:s) are whole numbers.
double ParseColonForm(std::string body, size_t first, size_t second) {
    const double d = RoundHalfEven(ValueOfText(body.substr(0, first)));
    if (second == std::string::npos) {
        std::string rest = body.substr(first + 1);
        return d + ParseNumberComma(rest) / 60.0;
    }
    const double m = RoundHalfEven(ValueOfText(body.substr(first + 1, second - first - 1)));
    std::string rest = body.substr(second + 1);
    return d + m / 60.0 + ParseNumberComma(rest) / 3600.0;
}

std::string PlainInteger(double d) {
    return std::to_string(static_cast<long long>(d));
}

// Minutes and seconds of an angle's fraction as the observer file writes them; the
// thresholds and scale factors differ between latitude and longitude.
struct SexagesimalRule {
    double minuteScale, minuteDivisor, residueFloor, secondScale, wrapAt;
};

std::string FormatSexagesimal(double x, double d, const SexagesimalRule& rule) {
    std::string text = PlainInteger(d) + ":";
    const double f = std::fabs(std::fabs(x) - std::fabs(d));
    double m = std::floor(std::floor(f * rule.minuteScale) / rule.minuteDivisor);
    double s = f - m / 60.0;
    if (s < rule.residueFloor) s = 0.0;
    double c = s * rule.secondScale;
    if (ValueOfText(FormatNumberMask(c, "00.0")) >= 60.0) {
        c = c - 60.0;
        m = m + 1.0;
    }
    // The residue of a value that came from a negative text can fall a hair below zero; the
    // seconds are those of the rounded total, with no minus on zero.
    if (c < 0.0 && ValueOfText(FormatNumberMask(c, "00.0")) == 0.0) c = 0.0;
    if (ValueOfText(FormatNumberMask(m, "00")) >= 60.0) {
        m = 0.0;
        d = d + 1.0;
        if (d >= rule.wrapAt) d = 0.0;
        text = PlainInteger(d) + ":";
    }
    return text + FormatNumberMask(m, "00") + ":" + FormatNumberMask(c, "00.0");
}

// One item as a sequential read takes it: leading blanks skipped, a quoted string up to its
// closing quote, or plain text up to a comma or the line end.
bool ReadItem(const std::string& all, size_t& pos, std::string& item) {
    while (pos < all.size() && (all[pos] == ' ' || all[pos] == '\t')) ++pos;
    if (pos >= all.size()) return false;
    item.clear();
    if (all[pos] == '"') {
        const size_t close = all.find('"', pos + 1);
        const size_t end = close == std::string::npos ? all.size() : close;
        item = all.substr(pos + 1, end - pos - 1);
        pos = close == std::string::npos ? all.size() : close + 1;
        while (pos < all.size() && (all[pos] == ' ' || all[pos] == '\t')) ++pos;
    } else {
        while (pos < all.size() && all[pos] != ',' && all[pos] != '\n' && all[pos] != '\r')
            item += all[pos++];
        item = Trim(item);
    }
    if (pos < all.size() && all[pos] == ',') {
        ++pos;
    } else {
        if (pos < all.size() && all[pos] == '\r') ++pos;
        if (pos < all.size() && all[pos] == '\n') ++pos;
    }
    return true;
}

// Takes a leading "-" off the text: -1 if there was one, else 1.
double TakeMinus(std::string& body) {
    if (body.empty() || body[0] != '-') return 1.0;
    body.erase(0, 1);
    return -1.0;
}

} // namespace

bool IsObserverNumberForm(const std::string& text, bool angle) {
    const std::string t = Trim(text);
    size_t i = 0;
    if (i < t.size() && (t[i] == '-' || t[i] == '+')) ++i;
    for (int part = 0; part < (angle ? 3 : 1); ++part) {
        if (part > 0) {
            if (i == t.size()) return true;
            if (t[i++] != ':') return false;
        }
        size_t digits = 0;
        while (i < t.size() && std::isdigit(static_cast<unsigned char>(t[i]))) ++i, ++digits;
        if (i < t.size() && (t[i] == '.' || t[i] == ',')) {
            ++i;
            while (i < t.size() && std::isdigit(static_cast<unsigned char>(t[i]))) ++i, ++digits;
        }
        if (digits == 0) return false;
    }
    return i == t.size();
}

double ParseNumberComma(std::string& text) {
    for (char& c : text)
        if (c == ',') c = '.';
    return text.empty() ? 0.0 : ValueOfText(text);
}

double ParseLatitude(std::string& text) {
    text = Trim(text);
    std::string body = text;
    const double sign = TakeMinus(body);
    const size_t first = body.find(':');
    if (first == std::string::npos) {
        // Plain degrees: any sign, but never past a pole nor beyond what a number can hold.
        const double plain = ParseNumberComma(body) * sign;
        return std::isfinite(plain) && std::fabs(plain) <= 90.0 ? plain : kRejected;
    }
    const size_t second = body.find(':', first + 1);
    const double result = sign * ParseColonForm(body, first, second);
    return (result < -90.0 || result > 90.0) ? kRejected : result;
}

double ParseLongitude(std::string& text) {
    text = Trim(text);
    std::string body = text;
    const double sign = TakeMinus(body);
    if (!body.empty() && body[0] == '+') body.erase(0, 1);
    const size_t first = body.find(':');
    if (first == std::string::npos) {
        // Plain degrees are taken as they are (a negative number is east), within one turn.
        const double plain = ValueOfText(body) * sign;
        return std::isfinite(plain) && std::fabs(plain) <= 360.0 ? plain : kRejected;
    }
    const size_t second = body.find(':', first + 1);
    double result = ParseColonForm(body, first, second);
    if (sign < 0.0) result = 360.0 - result;
    return (result < 0.0 || result > 360.0) ? kRejected : result;
}

std::string FormatLatitudeText(double x) {
    return FormatSexagesimal(x, Fix(x), {6000.5, 100.0, 0.005, 3600.005, 90.0});
}

std::string FormatLongitudeText(double x) {
    return FormatSexagesimal(x, std::floor(x), {60000.5, 1000.0, -INFINITY, 3600.05, 360.0});
}

std::optional<ObserverFileContents> ReadObserverFile(const std::string& path, int& errorNumber) {
    std::string all;
    errorNumber = ReadSmallFile(path, kMaxStationFileBytes, all);
    if (errorNumber != 0) return std::nullopt;
    // A UTF-8 byte-order mark, as some editors write, is no part of the latitude.
    size_t pos = all.rfind("\xEF\xBB\xBF", 0) == 0 ? 3 : 0;
    ObserverFileContents contents;
    for (std::string* item : {&contents.latitudeText, &contents.longitudeText, &contents.timeZoneText}) {
        if (!ReadItem(all, pos, *item)) {
            errorNumber = 62;
            return std::nullopt;
        }
    }
    errorNumber = 0;
    return contents;
}

bool WriteObserverFile(const std::string& path, const ObserverFileContents& contents, std::string& failure) {
    std::string bytes;
    for (const std::string* item : {&contents.latitudeText, &contents.longitudeText, &contents.timeZoneText}) {
        if (!IsFileText(*item, kMaxObserverItem)) {
            failure = "The text \"" + item->substr(0, 40) + "\" cannot go into an observer file: it is too long "
                      "or holds control characters or quotes.";
            return false;
        }
        bytes += '"' + *item + "\"\r\n";
    }
    const FileFailure written = WriteFileAtomically(path, bytes);
    if (written.number != 0) failure = written.description + ": " + path;
    return written.number == 0;
}

bool IsFileText(const std::string& text, size_t maxBytes) {
    if (text.size() > maxBytes) return false;
    for (const char c : text)
        if (static_cast<unsigned char>(c) < 32 || c == 127 || c == '"') return false;
    return true;
}

ObserverInput CheckObserverInput(std::string latText, std::string lngText, const std::string& tzText,
                                 const std::string& systemClockText, const std::string& displayWest) {
    ObserverInput in;
    in.latitude = ParseLatitude(latText);
    if (in.latitude == kRejected) {
        in.status = ObserverInput::Status::BadLatitude;
        return in;
    }
    in.longitudeWest = ParseLongitude(lngText);
    if (in.longitudeWest == kRejected) {
        in.status = ObserverInput::Status::BadLongitude;
        return in;
    }
    if (displayWest == "E") in.longitudeWest = 360.0 - in.longitudeWest;
    auto zone = [](const std::string& text) { return PlainNumber(text, kNaN); };
    in.timeZone = zone(tzText);
    if (!(in.timeZone >= -24.0 && in.timeZone <= 24.0)) {
        in.status = ObserverInput::Status::BadTimeZone;
        return in;
    }
    in.systemClockZone = zone(systemClockText);
    if (!(in.systemClockZone >= -24.0 && in.systemClockZone <= 24.0))
        in.status = ObserverInput::Status::BadSystemClockZone;
    return in;
}

} // namespace tarvelle
