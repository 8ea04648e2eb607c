#include "scripting/automation.h"

#include "core/date_value.h"
#include "core/text_forms.h"

#include <cmath>

namespace tarvelle {

namespace {

double D(float x) {
    return static_cast<double>(x);
}

} // namespace

std::string TaskDateText(double date) {
    return FormatDateMask(date, "yyyy/mm/dd");
}

std::string TaskTimeText(double time) {
    return FormatDateMask(time, "hh:nn:ss");
}

AutomationTask::AutomationTask(Station& station, ScriptInterpreter& interpreter)
    : st_(station), interpreter_(interpreter) {}

bool AutomationTask::LoadAutomationParameters() {
    if (!st_.modes.ModesLoaded) {
        st_.dialogs.Message("Automation parameters cannot be loaded \r\nbecause no mode file has been loaded.\r\n"
                            "Load a mode file before continuing.",
                            "Automation Parameter Load Error");
        return false;
    }
    const auto text = [this](const char* key, const char* fallback) {
        return st_.settings.get(kTasksSection, key, fallback).toStdString();
    };
    const auto flag = [&](const char* key) { return ValueOfText(text(key, "0")) == 1.0; };
    const auto single = [&](const char* key, const char* fallback) {
        return static_cast<float>(PlainNumber(text(key, fallback)));
    };
    for (int i = 1; i <= st_.modes.PredictedModes(); ++i)
        p.ModeTask[static_cast<size_t>(i)] = flag(("Mode" + std::to_string(i) + "Task").c_str());
    p.UseJupAz = flag("JupAz");
    p.JupAz1 = single("JupAz1", "0");
    p.JupAz2 = single("JupAz2", "359.9");
    p.UseJupAlt = flag("JupAlt");
    p.JupAlt1 = single("JupAlt1", "0");
    p.JupAlt2 = single("JupAlt2", "89.9");
    p.SunIsDown = flag("SunIsDown");
    p.DoDaily = flag("DoDaily");
    p.DoOnThisDate = flag("DoOnThisDate");
    const double today = WholeDay(st_.clock.LocalNow());
    p.TaskDate = ScriptDate(text("TaskDate", TaskDateText(today).c_str())).value_or(today);
    p.TaskTime = ScriptTimeOfDay(text("TaskTime", "00:00:00")).value_or(0) / 86400.0;
    p.DoAtThisTime = flag("DoAtThisTime");
    p.TaskUseGMT = flag("TaskUseGMT");
    for (size_t i = 1; i <= kTaskScripts; ++i) {
        p.RunScript[i] = flag(kTaskRunKeys[i]);
        p.ScriptFileName[i] = text(kTaskFileKeys[i], "");
    }
    p.AltChanges = flag("AltChanges");
    p.AzChanges = flag("AzChanges");
    p.AltChangeDeg = single("AltChangeDeg", "0");
    p.AzChangeDeg = single("AzChangeDeg", "0");
    p.AltAzTarget = static_cast<int16_t>(PlainNumber(text("AltAzTarget", "0")));
    p.AudibleAlert = flag("AudibleAlert");
    // The activity line of the tick follows the same altitude limits.
    st_.automation.UseJupAlt = p.UseJupAlt;
    st_.automation.JupAlt1 = p.JupAlt1;
    st_.automation.JupAlt2 = p.JupAlt2;
    return true;
}

void AutomationTask::Run(int script) {
    interpreter_.RunScript(p.ScriptFileName[static_cast<size_t>(script)]);
}

bool AutomationTask::ModeOK(int minuteOfDay) {
    bool anyChecked = false;
    const int n = st_.modes.PredictedModes();
    for (int i = 1; i <= n; ++i) anyChecked = anyChecked || p.ModeTask[static_cast<size_t>(i)];
    if (!anyChecked) return true;
    ModeActiveNow = false;
    for (int i = 1; i <= n; ++i)
        if (st_.activity.ModeActivity[static_cast<size_t>(i)][static_cast<size_t>(minuteOfDay)] == 1 &&
            p.ModeTask[static_cast<size_t>(i)])
            ModeActiveNow = true;
    return ModeActiveNow;
}

void AutomationTask::AutomationMonitor() {
    if (!AutomationActive || interpreter_.ScriptRunning) return;
    const Core& c = st_.core;
    const double local = st_.clock.LocalNow();
    const double gmt = local - c.ObsTZ / 24.0;
    if (p.DoOnThisDate && std::floor(gmt) != std::floor(p.TaskDate)) return;

    if (p.DoAtThisTime && !st_.automation.DoneToday) {
        const int now = SecondsOfDay(p.TaskUseGMT ? gmt : local);
        if (now >= static_cast<int>(std::lround(p.TaskTime * 86400.0))) {
            if (p.RunScript[4]) Run(4);
            st_.automation.DoneToday = true;
        }
    }

    const CalendarFields g = FieldsOf(gmt);
    const bool modeOK = ModeOK(g.hour * 60 + g.minute);
    const bool sunOK = !(p.SunIsDown && c.SunAlt > 0.0);
    const bool altOK = !(p.UseJupAlt && (c.JupAlt < D(p.JupAlt1) || c.JupAlt > D(p.JupAlt2)));
    const bool azOK = !(p.UseJupAz && (c.JupAz < D(p.JupAz1) || c.JupAz > D(p.JupAz2)));

    const double alt = p.AltAzTarget == 0 ? c.JupAlt : c.SunAlt;
    const double az = p.AltAzTarget == 0 ? c.JupAz : c.SunAz;
    const bool azMoved = p.AzChanges && p.AzChangeDeg > 0.0f && std::fabs(az - LastTaskAz) > D(p.AzChangeDeg);
    const bool altMoved = p.AltChanges && p.AltChangeDeg > 0.0f && std::fabs(alt - LastTaskAlt) > D(p.AltChangeDeg);
    if ((altMoved || azMoved) && p.RunScript[3]) {
        Run(3);
        LastTaskAz = az;
        LastTaskAlt = alt;
    }

    const bool met = sunOK && altOK && modeOK && azOK;
    if (ConditionsMet == met) return;
    if (ConditionsMet) {
        if (p.RunScript[2]) Run(2);
        ConditionsMet = false;
        LastTaskAlt = alt;
        return;
    }
    if (!p.RunScript[1]) return;
    Run(1);
    ConditionsMet = true;
    if (p.AudibleAlert) st_.desktop.Beep();
}

AutomationTask::Toggle AutomationTask::ToggleAutomation() {
    if (!AutomationActive && !p.RunScript[1] && !p.RunScript[2] && !p.RunScript[3] && !p.RunScript[4]) {
        st_.dialogs.Message("No tasks have been selected.\r\nEdit automation parameters.", "No Tasks Selected");
        return Toggle::Refused;
    }
    AutomationActive = !AutomationActive;
    LastTaskAlt = 0.0;
    if (AutomationActive) return Toggle::Started;
    if (interpreter_.ScriptRunning &&
        st_.dialogs.Message("End script that is running??", "Stop Automation", MsgButtons::YesNo) == MsgAnswer::Yes)
        interpreter_.ScriptRunning = false;
    return Toggle::Stopped;
}

} // namespace tarvelle
