#include "render/outlined_text.h"

namespace tarvelle {

void PrintOutlinedText(PlotSurface& surface, const QString& text, int ink, int outline) {
    const ScaleFrame f = surface.Frame();
    const float x = surface.CurrentX(), y = surface.CurrentY();
    const auto dx = static_cast<float>(f.UnitsPerPixelX()), dy = static_cast<float>(f.UnitsPerPixelY());
    const int pen = surface.PenColour();
    surface.SetPenColour(outline);
    for (const int i : {-1, 0, 1}) {
        for (const int j : {-1, 0, 1}) {
            if (i == 0 && j == 0) continue;
            surface.SetCurrentPoint(x + static_cast<float>(i) * dx, y + static_cast<float>(j) * dy);
            surface.PrintText(text);
        }
    }
    surface.SetPenColour(ink);
    surface.SetCurrentPoint(x, y);
    surface.PrintText(text);
    surface.SetPenColour(pen);
}

} // namespace tarvelle
