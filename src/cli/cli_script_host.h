// tarvelle-cli's side of a script run: the status line and messages printed one a line, no
// questions asked, the clock real or simulated, and the devices real or simulated, every
// action printed as it happens.
#pragma once

#include "platform/script_devices.h"
#include "scripting/event_loop_waits.h"
#include "scripting/script_interpreter.h"
#include "station/clock_source.h"
#include "station/desktop.h"
#include "station/dialogs.h"
#include "station/station.h"

#include <QPagedPaintDevice>

#include <deque>
#include <memory>
#include <ostream>

namespace tarvelle {

// Messages print as "message: TEXT"; questions take their first answer (OK or Yes); file,
// directory and print dialogs are cancelled.
class CliDialogs final : public Dialogs {
public:
    explicit CliDialogs(std::ostream& out) : out_(out) {}
    MsgAnswer Message(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon) override;
    std::optional<QString> Input(const QString&, const QString&, const QString&) override { return std::nullopt; }
    QString OpenFile(const QString&, const QString&, const QString&) override { return {}; }
    QString SaveFile(const QString&, const QString&, const QString&) override { return {}; }
    QString ChooseDirectory(const QString&, const QString&) override { return {}; }
    std::unique_ptr<QPagedPaintDevice> ChoosePrinter() override { return nullptr; }

private:
    std::ostream& out_;
};

// Nothing to open or show headless; programs are started by scripts through their devices.
class CliDesktop final : public Desktop {
public:
    bool OpenDocument(const QString&) override { return false; }
    bool ShowTextFile(const QString&) override { return false; }
    bool StartProgram(const QString&, const QStringList&) override { return false; }
    void Beep() override {}
};

// A computer's clock that moves only when told; its zone is the observer's.
class SimulatedClock final : public ClockSource {
public:
    double local = 0.0;
    double biasHours = 0.0;
    double LocalNow() const override { return local; }
    double ClockTimeZoneBias() const override { return biasHours; }
};

// With a simulated clock, PAUSE advances it a second for each pause-timer event and WAIT UNTIL
// jumps it to the awaited instant; otherwise the waits run on the Qt event loop.
class CliScriptHost final : public ScriptHost {
public:
    CliScriptHost(Station& station, std::ostream& out, SimulatedClock* simulated);
    void Attach(ScriptInterpreter& interpreter) { interpreter_ = &interpreter; }
    // The live values, the sidereal time and the day's activity for the clock's instant.
    void RefreshLive();

    void SetStatus(const std::string& text) override;
    std::string Status() const override { return status_; }
    void DoEvents() override;
    void WaitForEvents(std::optional<double> until) override;
    void StartTimerPause() override;
    void StopTimerPause() override;
    void StopTimer1() override {}
    void StepperBox(const std::string& text) override;
    std::string Label3Text() override;
    std::string ActiveModeNames() override;
    void ErrLogLine(const std::string& line) override { out_ << "errlog: " << line << '\n'; }

private:
    void PauseTick();

    Station& st_;
    std::ostream& out_;
    SimulatedClock* simulated_;
    ScriptInterpreter* interpreter_ = nullptr;
    std::string status_;
    bool pauseOn_ = false;
    double liveAt_ = -1.0, activityDate_ = -1.0;
    std::unique_ptr<EventLoopWaits> waits_;
};

// Prints each device action, then passes it on.
class TracingDevices final : public ScriptDevices {
public:
    TracingDevices(ScriptDevices& inner, std::ostream& out) : in_(inner), out_(out) {}
    void SetSerialPortNumber(int16_t port) override;
    DeviceResult SetSerialSettings(const std::string& settings) override;
    bool SerialIsOpen() const override { return in_.SerialIsOpen(); }
    DeviceResult OpenSerial() override;
    void CloseSerial() override;
    void ClearSerialOutput() override;
    DeviceResult WriteSerial(const std::string& bytes) override;
    int SerialOutputCount() const override { return in_.SerialOutputCount(); }
    DeviceResult SetPortVal(uint16_t address, int32_t value) override;
    DeviceResult GetPortVal(uint16_t address, int32_t& value) override;
    DeviceResult DdePoke(const std::string& app, const std::string& topic, const std::string& item,
                         const std::string& data) override;
    DeviceResult SendKeys(const std::string& keys, bool wait) override;
    DeviceResult Shell(const std::string& commandLine, int windowStyle) override;
    DeviceResult AppActivate(const std::string& title) override;
    std::vector<std::string> WindowTitles() override { return in_.WindowTitles(); }

private:
    ScriptDevices& in_;
    std::ostream& out_;
};

// Devices that touch nothing: opens succeed, output drains at once, port reads give the
// values given and then 0, pokes and programs succeed, and there are no windows.
class DryDevices final : public ScriptDevices {
public:
    explicit DryDevices(std::deque<int32_t> portIn) : portIn_(std::move(portIn)) {}
    void SetSerialPortNumber(int16_t) override {}
    DeviceResult SetSerialSettings(const std::string&) override { return {}; }
    bool SerialIsOpen() const override { return open_; }
    DeviceResult OpenSerial() override {
        open_ = true;
        return {};
    }
    void CloseSerial() override { open_ = false; }
    void ClearSerialOutput() override {}
    DeviceResult WriteSerial(const std::string&) override { return {}; }
    int SerialOutputCount() const override { return 0; }
    DeviceResult SetPortVal(uint16_t, int32_t) override { return {}; }
    DeviceResult GetPortVal(uint16_t, int32_t& value) override;
    DeviceResult DdePoke(const std::string&, const std::string&, const std::string&, const std::string&) override {
        return {};
    }
    DeviceResult SendKeys(const std::string&, bool) override { return {}; }
    DeviceResult Shell(const std::string&, int) override { return {}; }
    DeviceResult AppActivate(const std::string&) override { return {}; }
    std::vector<std::string> WindowTitles() override { return {}; }

private:
    std::deque<int32_t> portIn_;
    bool open_ = false;
};

// Bytes below 32 and above 126 as C escapes ("\r", "\n", "\033").
std::string CEscaped(const std::string& bytes);

} // namespace tarvelle
