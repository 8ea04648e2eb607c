#include "server/jis_block.h"

#include "core/date_value.h"
#include "core/numeric.h"
#include "core/text_forms.h"
#include "formats/error_text.h"
#include "prediction/prediction.h"

#include <cmath>
#include <limits>

namespace tarvelle {

namespace {

constexpr const char* kCrLf = "\r\n";

std::string Line(const char* key, const std::string& value) { return key + value + kCrLf; }

std::string Mask(double x, std::string_view mask) { return FormatNumberMask(x, mask); }

// A 16-bit key: the value of its text, rounded; a value outside 16 bits is an overflow.
std::optional<int16_t> ShortKey(const QString& text) {
    const double v = RoundHalfEven(ValueOfText(text.toStdString()));
    if (!(v >= std::numeric_limits<int16_t>::min() && v <= std::numeric_limits<int16_t>::max()))
        return std::nullopt;
    return static_cast<int16_t>(v);
}

QString Failure(const std::string& description) {
    return "Error Getting Jupiter Information Server Defaults.\r\n" + QString::fromStdString(description);
}

QString TrueFalse(bool b) { return b ? "True" : "False"; }
QString Str(int16_t v) { return QString::fromStdString(StrForm(static_cast<double>(v))); }

} // namespace

JisValues CurrentJisValues(const Station& station, const std::string& label3) {
    const Core& c = station.core;
    JisValues v;
    v.CurrentUT = c.CurrentUT;
    v.Label3 = label3;
    v.JupAlt = c.JupAlt;
    v.JupAz = c.JupAz;
    v.CMLIII = c.CMLIII;
    v.IoPhase = c.IoPhase;
    CheckForActivity(c, station.modes, station.activity, v.modeFound, v.modeNames);
    v.SunAlt = c.SunAlt;
    v.SunAz = c.SunAz;
    return v;
}

std::string BuildJISBlock(const ServerSchedule& o, const JisValues& v) {
    std::string b;
    if (o.JIStime) {
        b += Line("Year = ", FormatDateMask(v.CurrentUT, "YYYY"));
        b += Line("Month = ", FormatDateMask(v.CurrentUT, "MM"));
        b += Line("Day = ", FormatDateMask(v.CurrentUT, "DD"));
        b += Line("Hour = ", FormatDateMask(v.CurrentUT, "HH"));
        b += Line("Minute = ", FormatDateMask(v.CurrentUT, "nn"));
        b += Line("Second = ", FormatDateMask(v.CurrentUT, "ss"));
        b += Line("LMSTTIME = ", v.Label3);
    }
    if (o.JISjupALTAZ) {
        b += Line("JUP ALT = ", Mask(v.JupAlt, "00"));
        b += Line("JUP AZ = ", Mask(v.JupAz, "000"));
    }
    if (o.JISjupCMLIO) {
        b += Line("CML3 = ", Mask(static_cast<double>(v.CMLIII), "000.0"));
        b += Line("IO PHASE = ", Mask(static_cast<double>(v.IoPhase), "000.0"));
    }
    if (o.JISjupMODE) b += Line("MODE = ", v.modeFound ? v.modeNames : std::string("NONE"));
    if (o.JISsun) {
        b += Line("SUN ALT = ", Mask(v.SunAlt, "00"));
        b += Line("SUNAZ = ", Mask(v.SunAz, "000"));
    }
    return b;
}

JisRequest ReadJISRequest(std::string_view data) {
    JisRequest r;
    r.sendBlock = data.find('J') != std::string_view::npos;
    if (data.find('P') != std::string_view::npos)
        r.moveTo = ValueOfText(data.empty() ? data : data.substr(1));
    return r;
}

std::optional<QString> LoadJISParameters(const SettingsStore& settings, ServerSchedule& p) {
    const auto get = [&settings](const char* key, const char* def) { return settings.get("Settings", key, def); };
    struct ShortItem {
        const char* key;
        const char* def;
        int16_t* target;
    };
    struct BoolItem {
        const char* key;
        const char* def;
        bool* target;
    };
    // In the order they are read; the first that fails stops the rest.
    for (const ShortItem& i : {ShortItem{"RunJIS", "0", &p.RunJIS}, ShortItem{"PushJIS", "0", &p.PushJIS},
                               ShortItem{"JISMin", "10", &p.JISMin}}) {
        const auto v = ShortKey(get(i.key, i.def));
        if (!v) return Failure(ErrorText(6));
        *i.target = *v;
    }
    p.JISIP = get("JISIP", "127.0.0.1");
    const auto port = ShortKey(get("JISPort", "4711"));
    if (!port) return Failure(ErrorText(6));
    p.JISPort = *port;
    for (const BoolItem& i : {BoolItem{"JIStime", "1", &p.JIStime}, BoolItem{"JISjupALTAZ", "True", &p.JISjupALTAZ},
                              BoolItem{"JISjupCMLIO", "1", &p.JISjupCMLIO}, BoolItem{"JISjupMODE", "1", &p.JISjupMODE},
                              BoolItem{"JISsun", "1", &p.JISsun}}) {
        const auto v = ReadStoredBool(get(i.key, i.def).toStdString());
        if (!v) return Failure("Type mismatch");
        *i.target = *v;
    }
    return std::nullopt;
}

void SaveJISParameters(SettingsStore& settings, const ServerSchedule& p) {
    const auto save = [&settings](const char* key, const QString& value) { settings.save("Settings", key, value); };
    save("RunJIS", Str(p.RunJIS));
    save("PushJIS", Str(p.PushJIS));
    save("JISMin", Str(p.JISMin));
    save("JISIP", p.JISIP);
    save("JISPort", Str(p.JISPort));
    save("JIStime", TrueFalse(p.JIStime));
    save("JISjupALTAZ", TrueFalse(p.JISjupALTAZ));
    save("JISjupCMLIO", TrueFalse(p.JISjupCMLIO));
    save("JISjupMODE", TrueFalse(p.JISjupMODE));
    save("JISsun", TrueFalse(p.JISsun));
}

} // namespace tarvelle
