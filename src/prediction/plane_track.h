// The geometry of the CML-Io phase plane: where a CML stands with the display's shift, the
// day's track and its hour texts, the minute of the present moment, the marker's corner and
// what lies under the mouse. The plane is 360 degrees a side; Io phase runs upward.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvelle {

// x of a CML on the plane: CML minus the shift (0 or 45), brought into 0..360.
double PlaneX(double cml, int shift);

// The hour text along the track: GMT hours, moved to local time when not in GMT, kept in
// 0..24 with 24 itself written as 0; a decimal number without blanks ("5.5" at +5.5 hours).
std::string TrackHourText(double hours, bool useGMT, double obsTZ);

// The minute of the day tables after which the track is dotted: the end of the day shown.
double TrackEndOfDay(bool useGMT, double obsTZ);

// The rows of the day tables (whole hours, 0 to 1800) that carry an hour text: each text once,
// where it falls within the day shown if it does, so that the track past the day's end does
// not repeat the morning's hours.
std::vector<size_t> TrackHourRows(bool useGMT, double obsTZ);

// A value of the plane's read-outs: to one decimal, without a trailing dot ("137", "137.4")
// and with a 0 before a bare decimal ("0.5").
std::string PlaneReadoutText(double value);

// The row of the day tables for an instant (GMT date value): its fraction of a day counted in
// the tables' steps and rounded.
int16_t DayPointerOf(double t);

// The top-left corner of the marker's block of spriteW x spriteH pixels on a plane of
// planeW x planeH pixels, for a CML and Io phase.
struct BlockCorner {
    int left, top;
};
BlockCorner MarkerCorner(double cml, double io, int shift, int planeW, int planeH, int spriteW, int spriteH);

// The CML and Io phase under pixel (x, y) of the plane.
struct PlanePoint {
    float cml, io;
};
PlanePoint PlanePointAt(float x, float y, int shift);

} // namespace tarvelle
