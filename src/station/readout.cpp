#include "station/readout.h"

#include "core/date_value.h"
#include "formats/observer_record.h"
#include "core/text_forms.h"

#include <cmath>

namespace tarvelle {

namespace {

// Rise and set in the zone shown: GMT as they stand, local moved by ObsTZ into 0..24. A body
// that does not cross the horizon (-1) shows the same "none" value in either zone.
double ShownRiseSet(const Core& core, double hours) {
    if (core.UseGMT || hours == -1.0) return hours;
    double h = hours + core.ObsTZ;
    if (h < 0.0) h += 24.0;
    if (h > 24.0) h -= 24.0;
    return h;
}

// Hour angle from sidereal time; only values below -12 are folded.
double HourAngle(double siderealTime, double ra) {
    double ha = siderealTime - ra;
    if (ha < -12.0) ha += 24.0;
    return ha;
}

} // namespace

TimeTexts BuildTimeTexts(const Core& core, const FixedSnapshot& fixed, double computerClock) {
    TimeTexts t;
    if (core.RealTimeMode)
        t.shown = core.UseGMT ? core.CurrentUT : computerClock;
    else
        t.shown = core.UseGMT ? fixed.FixedUT : fixed.FixedUT + core.ObsTZ / 24.0 - core.ClockOffset / 24.0;
    t.txtY = FormatDateMask(t.shown, "yyyy");
    t.txtM = FormatDateMask(t.shown, "mm");
    t.txtD = FormatDateMask(t.shown, "dd");
    t.txtH = FormatDateMask(t.shown, "hh");
    t.txtN = FormatDateMask(t.shown, "nn");
    t.txtS = FormatDateMask(t.shown, "ss");

    const double v = core.RealTimeMode ? core.LST : fixed.FixedLST;
    const double h = std::floor(v);
    double f = v - h;
    const double n = std::floor(f * 60.0);
    f = f - n / 60.0;
    const double s = std::floor(f * 3600.0);
    t.Label3 = " LMST: " + FormatDateMask(TimeSerial(h, n, s), "HH:MM:SS");
    return t;
}

InfoTexts BuildInfoTexts(const Core& core, const FixedSnapshot& fixed) {
    const bool real = core.RealTimeMode;
    const double lst = real ? static_cast<double>(core.LST) : static_cast<double>(fixed.FixedLST);
    const double jupRA = real ? core.JupRA : fixed.FixedJupRA;
    const double sunRA = real ? core.SunRA : fixed.FixedSunRA;

    InfoTexts i;
    i.LbLSunRise = "Rise: " + FormatHours(ShownRiseSet(core, real ? core.SunRise : fixed.FixedSunRise));
    i.LbLSunSet = "Set: " + FormatHours(ShownRiseSet(core, real ? core.SunSet : fixed.FixedSunSet));
    i.LbLJupRise = "Rise: " + FormatHours(ShownRiseSet(core, real ? core.JupRise : fixed.FixedJupRise));
    i.LbLJupSet = "Set: " + FormatHours(ShownRiseSet(core, real ? core.JupSet : fixed.FixedJupSet));
    i.LBLJupHA = "HA: " + FormatHours(HourAngle(lst, jupRA));
    i.LBLSunHA = "HA: " + FormatHours(HourAngle(lst, sunRA));
    i.LbLJupRA = "RA: " + (real ? core.JupRAText : FormatHours(fixed.FixedJupRA));
    i.LbLJupDec = "DEC: " + (real ? core.JupDecText : FormatDegrees(fixed.FixedJupDec));
    i.LbLSunRA = "RA: " + (real ? core.SunRAText : FormatHours(fixed.FixedSunRA));
    i.LbLSunDec = "DEC: " + (real ? core.SunDecText : FormatDegrees(fixed.FixedSunDec));
    i.LBlCMIII = (real ? "CML: " : "CMIII: ") + StrForm(real ? core.CMLIII : fixed.FixedCML);
    i.LbLSGC = (real ? "Io Phase: " : "Io SGC: ") +
               FormatNumberMask(real ? core.IoPhase : fixed.FixedIoPhase, "000.00");
    i.LBLJupAlt = "ALT: " + FormatNumberMask(real ? core.JupAlt : fixed.FixedJupAlt, "00.0");
    i.LBLJupAz = "AZ: " + FormatNumberMask(real ? core.JupAz : fixed.FixedJupAz, "000.0");
    i.LBLSunAlt = "ALT: " + FormatNumberMask(real ? core.SunAlt : fixed.FixedSunAlt, "00.0");
    i.LBLSunAz = "AZ: " + FormatNumberMask(real ? core.SunAz : fixed.FixedSunAz, "000.0");
    return i;
}

std::string ObserverLabelText(const Core& core) {
    const std::string lat = "Lat : " + FormatLatitudeText(core.ObsLatitude) + "\n";
    if (core.DisplayWest == "W") return lat + "Long: " + FormatLongitudeText(core.ObsLongitude) + " W";
    return lat + "Long: " + FormatLongitudeText(360.0 - static_cast<double>(core.ObsLongitude)) + " E";
}

std::string CaptionText(const std::string& titleText, bool useGMT) {
    return titleText + (useGMT ? "  (GMT)" : "  (Local Time)");
}

std::string TitleWithVersion(const std::string& titleText, int major, int minor, int revision) {
    return titleText + "   " + FormatNumberMask(major, "##") + "." + FormatNumberMask(minor, "#0") + "." +
           FormatNumberMask(revision, "#0");
}

} // namespace tarvelle
