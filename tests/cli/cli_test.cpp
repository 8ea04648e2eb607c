// tarvelle-cli: its output format and its refusals.
#include "cli/cli_commands.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdlib>
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

// Status 2, nothing on standard output, and a message (of one line when oneLine) on standard error.
void ExpectRefused(const Result& r, bool oneLine, const std::string& what) {
    EXPECT_EQ(r.status, 2) << what;
    EXPECT_TRUE(r.out.empty()) << what;
    EXPECT_FALSE(r.err.empty()) << what;
    if (oneLine) { EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err; }
}

} // namespace

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

namespace {

// A mode file of three modes (the grid rows themselves are compared with the writer in
// tests/reference/compare_predict.py).
class CliPrediction : public ::testing::Test {
protected:
    void SetUp() override {
        modes = dir.filePath("modes.jmf").toStdString();
        std::ofstream(modes, std::ios::binary) << "Io-all\r\n 0 \r\n 360 \r\n 0 \r\n 360 \r\n"
                                                  "never\r\n 0 \r\n 360 \r\n 20 \r\n 10 \r\n"
                                                  "Io-B\r\n 105 \r\n 185 \r\n 0 \r\n 360 \r\n";
    }
    Result With(std::vector<std::string> args) const {
        for (const auto& a : {"--modes", modes.c_str(), "--lat", "39:15:00", "--lng", "76:30:00"}) args.push_back(a);
        return RunArgs(args);
    }
    QTemporaryDir dir;
    std::string modes;
};

} // namespace

// The report's bytes are compared with the writer in tests/reference/compare_predict.py; here the
// file is written where asked and nothing is printed, and every refusal writes nothing.
TEST_F(CliPrediction, ReportGoesToItsFileAndRefusalsExitTwo) {
    const std::string out = dir.filePath("r.txt").toStdString();
    const Result r = With({"report", "--from", "2024-02-28", "--to", "2024-03-01", "--out", out, "--no-none"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_TRUE(r.out.empty());
    ASSERT_TRUE(QFile::remove(QString::fromStdString(out)));
    for (const auto& args : std::vector<std::vector<std::string>>{
             {"predict"}, {"predict", "--date", "1899-12-31"}, {"predict", "--date", "2026-01-01", "--modes-file", "m"},
             {"report", "--from", "2026-01-02", "--to", "2026-01-01", "--out", out},
             {"report", "--from", "1899-12-31", "--to", "2026-01-01", "--out", out},
             {"report", "--from", "2026-01-01", "--to", "3001-01-01", "--out", out},
             {"report", "--from", "2026-01-01", "--to", "2026-01-02"},
             {"report", "--from", "2026-01-01", "--to", "2026-01-02", "--out", out, "--date-format", "3"},
             {"report", "--from", "2026-01-01", "--to", "2026-01-02", "--out", "/nonexistent/dir/r.txt"},
         })
        ExpectRefused(With(args), true, args[0] + " " + (args.size() > 2 ? args[2] : ""));
    const Result missing = RunArgs(
        {"predict", "--date", "2026-01-01", "--modes", "/nonexistent/m.jmf", "--lat", "0", "--lng", "0"});
    EXPECT_EQ(missing.status, 2);
    EXPECT_NE(missing.err.find("/nonexistent/m.jmf"), std::string::npos);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(out)));
}

// The value at the nearest whole degrees; --dump is the whole table, 361 by 361.
TEST(CliProbability, ValueAtWholeDegreesAndTheDump) {
    const struct { const char *io, *cml, *expected; } cases[] = {
        {"90", "136", "100\n"}, {"90.4", "135.6", "100\n"}, {"240", "240", "78\n"}, {"12", "359", "0\n"},
        {"0", "200", "0\n"}};
    for (const auto& c : cases) {
        const Result r = RunArgs({"probability", "--io", c.io, "--cml", c.cml});
        EXPECT_EQ(r.status, 0) << r.err;
        EXPECT_EQ(r.out, c.expected) << c.io << " " << c.cml;
    }
    const Result r = RunArgs({"probability", "--dump"});
    ASSERT_EQ(r.status, 0) << r.err;
    const auto lines = Lines(r.out);
    ASSERT_EQ(lines.size(), 361u);
    for (const auto& line : lines) ASSERT_EQ(std::count(line.begin(), line.end(), ','), 360) << line.substr(0, 40);
}

// What ./run prints without a display: the readout of the instant asked for, whichever way the
// options are written (the readout's texts are checked in tests/station/readout_test.cpp).
TEST(CliReadout, TheInstantAskedForInEitherOptionForm) {
    const Result spaced = RunArgs({"readout", "--ut", "2024-03-05 12:00:00", "--lat", "39:15:00", "--lng",
                                   "-75:00:00", "--tz", "-5"});
    const Result joined =
        RunArgs({"readout", "--lng=-75:00:00", "--tz=-5", "--ut=2024-03-05 12:00:00", "--lat=39:15:00"});
    ASSERT_EQ(spaced.status, 0) << spaced.err;
    EXPECT_EQ(joined.out, spaced.out);
    const std::vector<std::string> lines = Lines(spaced.out);
    ASSERT_GE(lines.size(), 8u);
    EXPECT_EQ(lines[0].substr(0, 23), "GMT 2024-03-05 12:00:00");
    EXPECT_EQ(lines[2], "Long: 285:00:00.0 W");
    EXPECT_EQ(RunArgs({"readout", "--ut=2024-03-05"}).status, 2);
    EXPECT_EQ(RunArgs({"readout", "--tables=1"}).status, 2);
}

// Bad input exits 2 with a message, never a hang or a silent 0; where an option is at fault the
// message names it, in either form; probability's message is one line.
TEST(CliRefusals, ExitTwoNamingTheOptionInBothForms) {
    const struct { std::vector<std::string> args; std::string named; } cases[] = {
        {{}, ""}, {{"orbit"}, ""},
        {{"positions", "--ut", "2026-02-30 00:00:00", "--lat", "0", "--lng", "0"}, ""},
        {{"positions", "--ut", "2026-02-01", "--lat", "0", "--lng", "0"}, ""},
        {{"positions", "--ut", "2026-02-01 00:00:00", "--lat", "95:00:00", "--lng", "0"}, ""},
        {{"positions", "--ut", "2026-02-01 00:00:00", "--lat", "0"}, ""},
        {{"daytables", "--date", "2026-02-01", "--observer", "/nonexistent/x.obs"}, ""}, {{"daytables", "--date"}, ""},
        {{"daytables", "--date", "2026-02-01", "--color", "red"}, ""},
        {{"probability"}, ""}, {{"probability", "--io", "90"}, ""}, {{"probability", "--io", "361", "--cml", "10"}, ""},
        {{"probability", "--io", "10", "--cml", "-1"}, ""}, {{"probability", "--io", "ten", "--cml", "10"}, ""},
        {{"probability", "--io", "10", "--cml", "10x"}, ""}, {{"probability", "--dump", "--io", "10"}, ""},
        {{"probability", "--io", "10", "--cml", "10", "--lat", "0"}, ""},
        {{"positions", "--ut=2024-03-05 12:00:00", "--lat=abc", "--lng=10"}, "--lat"},
        {{"positions", "--ut", "2024-03-05 12:00:00", "--lat", "10", "--lng", "1e12"}, "--lng"},
        {{"positions", "--ut=2024-03-05 12:00:00", "--lat=10", "--lng=10", "--tz=nan"}, "--tz"},
        {{"positions", "--ut=100000000-01-01 00:00:00", "--lat=10", "--lng=10"}, "--ut"},
        {{"predict", "--date=2024-03-05", "--lat=10", "--lng=10", "--jup-alt-min="}, "--jup-alt-min"},
        {{"predict", "--date=2024-03-05", "--lat=10", "--lng=10", "--sun-alt-max", "1e309"}, "--sun-alt-max"},
        {{"predict", "--date=2024-03-05", "--lat=10", "--lng=10", "--min-ha=\x01" "5"}, "--min-ha"},
        {{"predict", "--date=2024-03-05", "--lat=10", "--lng=10", "--max-ha=" + std::string(100000, '9')}, "--max-ha"},
    };
    for (const auto& c : cases) {
        const Result r = RunArgs(c.args);
        ExpectRefused(r, !c.args.empty() && c.args[0] == "probability", std::to_string(c.args.size()) + c.named);
        EXPECT_NE(r.err.find(c.named), std::string::npos) << r.err;
    }
}

TEST(CliModes, MoreThanSixModesAreNamedOnStandardError) {
    QTemporaryDir dir;
    const std::string path = dir.filePath("eight.jmf").toStdString();
    std::ofstream file(path, std::ios::binary);
    for (int i = 1; i <= 8; ++i) file << 'M' << i << "\r\n " << i << " \r\n 2 \r\n 3 \r\n 4 \r\n";
    file.close();
    const Result r = RunArgs({"predict", "--date=2024-03-05", "--lat=10", "--lng=10", "--modes", path});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.err.find("leaving out \"M7\", \"M8\""), std::string::npos) << r.err;
}
