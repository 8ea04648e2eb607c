// tarvelle-cli antenna and horizon: how the files' contents and messages are printed. The
// readers themselves (keys, lobes, refusals, the horizon's interpolation) are checked in
// tests/formats, the contours in tests/sky.
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
    QTemporaryDir dir;
};

TEST_F(CliSkyTest, AntennaPrintsTheAntennaEveryContourPointOrItsMessageOnOneLine) {
    const std::string path = Write("a.ant", "ANTENNA FILE\r\n\"name = Yagi, 3 el\"\r\npic = YAGI\r\nheight = 4 m\r\n"
                                            "lobes = 1\r\nSTART LOBE 1\r\nalt = 80\r\naz = 350\r\nnsbw = 30\r\n"
                                            "ewbw = 40\r\ngain = 7.5\r\nEND LOBE 1\r\n");
    const std::vector<std::string> lines = Run({"antenna", path});
    ASSERT_EQ(lines.size(), 4u + 1u + 360u);
    EXPECT_EQ(std::vector<std::string>(lines.begin(), lines.begin() + 5),
              (std::vector<std::string>{"AntName = Yagi, 3 el", "AntPic = YAGI", "AntHeight = 4 m", "Lobes = 1",
                                        "lobe 1 80 350 30 40 7.5"}));
    EXPECT_EQ(lines[5 + 90].substr(0, 7), "1 90 85") << "lobe, t, then the contour's altitude";

    const std::string wrong = Write("m.ant", "antenna file\r\n");
    EXPECT_EQ(Run({"antenna", wrong}), std::vector<std::string>{"message: " + wrong + "\\n\\nNot recognized as an antenna file!"});
    EXPECT_TRUE(Run({"antenna", "NONE"}).empty()) << "no antenna: nothing at all";
    Run({"antenna"}, 2);
    Run({"antenna", "a", "--lat", "1"}, 2);
}

// The message comes first, then the 361 degrees of the table, if any.
TEST_F(CliSkyTest, HorizonPrintsTheMessageThenTheTable) {
    const std::string few = Write("f.txt", "100 5\n101 6\n");
    const std::vector<std::string> lines = Run({"horizon", few});
    ASSERT_EQ(lines.size(), 1u + 361u);
    EXPECT_EQ(lines[0], "message: There were not enough legitimate values in the horizon file.");
    EXPECT_EQ(lines[1], "0 -99");
    EXPECT_EQ(lines[361], "360 -99");
    EXPECT_EQ(Run({"horizon", "/nonexistent/h.txt"}),
              std::vector<std::string>{"message: Horizon File: /nonexistent/h.txt\\nNot Found."});
}

} // namespace
