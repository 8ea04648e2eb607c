// The script language: loads a .scp file and runs it line by line against the station's live
// values, driving the devices through ScriptDevices and reporting on the status line.
//
// Sequence of use: construct with the Station, a ScriptHost (the status line, the event loop,
// the timers, the stepper box) and the devices; call RunScript(path). The host calls
// TimerPauseTick() on each event of its one-second pause timer while PAUSE waits. The run
// yields to the event loop only in WAIT UNTIL, PAUSE, IO_WHILE, the serial output wait, after
// a port reading and after the stepper box; between them it runs straight through.
#pragma once

#include "platform/script_devices.h"
#include "scripting/script_lines.h"
#include "station/station.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvelle {

// The window side of a run. The windowed program writes the main window's label and runs the
// Qt event loop; tarvelle-cli prints and simulates the clock.
class ScriptHost {
public:
    virtual ~ScriptHost() = default;
    virtual void SetStatus(const std::string& text) = 0;
    virtual std::string Status() const = 0;
    // One pass of the event loop over what is pending, without waiting.
    virtual void DoEvents() = 0;
    // A yield inside a waiting loop: lets events in, sleeping briefly when there are none so
    // that the wait uses no core. until is the computer's clock the loop waits for, if known.
    virtual void WaitForEvents(std::optional<double> until) = 0;
    virtual void StartTimerPause() = 0;
    virtual void StopTimerPause() = 0;
    virtual void StopTimer1() = 0;
    virtual void StepperBox(const std::string& text) = 0;
    virtual void Redraw() {}
    // The main window's sidereal-time label, " LMST: HH:MM:SS".
    virtual std::string Label3Text() = 0;
    // The names of the modes active now, each behind three blanks; empty when none.
    virtual std::string ActiveModeNames() = 0;
    // Each line as it goes into ScriptErrLog.txt.
    virtual void ErrLogLine(const std::string&) {}
};

// Error numbers a run returns that are not run-time failures.
inline constexpr int16_t kScriptNoParameter = 2;
inline constexpr int16_t kScriptPortZero = 5;
inline constexpr int16_t kScriptExit = 7;
inline constexpr int16_t kScriptDeviceIncomplete = 8;
inline constexpr int16_t kScriptOutputTimeout = 14;

inline constexpr int kFailureOverflow = 6;
inline constexpr int kFailureTypeMismatch = 13;
// A script that includes itself stops growing here.
inline constexpr size_t kMaxScriptLines = 100000;

// "H:MM" or "H:MM:SS" (24 hours) as seconds of the day, or "YYYY/M/D" as a date value; the
// part of a text holding both that the form asks for. nullopt when it is no such text.
std::optional<int> ScriptTimeOfDay(const std::string& parameter);
std::optional<double> ScriptDate(const std::string& parameter);

class ScriptInterpreter {
public:
    ScriptInterpreter(Station& station, ScriptHost& host, ScriptDevices& devices);

    // The final ScriptError, or nothing when the run was refused.
    std::optional<int> RunScript(const std::string& fileName);
    void LoadScriptFile(const std::string& fileName);
    bool LoadScriptFile2(const std::string& fileName);
    void TimerPauseTick();

    bool ScriptRunning = false; // clearing it from outside asks the run to end
    bool StepMode = false;
    int32_t PauseCount = 0;
    ScriptLineArray ScriptLines;
    std::vector<std::string> IncludedLines;

    // The state of the run, readable after it.
    int32_t LineIndex = 0;
    int32_t A = 0;
    int16_t ScriptPort = 0, ScriptComPort = 0, ScriptError = 0;
    std::string ScriptErrorText;
    bool StopOnError = true, FormatLeadingZeros = false;
    int32_t OutputTimeout = 120;
    std::string DdeTopic, DdeApp, DdeItem;

private:
    void StartRun();
    void RunLine(const std::string& raw);
    bool RunDdeLine();
    bool RunOptionLine();
    bool RunWaitLine();
    bool RunSerialLine();
    bool RunRegisterLine();
    bool RunPortLine();
    bool Has(const char* word) const;
    bool HasEither(const char* spaced, const char* tight) const;
    // Cuts the parameter out of source (the parsed line, or the raw line for SENDKEYS) and
    // replaces the built-in variables; sets error 2 when the parentheses are missing.
    void GetScriptParameter(const std::string& source);
    std::string ExpandVariables(std::string text);
    void ShowScriptLine();
    void ShowPortReading();
    void LogScriptError(int number, const std::string& description);
    void Log(const DeviceResult& r);
    // The integer part of the parameter's value within [low, high], or a logged overflow.
    std::optional<int32_t> IntegerPart(double low, double high);
    void ExecuteScript();
    void WaitUntil();
    void Pause();
    void SendSerial(const std::string& bytes, bool watchRunning);
    void ActivateWindow();
    void ReadPort();
    void IoWhile();
    void BitOperation(char op);
    std::string StepperText(const std::string& raw) const;
    double LocalNow() const { return st_.clock.LocalNow(); }

    Station& st_;
    ScriptHost& host_;
    ScriptDevices& dev_;
    std::string line_;      // the line being parsed
    std::string parameter_; // its expanded parameter
};

} // namespace tarvelle
