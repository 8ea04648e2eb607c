// The real script devices: key notation, serial line settings, and serial output end to end
// over a pseudo-terminal pair; the devices that cannot work here fail with a clear sentence.
#include "station_test.h"

#include "platform/key_notation.h"
#include "platform/system_script_devices.h"
#include "scripting/event_loop_waits.h"
#include "scripting/script_interpreter.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <tuple>

#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

using namespace tarvelle;

namespace {

TEST(KeyNotation, TranslatesModifiersNamedKeysAndGroups) {
    using Steps = std::vector<KeyStep>;
    const struct { const char* notation; std::optional<Steps> steps; } cases[] = {
        {"abc", Steps{{true, "abc"}}}, {"ab~c", Steps{{true, "ab"}, {false, "Return"}, {true, "c"}}},
        {"^c%f", Steps{{false, "ctrl+c"}, {false, "alt+f"}}}, {"+(ab)", Steps{{false, "shift+a"}, {false, "shift+b"}}},
        {"^+{TAB}", Steps{{false, "ctrl+shift+Tab"}}},
        {"{ENTER 2}{f5}", Steps{{false, "Return"}, {false, "Return"}, {false, "F5"}}},
        {"{+}{}}", Steps{{false, "plus"}, {false, "braceright"}}}, {"a b", Steps{{true, "a b"}}},
        {"{NOSUCH}", std::nullopt}, {"{TAB", std::nullopt}, {"+(ab", std::nullopt},
    };
    for (const auto& c : cases) EXPECT_EQ(TranslateKeys(c.notation), c.steps) << c.notation;
}

TEST(SerialSettings, ReadsBaudParityDataAndStopBitsOrRefuses) {
    const struct { const char* text; int baud; char parity; int bits; double stop; } good[] = {
        {"9600,N,8,1", 9600, 'N', 8, 1}, {"1200,e,7,2", 1200, 'E', 7, 2}, {"300,O,5,1.5", 300, 'O', 5, 1.5}};
    for (const auto& c : good) {
        SerialLineSettings s;
        ASSERT_TRUE(ParseSerialSettings(c.text, s)) << c.text;
        EXPECT_EQ(std::tie(s.baud, s.parity, s.dataBits, s.stopBits), std::tie(c.baud, c.parity, c.bits, c.stop));
    }
    SerialLineSettings s;
    for (const char* bad : {"9600,N,8", "9600,X,8,1", "fast,N,8,1", "9600,N,9,1", "9600,N,8,3"})
        EXPECT_FALSE(ParseSerialSettings(bad, s)) << bad;
}

// A host on the real event loop.
class LoopHost final : public QuietScriptHost {
public:
    explicit LoopHost(ClockSource& clock) : clock_(clock), waits_([] {}) {}
    void DoEvents() override { EventLoopWaits::DoEvents(); }
    void WaitForEvents(std::optional<double> until) override { waits_.WaitForEvents(until, clock_.LocalNow()); }

private:
    ClockSource& clock_;
    EventLoopWaits waits_;
};

class RealDevices : public StationTest {};

TEST_F(RealDevices, SerialOutputReachesTheOtherEndOfAPseudoTerminal) {
    int master = -1, slave = -1;
    char name[256] = {};
    ASSERT_EQ(openpty(&master, &slave, name, nullptr, nullptr), 0);
    termios raw{};
    tcgetattr(master, &raw);
    cfmakeraw(&raw);
    tcsetattr(master, TCSANOW, &raw);
    settings->save("SerialPorts", "COM4", name);
    SystemScriptDevices devices(*settings);
    EXPECT_EQ(devices.SerialDevice(4), QString(name));
    EXPECT_EQ(devices.SerialDevice(1), "/dev/ttyS0");
    LoopHost host(clock);
    ScriptInterpreter script(*station, host, devices);
    core().JupAz = 123.9;
    WriteFile("send.scp", "COM_COMPORT = (4)\nCOM_SET COM (19200,N,8,1)\nCOM_SEND STRING (hello JUPAZ)\n"
                          "COM_SEND BYTE (13)\nCOM_DIAL (5551234)\n");
    EXPECT_EQ(script.RunScript((programDir + "send.scp").toStdString()), 0);
    EXPECT_TRUE(devices.SerialIsOpen());
    devices.CloseSerial();

    std::string received;
    fcntl(master, F_SETFL, O_NONBLOCK);
    char buffer[256];
    for (int tries = 0; tries < 50 && received.size() < 21; ++tries) {
        const ssize_t n = read(master, buffer, sizeof buffer);
        if (n > 0) received.append(buffer, static_cast<size_t>(n));
        else usleep(10000);
    }
    EXPECT_EQ(received, "HELLO 123\rATDT5551234\r");
    close(master);
    close(slave);
}

TEST_F(RealDevices, DevicesThatCannotWorkHereFailWithASentence) {
    settings->save("SerialPorts", "COM2", programDir + "no-such-tty");
    SystemScriptDevices devices(*settings);
    LoopHost host(clock);
    ScriptInterpreter script(*station, host, devices);
    qunsetenv("DISPLAY");
    // Each failure's number, and its sentence in the error log.
    const struct { const char* text; int result; QString sentence; } runs[] = {
        {"COM_COMPORT = (2)\nCOM_SET COM (9600,N,8,1)", kFailurePortOpen,
         "Serial port 2 (" + programDir + "no-such-tty) could not be opened"},
        {"DDE_APP (a)\nDDE_TOPIC (b)\nDDE_ITEM (c)\nDDE_SEND (d)", kFailureDde, "\r\nDDE is not available on this system\r\n"},
        {"RUN (/no/such/program)", kFailureFileNotFound, "The program \"/NO/SUCH/PROGRAM\" could not be started"},
        {"SENDKEYS (abc)", kFailureInvalidCall, "\r\nNo X11 display is available to send keys to or to find windows on\r\n"},
        {"ACTIVATE (nothing)", kFailureFileNotFound, "The program \"NOTHING\" could not be started"},
    };
    for (const auto& r : runs) {
        WriteFile("fail.scp", r.text);
        EXPECT_EQ(script.RunScript((programDir + "fail.scp").toStdString()), r.result) << r.text;
        EXPECT_TRUE(ReadFile(programDir + "ScriptErrLog.txt").contains(r.sentence)) << r.sentence.toStdString();
    }
    EXPECT_TRUE(devices.WindowTitles().empty());
    if (geteuid() != 0) {
        int32_t value = 0;
        const auto port = devices.GetPortVal(0x378, value);
        ASSERT_TRUE(port);
        EXPECT_EQ(port->number, kFailurePermission);
        EXPECT_NE(port->description.find("needs root or the CAP_SYS_RAWIO capability"), std::string::npos);
    }
}

} // namespace
