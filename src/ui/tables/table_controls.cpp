#include "ui/tables/table_controls.h"

#include <QTimer>

namespace tarvelle {

MainTimerPause::MainTimerPause(QTimer* timer) : timer_(timer), wasActive_(timer && timer->isActive()) {
    if (timer_) timer_->stop();
}

MainTimerPause::~MainTimerPause() {
    if (timer_ && wasActive_) timer_->start();
}

} // namespace tarvelle
