// tarvelle-cli run-script --dry: the trace of a run on the simulated clock and devices.
#include "cli/cli_commands.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <cstdlib>
#include <fstream>
#include <sstream>

using namespace tarvelle;

namespace {

class RunScriptDry : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        setenv("XDG_DATA_HOME", dir.filePath("data").toStdString().c_str(), 1); // the error log lands here
    }
    std::string Script(const std::string& text) {
        const std::string path = dir.filePath("t.scp").toStdString();
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }
    std::string Run(std::vector<std::string> args, int expectedStatus = 0) {
        std::ostringstream out, err;
        args.insert(args.begin(), "run-script");
        EXPECT_EQ(RunCli(args, out, err), expectedStatus) << err.str();
        return expectedStatus == 0 ? out.str() : err.str();
    }
    const std::vector<std::string> observer = {"--lat", "39:15:00.0", "--lng", "76:30:00.0", "--tz", "-5",
                                               "--modes", TARVELLE_SOURCE_DATA "/UFMODES.JMF"};
    std::vector<std::string> With(const std::string& file, std::vector<std::string> more) {
        more.insert(more.begin(), file);
        more.insert(more.end(), observer.begin(), observer.end());
        return more;
    }
    QTemporaryDir dir;
};

TEST_F(RunScriptDry, TracesStatusDevicesAndTheSimulatedClock) {
    const std::string file = Script("COM_COMPORT = (2)\r\nCOM_SET COM (9600,N,8,1)\r\nCOM_SEND STRING (a\tb)\r\n"
                                    "COM_SEND BYTE (200)\r\nPAUSE (1.5)\r\nWAIT UNTIL (16:00)\r\nCOM_SEND STRING (GMTTIME)\r\n"
                                    "IO_PORT = (&H378)\r\nIO_INP\r\nIO_OUT\r\nEXIT");
    // One line of the literal for each line of the script.
    const std::string expected =
        "status: Script [ 0] COM_COMPORT = (2)  [A= 0]\nserial port 2\nserial open\n"
        "status: Script [ 1] COM_SET COM (9600,N,8,1)  [A= 0]\nserial close\nserial open\nserial settings 9600,N,8,1\nserial close\n"
        "status: Script [ 2] COM_SEND STRING (a\tb)  [A= 0]\nserial open\nserial clear\nserial write A\\tB\n"
        "status: Script [ 3] COM_SEND BYTE (200)  [A= 0]\nserial clear\nserial write \\310\n"
        "status: Script [ 4] PAUSE (1.5)  [A= 0]\nstatus: Pause :  1\nstatus: Pause :  0\nstatus: Script [ 4] PAUSE (1.5)  [A= 0]\n"
        "status: Script [ 5] WAIT UNTIL (16:00)  [A= 0]\nstatus: Script Waiting for 16:00\nstatus: Script [ 5] WAIT UNTIL (16:00)  [A= 0]\n"
        "status: Script [ 6] COM_SEND STRING (GMTTIME)  [A= 0]\nserial clear\nserial write 2100\n"
        "status: Script [ 7] IO_PORT = (&H378)  [A= 0]\n"
        "status: Script [ 8] IO_INP  [A= 0]\nport in 888 -> 9\nstatus: Script Returned  9 from Port  888\n"
        "status: Script [ 9] IO_OUT  [A= 9]\nport out 888 9\n"
        "status: Script [ 10] EXIT  [A= 9]\nstatus: Script " + file + "   Finished\nresult = 7\nA = 9\n";
    EXPECT_EQ(Run(With(file, {"--dry", "--port-in", "9", "--at", "2026-11-22 15:30:00"})), expected);
}

// An error is printed with its number, and logged with the simulated clock's stamp (the log's
// lines, the refusals of an empty script and the device commands are checked in tests/scripting).
TEST_F(RunScriptDry, AnErrorIsPrintedAndLoggedAtTheSimulatedTime) {
    const std::string out = Run(With(Script("WAIT UNTIL (9:99)"), {"--dry", "--at=2026-11-22 12:00:00"}));
    const std::string tail = "status: Script Error Logged Type mismatch\nstatus: Script Error: Type mismatch  Line  0\n"
                             "result = 13\nA = 0\n";
    ASSERT_GE(out.size(), tail.size());
    EXPECT_EQ(out.substr(out.size() - tail.size()), tail);
    EXPECT_NE(out.find("errlog: 2026-11-22 12:00:00   Script Error # 13\n"), std::string::npos) << out;
    // A script that cannot run has no result.
    const std::string none = Run(With(Script("\\\\ nothing\r\n"), {"--dry", "--at=2026-11-22 12:00:00"}));
    EXPECT_NE(none.find("status: Can't Run Script : No Script Loaded or First Line Blank!\nresult = \nA = 0\n"),
              std::string::npos) << none;
}

TEST_F(RunScriptDry, RefusesBadArguments) {
    const std::string file = Script("EXIT");
    EXPECT_NE(Run({"--dry"}, 2).find("needs a script FILE"), std::string::npos);
    EXPECT_NE(Run({file, "--at", "2026-11-22 12:00:00"}, 2).find("--at sets the simulated clock"), std::string::npos);
    EXPECT_NE(Run(With(file, {"--dry", "--port-in", "1,x"}), 2).find("--port-in takes whole numbers"), std::string::npos);
    EXPECT_NE(Run({file, "other.scp", "--dry"}, 2).find("unexpected argument 'other.scp'"), std::string::npos);
}

} // namespace
