// The computer's real clock: QDateTime and the system time zone.
#pragma once

#include "station/clock_source.h"

namespace tarvelle {

class SystemClock final : public ClockSource {
public:
    double LocalNow() const override;
    double ClockTimeZoneBias() const override;
};

} // namespace tarvelle
