// The part of an all-sky picture the sky image viewer has on show: right ascension 0 to 360
// degrees across, and a second axis of 360 at the top to 0 at the foot (declination +90 to
// -90). A view whose left edge is east of its right edge crosses right ascension 360.
#pragma once

namespace tarvelle {

struct SkyImageView {
    double ViewRALeft = 0, ViewRARight = 360, ViewDecTop = 360, ViewDecBottom = 0;
    double ViewRASpan = 360, ViewDecSpan = 360;
    double PixPerRA = 1, PixPerDec = 1;
    bool crosses = false;
};

// Degrees of right ascension from ra1 east to ra2, across 360 when ra1 > ra2.
double RASpan(double ra1, double ra2);

// PixPerRA and PixPerDec for a frame of that width and height.
void SetScaleFactors(SkyImageView& view, double frameWidth, double frameHeight);

// The view of the box from ra1 to ra2 and between dec1 and dec2, on a frame of that size.
SkyImageView ZoomedView(double ra1, double ra2, double dec1, double dec2, double frameWidth, double frameHeight);

// Right ascension (0 to 360) and the second axis at a point of the frame.
double RAAt(const SkyImageView& view, double x);
double DecAt(const SkyImageView& view, double y);

} // namespace tarvelle
