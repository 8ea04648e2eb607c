#include "render/picture_store.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace tarvelle {

namespace {

// Half-widths of the disc's rows 1 to 16 about column 9: rows of 7, 11, 13, 15, 15 and 17
// pixels, mirrored, 224 pixels in all.
constexpr std::array<int, 16> kDiscHalfWidths = {3, 5, 6, 7, 7, 8, 8, 8, 8, 8, 8, 7, 7, 6, 5, 3};
constexpr int kDiscCentreColumn = 9;

// Jupiter's belts and zones, one colour a row from the north pole down.
constexpr std::array<int, 16> kJupiterRows = {
    RGB(170, 120, 85), RGB(190, 140, 100), RGB(215, 170, 120), RGB(160, 90, 50),
    RGB(175, 105, 62), RGB(230, 190, 140), RGB(236, 200, 152), RGB(150, 75, 40),
    RGB(140, 70, 35),  RGB(226, 186, 136), RGB(220, 180, 130), RGB(165, 95, 55),
    RGB(155, 85, 45),  RGB(210, 165, 115), RGB(185, 135, 95),  RGB(165, 115, 80)};

int Darker(int colour, double factor) {
    const auto part = [&](int shift) {
        return static_cast<int>(std::lround(((colour >> shift) & 0xFF) * factor)) & 0xFF;
    };
    return part(0) | (part(8) << 8) | (part(16) << 16);
}

// A small generator of our own, so that the stars stand in the same places on every system.
class Scatter {
public:
    double Next() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return state_ / 4294967296.0;
    }

private:
    uint32_t state_ = 408u;
};

// Radio brightness 0..1 to false colour: dark blue through cyan and green to yellow and red.
QRgb FalseColour(double t) {
    struct Stop {
        double at;
        int r, g, b;
    };
    static constexpr std::array<Stop, 7> kStops = {{{0.0, 0, 0, 48},
                                                    {0.15, 0, 0, 140},
                                                    {0.35, 0, 90, 220},
                                                    {0.55, 0, 200, 200},
                                                    {0.7, 120, 230, 60},
                                                    {0.85, 250, 200, 0},
                                                    {1.0, 255, 40, 0}}};
    t = std::clamp(t, 0.0, 1.0);
    size_t i = 1;
    while (i + 1 < kStops.size() && t > kStops[i].at) ++i;
    const Stop& a = kStops[i - 1];
    const Stop& b = kStops[i];
    const double f = (t - a.at) / (b.at - a.at);
    const auto mix = [f](int p, int q) { return static_cast<int>(std::lround(p + (q - p) * f)); };
    return qRgb(mix(a.r, b.r), mix(a.g, b.g), mix(a.b, b.b));
}

constexpr int kSkySize = 360;
constexpr double kSkyRadius = 170.0;

// The sky disc at 408 MHz as an observer would sketch it: faint everywhere, the galactic plane
// a bright winding band with its centre at one end, and a few strong sources.
QImage AllSkyShading(QRgb outside) {
    QImage sky(kSkySize, kSkySize, QImage::Format_RGB32);
    const double c = kSkySize / 2.0;
    struct Source {
        double u, v, peak, width;
    };
    static constexpr std::array<Source, 4> kSources = {{{0.42, -0.38, 0.55, 0.035},
                                                        {-0.55, 0.22, 0.45, 0.03},
                                                        {0.1, 0.62, 0.35, 0.04},
                                                        {-0.2, -0.7, 0.3, 0.03}}};
    // The band's centre line and its brightness along the plane depend on the column only.
    std::array<double, kSkySize> centreLine{}, along{};
    for (int x = 0; x < kSkySize; ++x) {
        const double u = (x + 0.5 - c) / kSkyRadius;
        centreLine[static_cast<size_t>(x)] = 0.35 * std::sin(2.2 * u + 0.6) - 0.1 * u;
        along[static_cast<size_t>(x)] = 0.55 + 0.45 * std::exp(-((u + 0.35) * (u + 0.35)) / 0.08);
    }
    for (int y = 0; y < kSkySize; ++y) {
        auto* line = reinterpret_cast<QRgb*>(sky.scanLine(y));
        for (int x = 0; x < kSkySize; ++x) {
            const double u = (x + 0.5 - c) / kSkyRadius, v = (y + 0.5 - c) / kSkyRadius;
            const double r2 = u * u + v * v;
            if (r2 > 1.0) {
                line[x] = outside;
                continue;
            }
            const double d = v - centreLine[static_cast<size_t>(x)];
            double t = 0.1 + 0.05 * (1.0 - r2);
            if (d * d < 0.6) t += 0.22 * std::exp(-(d * d) / 0.06);
            if (d * d < 0.06) t += 0.55 * along[static_cast<size_t>(x)] * std::exp(-(d * d) / 0.006);
            for (const Source& s : kSources) {
                const double du = u - s.u, dv = v - s.v, w2 = s.width * s.width;
                // Beyond three widths a source adds less than one part in ten thousand.
                if (du * du + dv * dv < 9.0 * w2) t += s.peak * std::exp(-(du * du + dv * dv) / w2);
            }
            line[x] = FalseColour(t);
        }
    }
    return sky;
}

void DrawDisc(PlotSurface& s, int colour) {
    s.SetPixelScale();
    for (int row = 1; row <= 16; ++row) {
        const int hw = kDiscHalfWidths[static_cast<size_t>(row - 1)];
        const auto x1 = static_cast<float>(kDiscCentreColumn - hw),
                   x2 = static_cast<float>(kDiscCentreColumn + hw);
        const auto y = static_cast<float>(row);
        s.FillBox(x1, y, x2, y, colour);
    }
}

void DrawJupiter(PlotSurface& s) {
    s.SetPixelScale();
    for (int row = 1; row <= 16; ++row) {
        const int hw = kDiscHalfWidths[static_cast<size_t>(row - 1)];
        const int colour = kJupiterRows[static_cast<size_t>(row - 1)];
        for (int x = kDiscCentreColumn - hw; x <= kDiscCentreColumn + hw; ++x) {
            // The limb is darker than the middle of the disc.
            const double limb = std::abs(x - kDiscCentreColumn) / static_cast<double>(hw + 1);
            s.DrawPoint(static_cast<float>(x), static_cast<float>(row),
                        Darker(colour, 1.0 - 0.3 * limb * limb));
        }
    }
    // The Great Red Spot, in the southern equatorial belt.
    s.FillBox(11, 12, 12, 12, RGB(200, 70, 50));
}

void DrawAllSky(PlotSurface& s) {
    s.SetPixelScale();
    s.SetBackgroundPicture(AllSkyShading(ToQRgb(s.BackColour())));
    Scatter scatter;
    for (int i = 0; i < 300; ++i) {
        // Uniform over the disc, brighter ones fewer.
        const double angle = 2.0 * std::numbers::pi * scatter.Next();
        const double radius = (kSkyRadius - 4.0) * std::sqrt(scatter.Next());
        const double brightness = scatter.Next();
        const int level = 90 + static_cast<int>(165.0 * brightness * brightness);
        s.SetLineWidth(brightness > 0.93 ? 2 : 1);
        s.DrawPoint(static_cast<float>(kSkySize / 2.0 + radius * std::cos(angle)),
                    static_cast<float>(kSkySize / 2.0 + radius * std::sin(angle)), RGB(level, level, level));
    }
    // The horizon.
    s.SetLineWidth(2);
    s.SetFillStyle(FillStyle::Transparent);
    s.DrawCircle(kSkySize / 2.0f, kSkySize / 2.0f, static_cast<float>(kSkyRadius), RGB(150, 180, 255));
    s.SetLineWidth(1);
    // Clear brings the finished picture back.
    s.SetBackgroundPicture(s.Image());
}

} // namespace

bool SpriteDiscContains(int x, int y) {
    if (y < 1 || y > 16) return false;
    return std::abs(x - kDiscCentreColumn) <= kDiscHalfWidths[static_cast<size_t>(y - 1)];
}

Form8::Form8() {
    DrawAllSky(Pic408);
    DrawDisc(PicSun, RGB(255, 255, 0));
    DrawJupiter(PicJup);
    DrawDisc(PicMask, 0);
    for (PlotSurface* s : {&Pic408, &PicSun, &PicJup, &PicMask, &PicBack1, &PicBack2, &PicBack3, &PicBack4}) {
        s->SetPixelScale();
        s->Refresh();
    }
}

} // namespace tarvelle
