#include "prediction/storm_windows.h"

#include "core/date_value.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace tarvelle {

namespace {

constexpr const char* kCrLf = "\r\n";
constexpr size_t kFoldOctets = 75;

// Minutes of a grid time "hh:mm", or -1 for any other text.
int MinutesOf(const std::string& cell) {
    if (cell.size() != 5 || cell[2] != ':') return -1;
    for (size_t i : {0u, 1u, 3u, 4u})
        if (cell[i] < '0' || cell[i] > '9') return -1;
    return ((cell[0] - '0') * 10 + (cell[1] - '0')) * 60 + (cell[3] - '0') * 10 + (cell[4] - '0');
}

std::string TwoDigits(int v) {
    char b[4];
    std::snprintf(b, sizeof b, "%02d", v);
    return b;
}

// Mode names are bytes of a Latin-1 file; calendars and JSON want UTF-8.
std::string Latin1ToUtf8(const std::string& bytes) {
    std::string text;
    for (unsigned char c : bytes) {
        if (c < 0x80) {
            text += static_cast<char>(c);
        } else {
            text += static_cast<char>(0xC0 | (c >> 6));
            text += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return text;
}

std::string JsonString(const std::string& latin1) {
    std::string text = "\"";
    for (char c : Latin1ToUtf8(latin1)) {
        if (c == '"' || c == '\\') {
            text += '\\';
            text += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            char b[8];
            std::snprintf(b, sizeof b, "\\u%04x", static_cast<unsigned>(c));
            text += b;
        } else {
            text += c;
        }
    }
    return text + "\"";
}

// The shortest text that reads back as the same value.
template <typename T>
std::string JsonNumber(T v) {
    char b[40];
    const auto r = std::to_chars(b, b + sizeof b, v);
    return std::string(b, r.ptr);
}

// A TEXT value of a content line, with its specials escaped.
std::string CalendarTextValue(const std::string& utf8) {
    std::string text;
    for (char c : utf8) {
        if (c == '\\' || c == ';' || c == ',') text += '\\';
        if (c == '\n') {
            text += "\\n";
            continue;
        }
        text += c;
    }
    return text;
}

std::string Compact(double day, int minutes) {
    const CalendarFields f = FieldsOf(day);
    return std::to_string(f.year) + TwoDigits(f.month) + TwoDigits(f.day) + "T" + TwoDigits(minutes / 60) +
           TwoDigits(minutes % 60) + "00Z";
}

std::string HhMm(int minutes) {
    return TwoDigits(minutes / 60) + ":" + TwoDigits(minutes % 60);
}

// The table row of a grid time: the grid counts row m as the time m - 1.
size_t RowOf(int minutes) {
    return static_cast<size_t>(std::min(minutes + 1, kMinutesPerDay));
}

// A stable 64-bit digest (FNV-1a) for the UIDs.
uint64_t Digest(const std::string& text) {
    uint64_t h = 14695981039346656037ull;
    for (unsigned char c : text) {
        h ^= c;
        h *= 1099511628211ull;
    }
    return h;
}

std::string Description(const CalendarEvent& c) {
    auto at = [](const char* what, int minutes, int cml, int io, int alt) {
        return std::string(what) + " " + HhMm(minutes) + " GMT: CML III " + std::to_string(cml) + " deg, Io phase " +
               std::to_string(io) + " deg, Jupiter altitude " + std::to_string(alt) + " deg.";
    };
    return at("Begin", c.event.begin, c.cmlBegin, c.ioBegin, c.altBegin) + "\n" +
           at("End", c.event.end, c.cmlEnd, c.ioEnd, c.altEnd);
}

} // namespace

std::vector<StormEvent> GridEvents(const PredictionGrid& grid, double day) {
    std::vector<StormEvent> events;
    for (int r = 1; r < grid.Rows; ++r) {
        for (int c = 1; c + 1 < kGridColumns; c += 2) {
            const int begin = MinutesOf(grid.Text(r, c));
            const int end = MinutesOf(grid.Text(r, c + 1));
            if (begin < 0 || end < 0) break;
            events.push_back({r, grid.Text(r, 0), std::floor(day), begin, end});
        }
    }
    return events;
}

std::string IsoMinute(double day, int minutes) {
    const CalendarFields f = FieldsOf(std::floor(day));
    return std::to_string(f.year) + "-" + TwoDigits(f.month) + "-" + TwoDigits(f.day) + "T" + HhMm(minutes) + "Z";
}

std::string PredictionJson(const Core& core, double date, const ReportExclusions& ex,
                           const std::vector<StormEvent>& events) {
    const CalendarFields f = FieldsOf(std::floor(date));
    std::string json = "{\"date\": \"" + std::to_string(f.year) + "-" + TwoDigits(f.month) + "-" + TwoDigits(f.day) +
                       "\", \"latitude\": " + JsonNumber(core.ObsLatitude) +
                       ", \"longitude_west\": " + JsonNumber(core.ObsLongitude) +
                       ", \"exclusions\": {\"jupiter_altitude_min\": " + JsonNumber(ex.ReportJupAltMin) +
                       ", \"sun_altitude_max\": " + JsonNumber(ex.ReportSunAltMax) +
                       ", \"hour_angle_min\": " + JsonNumber(ex.MinHA) + ", \"hour_angle_max\": " +
                       JsonNumber(ex.MaxHA) + "}, \"events\": [";
    for (size_t i = 0; i < events.size(); ++i) {
        const StormEvent& e = events[i];
        json += std::string(i ? ", " : "") + "{\"mode\": " + JsonString(e.name) + ", \"begin\": \"" +
                IsoMinute(e.day, e.begin) + "\", \"end\": \"" + IsoMinute(e.day, e.end) + "\"}";
    }
    return json + "]}\n";
}

std::vector<CalendarEvent> ReportCalendarEvents(const PredictionGrid& grid, const MinuteTables& tables,
                                                const ReportOptions& options, double day) {
    std::vector<CalendarEvent> events;
    for (const StormEvent& e : GridEvents(grid, day)) {
        if (options.ReportIoOnly && ReportRowText(grid, e.mode).find("Io") == std::string::npos) continue;
        const size_t b = RowOf(e.begin), n = RowOf(e.end);
        events.push_back({e, tables.MinuteCML[b], tables.MinuteIo[b], tables.MinuteJupAlt[b], tables.MinuteCML[n],
                          tables.MinuteIo[n], tables.MinuteJupAlt[n]});
    }
    return events;
}

std::string FoldContentLine(const std::string& line) {
    std::string folded;
    size_t width = 0; // octets on the current physical line
    for (size_t i = 0; i < line.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(line[i]);
        size_t length = 1; // octets of the character starting here
        if (c >= 0xF0) length = 4;
        else if (c >= 0xE0) length = 3;
        else if (c >= 0xC0) length = 2;
        if (width + length > kFoldOctets) {
            folded += kCrLf;
            folded += ' ';
            width = 1;
        }
        folded.append(line, i, length);
        width += length;
        i += length - 1;
    }
    return folded + kCrLf;
}

std::string CalendarText(const std::vector<CalendarEvent>& events, const std::string& versionText, double dtstamp,
                         const std::string& observer) {
    const CalendarFields s = FieldsOf(dtstamp);
    const std::string stamp = Compact(std::floor(dtstamp), s.hour * 60 + s.minute).substr(0, 13) +
                              TwoDigits(s.second) + "Z";
    std::string text;
    auto line = [&](const std::string& l) { text += FoldContentLine(l); };
    line("BEGIN:VCALENDAR");
    line("VERSION:2.0");
    line("PRODID:-//Tarvelle//Tarvelle " + versionText + "//EN");
    line("CALSCALE:GREGORIAN");
    for (const CalendarEvent& c : events) {
        const StormEvent& e = c.event;
        char digest[20];
        std::snprintf(digest, sizeof digest, "%016llx",
                      static_cast<unsigned long long>(Digest(e.name + "\n" + observer)));
        line("BEGIN:VEVENT");
        line("UID:" + Compact(e.day, e.begin) + "-" + std::to_string(e.mode) + "-" + digest + "@tarvelle");
        line("DTSTAMP:" + stamp);
        line("DTSTART:" + Compact(e.day, e.begin));
        line("DTEND:" + Compact(e.day, e.end));
        line("SUMMARY:" + CalendarTextValue("Jupiter " + Latin1ToUtf8(e.name) + " storm possible"));
        line("DESCRIPTION:" + CalendarTextValue(Description(c)));
        line("END:VEVENT");
    }
    line("END:VCALENDAR");
    return text;
}

ReportOutcome WriteCalendarReport(Core& core, const ModeTableState& modes, const ReportOptions& options,
                                  const ReportExclusions& exclusions, double dtstamp, std::ostream& out,
                                  const ReportHooks& hooks, const ReportWork* work) {
    std::vector<CalendarEvent> events;
    const ReportOutcome outcome = ForEachReportDay(
        core, modes, options, exclusions, hooks, work,
        [&](double day, const PredictionGrid& grid, const MinuteTables& tables) {
            const std::vector<CalendarEvent> more = ReportCalendarEvents(grid, tables, options, day);
            events.insert(events.end(), more.begin(), more.end());
            if (hooks.afterRow)
                for (int r = 0; r < grid.Rows; ++r) hooks.afterRow();
        });
    out << CalendarText(events, options.versionText, dtstamp, core.ObLatText + " " + core.ObLngText);
    return outcome;
}

} // namespace tarvelle
