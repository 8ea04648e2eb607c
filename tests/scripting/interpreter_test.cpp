// The script language on the test doubles: commands, the Skip rule, the built-in variables,
// inclusion, the waits, the serial output wait and the error log.
#include "script_test_host.h"

#include "core/date_value.h"
#include "formats/script_file.h"

#include <gtest/gtest.h>

using namespace tarvelle;

namespace {

class Interpreter : public ScriptStationTest {
protected:
    std::optional<int> Run(const std::string& text, const char* name = "t.scp") {
        WriteFile(name, QByteArray::fromStdString(text));
        return script->RunScript(Path(name));
    }
    std::string Final() const { return host->statuses.empty() ? "" : host->statuses.back(); }
    std::string Path(const char* name) const { return (programDir + name).toStdString(); }
    bool Shown(const std::string& s) const {
        return std::find(host->statuses.begin(), host->statuses.end(), s) != host->statuses.end();
    }
};

TEST_F(Interpreter, RegisterCommandsBranchesAndErrors) {
    const struct { const char* text; std::optional<int> result; int a; } cases[] = {
        {"A = (5)\nEXIT\nA = (6)", 7, 5},
        {"A = (5)\nIF A = (5)\nA = (6)\nA = (A)", 0, 0}, // the line after the true IF runs; "A" reads 0
        {"A = (5)\nIF A > (5)\nA = (6)", 0, 5},        {"A = (3)\nIF A > (2.5)\nA = (7)", 0, 7},
        {"A = (3)\nIF A < (2.5)\nA = (7)\nOR A WITH (8)", 0, 11}, {"A = (5)\nIF A = (5)", 0, 5},
        {"A = (12)\nAND A WITH (10)\nXOR A WITH (&HFF)", 0, 247}, {"A = (-0.5)", 0, -1},
        {"A = (1 2)", 0, 12},       {"A = (JUNK)", 0, 0},         {"NOSTOPONERR\nA = 5\nA = (7)", 2, 0},
        {"A = 5\nA = (7)", 2, 0},   {"A = (4)\nPAUSE(5)\nIO_OUT W\nEXIT", 7, 4}, {"A = (99999999999)", 6, 0},
        {"A = )7(", 5, 0},          {"NOSTOPONERR\nEXIT\nA = (3)", 7, 0}, {"IO_OUT", 5, 0}, {"IO_PORT = (0)", 5, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Run(c.text), c.result) << c.text;
        EXPECT_EQ(script->A, c.a) << c.text;
        EXPECT_FALSE(script->ScriptRunning);
    }
}

TEST_F(Interpreter, StatusLinesStepperTextsAndRefusals) {
    script->StepMode = true;
    Run("IO_PORT = (&H378)\nA = (2)");
    EXPECT_EQ(host->statuses[0], "Script [ 0] IO_PORT = (&H378)  [A= 0]");
    ASSERT_EQ(host->boxes.size(), 4u); // two lines and the two empty entries
    EXPECT_EQ(host->boxes[1], "Script Line Number:  1\n\r\nCommand: A = (2)\n\r\nPort:  888\n\r\nA:  2\n\r\nCom:  0");
    EXPECT_FALSE(script->StepMode);
    Run("A = (1)\nEXIT");
    EXPECT_EQ(Final(), "Script " + Path("t.scp") + "   Finished");
    // The error status counts the spliced array: three lines and two empty entries.
    Run("NOSTOPONERR\nA = 5\nA = (7)");
    EXPECT_EQ(Final(), "Script Error:   Line  4");
    for (const char* text : {"", "\\\\ only a comment\nAB\n"}) {
        EXPECT_EQ(Run(text), std::nullopt);
        EXPECT_EQ(Final(), "Can't Run Script : No Script Loaded or First Line Blank!");
    }
    EXPECT_EQ(script->RunScript(Path("missing.scp")), std::nullopt);
    script->ScriptRunning = true;
    EXPECT_EQ(Run("A = (1)"), std::nullopt);
    EXPECT_EQ(Final(), "Script is already running...");
}

TEST_F(Interpreter, BuiltInVariablesFollowTheLiveValuesAndTheOption) {
    Core& c = core();
    c.JupAz = 7.2; c.JupAlt = -3.5; c.SunAz = 123.9; c.SunAlt = 0.0;
    c.CMLIII = 284.25f; c.IoPhase = 5.25f; c.ObsTZ = -5.0;
    host->modes = "   Io-B";
    Run("COM_SEND STRING (JUPAZ JUPALT SUNAZ SUNALT)\nFORMATLEADINGZEROS\nCOM_SEND STRING (JUPAZ JUPALT SUNAZ)\n"
        "COM_SEND STRING (CML3 IOPHASE GMTTIME GMTLOCAL)\nCOM_SEND STRING (LMSTTIME|ACTIVEMODE)\n"
        "SENDKEYS (jupaz JUPAZ Cml3)");
    EXPECT_EQ(devices.sent, "7 -4 123 0" "007 -004 123" "284.3 005.3 2030 1530" " LMST: 01:02:03|   Io-B");
    EXPECT_EQ(devices.log.back(), "keys jupaz 007 Cml3 wait");
    host->modes.clear();
    Run("COM_SEND STRING (ACTIVEMODE)");
    EXPECT_EQ(devices.sent.substr(devices.sent.size() - 4), "NONE");
}

TEST_F(Interpreter, DeviceCommandsReachTheirOperations) {
    devices.windows = {"Night notebook - storms"};
    devices.readings[888] = {6};
    const std::string text =
        "SENDKEYS (abc) NOWAIT\nsendkeys (abc) nowait\nSENDKEYS (NOWAIT)\nRUN (xterm -e top)\n"
        "ACTIVATE (notebook)\nACTIVATE (chartview)\nACTIVATE ()\n"
        "DDE_APP (app)\nDDE_TOPIC (t)\nDDE_ITEM (i)\nDDE_SEND (x JUPAZ)\n"
        "IO_PORT = (888)\nA = (258)\nIO_OUT\nIO_INP\nEXIT";
    EXPECT_EQ(Run(text), 7);
    EXPECT_EQ(devices.log, (std::vector<std::string>{"keys abc nowait", "keys abc wait", "keys NOWAIT nowait",
                                                     "shell XTERM -E TOP 1", "activate NOTEBOOK", "shell CHARTVIEW 4",
                                                     "poke APP|T I X 0", "out 888=258", "in 888"}));
    EXPECT_EQ(script->A, 6);
    EXPECT_EQ(host->statuses[host->statuses.size() - 3], "Script Returned  6 from Port  888");
    EXPECT_EQ(Run("DDE_APP (a)\nDDE_ITEM (b)\nDDE_SEND (X)"), 8);
    EXPECT_EQ(Final(), "Script Error: All DDE parameters not specified.  Line  2");
}

TEST_F(Interpreter, SerialCommandsOpenCloseAndWaitForTheOutput) {
    EXPECT_EQ(Run("COM_COMPORT = (3)\nCOM_SET COM (4800,E,7,2)\nCOM_SEND STRING (ab)\nCOM_DIAL (555)\n"
                  "COM_SEND BYTE (65.5)\nCOM_SEND BYTE (66.5)"), 0);
    EXPECT_EQ(devices.log, (std::vector<std::string>{"port 3", "open", "close", "open", "settings 4800,E,7,2", "close",
                                                     "open", "clear", "write AB", "clear", "write ATDT555\r", "clear",
                                                     "write B", "clear", "write B"}));
    EXPECT_TRUE(devices.open); // the port outlives the run
    EXPECT_EQ(script->ScriptComPort, 3);

    devices.log.clear();
    EXPECT_EQ(Run("COM_SEND BYTE (256)\nA = (1)"), 5);
    EXPECT_EQ(host->errlog[1], "Invalid procedure call or argument");

    devices.openFails = true;
    devices.open = false;
    EXPECT_EQ(Run("COM_SET COM (9600,N,8,1)"), 8);
    EXPECT_EQ(host->errlog[host->errlog.size() - 2], "Last parameter parsed: 9600,N,8,1"); // logged, then replaced by 8

    // Output that does not drain times out; a run cleared while waiting closes the port.
    devices.openFails = false;
    devices.drainPerCheck = 0;
    host->waits = 0;
    host->stepSeconds = 30;
    EXPECT_EQ(Run("COM_SEND STRING (X)\nA = (1)"), 14);
    EXPECT_EQ(host->waits, 5); // 30, 60, 90, 120 and then past 120 seconds
    EXPECT_EQ(Final(), "Script Error:   Line  0");

    host->stepSeconds = 1;
    host->onWait = [this] { script->ScriptRunning = false; };
    EXPECT_EQ(Run("COM_SEND STRING (X)\nA = (1)"), 0);
    EXPECT_FALSE(devices.open);
    EXPECT_EQ(script->A, 0);
}

TEST_F(Interpreter, PauseCountsTimerEventsRoundingHalvesToEven) {
    const struct { const char* text; int seconds; } cases[] = {
        {"PAUSE (2.5)", 2}, {"PAUSE (3.5)", 4}, {"PAUSE (0)", 0}, {"PAUSE (-3)", 0}};
    for (const auto& c : cases) {
        const double start = clock.local;
        host->statuses.clear();
        EXPECT_EQ(Run(c.text), 0);
        EXPECT_NEAR((clock.local - start) * 86400.0, c.seconds, 1e-6) << c.text;
        if (c.seconds > 0) { EXPECT_EQ(host->statuses[static_cast<size_t>(c.seconds)], "Pause :  0"); }
    }
    EXPECT_EQ(host->timer1Stops, 4);
    host->onWait = [this] { script->ScriptRunning = false; };
    Run("PAUSE (100)\nA = (3)");
    EXPECT_EQ(script->PauseCount, 99);
    EXPECT_EQ(script->A, 0);
}

TEST_F(Interpreter, WaitUntilTimesAndDatesOfThisDay) {
    // 15:30 local on 2026-11-22.
    const struct { const char* text; std::optional<int> result; double endsAt; } cases[] = {
        {"WAIT UNTIL (00:00:01)", 0, TimeSerial(15, 30, 0)}, {"WAIT UNTIL (18:05)", 0, TimeSerial(18, 5, 0)},
        {"WAIT UNTIL (2026/11/24)", 0, 2.0},
        {"WAIT UNTIL (2026/11/23 6:07:08)", 0, 1.0}, // 06:07:08 has passed today, then the date
        {"WAIT UNTIL (2026/11/20)", 0, TimeSerial(15, 30, 0)}, {"WAIT UNTIL (25:00)", 13, TimeSerial(15, 30, 0)},
        {"WAIT UNTIL (2026/13/01)", 13, TimeSerial(15, 30, 0)}, {"WAIT UNTIL (TOMORROW)", 0, TimeSerial(15, 30, 0)},
    };
    for (const auto& c : cases) {
        clock.local = DateSerial(2026, 11, 22) + TimeSerial(15, 30, 0);
        host->errlog.clear();
        EXPECT_EQ(Run(c.text), c.result) << c.text;
        EXPECT_NEAR((clock.local - DateSerial(2026, 11, 22)) * 86400.0, c.endsAt * 86400.0, 0.5) << c.text;
        EXPECT_EQ(host->errlog.size(), c.result == 13 ? 6u : 0u) << c.text;
    }
}

TEST_F(Interpreter, IoWhileWaitsOnAPortBit) {
    devices.readings[0x378] = {1, 1, 4, 4, 0};
    EXPECT_EQ(Run("IO_PORT = (&H378)\nIO_WHILE INP (2) HIGH\nA = (A)\nIO_INP\nIO_WHILE INP (2) LOW"), 0);
    EXPECT_EQ(std::count(devices.log.begin(), devices.log.end(), "in 888"), 5);
    EXPECT_EQ(script->A, 0);
    EXPECT_EQ(Run("IO_PORT = (1)\nIO_WHILE INP (31) HIGH"), 6);
}

// Inclusion splices the file after its line, whatever the name's case; the run restores the array.
TEST_F(Interpreter, ExecuteScriptSplicesTheFileAndStopsGrowingOnItself) {
    WriteFile("Inner.scp", "\\\\ included\nA = (A)\nOR A WITH (4)\n");
    const std::string outer = "A = (1)\nEXECUTE_SCRIPT (" + Path("inner.SCP") + ")\nOR A WITH (2)";
    EXPECT_EQ(Run(outer), 0);
    EXPECT_EQ(script->A, 6);
    EXPECT_EQ(script->ScriptLines.size(), 5u);
    EXPECT_EQ(host->statuses[2], "Script [ 2] A = (A)  [A= 1]"); // the included lines come next

    EXPECT_EQ(Run("EXECUTE_SCRIPT (" + Path("none.scp") + ")\nA = (9)"), 0);
    EXPECT_EQ(script->A, 9);
    EXPECT_TRUE(Shown("File not found in " + UpperAscii(Path("none.scp"))));

    const std::string self = "OR A WITH (1)\nEXECUTE_SCRIPT (" + Path("self.scp") + ")";
    EXPECT_EQ(Run(self, "self.scp"), 0);
    EXPECT_EQ(script->A, 1);
    EXPECT_EQ(script->ScriptLines.size(), 4u);
    EXPECT_GT(script->LineIndex, 99990);
    EXPECT_TRUE(std::any_of(host->statuses.begin(), host->statuses.end(),
                            [](const std::string& s) { return s.rfind("EXECUTE_SCRIPT skipped", 0) == 0; }));
}

TEST_F(Interpreter, RunTimeFailuresGoToTheErrorLog) {
    devices.portFailure = ScriptFailure{70, "No access to hardware port 888"};
    EXPECT_EQ(Run("IO_PORT = (888)\nio_out  \nA = (1)"), 70);
    const QStringList lines = ReadFile(programDir + "ScriptErrLog.txt").split("\r\n");
    ASSERT_EQ(lines.size(), 7); // six lines, the last one empty, then the end
    EXPECT_TRUE(lines[0].endsWith("   Script Error # 70"));
    EXPECT_EQ(lines.mid(1, 5), (QStringList{"No access to hardware port 888", "Script Line:  1  io_out  ",
                                            "Last command Parsed: IO_OUT  ", "Last parameter parsed: 888", ""}));
    EXPECT_EQ(Final(), "Script Error: No access to hardware port 888  Line  1");

    // Without STOPONERROR the run goes on: commands marked Skip do nothing, the others act.
    devices.portFailure.reset();
    EXPECT_EQ(Run("NOSTOPONERR\nIO_PORT = (5)\nA = (1)\nSENDKEYS\nA = (2)\nIO_OUT\nDDE_APP (Z)"), 2);
    EXPECT_EQ(script->A, 1);
    EXPECT_EQ(script->DdeApp, "Z");
    EXPECT_EQ(devices.log.back(), "out 5=1");
}

TEST(ScriptLineArray, SplicesAtThePositionClampedToTheArrayInAnyOrder) {
    const std::vector<std::string> src = {"x", "y"};
    const struct { std::vector<int> positions; std::vector<std::string> result; } cases[] = {
        {{1}, {"a", "x", "y", "b", "c"}},  {{0}, {"x", "y", "a", "b", "c"}},
        {{-4}, {"x", "y", "a", "b", "c"}}, {{9}, {"a", "b", "c", "x", "y"}},
        {{2, 1}, {"a", "x", "y", "b", "x", "y", "c"}}, {{1, 4}, {"a", "x", "y", "b", "x", "y", "c"}},
    };
    for (const auto& c : cases) {
        ScriptLineArray lines({"a", "b", "c"});
        for (int p : c.positions) lines.Insert(p, src);
        EXPECT_EQ(lines.Lines(), c.result);
    }
}

} // namespace
