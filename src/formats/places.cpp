#include "formats/places.h"

#include "core/text_forms.h"

#include <array>
#include <cmath>
#include <fstream>
#include <utility>

namespace tarvelle {

namespace {

constexpr double kDegreesPerPixel = 0.5625; // 360 degrees over the map's 640 pixels
constexpr const char* kCancelItem = "<CANCEL>";

// One line without its line end; a file written on another system may end lines with CR LF.
bool ReadLine(std::ifstream& in, std::string& line) {
    if (!std::getline(in, line)) return false;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return true;
}

bool IsRegionLine(const std::string& line) {
    return !line.empty() && line[0] == '*';
}

} // namespace

std::vector<std::string> ReadRegions(const std::string& latlngPath) {
    std::vector<std::string> regions;
    std::ifstream in(latlngPath, std::ios::binary);
    if (!in) return regions;
    std::string line;
    while (ReadLine(in, line))
        if (IsRegionLine(line)) regions.push_back(line.substr(1));
    return regions;
}

std::vector<std::string> ReadCities(const std::string& latlngPath, const std::string& region) {
    std::vector<std::string> cities;
    std::ifstream in(latlngPath, std::ios::binary);
    if (!in) return cities;
    cities.emplace_back(kCancelItem);
    const std::string header = "*" + region;
    std::string line;
    bool found = false;
    while (!found && ReadLine(in, line)) found = line == header;
    if (!found) return cities; // the list keeps its first "<CANCEL>" only
    while (ReadLine(in, line) && !IsRegionLine(line))
        if (line.find(',') != std::string::npos) cities.push_back(line);
    cities.emplace_back(kCancelItem);
    return cities;
}

std::optional<CityPlace> FindCity(const std::string& latlngPath, const std::string& name) {
    std::ifstream in(latlngPath, std::ios::binary);
    if (!in) return std::nullopt;
    std::string line;
    bool found = false;
    while (!found && ReadLine(in, line)) found = line == name;
    if (!found) return std::nullopt;
    // The two lines after the name; a line that is not there reads as an empty text, value 0.
    CityPlace place;
    line.clear();
    ReadLine(in, line);
    place.latitude = ValueOfText(line);
    line.clear();
    ReadLine(in, line);
    place.longitudeWest = ValueOfText(line);
    return place;
}

std::optional<MapPlace> MapLatLng(int x, int y) {
    MapPlace place;
    place.latitude = 90.0 - y * kDegreesPerPixel;
    if (place.latitude < -90.0) return std::nullopt;
    double longitude = 180.0 - x * kDegreesPerPixel;
    if (longitude < 0.0) longitude = 360.0 - std::abs(longitude);
    place.longitudeWest = longitude;
    return place;
}

int getTZ(int x) {
    if (x > 593 || x < 17) return -11;
    // The first x past each cell of the bar, west to east, and the cell's zone.
    static constexpr std::array<std::pair<int, int>, 21> kCells{{
        {43, -10}, {69, -9},  {93, -8},  {118, -7}, {143, -6}, {168, -5}, {192, -4},
        {218, -3}, {248, -2}, {268, -1}, {293, 0},  {318, 1},  {341, 2},  {369, 3},
        {393, 4},  {418, 5},  {443, 6},  {468, 7},  {493, 8},  {518, 9},  {543, 10},
    }};
    for (const auto& [below, zone] : kCells)
        if (x < below) return zone;
    return 11;
}

} // namespace tarvelle
