// The automation task over simulated minutes: which script runs when, on the recording devices.
#include "script_test_host.h"

#include "core/date_value.h"
#include "scripting/automation.h"

#include <gtest/gtest.h>

using namespace tarvelle;

namespace {

class Automation : public ScriptStationTest {
protected:
    void SetUp() override {
        ScriptStationTest::SetUp();
        UseSampleObserver();
        station->modes.ModesLoaded = true;
        station->modes.NumModes = 6;
        task = std::make_unique<AutomationTask>(*station, *script);
        for (size_t i = 1; i <= kTaskScripts; ++i) {
            const QString name = QString("s%1.scp").arg(i);
            WriteFile(name, QString("COM_SEND STRING (S%1)\n").arg(i).toUtf8());
            task->p.ScriptFileName[i] = (programDir + name).toStdString();
        }
        task->AutomationActive = true;
    }
    // One call of the monitor at a local time of 2026-11-22 with the given live values.
    std::string Minute(int hour, int minute, double jupAlt, double sunAlt = -10.0, double jupAz = 180.0) {
        clock.local = DateSerial(2026, 11, 22) + TimeSerial(hour, minute, 0);
        core().JupAlt = jupAlt;
        core().SunAlt = sunAlt;
        core().JupAz = jupAz;
        devices.sent.clear();
        task->AutomationMonitor();
        return devices.sent;
    }

    std::unique_ptr<AutomationTask> task;
};

TEST_F(Automation, ConditionsRiseWithScriptOneAndEndWithScriptTwo) {
    AutomationParameters& p = task->p;
    p.UseJupAlt = p.SunIsDown = p.AudibleAlert = p.RunScript[1] = p.RunScript[2] = true;
    p.JupAlt1 = 10;
    p.JupAlt2 = 20;
    const struct { double jupAlt, sunAlt; const char* runs; } minutes[] = {
        {5, -10, ""}, {10, -10, "S1"}, {15, -10, ""}, {20, -10, ""}, {20.5, -10, "S2"},
        {25, -10, ""}, {12, 1, ""}, {12, 0, "S1"}, {12, 0.1, "S2"},
    };
    int m = 0;
    for (const auto& c : minutes) EXPECT_EQ(Minute(20, m++, c.jupAlt, c.sunAlt), c.runs) << m;
    EXPECT_EQ(desktop.beeps, 2);
    EXPECT_EQ(task->LastTaskAlt, 12.0); // the altitude when the conditions last ended

    // Without script 1 the conditions never count as met, and script 2 never runs.
    p.RunScript[1] = false;
    task->ConditionsMet = false;
    EXPECT_EQ(Minute(21, 0, 15), "");
    EXPECT_EQ(Minute(21, 1, 30), "");
    EXPECT_FALSE(task->ConditionsMet);
}

// Once a day (a new date, or the parameters window, clears the flag); in GMT 16:00 is 11:00
// here, five hours west; with its script off the time passes all the same.
TEST_F(Automation, ATimeTaskFiresOncePerDayInLocalOrGmt) {
    AutomationParameters& p = task->p;
    p.DoAtThisTime = true;
    p.TaskTime = TimeSerial(16, 0, 0);
    const struct { bool gmt, newDay, script; int hour, minute; const char* runs; } minutes[] = {
        {false, false, true, 15, 59, ""}, {false, false, true, 16, 0, "S4"}, {false, false, true, 16, 1, ""},
        {false, true, true, 16, 2, "S4"}, {true, true, true, 10, 59, ""},    {true, false, true, 11, 0, "S4"},
        {true, true, false, 11, 1, ""}};
    for (const auto& c : minutes) {
        p.TaskUseGMT = c.gmt;
        p.RunScript[4] = c.script;
        if (c.newDay) station->automation.DoneToday = false;
        EXPECT_EQ(Minute(c.hour, c.minute, 0), c.runs) << c.hour << ":" << c.minute;
    }
    EXPECT_TRUE(station->automation.DoneToday);
}

TEST_F(Automation, MovementTriggerFollowsTheTargetFromItsLastFiring) {
    AutomationParameters& p = task->p;
    p.AltChanges = true;
    p.AltChangeDeg = 5;
    p.RunScript[3] = true;
    const std::pair<double, const char*> minutes[] = {{-10, "S3"}, {-12, ""},    {-15, ""},
                                                      {-15.5, "S3"}, {-10.5, ""}, {-10.4, "S3"}};
    int m = 0;
    for (const auto& [jupAlt, runs] : minutes) EXPECT_EQ(Minute(3, m++, jupAlt), runs) << m;
    p.AltChangeDeg = 0; // a stored zero never fires
    EXPECT_EQ(Minute(3, 10, 80), "");
    // The Sun as target.
    p.AltChangeDeg = 5;
    p.AltAzTarget = 1;
    EXPECT_EQ(Minute(3, 11, 80, -4), "S3");
    EXPECT_EQ(task->LastTaskAlt, -4.0);
}

TEST_F(Automation, ModesAndDatesHoldTheTaskBack) {
    AutomationParameters& p = task->p;
    p.RunScript[1] = p.RunScript[2] = true;
    p.ModeTask[2] = true;
    const int minuteGmt = 1 * 60 + 5; // 20:05 local is 01:05 GMT
    station->activity.ModeActivity[2][minuteGmt] = 1;
    EXPECT_EQ(Minute(20, 4, 0), "");
    EXPECT_EQ(Minute(20, 5, 0), "S1");
    EXPECT_TRUE(task->ModeActiveNow);
    // A task for tomorrow's GMT date does nothing, not even the end of the conditions.
    p.DoOnThisDate = true;
    p.TaskDate = DateSerial(2026, 11, 24);
    EXPECT_EQ(Minute(20, 6, 0), "");
    EXPECT_TRUE(task->ConditionsMet);
    p.TaskDate = DateSerial(2026, 11, 23);
    EXPECT_EQ(Minute(20, 6, 0), "S2");
    // Off, or with a script running, the monitor does nothing.
    task->AutomationActive = false;
    EXPECT_EQ(Minute(20, 5, 0), "");
    task->AutomationActive = true;
    script->ScriptRunning = true;
    EXPECT_EQ(Minute(20, 5, 0), "");
}

TEST_F(Automation, ToggleRefusesWithoutTasksAndAsksBeforeEndingAScript) {
    task->AutomationActive = false;
    EXPECT_EQ(task->ToggleAutomation(), AutomationTask::Toggle::Refused);
    EXPECT_EQ(dialogs.messages.back().title, "No Tasks Selected");
    task->p.RunScript[3] = true;
    task->LastTaskAlt = 7;
    EXPECT_EQ(task->ToggleAutomation(), AutomationTask::Toggle::Started);
    EXPECT_EQ(task->LastTaskAlt, 0.0);
    const size_t shown = dialogs.messages.size();
    EXPECT_EQ(task->ToggleAutomation(), AutomationTask::Toggle::Stopped);
    EXPECT_EQ(dialogs.messages.size(), shown); // no script running: no question
    task->ToggleAutomation();
    script->ScriptRunning = true;
    dialogs.answers = {MsgAnswer::No, MsgAnswer::Yes};
    task->ToggleAutomation();
    EXPECT_TRUE(script->ScriptRunning);
    task->ToggleAutomation();
    task->ToggleAutomation();
    EXPECT_FALSE(script->ScriptRunning);
    EXPECT_EQ(dialogs.messages.back().text, "End script that is running??");
}

TEST_F(Automation, LoadReadsEveryKeyAndRefusesWithoutModes) {
    // One key of each kind: booleans (only a stored 1 is true), singles, a date, a time, a name.
    const std::pair<const char*, const char*> keys[] = {
        {"Mode2Task", " 1"}, {"Mode3Task", "-1"},           {"JupAlt", "True"},         {"JupAz1", " 10.5"},
        {"JupAlt2", "45"},   {"TaskDate", "2026/12/01"},    {"TaskTime", "06:30:00"},   {"ScriptFileName3", "/x/y.scp"}};
    for (const auto& [k, v] : keys) settings->save("Tasks", k, v);
    ASSERT_TRUE(task->LoadAutomationParameters());
    const AutomationParameters& p = task->p;
    EXPECT_TRUE(p.ModeTask[2] && !p.ModeTask[3] && !p.UseJupAlt);
    EXPECT_EQ(p.JupAz1, 10.5f);
    EXPECT_EQ(p.TaskDate, DateSerial(2026, 12, 1));
    EXPECT_DOUBLE_EQ(p.TaskTime, TimeSerial(6, 30, 0));
    EXPECT_EQ(p.ScriptFileName[3], "/x/y.scp");
    EXPECT_EQ(station->automation.JupAlt2, 45.0) << "the limits the station shows are updated";

    station->modes.ModesLoaded = false;
    task->p.AzChangeDeg = 1;
    EXPECT_FALSE(task->LoadAutomationParameters());
    EXPECT_EQ(task->p.AzChangeDeg, 1.0f);
    EXPECT_EQ(dialogs.messages.back().title, "Automation Parameter Load Error");
}

} // namespace
