// An antenna lobe's beam edge: an ellipse of the two half beam widths round the lobe's centre,
// in altitude and in an azimuth that widens towards the horizon, one point pair for each
// degree of the ellipse's parameter.
#pragma once

#include "formats/antenna_file.h"

namespace tarvelle {

// CalcBeamEdge: fills lobe.Edge, entries 0 to 359 (361 entries).
void CalcBeamEdge(AntennaLobe& lobe);

// Every lobe of the antenna.
void CalcBeamEdges(Antenna& antenna);

} // namespace tarvelle
