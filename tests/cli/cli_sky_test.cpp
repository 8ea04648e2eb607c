// tarvelle-cli antenna and horizon: the files as the sky map reads them, line by line.
#include "cli/cli_commands.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <fstream>
#include <sstream>

using namespace tarvelle;

namespace {

class CliSkyTest : public ::testing::Test {
protected:
    std::string Write(const std::string& name, const std::string& content) {
        const std::string path = (dir.path() + "/").toStdString() + name;
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }
    std::vector<std::string> Run(std::vector<std::string> args, int expectStatus = 0) {
        std::ostringstream out, err;
        EXPECT_EQ(RunCli(args, out, err), expectStatus) << err.str();
        std::vector<std::string> lines;
        std::istringstream in(out.str());
        for (std::string line; std::getline(in, line);) lines.push_back(line);
        return lines;
    }
    // The numbers of a line after its first `skip` words.
    static std::vector<double> Numbers(const std::string& line, int skip) {
        std::istringstream in(line);
        std::string word;
        for (int i = 0; i < skip; ++i) in >> word;
        std::vector<double> v;
        for (double x; in >> x;) v.push_back(x);
        return v;
    }
    QTemporaryDir dir;
};

TEST_F(CliSkyTest, AntennaPrintsTheAntennaAndEveryContourPoint) {
    const std::string path = Write("a.ant", "ANTENNA FILE\r\n\"name = Yagi, 3 el\"\r\npic = YAGI\r\nheight = 4 m\r\n"
                                            "lobes = 1\r\nSTART LOBE 1\r\nalt = 80\r\naz = 350\r\nnsbw = 30\r\n"
                                            "ewbw = 40\r\ngain = 7.5\r\nEND LOBE 1\r\n");
    const std::vector<std::string> lines = Run({"antenna", path});
    ASSERT_EQ(lines.size(), 4u + 1u + 360u);
    EXPECT_EQ(std::vector<std::string>(lines.begin(), lines.begin() + 5),
              (std::vector<std::string>{"AntName = Yagi, 3 el", "AntPic = YAGI", "AntHeight = 4 m", "Lobes = 1",
                                        "lobe 1 80 350 30 40 7.5"}));
    // t = 90: y = +15 passes the zenith, e = 85 on the far side, azimuth turned by 180 (the
    // contours themselves are checked in tests/sky).
    const std::vector<double> over = Numbers(lines[5 + 90], 0);
    ASSERT_EQ(over.size(), 5u);
    EXPECT_EQ(over[1], 90);
    EXPECT_DOUBLE_EQ(over[2], 85.0);
    EXPECT_NEAR(over[3], 170.0, 1e-3);
}

TEST_F(CliSkyTest, AntennaMessagesStandOnOneLine) {
    const struct { std::string file; std::string expected; } cases[] = {
        {"NONE", ""}, {"", ""}, // no antenna: nothing at all
        {Write("e.ant", ""), "message: Empty Antenna File: " + Write("e.ant", "")},
        {Write("m.ant", "antenna file\r\n"), "message: " + Write("m.ant", "antenna file\r\n") +
                                                 "\\n\\nNot recognized as an antenna file!"},
    };
    for (const auto& c : cases) {
        const auto expected = c.expected.empty() ? std::vector<std::string>{} : std::vector<std::string>{c.expected};
        EXPECT_EQ(Run({"antenna", c.file}), expected) << c.file;
    }
    const std::vector<std::string> missing = Run({"antenna", "/nonexistent/x.ant"});
    ASSERT_EQ(missing.size(), 1u);
    EXPECT_EQ(missing[0].rfind("message: There was and an error loading:\\n\\n/nonexistent/x.ant\\n\\n", 0), 0u);
    Run({"antenna"}, 2);
    Run({"antenna", "a", "--lat", "1"}, 2);
}

TEST_F(CliSkyTest, HorizonPrintsTheTableOrTheMessage) {
    const struct {
        const char* what;
        std::string path;
        std::string message; // empty: none
        bool table;
        double at0;
    } cases[] = {
        {"bridge across north", Write("b.txt", "10 5\r\n20 15\r\n"), "", true, 15 - 340 * 10.0 / 350},
        {"too few", Write("f.txt", "100 5\n101 6\n"),
         "message: There were not enough legitimate values in the horizon file.", true, -99},
        {"missing", "/nonexistent/h.txt", "message: Horizon File: /nonexistent/h.txt\\nNot Found.", false, 0},
        {"empty path", "", "", true, 0},
    };
    for (const auto& c : cases) {
        const std::vector<std::string> lines = Run({"horizon", c.path});
        size_t first = 0;
        if (!c.message.empty()) {
            ASSERT_FALSE(lines.empty()) << c.what;
            EXPECT_EQ(lines[0], c.message) << c.what;
            first = 1;
        }
        ASSERT_EQ(lines.size(), first + (c.table ? 361u : 0u)) << c.what;
        if (!c.table) continue;
        EXPECT_NEAR(Numbers(lines[first], 1)[0], c.at0, 1e-12) << c.what;
        EXPECT_EQ(lines[first + 360], "360 " + std::string(c.path.empty() ? "0" : "-99")) << c.what;
    }
}

} // namespace
