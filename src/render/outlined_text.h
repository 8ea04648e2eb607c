// Text that reads on any ground: the ink ringed by a one-pixel outline.
#pragma once

#include "render/plot_surface.h"

namespace tarvelle {

// Prints text at the current point as PrintText does (and leaves the current point where
// PrintText would), first in the outline colour one pixel round about, then in the ink.
void PrintOutlinedText(PlotSurface& surface, const QString& text, int ink, int outline);

} // namespace tarvelle
