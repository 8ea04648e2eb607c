// Doubles of the station's seams for tests: a clock set by hand, a desktop that records what
// was asked of it, and dialogs with scripted answers that record every message.
#pragma once

#include "station/clock_source.h"
#include "station/desktop.h"
#include "station/dialogs.h"
#include "platform/script_devices.h"
#include "scripting/script_interpreter.h"

#include <QStringList>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tarvelle {

class FakeClock final : public ClockSource {
public:
    double local = 0.0;
    double biasHours = 0.0;
    double LocalNow() const override { return local; }
    double ClockTimeZoneBias() const override { return biasHours; }
};

class RecordingDesktop final : public Desktop {
public:
    QStringList opened, shown, started;
    int beeps = 0;
    bool succeed = true;
    bool OpenDocument(const QString& p) override {
        opened << p;
        return succeed;
    }
    bool ShowTextFile(const QString& p) override {
        shown << p;
        return succeed;
    }
    bool StartProgram(const QString& program, const QStringList& args) override {
        started << (program + (args.isEmpty() ? QString() : " " + args.join(' ')));
        return succeed;
    }
    void Beep() override { ++beeps; }
};

class ScriptedDialogs final : public Dialogs {
public:
    struct Shown {
        QString text, title;
        MsgButtons buttons;
        MsgIcon icon;
    };
    std::vector<Shown> messages;
    std::vector<MsgAnswer> answers;             // taken in order; OK (or Yes) once they run out
    std::vector<std::optional<QString>> inputs; // taken in order; cancel once they run out
    size_t nextInput = 0;
    QStringList paths; // file and directory answers in order; "" cancels
    // Print dialogs: cancelled when empty, else the pages go to a PDF file at this path.
    QString printToPdf;
    int printDialogs = 0;

    MsgAnswer Message(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon) override;
    std::optional<QString> Input(const QString& prompt, const QString& title,
                                 const QString& initial) override;
    QString OpenFile(const QString& title, const QString& filter, const QString& start) override;
    QString SaveFile(const QString& title, const QString& filter, const QString& start) override;
    QString ChooseDirectory(const QString& title, const QString& start) override;
    std::unique_ptr<QPagedPaintDevice> ChoosePrinter() override;

private:
    QString NextPath();
};

// Script devices that record every action: a serial port whose output queue drains by
// drainPerCheck bytes each time its count is read (0: never), an array of hardware ports with
// readings queued per address, and a window list the test sets.
class RecordingScriptDevices final : public ScriptDevices {
public:
    // Settings.
    bool openFails = false;
    int drainPerCheck = 1 << 30;
    std::map<uint16_t, std::vector<int32_t>> readings; // taken in order, then 0
    std::vector<std::string> windows;
    std::optional<ScriptFailure> portFailure, keysFailure;
    // Record.
    std::vector<std::string> log; // "open", "close", "clear", "write X", "port X=V", ...
    std::string sent;             // every byte written to the serial port
    bool open = false;
    int16_t port = 0;
    mutable int queued = 0;

    void SetSerialPortNumber(int16_t p) override {
        port = p;
        log.push_back("port " + std::to_string(p));
    }
    DeviceResult SetSerialSettings(const std::string& s) override {
        log.push_back("settings " + s);
        return {};
    }
    bool SerialIsOpen() const override { return open; }
    DeviceResult OpenSerial() override {
        log.push_back("open");
        open = !openFails;
        if (openFails) return ScriptFailure{kFailurePortOpen, "no such port"};
        return {};
    }
    void CloseSerial() override {
        log.push_back("close");
        open = false;
    }
    void ClearSerialOutput() override {
        log.push_back("clear");
        queued = 0;
    }
    DeviceResult WriteSerial(const std::string& bytes) override {
        log.push_back("write " + bytes);
        if (!open) return ScriptFailure{kFailurePortClosed, "closed"};
        sent += bytes;
        queued += static_cast<int>(bytes.size());
        return {};
    }
    int SerialOutputCount() const override {
        const int left = queued;
        queued = std::max(0, queued - drainPerCheck);
        return left;
    }
    DeviceResult SetPortVal(uint16_t a, int32_t v) override {
        if (portFailure) return portFailure;
        log.push_back("out " + std::to_string(a) + "=" + std::to_string(v));
        return {};
    }
    DeviceResult GetPortVal(uint16_t a, int32_t& v) override {
        if (portFailure) return portFailure;
        auto& queue = readings[a];
        v = queue.empty() ? 0 : queue.front();
        if (!queue.empty()) queue.erase(queue.begin());
        log.push_back("in " + std::to_string(a));
        return {};
    }
    DeviceResult DdePoke(const std::string& app, const std::string& topic, const std::string& item,
                         const std::string& data) override {
        log.push_back("poke " + app + "|" + topic + " " + item + " " + data);
        return {};
    }
    DeviceResult SendKeys(const std::string& keys, bool wait) override {
        log.push_back("keys " + keys + (wait ? " wait" : " nowait"));
        return keysFailure;
    }
    DeviceResult Shell(const std::string& command, int style) override {
        log.push_back("shell " + command + " " + std::to_string(style));
        return {};
    }
    DeviceResult AppActivate(const std::string& title) override {
        log.push_back("activate " + title);
        return {};
    }
    std::vector<std::string> WindowTitles() override { return windows; }
};

// A script host that shows nothing and never waits.
class QuietScriptHost : public ScriptHost {
public:
    std::string status; // the last one
    void SetStatus(const std::string& text) override { status = text; }
    std::string Status() const override { return status; }
    void DoEvents() override {}
    void WaitForEvents(std::optional<double>) override {}
    void StartTimerPause() override {}
    void StopTimerPause() override {}
    void StopTimer1() override {}
    void StepperBox(const std::string&) override {}
    std::string Label3Text() override { return {}; }
    std::string ActiveModeNames() override { return {}; }
};

} // namespace tarvelle
