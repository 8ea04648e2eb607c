// tarvelle-cli: its output format and its refusals.
#include "cli_commands.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <fstream>
#include <sstream>

using namespace tarvelle;

namespace {

struct Result {
    int status;
    std::string out, err;
};

Result RunArgs(std::vector<std::string> args) {
    std::ostringstream out, err;
    const int status = RunCli(args, out, err);
    return {status, out.str(), err.str()};
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

} // namespace

TEST(CliPositions, NamesInOrderWithRoundTripNumbers) {
    const Result r =
        RunArgs({"positions", "--ut", "2000-01-01 12:00:00", "--lat", "0", "--lng", "0", "--tz", "0"});
    ASSERT_EQ(r.status, 0) << r.err;
    const auto lines = Lines(r.out);
    const char* names[] = {"DayNumber", "JD0",        "LST",        "LST0",    "SunRA",
                           "SunDec",    "SunRAText",  "SunDecText", "JupRA",   "JupDec",
                           "JupRAText", "JupDecText", "JupDist",    "CMLIII",  "IoPhase",
                           "De",        "MagLat",     "JupAlt",     "JupAz",   "SunAlt",
                           "SunAz",     "JupRise",    "JupSet",     "SunRise", "SunSet"};
    ASSERT_EQ(lines.size(), std::size(names));
    for (size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(lines[i].rfind(std::string(names[i]) + " = ", 0), 0u) << lines[i];
    EXPECT_EQ(lines[0], "DayNumber = 36524");
    EXPECT_EQ(lines[1], "JD0 = 2451544.5");
}

TEST(CliPositions, ObserverFromAFile) {
    QTemporaryDir dir;
    const std::string path = dir.filePath("east.obs").toStdString();
    std::ofstream(path) << "\"-33:52:00\"\n\"-151:12:00\"\n\"10\"\n";
    const Result byFile = RunArgs({"positions", "--ut", "2026-01-01 00:00:00", "--observer", path});
    const Result byText =
        RunArgs({"positions", "--ut", "2026-01-01 00:00:00", "--lat", "-33:52:00", "--lng", "-151:12:00"});
    ASSERT_EQ(byFile.status, 0) << byFile.err;
    EXPECT_EQ(byFile.out, byText.out);
}

TEST(CliDayTables, HeaderAndEighteenHundredAndOneRows) {
    const Result r = RunArgs({"daytables", "--date", "2024-02-29", "--lat", "51:28:40", "--lng", "0:00:05"});
    ASSERT_EQ(r.status, 0) << r.err;
    const auto lines = Lines(r.out);
    ASSERT_EQ(lines.size(), 1802u);
    EXPECT_EQ(lines[0],
              "index,DayMinuteTime,DayLST,DayJupAlt,DayJupAz,DaySunAlt,DaySunAz,DayJupHA,DaySunHA,DayCML,"
              "DayIoPhase");
    EXPECT_EQ(lines[1].rfind("0,45351,", 0), 0u); // 2024-02-29 is day 45351
    EXPECT_EQ(lines[1801].rfind("1800,", 0), 0u);
}

TEST(Cli, BadArgumentsExitTwoWithOneLine) {
    for (const auto& args : std::vector<std::vector<std::string>>{
             {},
             {"orbit"},
             {"positions", "--ut", "2026-02-30 00:00:00", "--lat", "0", "--lng", "0"},
             {"positions", "--ut", "2026-02-01", "--lat", "0", "--lng", "0"},
             {"positions", "--ut", "2026-02-01 00:00:00", "--lat", "95:00:00", "--lng", "0"},
             {"positions", "--ut", "2026-02-01 00:00:00", "--lat", "0"},
             {"daytables", "--date", "2026-02-01", "--observer", "/nonexistent/x.obs"},
             {"daytables", "--date"},
             {"daytables", "--date", "2026-02-01", "--color", "red"},
         }) {
        const Result r = RunArgs(args);
        EXPECT_EQ(r.status, 2);
        EXPECT_TRUE(r.out.empty());
        EXPECT_FALSE(r.err.empty());
    }
}
