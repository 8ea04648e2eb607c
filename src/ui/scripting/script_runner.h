// The station window's side of scripts and automation: the interpreter and the automation task
// on the real devices, reporting on the status line and waiting on the event loop.
//
// Form1 makes one and keeps it for the whole run; the devices (the one serial port) outlive
// every script.
#pragma once

#include "platform/system_script_devices.h"
#include "scripting/automation.h"
#include "scripting/event_loop_waits.h"
#include "scripting/script_interpreter.h"
#include "station/station.h"

class QLabel;
class QTimer;
class QWidget;

namespace tarvelle {

class ScriptRunner final : public ScriptHost {
public:
    // status is LBLQ, label3 the sidereal-time label, timer1 the tick, window what a logged
    // failure redraws.
    ScriptRunner(Station& station, QLabel& status, QLabel& label3, QTimer& timer1, QWidget& window);

    ScriptInterpreter& Interpreter() { return interpreter_; }
    AutomationTask& Task() { return task_; }

    void SetStatus(const std::string& text) override;
    std::string Status() const override;
    void DoEvents() override { EventLoopWaits::DoEvents(); }
    void WaitForEvents(std::optional<double> until) override;
    void StartTimerPause() override { waits_.StartTimerPause(); }
    void StopTimerPause() override { waits_.StopTimerPause(); }
    void StopTimer1() override;
    void StepperBox(const std::string& text) override;
    void Redraw() override;
    std::string Label3Text() override;
    std::string ActiveModeNames() override;

private:
    Station& st_;
    QLabel& status_;
    QLabel& label3_;
    QTimer& timer1_;
    QWidget& window_;
    SystemScriptDevices devices_;
    EventLoopWaits waits_;
    ScriptInterpreter interpreter_;
    AutomationTask task_;
};

} // namespace tarvelle
