#include "tables/visibility.h"

#include "core/date_value.h"
#include "core/numeric.h"
#include "core/text_forms.h"

#include <climits>

namespace tarvelle {

VisibilityResolution ResolutionOf(bool hiRes) {
    if (hiRes) return {23.983333, 0.01666666, 1.0 / 1440.0};
    return {23.67, 0.333333, 1.0 / 72.0};
}

int YearFromText(const std::string& text) {
    const double v = RoundHalfEven(ValueOfText(text));
    if (v > INT_MAX) return INT_MAX;
    if (v < INT_MIN) return INT_MIN;
    return static_cast<int>(v);
}

Visible VisibilityOf(double jupAlt, double sunAlt, Visible previous) {
    if (jupAlt > 0.0 && sunAlt > 0.0) return Visible::Both;
    if (jupAlt < 0.0 && sunAlt > 0.0) return Visible::Sun;
    if (jupAlt > 0.0 && sunAlt < 0.0) return Visible::Jupiter;
    if (jupAlt < 0.0 && sunAlt < 0.0) return Visible::Neither;
    return previous;
}

VisibilityResult ComputeVisibility(Core& core, int year, bool hiRes,
                                   const std::function<void(int, const std::string&)>& onDay) {
    VisibilityResult result;
    if (year < 1900 || year > 2100) {
        result.message = "You must enter a year between 1900 and 2100";
        result.title = "Date Error";
        return result;
    }
    core.SaveCurrentTime();
    const double firstDay = DateSerial(year, 1, 1);
    const VisibilityResolution res = ResolutionOf(hiRes);
    // One colour for the whole chart: a day's first step follows the last of the day before.
    Visible colour = Visible::Neither;
    result.days.reserve(kVisibilityDays);
    for (int d = 0; d < kVisibilityDays; ++d) {
        core.CurrentUT = firstDay + d - core.ObsTZ / 24.0;
        core.UpdateSiderealTime();
        core.UpdateSunJupiterPositions();
        std::string letters;
        letters.reserve(1440);
        for (double h = 0.0; h <= res.lastHour; h += res.hourStep) {
            core.UpdateSiderealTime();
            core.UpdateHorizonCoords();
            colour = VisibilityOf(core.JupAlt, core.SunAlt, colour);
            letters += static_cast<char>(colour);
            core.CurrentUT += res.timeStep;
        }
        if (onDay) onDay(d, letters);
        result.days.push_back(std::move(letters));
    }
    core.RestoreCurrentTime();
    return result;
}

} // namespace tarvelle
