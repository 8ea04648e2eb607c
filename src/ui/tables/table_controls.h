// Controls of the tables' windows: the named controls every window makes, and the pause of
// the main window's clock.
#pragma once

#include "ui/common/named_controls.h"

class QTimer;

namespace tarvelle {

// Stops the main window's Timer1 for work that moves the core's clock, and puts it back.
class MainTimerPause {
public:
    explicit MainTimerPause(QTimer* timer);
    ~MainTimerPause();
    MainTimerPause(const MainTimerPause&) = delete;
    MainTimerPause& operator=(const MainTimerPause&) = delete;

private:
    QTimer* timer_;
    bool wasActive_;
};

} // namespace tarvelle
