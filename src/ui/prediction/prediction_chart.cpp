#include "ui/prediction/prediction_chart.h"

#include "core/numeric.h"
#include "core/text_forms.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarvelle {

namespace {

// The chart's height is 9.5 units: the GMT hour band above, the local hour band below.
constexpr float kHourBandHeight = 1.5f, kLocalBandTop = 8.0f;

constexpr int kBlack = 0;
constexpr int kWhite = 0xFFFFFF;
constexpr int kHatchPeriod = 8; // pixels between the stripes of a taken-out event
constexpr int kHatchInk = 3;    // of which this many are in the mode's colour, then one black

// Runs a function over the pixels of a box given in the chart's frame, the corners included.
template <typename F>
void ForPixelsOf(const PlotSurface& s, float x1, float y1, float x2, float y2, F&& f) {
    const ScaleFrame fr = s.Frame();
    const int c1 = std::max(0, fr.PixelColumn(x1)), c2 = std::min(s.PixelWidth() - 1, fr.PixelColumn(x2));
    const int r1 = std::max(0, std::min(fr.PixelRow(y1), fr.PixelRow(y2)));
    const int r2 = std::min(s.PixelHeight() - 1, std::max(fr.PixelRow(y1), fr.PixelRow(y2)));
    for (int r = r1; r <= r2; ++r)
        for (int c = c1; c <= c2; ++c) f(c, r);
}

void DrawHatched(PlotSurface& s, float x1, float y1, float x2, float y2, int colour) {
    const ScaleFrame frame = s.Frame();
    std::vector<std::pair<int, int>> ink, edge;
    ForPixelsOf(s, x1, y1, x2, y2, [&](int c, int r) {
        const int phase = (c + r) % kHatchPeriod;
        if (phase < kHatchInk) ink.emplace_back(c, r);
        else if (phase == kHatchInk) edge.emplace_back(c, r);
    });
    s.SetPixelScale();
    for (const auto& [c, r] : ink) s.DrawPoint(static_cast<float>(c), static_cast<float>(r), colour);
    for (const auto& [c, r] : edge) s.DrawPoint(static_cast<float>(c), static_cast<float>(r), kBlack);
    s.SetFrame(frame);
}

// One mode's bar over minutes first to last, all of one state.
void DrawBar(PlotSurface& s, int mode, int first, int last, int state) {
    const float x1 = 60.0f * static_cast<float>(first + 1), x2 = 60.0f * static_cast<float>(last + 2);
    const float y1 = static_cast<float>(mode) + 0.5f, y2 = static_cast<float>(mode + 2);
    if (state > 0) {
        // Edged above and below only: an event of a minute or two is a pixel wide, and ends
        // drawn black would hide its colour.
        s.FillBox(x1, y1, x2, y2, ModeColour(mode));
        s.DrawLine(x1, y1, x2, y1, kBlack);
        s.DrawLine(x1, y2, x2, y2, kBlack);
    } else {
        DrawHatched(s, x1, y1, x2, y2, ModeColour(mode));
    }
}

} // namespace

int ModeColour(int mode) {
    static constexpr int kColours[] = {RGB(255, 255, 0), RGB(255, 0, 255), RGB(255, 0, 0),
                                       RGB(0, 255, 255), RGB(0, 255, 0),   RGB(255, 128, 0)};
    return mode >= 1 && mode <= kPredictedModes ? kColours[mode - 1] : 0;
}

ChartDay ChartDayOf(const MinuteTables& tables, const ActivityTable& activity) {
    ChartDay day;
    day.jupAlt = tables.MinuteJupAlt;
    day.sunAlt = tables.MinuteSunAlt;
    day.jupAlt.resize(kMinutesPerDay + 1);
    day.sunAlt.resize(kMinutesPerDay + 1);
    day.activity = activity;
    return day;
}

int AltitudeColour(int altitude) {
    return RGB(255, static_cast<int>(RoundHalfEven(altitude * 0.6 + 200.0)),
               static_cast<int>(RoundHalfEven(altitude * 2.8)));
}

void DrawChartBody(PlotSurface& s, const ChartDay& day) {
    s.SetScale(0, 1, 1440, 0);
    for (int m = 1; m <= kMinutesPerDay; ++m) {
        const int alt = day.jupAlt[static_cast<size_t>(m)];
        s.FillBox(static_cast<float>(m - 1), 1, static_cast<float>(m), 0, alt < 0 ? RGB(0, 0, 255) : AltitudeColour(alt));
    }
    s.SetScale(0, 0, 86400, 9.5f);
    for (int i = 1; i <= 72; ++i) {
        const auto x = static_cast<float>(1200 * i); // every 20 minutes
        s.DrawLine(x, 1, x, 8, QBColor(7));
    }
    for (int i = 1; i <= 23; ++i) {
        const auto x = static_cast<float>(3600 * i); // every hour
        s.DrawLine(x, 1, x, 8, QBColor(4));
    }
    for (int i = 1; i <= kPredictedModes; ++i) {
        const auto& row = day.activity[static_cast<size_t>(i)];
        for (int m = 1; m <= kMinutesPerDay;) {
            const int state = row[static_cast<size_t>(m)];
            int last = m;
            while (last < kMinutesPerDay && row[static_cast<size_t>(last + 1)] == state) ++last;
            if (state != 0) DrawBar(s, i, m, last, state);
            m = last + 1;
        }
    }
}

void DrawHourBands(PlotSurface& s, double obsTZ) {
    s.SetScale(0, 0, 86400, 9.5f);
    s.FillBox(0, 0, 86400, kHourBandHeight, QBColor(2));
    s.FillBox(0, kLocalBandTop, 86400, 9.5f, QBColor(8));
    s.SetPenColour(0);
    s.SetFontSize(10);
    auto centred = [&s](const QString& text, float x, float top) {
        s.SetCurrentPoint(x - s.TextWidth(text) / 2, top);
        s.PrintText(text);
    };
    for (int h = 1; h <= 23; ++h) {
        centred(QString::number(h), 3600.0f * static_cast<float>(h), 0.05f);
        double t = h + obsTZ;
        if (t < 0) t += 24;
        if (t > 23) t -= 24;
        centred(QString::fromStdString(Trim(StrForm(t))), 3600.0f * static_cast<float>(h), 8.05f);
    }
}

void DrawSunBar(PlotSurface& s, const ChartDay& day) {
    s.SetScale(0, 1, 1440, 0);
    for (int m = 1; m <= kMinutesPerDay; ++m) {
        const int alt = day.sunAlt[static_cast<size_t>(m)];
        s.FillBox(static_cast<float>(m - 1), 1, static_cast<float>(m), 0, alt < 0 ? RGB(0, 0, 0) : AltitudeColour(alt));
    }
}

std::optional<double> NowLineSecond(double shownDate, double gmtNow) {
    if (std::floor(shownDate) != std::floor(gmtNow)) return std::nullopt;
    // To the nearest second first: a date value holds 23:59:00 as a hair less.
    const double second = std::round((gmtNow - std::floor(gmtNow)) * 86400.0);
    return 60.0 * std::floor(second / 60.0);
}

void DrawNowLine(PlotSurface& s, double second) {
    const ScaleFrame frame = s.Frame();
    s.SetScale(0, 0, 86400, 9.5f);
    const int column = s.Frame().PixelColumn(second);
    // Between the hour bands, so that the present hour's labels stay readable.
    const auto top = static_cast<float>(s.Frame().PixelRow(kHourBandHeight) + 1);
    const auto bottom = static_cast<float>(s.Frame().PixelRow(kLocalBandTop) - 1);
    s.SetPixelScale();
    const std::pair<int, int> strokes[] = {{column - 1, kBlack}, {column + 1, kBlack}, {column, kWhite}};
    for (const auto& [c, colour] : strokes)
        if (c >= 0 && c < s.PixelWidth()) s.DrawLine(static_cast<float>(c), top, static_cast<float>(c), bottom, colour);
    s.SetFrame(frame);
}

} // namespace tarvelle
