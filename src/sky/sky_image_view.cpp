#include "sky/sky_image_view.h"

#include <algorithm>
#include <cmath>

namespace tarvelle {

double RASpan(double ra1, double ra2) { return ra1 > ra2 ? ra2 + 360.0 - ra1 : ra2 - ra1; }

void SetScaleFactors(SkyImageView& view, double frameWidth, double frameHeight) {
    view.PixPerRA = frameWidth / view.ViewRASpan;
    view.PixPerDec = frameHeight / view.ViewDecSpan;
}

SkyImageView ZoomedView(double ra1, double ra2, double dec1, double dec2, double frameWidth, double frameHeight) {
    SkyImageView view;
    view.ViewRALeft = ra1;
    view.ViewRARight = ra2;
    view.crosses = ra1 > ra2;
    view.ViewRASpan = RASpan(ra1, ra2);
    view.ViewDecSpan = std::fabs(dec1 - dec2);
    SetScaleFactors(view, frameWidth, frameHeight);
    view.ViewDecTop = std::max(dec1, dec2);
    view.ViewDecBottom = std::min(dec1, dec2);
    return view;
}

double RAAt(const SkyImageView& view, double x) {
    double ra = view.ViewRALeft + x / view.PixPerRA;
    if (ra > 360.0) ra -= 360.0;
    if (ra < 0.0) ra += 360.0;
    return ra;
}

double DecAt(const SkyImageView& view, double y) { return view.ViewDecTop - y / view.PixPerDec; }

} // namespace tarvelle
