#include "render/picture_store.h"

#include <algorithm>
#include <array>
#include <cmath>

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

// The all-sky picture drawn by tools/make_sky408.py and built into the program; if it can't be
// read the picture stays its dark blue.
void LoadAllSky(PlotSurface& s) {
    s.SetPixelScale();
    const QImage sky(":/sky/sky408.bmp");
    if (sky.isNull()) return;
    s.SetBackgroundPicture(sky.convertToFormat(QImage::Format_RGB32).scaled(s.PixelWidth(), s.PixelHeight()));
    s.Clear();
}

} // namespace

bool SpriteDiscContains(int x, int y) {
    if (y < 1 || y > 16) return false;
    return std::abs(x - kDiscCentreColumn) <= kDiscHalfWidths[static_cast<size_t>(y - 1)];
}

Form8::Form8() {
    LoadAllSky(Pic408);
    DrawDisc(PicSun, RGB(255, 255, 0));
    DrawJupiter(PicJup);
    DrawDisc(PicMask, 0);
    for (PlotSurface* s : {&Pic408, &PicSun, &PicJup, &PicMask, &PicBack1, &PicBack2, &PicBack3, &PicBack4}) {
        s->SetPixelScale();
        s->Refresh();
    }
}

} // namespace tarvelle
