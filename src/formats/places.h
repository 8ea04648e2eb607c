// Places and time zones: the city list of latlng.txt, the world map's scale and the bar of
// zones of the time-zone picture.
//
// latlng.txt holds region lines ("*" + name), each followed by its cities: a city line (a text
// with a comma), then a latitude line (decimal, north positive) and a longitude line (decimal,
// degrees west, 0 to 360).
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tarvelle {

// The regions in file order; empty when the file cannot be read.
std::vector<std::string> ReadRegions(const std::string& latlngPath);

// The city lines of a region, with "<CANCEL>" first and last; just the first "<CANCEL>" when the
// region is not found, and nothing when the file cannot be read.
std::vector<std::string> ReadCities(const std::string& latlngPath, const std::string& region);

struct CityPlace {
    double latitude = 0.0;      // north positive
    double longitudeWest = 0.0; // 0 to 360
};

// The first line of the whole file equal to the name, and the two lines after it; numbers that
// are missing read as 0. Nothing when no line matches or the file cannot be read.
std::optional<CityPlace> FindCity(const std::string& latlngPath, const std::string& name);

// The world map: plate carree, 640 pixels for 360 degrees, north up, 180 W at the left edge.
struct MapPlace {
    double latitude = 0.0;
    double longitudeWest = 0.0; // 0 to 360
};
// The place under pixel (x, y); nothing below the south pole.
std::optional<MapPlace> MapLatLng(int x, int y);

// The zone, in hours east, of the bar cell under the x position of the time-zone picture.
int getTZ(int x);

} // namespace tarvelle
