#include "prediction/plane_track.h"

#include "core/numeric.h"
#include "core/text_forms.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace tarvelle {

double PlaneX(double cml, int shift) {
    double x = cml - shift;
    if (x < 0.0) x = 360.0 - std::fabs(x);
    if (x >= 360.0) x -= 360.0;
    return x;
}

std::string TrackHourText(double hours, bool useGMT, double obsTZ) {
    double h = hours;
    if (!useGMT) h += obsTZ;
    if (h > 24) h -= 24;
    if (h < 0) h += 24;
    if (h == 24) h = 0;
    return Trim(StrForm(h));
}

double TrackEndOfDay(bool useGMT, double obsTZ) { return useGMT ? 1440.0 : 1440.0 - obsTZ * 60.0; }

std::vector<size_t> TrackHourRows(bool useGMT, double obsTZ) {
    constexpr size_t kLastRow = 1800, kHour = 60;
    const double end = TrackEndOfDay(useGMT, obsTZ), start = end - 1440.0;
    std::vector<size_t> rows;
    std::set<std::string> placed;
    for (const bool withinDay : {true, false}) {
        for (size_t k = 0; k <= kLastRow; k += kHour) {
            const auto minute = static_cast<double>(k);
            if ((minute >= start && minute < end) != withinDay) continue;
            if (placed.insert(TrackHourText(minute / 60.0, useGMT, obsTZ)).second) rows.push_back(k);
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

std::string PlaneReadoutText(double value) {
    std::string text = FormatNumberMask(value, "###.#");
    if (!text.empty() && text.back() == '.') text.pop_back();
    if (text.empty() || text.front() == '.') text.insert(0, "0");
    return text;
}

int16_t DayPointerOf(double t) {
    return static_cast<int16_t>(RoundHalfEven((t - std::floor(t)) / 0.000694444));
}

BlockCorner MarkerCorner(double cml, double io, int shift, int planeW, int planeH, int spriteW, int spriteH) {
    double left = RoundHalfEven(cml * planeW / 360.0 - spriteW / 2.0 - shift);
    if (left > 360) left -= 360;
    if (left < 0) left += 360;
    const double top = RoundHalfEven(planeH - io * planeH / 360.0 - spriteH / 2.0);
    return {static_cast<int>(left), static_cast<int>(top)};
}

PlanePoint PlanePointAt(float x, float y, int shift) {
    float c = x + static_cast<float>(shift);
    if (c >= 360.0f) c -= 360.0f;
    return {c, 360.0f - y};
}

} // namespace tarvelle
