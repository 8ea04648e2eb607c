#include "prediction/event_report.h"

#include "core/date_value.h"
#include "core/numeric.h"
#include "core/text_forms.h"

#include <memory>

namespace tarvelle {

namespace {

// A typed text as a report line may hold it: no control bytes.
std::string Printable(const std::string& text) {
    std::string out;
    for (const char c : text)
        if (static_cast<unsigned char>(c) >= 32 && c != 127) out += c;
    return out;
}

constexpr const char* kCrLf = "\r\n";
constexpr size_t kCellWidth = 10;
constexpr size_t kIoOnlyWidth = 30; // the heading of one begin/end pair

void PadTo(std::string& text, size_t width) {
    if (text.size() < width) text.append(width - text.size(), ' ');
}

bool Holds(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

// The write of one line: the text and its CR LF.
std::string Line(const std::string& text) {
    return text + kCrLf;
}

} // namespace

std::string ReportTextRefusal(const Core& core, const ReportOptions& o) {
    const std::pair<const char*, const std::string*> texts[] = {{"longitude", &core.ObLngText},
                                                                {"latitude", &core.ObLatText},
                                                                {"Jupiter altitude limit", &o.jupAltMinText},
                                                                {"Sun altitude limit", &o.sunAltMaxText}};
    for (const auto& [name, text] : texts)
        if (text->size() > kMaxReportHeaderText)
            return std::string("The ") + name + " text is too long for the report (" + std::to_string(text->size()) +
                   " characters, at most " + std::to_string(kMaxReportHeaderText) + ").";
    return {};
}

std::string ReportHeaderText(Core& core, const ReportOptions& o) {
    const std::string start = core.FormatDateByChoice(o.ReportStart);
    const std::string end = core.FormatDateByChoice(o.ReportEnd);
    std::string heading;
    for (char c : core.DateHeading) heading += c == '/' ? std::string("  ") : std::string(1, c);
    std::string text;
    text += Line(std::string("JUPITER EVENT PREDICTIONS") + kCrLf);
    text += Line("Report Period  (GMT) " + start + "  to  " + end + "    ( " + heading + " )");
    text += Line("Reference Coordinates:  Longitude " + Printable(core.ObLngText) + " " + core.DisplayWest +
                 "     Latitude " + Printable(core.ObLatText));
    text += Line("Exclude times when Jupiter is below " + Printable(o.jupAltMinText) + " deg.");
    text += Line("Exclude times when Sun is above " + Printable(o.sunAltMaxText) + " deg.");
    text += Line("Include only events that last at least " + StrForm(o.ReportMinDuration) + " minutes.");
    text += Line("Tarvelle Software Version " + o.versionText + kCrLf);
    return text;
}

std::string ReportRowText(const PredictionGrid& grid, int row) {
    std::string text;
    for (int c = 0; c < kGridColumns; ++c) {
        std::string cell = grid.Text(row, c) + " ";
        PadTo(cell, kCellWidth);
        if (grid.Text(row, c) == "NONE") cell += kCrLf;
        text += cell;
    }
    return text;
}

std::string ReportHourAngleRow(const PredictionGrid& grid, int row, const MinuteTables& tables) {
    std::string text;
    for (int c = 0; c < kGridColumns; ++c) {
        const std::string& cell = grid.Text(row, c);
        if (cell.empty()) continue;
        if (c == 0) {
            text += " Hr Ang    ";
        } else if (cell == "NONE") {
            text += std::string(kCellWidth, ' ');
        } else if (cell.size() >= 5 && cell[2] == ':') {
            const int hh = static_cast<int>(ValueOfText(cell.substr(0, 2)));
            const int mm = static_cast<int>(ValueOfText(cell.substr(3, 2)));
            const size_t m = static_cast<size_t>(hh * 60 + mm);
            const float ha = m < tables.MinuteJupHA.size() ? tables.MinuteJupHA[m] : 0.0f;
            std::string value = FormatNumberMask(static_cast<double>(ha), "00.0");
            PadTo(value, kCellWidth);
            text += value;
        }
    }
    return text;
}

std::string ReportDayBlock(double predictDate, const PredictionGrid& grid, const MinuteTables& tables,
                           const ReportOptions& o, const std::function<void()>& afterRow) {
    const CalendarFields f = FieldsOf(predictDate);
    std::string block = "< Year " + std::to_string(f.year) + "   Month " + std::to_string(f.month) +
                        "   Day " + std::to_string(f.day) + " >" + kCrLf + kCrLf;
    for (int r = 0; r < grid.Rows; ++r) {
        std::string text = ReportRowText(grid, r);
        const std::string hourAngles = o.ReportIncludeHA && r > 0 ? ReportHourAngleRow(grid, r, tables) : "";
        if (o.ReportIoOnly && Holds(text, "Begin")) text = text.substr(0, kIoOnlyWidth);
        const bool ioLeftOut =
            o.ReportIoOnly && !Holds(text, "Io") && !Holds(text, "Begin") && !Holds(text, "Month");
        const bool noneLeftOut = Holds(text, "NONE") && o.ReportNoNONE;
        if (!ioLeftOut && !noneLeftOut) {
            block += text + kCrLf;
            if (!Holds(text, "NONE") && o.ReportIncludeHA) block += hourAngles + kCrLf + kCrLf;
        }
        if (afterRow) afterRow();
    }
    block += std::string("_______________________________") + kCrLf;
    return block;
}

std::string CheckReportSpan(const ReportSpanNumbers& n, double& start, double& end) {
    const struct {
        double value, low, high;
        const char* message;
    } checks[] = {
        {n.startYear, 1900, 3000, "Invalid Start Year"}, {n.endYear, 1900, 3000, "Invalid End Year"},
        {n.endMonth, 1, 12, "Invalid End Month"},        {n.startMonth, 1, 12, "Invalid Start Month"},
        {n.endDay, 1, 31, "Invalid End Day"},            {n.startDay, 1, 31, "Invalid Start Day"},
    };
    for (const auto& c : checks)
        if (c.value > c.high || c.value < c.low) return c.message;
    auto date = [](double y, double m, double d) {
        return DateSerial(static_cast<int>(RoundHalfEven(y)), static_cast<int>(RoundHalfEven(m)),
                          static_cast<int>(RoundHalfEven(d)));
    };
    const double first = date(n.startYear, n.startMonth, n.startDay);
    const double last = date(n.endYear, n.endMonth, n.endDay);
    if (first > last) return kReportSpanReversed;
    start = first;
    end = last;
    return {};
}

std::string ReportBlockBytes(const std::string& block) {
    return Holds(block, ":") ? Line(block) : std::string();
}

std::string ReportEndText() {
    return Line(std::string("End of Report") + kCrLf);
}

std::string DefaultReportFileName(double reportStart) {
    return FormatDateMask(reportStart, "yyyymmdd") + "JP.TXT";
}

ReportOutcome ForEachReportDay(Core& core, const ModeTableState& modes, const ReportOptions& options,
                               const ReportExclusions& exclusions, const ReportHooks& hooks, const ReportWork* work,
                               const ReportDayFunction& onDay) {
    ReportExclusions ex = exclusions;
    ex.ReportInProgress = true;
    ex.ReportMinDuration = options.ReportMinDuration;

    MinuteTables ownTables;
    std::unique_ptr<ActivityTable> ownActivity;
    PredictionGrid ownGrid;
    if (!work) ownActivity = std::make_unique<ActivityTable>();
    MinuteTables& tables = work ? work->tables : ownTables;
    ActivityTable& activity = work ? work->activity : *ownActivity;
    PredictionGrid& grid = work ? work->grid : ownGrid;
    double day = options.ReportStart;
    do {
        if (hooks.beforeDay && !hooks.beforeDay(day)) return ReportOutcome::Cancelled;
        PredictDay(core, modes, ex, tables, activity, grid, day);
        if (hooks.afterPrediction) hooks.afterPrediction();
        onDay(day, grid, tables);
        day += 1.0;
    } while (!(day > options.ReportEnd));
    return ReportOutcome::Completed;
}

ReportOutcome WriteEventReport(Core& core, const ModeTableState& modes, const ReportOptions& options,
                               const ReportExclusions& exclusions, std::ostream& out,
                               const ReportHooks& hooks, const ReportWork* work) {
    if (options.ReportHeader) out << ReportHeaderText(core, options);
    const ReportOutcome outcome = ForEachReportDay(
        core, modes, options, exclusions, hooks, work,
        [&](double day, const PredictionGrid& grid, const MinuteTables& tables) {
            out << ReportBlockBytes(ReportDayBlock(day, grid, tables, options, hooks.afterRow));
        });
    if (outcome == ReportOutcome::Completed) out << ReportEndText();
    return outcome;
}

} // namespace tarvelle
