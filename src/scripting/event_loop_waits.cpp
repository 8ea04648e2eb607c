#include "scripting/event_loop_waits.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <algorithm>
#include <cmath>

namespace tarvelle {

EventLoopWaits::EventLoopWaits(std::function<void()> onPauseTick, QObject* parent) : QObject(parent) {
    pause_.setObjectName("TimerPause");
    pause_.setInterval(1000);
    connect(&pause_, &QTimer::timeout, this, [tick = std::move(onPauseTick)] { tick(); });
}

void EventLoopWaits::DoEvents() {
    QCoreApplication::processEvents();
}

void EventLoopWaits::WaitForEvents(std::optional<double> until, double now) {
    int ms = kSliceMs;
    if (until) ms = std::clamp(static_cast<int>(std::ceil((*until - now) * 86400000.0)), 1, kSliceMs);
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace tarvelle
