// A script host for tests: records the status line and the stepper boxes, and moves the
// test's clock instead of waiting (a second for each pause-timer event, a jump to the instant
// a WAIT UNTIL waits for, and stepSeconds for any other wait).
#pragma once

#include "doubles.h"
#include "scripting/script_interpreter.h"
#include "station_test.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarvelle {

class TestScriptHost final : public ScriptHost {
public:
    explicit TestScriptHost(FakeClock& clock) : clock_(clock) {}
    ScriptInterpreter* interpreter = nullptr;
    std::vector<std::string> statuses, boxes, errlog;
    std::string label3 = " LMST: 01:02:03", modes;
    double stepSeconds = 0.0;
    int waits = 0, timer1Stops = 0;
    std::function<void()> onWait; // runs inside each wait, as another event would

    void SetStatus(const std::string& text) override { statuses.push_back(text); }
    std::string Status() const override { return statuses.empty() ? std::string() : statuses.back(); }
    void DoEvents() override {}
    void WaitForEvents(std::optional<double> until) override {
        ++waits;
        if (onWait) onWait();
        if (pause_) {
            clock_.local += 1.0 / 86400.0;
            interpreter->TimerPauseTick();
        } else if (until && *until > clock_.local) {
            clock_.local = *until;
        } else {
            clock_.local += stepSeconds / 86400.0;
        }
    }
    void StartTimerPause() override { pause_ = true; }
    void StopTimerPause() override { pause_ = false; }
    void StopTimer1() override { ++timer1Stops; }
    void StepperBox(const std::string& text) override { boxes.push_back(text); }
    std::string Label3Text() override { return label3; }
    std::string ActiveModeNames() override { return modes; }
    void ErrLogLine(const std::string& line) override { errlog.push_back(line); }

private:
    FakeClock& clock_;
    bool pause_ = false;
};

// A station whose scripts run on this host and the recording devices.
class ScriptStationTest : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        host = std::make_unique<TestScriptHost>(clock);
        script = std::make_unique<ScriptInterpreter>(*station, *host, devices);
        host->interpreter = script.get();
    }
    RecordingScriptDevices devices;
    std::unique_ptr<TestScriptHost> host;
    std::unique_ptr<ScriptInterpreter> script;
};

} // namespace tarvelle
