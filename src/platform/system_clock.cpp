#include "platform/system_clock.h"

#include "core/date_value.h"

#include <QDateTime>
#include <QTimeZone>

namespace tarvelle {

double SystemClock::LocalNow() const {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate d = now.date();
    const QTime t = now.time();
    return DateSerial(d.year(), d.month(), d.day()) + TimeSerial(t.hour(), t.minute(), t.second());
}

double SystemClock::ClockTimeZoneBias() const {
    const QTimeZone zone = QTimeZone::systemTimeZone();
    if (!zone.isValid()) return 0.0;
    return -zone.offsetFromUtc(QDateTime::currentDateTime()) / 3600.0;
}

} // namespace tarvelle
