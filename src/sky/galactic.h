// Galactic to equatorial coordinates, with the galactic pole and node of the equinox of 1950.
#pragma once

namespace tarvelle {

// l degrees, b degrees (held as a single once in radians); ra hours, dec degrees.
void GalacticToEquatorial(float& l, double b, double& ra, float& dec);

// The colour of the galactic plane on the sky map.
inline constexpr int kGalacticPlaneColour = 0x80C0FF;

} // namespace tarvelle
