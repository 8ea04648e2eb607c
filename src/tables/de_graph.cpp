#include "tables/de_graph.h"

#include "core/date_value.h"
#include "core/numeric.h"
#include "core/text_forms.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>

namespace tarvelle {

bool IsDeYear(const std::string& text) {
    const std::string t = Trim(text);
    if (t.empty() || t.size() > 4) return false;
    for (char c : t)
        if (!std::isdigit(static_cast<unsigned char>(c))) return false;
    const int y = std::atoi(t.c_str());
    return y >= 100 && y <= 9999;
}

std::string ShortestSingle(float v) {
    char buf[32];
    for (int p = 1; p <= 9; ++p) {
        std::snprintf(buf, sizeof buf, "%.*g", p, static_cast<double>(v));
        if (std::strtof(buf, nullptr) == v) break;
    }
    return buf;
}

DeGraph ComputeDeGraph(Core& core, const std::string& fromYear, const std::string& toYear,
                       const std::function<void()>& yield) {
    DeGraph g;
    g.fromText = fromYear;
    g.toText = toYear;
    if (!IsDeYear(fromYear)) {
        g.message = "You must enter a valid year (YYYY)";
        g.title = "Start Year Error";
        return g;
    }
    if (!IsDeYear(toYear)) {
        g.message = "You must enter a valid year (YYYY)";
        g.title = "End Year Error";
        return g;
    }
    int y1 = static_cast<int>(ValueOfText(fromYear));
    int y2 = static_cast<int>(ValueOfText(toYear));
    g.step = y1 == y2 ? 1.0 : 10.0;
    if (y1 > y2) {
        std::swap(y1, y2);
        std::swap(g.fromText, g.toText);
    }
    g.DeStart = DateSerial(y1, 1, 1);
    g.DeEnd = DateSerial(y2, 12, 31);
    g.days = g.DeEnd - g.DeStart;

    core.SaveCurrentTime();
    auto at = [&](double x) {
        core.CurrentUT = g.DeStart + 0.5 + x;
        core.UpdateDayNumbers();
        core.UpdateSunJupiterPositions();
        core.UpdateDe();
        g.points.push_back({x, core.De});
    };
    double x = 0.0;
    at(x);
    int year = FieldsOf(core.CurrentUT).year;
    do {
        x += g.step;
        at(x);
        if (const int now = FieldsOf(core.CurrentUT).year; now > year) {
            g.yearLines.push_back({x, now});
            year = now;
        }
        if (yield) yield();
    } while (core.CurrentUT < g.DeEnd);
    core.RestoreCurrentTime();
    return g;
}

} // namespace tarvelle
