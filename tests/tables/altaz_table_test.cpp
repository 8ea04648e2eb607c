// The Alt/Az table file: its 18-byte records, the whole-day test, appending, and the text table.
#include "tables/altaz_table.h"

#include "core/date_value.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

using namespace tarvelle;

namespace {

class AltAzTable : public ::testing::Test {
protected:
    void SetUp() override {
        path_ = ::testing::TempDir() + "altaz-" + std::to_string(::getpid()) + "-" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name();
        std::filesystem::remove(path_);
        core_.ObsLatitude = 40.0f;
        core_.ObsLongitude = 75.0f;
        core_.CurrentUT = 45000.3;
        core_.LST = 7.5f;
    }
    void TearDown() override { std::filesystem::remove(path_); }
    std::string Contents() const {
        std::ifstream f(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(f), {}};
    }
    std::string path_;
    Core core_;
};

// Whole days from start to end, one record a step (the records' bytes, the appending and the
// spans are compared with tests/reference/compare_tables.py); the core is left as it was found,
// and the progress text of each moment is its record, padded to 16 bytes and ended by CR LF.
TEST_F(AltAzTable, RecordsAreTheProgressTextsAndTheCoreIsLeftAsFound) {
    std::vector<std::string> progress;
    const AltAzTableResult r = WriteAltAzTable(core_, {"2024", "5", "10", "2024", "5", "10", "7"}, path_,
                                               [&](const std::string& t) { progress.push_back(t); });
    EXPECT_TRUE(r.message.empty() && r.written);
    ASSERT_EQ(r.records, 206);
    ASSERT_EQ(progress.size(), 206u);
    EXPECT_TRUE(core_.CurrentUT == 45000.3 && core_.LST == 7.5f);
    const std::string data = Contents();
    ASSERT_EQ(data.size(), 206u * kAltAzRecordBytes);
    for (size_t k = 0; k < progress.size(); ++k) {
        std::string padded = progress[k];
        padded.resize(16, ' ');
        EXPECT_EQ(data.substr(k * kAltAzRecordBytes, kAltAzRecordBytes), padded + "\r\n") << k;
    }
}

// A step of nothing, or a date beyond the years a date may have, is refused before the file
// is touched (a year of 1e12 once overflowed the date arithmetic).
TEST_F(AltAzTable, ABadStepOrDateIsRefusedAndWritesNothing) {
    const AltAzTableInput bad[] = {
        {"2024", "1", "1", "2024", "1", "1", "0"},      {"2024", "1", "1", "2024", "1", "1", "abc"},
        {"2024", "1", "1", "2024", "1", "1", "-10"},    {"2024", "1", "1", "10000", "1", "1", "60"},
        {"1e12", "1", "1", "2024", "1", "1", "60"},     {"2024", "1", "1", "9999", "12", "32", "60"},
    };
    for (const AltAzTableInput& in : bad) {
        const AltAzTableResult r = WriteAltAzTable(core_, in, path_);
        EXPECT_FALSE(r.message.empty()) << in.startYear << " " << in.endYear << " " << in.stepMinutes;
        EXPECT_FALSE(std::filesystem::exists(path_));
    }
}

// The text table (not run by tests/reference) is written anew each time: a heading and a row a
// step, lined up, with the columns chosen.
TEST_F(AltAzTable, TextTableColumnsFollowTheChoices) {
    const struct { bool date, time; AltAzBodies bodies; size_t fields; } cases[] = {
        {true, true, AltAzBodies::Both, 6}, {false, true, AltAzBodies::Jupiter, 3},
        {true, false, AltAzBodies::Sun, 3}, {false, false, AltAzBodies::Both, 4}};
    for (const auto& c : cases) {
        AltAzTableInput in{"2024", "2", "29", "2024", "3", "1", "360"};
        in.randomAccess = false;
        in.includeDate = c.date;
        in.includeTime = c.time;
        in.bodies = c.bodies;
        WriteAltAzTable(core_, in, path_);
        WriteAltAzTable(core_, in, path_);
        std::istringstream lines(Contents());
        std::vector<std::string> rows;
        for (std::string line; std::getline(lines, line);) rows.push_back(line);
        ASSERT_EQ(rows.size(), 9u);
        for (size_t k = 1; k < rows.size(); ++k) {
            std::istringstream fields(rows[k]);
            EXPECT_EQ(rows[k].size(), rows[0].size()) << rows[k];
            EXPECT_EQ(std::distance(std::istream_iterator<std::string>(fields), {}), static_cast<long>(c.fields)) << rows[k];
        }
        if (c.date) { EXPECT_EQ(rows[5].substr(0, 10), "2024-03-01"); }
    }
}

} // namespace
