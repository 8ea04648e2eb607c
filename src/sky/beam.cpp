#include "sky/beam.h"

#include "core/numeric.h"

#include <cmath>

namespace tarvelle {

void CalcBeamEdge(AntennaLobe& lobe) {
    lobe.Edge.assign(kBeamEdgeSize, {});
    const double hN = lobe.NSBW / 2.0, hE = lobe.EWBW / 2.0;
    for (int t = 0; t <= 359; ++t) {
        BeamEdgePoint& p = lobe.Edge[static_cast<size_t>(t)];
        double az0 = lobe.AZ;
        const double x = std::cos(t * kDegToRad) * hE;
        const double y = std::sin(t * kDegToRad) * hN;
        double e = lobe.ALT + y;
        if (e > 90.0) {
            // Past the zenith: the contour comes down on the far side.
            e = 90.0 - (e - 90.0);
            az0 += 180.0;
            if (az0 >= 360.0) az0 -= 360.0;
        }
        const double z = 90.0 - e;
        const double c = 0.35 * x * (1.0 - std::cos(z * kDegToRad));
        double left = az0 - (std::atan(x / (z + 0.000001)) * kRadToDeg + c);
        while (left < 0.0) left += 360.0;
        if (left >= 360.0) left -= 360.0;
        p.AzLeft = left;
        p.Alt = 90.0 - std::sqrt(z * z + x * x);
        double right = az0 + (std::atan(x / (z + 0.0000001)) * kRadToDeg + c);
        if (right < 0.0) right += 360.0;
        while (right >= 360.0) right -= 360.0;
        p.AzRight = right;
    }
}

void CalcBeamEdges(Antenna& antenna) {
    for (size_t k = 1; k < antenna.Lobes.size(); ++k) CalcBeamEdge(antenna.Lobes[k]);
}

} // namespace tarvelle
