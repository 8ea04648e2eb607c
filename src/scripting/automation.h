// The automation task: once a minute it tests where Jupiter and the Sun stand and whether a
// checked mode is predicted active, and runs up to four scripts: when the conditions become
// true (1), when they end (2), when the target has moved by a set step (3) and at a time of
// day (4). Its record lives in the settings section "Tasks".
//
// Sequence of use: LoadAutomationParameters() at start-up and when the parameters window
// opens; ToggleAutomation() from the menu and the two buttons; AutomationMonitor() from the
// tick at each new minute while a mode file is loaded.
#pragma once

#include "scripting/script_interpreter.h"
#include "station/station.h"

#include <array>
#include <string>

namespace tarvelle {

inline constexpr int kTaskScripts = 4;

// The settings section of the record, and the keys of script n (1 to 4): whether it runs, and
// its file.
inline constexpr char kTasksSection[] = "Tasks";
inline constexpr const char* kTaskRunKeys[kTaskScripts + 1] = {"", "RunScript", "RunScript2", "RunScript3",
                                                                "RunScript4"};
inline constexpr const char* kTaskFileKeys[kTaskScripts + 1] = {"", "ScriptFileName", "ScriptFileName2",
                                                                 "ScriptFileName3", "ScriptFileName4"};

struct AutomationParameters {
    std::array<bool, kPredictedModes + 1> ModeTask{}; // 1 to NumModes
    bool UseJupAz = false;
    float JupAz1 = 0.0f, JupAz2 = 359.9f;
    bool UseJupAlt = false;
    float JupAlt1 = 0.0f, JupAlt2 = 89.9f;
    bool SunIsDown = false, DoDaily = false, DoOnThisDate = false;
    double TaskDate = 0.0; // a date value, whole days
    double TaskTime = 0.0; // a fraction of a day
    bool DoAtThisTime = false, TaskUseGMT = false;
    std::array<bool, kTaskScripts + 1> RunScript{};              // 1 to 4
    std::array<std::string, kTaskScripts + 1> ScriptFileName{}; // 1 to 4
    bool AltChanges = false, AzChanges = false;
    float AltChangeDeg = 0.0f, AzChangeDeg = 0.0f;
    int16_t AltAzTarget = 0; // 0 Jupiter, 1 the Sun
    bool AudibleAlert = false;
};

// How TaskDate and TaskTime are stored.
std::string TaskDateText(double date);
std::string TaskTimeText(double time);

class AutomationTask {
public:
    AutomationTask(Station& station, ScriptInterpreter& interpreter);

    // Reads the record; refuses with a message when no mode file is loaded.
    bool LoadAutomationParameters();
    void AutomationMonitor();

    enum class Toggle { Refused, Started, Stopped };
    // Turns the task on or off; asks before it ends a running script.
    Toggle ToggleAutomation();

    AutomationParameters p;
    bool AutomationActive = false;
    bool ConditionsMet = false;
    bool ModeActiveNow = false;
    double LastTaskAlt = 0.0, LastTaskAz = 0.0;

private:
    bool ModeOK(int minuteOfDay);
    void Run(int script);

    Station& st_;
    ScriptInterpreter& interpreter_;
};

} // namespace tarvelle
