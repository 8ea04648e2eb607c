// The event report, byte for byte: the header, the day blocks with every option, and whole
// reports over spans that cross a year, a month and a leap day. Expected texts are written out
// from the layout rules: cells of ten, CR LF line ends, one extra CR LF per write.
#include "prediction/event_report.h"

#include "core/date_value.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace tarvelle;

namespace {

std::string B(size_t n) {
    return std::string(n, ' ');
}

const std::string kRule = "_______________________________\r\n";

Core Observer() {
    Core c;
    c.ObsLatitude = 39.25f;
    c.ObsLongitude = 76.5f;
    c.ObLatText = "39:15:00";
    c.ObLngText = "76:30:00";
    return c;
}

// The grid of a day with three modes: two events, one event, none.
PredictionGrid ThreeModeGrid() {
    PredictionGrid g;
    g.Rows = 4;
    g.Cells[0] = {"", "Begin", " End", "Begin", "", "", ""};
    g.Cells[1] = {"Io-A", "01:00", "02:00", "23:00", "23:59", "", ""};
    g.Cells[2] = {"radio-B", "00:00", "00:30", "", "", "", ""};
    g.Cells[3] = {"Io-C", "NONE", "", "", "", "", ""};
    return g;
}

// Hour angles at the rows the times name, and different ones a row later, where the events
// really begin.
MinuteTables HourAngles() {
    MinuteTables t;
    t.MinuteJupHA.assign(1441, 7.7f);
    t.MinuteJupHA[60] = 1.5f;
    t.MinuteJupHA[120] = 2.5f;
    t.MinuteJupHA[1380] = -3.2f;
    t.MinuteJupHA[1439] = 11.96f;
    t.MinuteJupHA[0] = 0.0f;
    t.MinuteJupHA[30] = -0.5f;
    return t;
}

const std::string kRowA = "Io-A      01:00     02:00     23:00     23:59     " + B(20);
const std::string kRowC = "Io-C      NONE      \r\n" + B(50);
const std::string kHourAnglesA = " Hr Ang    01.5      02.5      -03.2     12.0      ";
const std::string kLeapDay = "< Year 2024   Month 2   Day 29 >\r\n\r\n";

std::string Block(ReportOptions o) {
    return ReportDayBlock(DateSerial(2024, 2, 29), ThreeModeGrid(), HourAngles(), o);
}

ModeTableState AllDayAndNever() {
    ModeTableState modes;
    modes.ModeName = {"", "Io-all", "Io-never"};
    modes.ModeTable[1] = {0, 0, 360, 0, 360};
    modes.ModeTable[2] = {0, 0, 360, 20, 10}; // an Io range backwards never matches
    modes.NumModes = 2;
    return modes;
}

// A day's block of the two modes; without the none row when NONE rows are left out.
std::string DayOfAllDayAndNever(int y, int m, int d, bool withNone = true) {
    return "< Year " + std::to_string(y) + "   Month " + std::to_string(m) + "   Day " + std::to_string(d) +
           " >\r\n\r\n" + B(10) + "Begin      End      " + B(40) + "\r\n" +
           "Io-all    00:00     23:59     " + B(40) + "\r\n" +
           (withNone ? "Io-never  NONE      \r\n" + B(50) + "\r\n" : "") + kRule + "\r\n";
}

ReportOptions Span(double start, double end) {
    ReportOptions o;
    o.ReportStart = start;
    o.ReportEnd = end;
    o.jupAltMinText = "-90";
    o.sunAltMaxText = "90";
    o.versionText = "3.8.2";
    return o;
}

std::string ReportOf(Core& c, const ReportOptions& o, ReportOutcome expected = ReportOutcome::Completed,
                     const std::function<bool(double)>& onDay = {}) {
    std::ostringstream out;
    const ReportExclusions open = ExclusionsFromTexts("-90", "90", "-48", "48"); // nothing taken out
    EXPECT_EQ(WriteEventReport(c, AllDayAndNever(), o, open, out, {onDay, {}, {}}), expected);
    return out.str();
}

} // namespace

// Typed texts reach the header without control bytes; one too long for it is refused, naming
// it, rather than cut or written whole. The header's date orders and minimum are compared byte
// for byte by tests/reference/compare_predict.py; east longitudes are not.
TEST(ReportHeader, TypedTextsAreCleanedOrRefusedAndEastIsNamed) {
    Core c = Observer();
    c.DisplayWest = "E";
    ReportOptions o = Span(DateSerial(2024, 2, 27), DateSerial(2024, 3, 1));
    o.jupAltMinText = "-9\x01" "0\r\n";
    EXPECT_EQ(ReportTextRefusal(c, o), "");
    EXPECT_NE(ReportHeaderText(c, o).find("below -90 deg.\r\n"), std::string::npos);
    EXPECT_NE(ReportHeaderText(c, o).find("Longitude 76:30:00 E     Latitude"), std::string::npos);
    o.jupAltMinText = std::string(kMaxReportHeaderText, '0');
    EXPECT_EQ(ReportTextRefusal(c, o), "");
    o.sunAltMaxText = std::string(100000, '0') + "5";
    EXPECT_EQ(ReportTextRefusal(c, o), "The Sun altitude limit text is too long for the report (100001 characters, at most 64).");
    c.ObLatText = std::string(65, ' ') + "39:15:00";
    EXPECT_NE(ReportTextRefusal(c, o).find("The latitude text"), std::string::npos);
}

TEST(ReportRows, CellsOfTenAndNoneEndsTheLine) {
    const PredictionGrid g = ThreeModeGrid();
    PredictionGrid longName = g;
    longName.Cells[1][0] = "non-Io-A-long"; // not cut
    EXPECT_EQ(ReportRowText(longName, 1).substr(0, 24), "non-Io-A-long 01:00     ");
    // A NONE cell gives ten blanks of hour angle.
    EXPECT_EQ(ReportHourAngleRow(g, 3, HourAngles()), " Hr Ang    " + B(10));
}

// Blocks with every option are compared byte for byte by tests/reference/compare_predict.py; its
// mode names never hold "io" without "Io".
TEST(ReportBlock, IoOnlyAndNoNone) {
    ReportOptions o;
    o.ReportIoOnly = true; // "radio-B" has "io" but not "Io"
    const std::string cutHeading = B(10) + "Begin     " + " End      ";
    EXPECT_EQ(Block(o), kLeapDay + cutHeading + "\r\n" + kRowA + "\r\n" + kRowC + "\r\n" + kRule);
    o.ReportNoNONE = true;
    o.ReportIncludeHA = true; // a row left out takes its hour angles with it
    EXPECT_EQ(Block(o),
              kLeapDay + cutHeading + "\r\n\r\n\r\n" + kRowA + "\r\n" + kHourAnglesA + "\r\n\r\n" + kRule);
}

TEST(ReportBlock, WrittenOnlyWithAnEventTime) {
    PredictionGrid none;
    none.Rows = 2;
    none.Cells[0] = {"", "Begin", "", "", "", "", ""};
    none.Cells[1] = {"Io-A", "NONE", "", "", "", "", ""};
    const double day = DateSerial(2025, 1, 5);
    EXPECT_EQ(ReportBlockBytes(ReportDayBlock(day, none, HourAngles(), ReportOptions{})), "");
    const std::string events = Block(ReportOptions{});
    EXPECT_EQ(ReportBlockBytes(events), events + "\r\n");

    int rows = 0;
    ReportDayBlock(DateSerial(2025, 1, 5), ThreeModeGrid(), HourAngles(), ReportOptions{},
                   [&rows] { ++rows; });
    EXPECT_EQ(rows, 4);
}

TEST(ReportFile, DefaultName) {
    EXPECT_EQ(DefaultReportFileName(DateSerial(2004, 3, 2)), "20040302JP.TXT");
}

TEST(WholeReport, AcrossALeapDayWithoutHeaderOrNone) {
    Core c = Observer();
    ReportOptions o = Span(DateSerial(2024, 2, 28), DateSerial(2024, 3, 1));
    o.ReportHeader = false;
    o.ReportNoNONE = true;
    o.ReportMinDuration = 1439.0f; // the whole-day event lasts 1439 minutes by the filter's count
    EXPECT_EQ(ReportOf(c, o), DayOfAllDayAndNever(2024, 2, 28, false) + DayOfAllDayAndNever(2024, 2, 29, false) +
                                  DayOfAllDayAndNever(2024, 3, 1, false) + "End of Report\r\n\r\n");

    // One minute more and the events go, leaving only minute 1440, which the grid shows as
    // none: no day keeps a time, so no block is written.
    o.ReportMinDuration = 1440.0f;
    EXPECT_EQ(ReportOf(c, o), "End of Report\r\n\r\n");
    o.ReportNoNONE = false;
    EXPECT_EQ(ReportOf(c, o), "End of Report\r\n\r\n");
}

// Whole reports with a header across a year end are compared byte for byte by
// tests/reference/compare_predict.py; this one is cancelled, and leaves the clock as it was.
TEST(WholeReport, CancelledBetweenDays) {
    Core c = Observer();
    c.CurrentUT = DateSerial(2020, 1, 1) + 0.25;
    ReportOptions o = Span(DateSerial(2024, 12, 30), DateSerial(2025, 1, 3));
    o.ReportHeader = false;
    std::vector<double> asked;
    const std::string text = ReportOf(c, o, ReportOutcome::Cancelled, [&asked](double day) {
        asked.push_back(day);
        return asked.size() < 3;
    });
    EXPECT_EQ(asked, (std::vector<double>{DateSerial(2024, 12, 30), DateSerial(2024, 12, 31),
                                          DateSerial(2025, 1, 1)}));
    EXPECT_EQ(text, DayOfAllDayAndNever(2024, 12, 30) + DayOfAllDayAndNever(2024, 12, 31));
    EXPECT_EQ(c.CurrentUT, DateSerial(2020, 1, 1) + 0.25);
}
