// The sky map's projection: the whole sky of the observer as a disc of radius 1, the zenith
// at the centre, the horizon at the rim, north up and east on the left, altitude falling
// linearly outwards. Also the minute of the day tables the map shows, and what lies under
// the mouse.
#pragma once

#include <cstdint>
#include <string>

namespace tarvelle {

// AltAzToMap: x and y of a point above the horizon. For alt at or below 0 x and y keep the
// values they had: a caller plotting a series draws its last point again.
void AltAzToMap(double alt, double az, double& x, double& y);

// The same for degrees of a table that may be at or below 0 (the local horizon): r = 1 - alt/90.
void HorizonPointToMap(double alt, double az, double& x, double& y);

// The row of the day tables for an instant (GMT date value): whole minutes of its day.
int16_t MinutePointerOf(double t);

// What the mouse points at, x and y in the map's scale.
struct MapPointer {
    bool onMap = false;
    double alt = 0.0; // degrees
    double az = 0.0;  // degrees, 360 straight north
};
MapPointer PointerAt(double x, double y);

// The read-out text: "Pointer - Alt: ..  Az: .." or "Pointer - Off Map".
std::string PointerText(const MapPointer& p);

} // namespace tarvelle
