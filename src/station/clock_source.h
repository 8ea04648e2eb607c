// The computer's clock: its local date and time, and its current offset from GMT.
#pragma once

#include <functional>

namespace tarvelle {

class ClockSource {
public:
    virtual ~ClockSource() = default;
    // The computer's local date and time as a date value, to the whole second.
    virtual double LocalNow() const = 0;
    // Hours west of Greenwich of the computer's zone now, daylight saving included; 0 if the
    // system cannot say.
    virtual double ClockTimeZoneBias() const = 0;
};

} // namespace tarvelle
