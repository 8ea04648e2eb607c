// The waits of a script on the Qt event loop: a pass over pending events, a short sleep that
// wakes on any event (so that a long PAUSE or WAIT UNTIL uses no core), and the one-second
// pause timer.
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

namespace tarvelle {

class EventLoopWaits : public QObject {
    Q_OBJECT
public:
    // onPauseTick runs on each event of the pause timer.
    explicit EventLoopWaits(std::function<void()> onPauseTick, QObject* parent = nullptr);

    static void DoEvents();
    // Runs the event loop, sleeping while nothing happens, for one slice or until the
    // computer's clock reaches until, whichever is sooner (date values of local time).
    void WaitForEvents(std::optional<double> until, double now);
    void StartTimerPause() { pause_.start(); }
    void StopTimerPause() { pause_.stop(); }
    bool PauseActive() const { return pause_.isActive(); }

    static constexpr int kSliceMs = 100;

private:
    QTimer pause_;
};

} // namespace tarvelle
