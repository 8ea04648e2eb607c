#include "formats/places.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <cmath>
#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace tarvelle {
namespace {

const std::string kCancel = "<CANCEL>";

// A latlng.txt of the test's own in a fresh folder, removed afterwards.
class PlacesFile : public ::testing::Test {
protected:
    std::string Write(const std::string& contents) {
        const std::string path = dir_.filePath("latlng.txt").toStdString();
        std::ofstream(path, std::ios::binary) << contents;
        return path;
    }
    std::string Missing() const { return dir_.filePath("absent.txt").toStdString(); }

    QTemporaryDir dir_;
};

constexpr const char* kSample = "*Europe\nLondon, Britain (UK)\n51.5083\n0.1253\nParis, France\n48.8667\n357.6667\n"
                                "*North America\nNew York, United States\n40.7142\n74.0064\n"
                                "*Pacific\nHonolulu, United States\n21.3069\n157.8583\n";

struct Place {
    const char* name;
    double latitude, longitudeWest;
};

// Each name is found in the file at its place, to the tolerance.
void ExpectPlaces(const std::string& path, std::initializer_list<Place> places, double tolerance = 1e-12) {
    for (const Place& p : places) {
        const auto found = FindCity(path, p.name);
        ASSERT_TRUE(found) << p.name;
        EXPECT_NEAR(found->latitude, p.latitude, tolerance) << p.name;
        EXPECT_NEAR(found->longitudeWest, p.longitudeWest, tolerance) << p.name;
    }
}

using Names = std::vector<std::string>;

// Regions are the lines that start with "*", in file order, CR LF not part of the name. A
// region's cities run from the line equal to "*" + region whole to the next region or the end,
// only lines with a comma, between two cancel entries. A missing file gives nothing.
TEST_F(PlacesFile, RegionsAndTheirCities) {
    EXPECT_EQ(ReadRegions(Write("Odd * line, here\r\n*Asia\r\n *Not a region\r\n*\r\n")), (Names{"Asia", ""}));
    const std::string mixed = Write("*Empty\n*Mixed\nno comma\n12.5\n,\nA, B\n1,5\n\n*Last\n");
    EXPECT_EQ(ReadCities(mixed, "Empty"), (Names{kCancel, kCancel}));
    EXPECT_EQ(ReadCities(mixed, "Mixed"), (Names{kCancel, ",", "A, B", "1,5", kCancel}));
    EXPECT_EQ(ReadCities(mixed, "Last"), (Names{kCancel, kCancel}));

    const std::string path = Write(kSample);
    EXPECT_EQ(ReadRegions(path), (Names{"Europe", "North America", "Pacific"}));
    const std::pair<const char*, Names> cases[] = {
        {"Europe", {kCancel, "London, Britain (UK)", "Paris, France", kCancel}},
        {"Pacific", {kCancel, "Honolulu, United States", kCancel}},
        {"North", {kCancel}},
        {"europe", {kCancel}}};
    for (const auto& [region, cities] : cases) EXPECT_EQ(ReadCities(path, region), cities) << region;
    EXPECT_TRUE(ReadRegions(Missing()).empty());
    EXPECT_TRUE(ReadCities(Missing(), "Europe").empty());
}

TEST_F(PlacesFile, ACityIsTheFirstEqualLineInTheWholeFile) {
    const std::string path = Write(kSample);
    ExpectPlaces(path, {{"London, Britain (UK)", 51.5083, 0.1253}, {"Honolulu, United States", 21.3069, 157.8583}});
    // A name is compared whole.
    EXPECT_FALSE(FindCity(path, "London"));
    EXPECT_FALSE(FindCity(path, "london, britain (uk)"));
    EXPECT_FALSE(FindCity(Missing(), "London, Britain (UK)"));

    // A name listed in two regions takes the first one's place.
    ExpectPlaces(Write("*A\nSpringfield, X\n10\n20\n*B\nSpringfield, X\n-30\n300\n"), {{"Springfield, X", 10.0, 20.0}});
}

TEST_F(PlacesFile, NumbersAreTheValueOfTheirText) {
    const std::string path = Write("*R\nFirst, Place\nSecond, Place\n-12.5\n"
                                   "Padded, Place\n   -33.87 S\n  &H10\n"
                                   "Windows, Place\r\n45.5\r\n300.25\r\n"
                                   "Last, Place\n");
    ExpectPlaces(path, {
                           {"First, Place", 0.0, -12.5}, // a city line as the latitude reads as 0
                           {"Padded, Place", -33.87, 16.0},
                           {"Windows, Place", 45.5, 300.25},
                           {"Last, Place", 0.0, 0.0}, // the file ends after the name: the missing lines are 0
                       });
}

TEST(MapLatLng, PixelsGoToPlacesAtNineSixteenthsOfADegree) {
    const struct { int x, y; double latitude, longitudeWest; } cases[] = {
        {0, 0, 90.0, 180.0},          // top left corner: the pole, 180 degrees
        {320, 160, 0.0, 0.0},         // centre: Greenwich on the equator
        {100, 40, 67.5, 123.75},      // left of the centre: west, 0 to 180
        {319, 161, -0.5625, 0.5625},  // just west of Greenwich
        {321, 159, 0.5625, 359.4375}, // just east of it, wrapped to the top of the range
        {400, 100, 33.75, 315.0},     // 45 degrees east
        {640, 320, -90.0, 180.0}, // the right edge is 180 again; the south pole still counts
        {-16, -16, 99.0, 189.0},  // off the map above and to the left: no clamp
    };
    for (const auto& c : cases) {
        const auto place = MapLatLng(c.x, c.y);
        ASSERT_TRUE(place) << c.x << "," << c.y;
        EXPECT_TRUE(place->latitude == c.latitude && place->longitudeWest == c.longitudeWest)
            << c.x << "," << c.y;
    }
    EXPECT_FALSE(MapLatLng(320, 321) || MapLatLng(0, 1000)); // below the south pole
}

TEST(GetTZ, CellEdgesOfTheBar) {
    const struct { int x, zone; } cases[] = {
        {0, -11},  {16, -11}, {17, -10},  {42, -10},  {43, -9},   {267, -1}, {268, 0}, {292, 0},
        {293, 1},  {593, 11}, {594, -11}, {639, -11}, {5000, -11}, {-1, -11},
    };
    for (const auto& c : cases) EXPECT_EQ(getTZ(c.x), c.zone) << "x " << c.x;
    // From x 17 to 593 the zones run from -10 to 11 without a gap or a step back, each once.
    int previous = getTZ(17);
    for (int x = 18; x <= 593; ++x) {
        const int zone = getTZ(x);
        ASSERT_TRUE(zone == previous || zone == previous + 1) << "x " << x;
        previous = zone;
    }
    EXPECT_EQ(previous, 11);
}

// The city list the program ships, read through the same routines as the window reads it.
TEST(ShippedCityList, EveryCityIsFoundWhereItIsListed) {
    const std::string file = TARVELLE_SOURCE_DATA "/latlng.txt";

    std::set<std::string> names;
    size_t cities = 0;
    for (const std::string& region : ReadRegions(file)) {
        const std::vector<std::string> list = ReadCities(file, region);
        ASSERT_GE(list.size(), 3u) << region;
        for (size_t i = 1; i + 1 < list.size(); ++i) {
            // FindCity takes the first equal line of the file: a name listed twice would give
            // the second region's city the first one's place.
            EXPECT_TRUE(names.insert(list[i]).second) << list[i] << " is listed twice";
            const auto place = FindCity(file, list[i]);
            ASSERT_TRUE(place) << list[i];
            const double w = place->longitudeWest;
            EXPECT_TRUE(std::fabs(place->latitude) <= 90.0 && w >= 0.0 && w < 360.0) << list[i];
            ++cities;
        }
    }
    EXPECT_GE(cities, 300u);

    // Places from the tz database's zone1970.tab, by hand: London +513030-0000731,
    // Tokyo +353916+1394441 (east, so 360 minus it), Sydney -3352+15113. To 0.0001 degree.
    ExpectPlaces(file,
                 {{"London, Britain (UK)", 51.508333, 0.125278},
                  {"Tokyo, Japan", 35.654444, 220.255278},
                  {"Sydney, Australia", -33.866667, 208.783333}},
                 1e-4);
}

} // namespace
} // namespace tarvelle
