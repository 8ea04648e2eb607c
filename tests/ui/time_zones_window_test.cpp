#include "formats/places.h"
#include "ui/observer/time_zones_window.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <cmath>
#include <functional>
#include <tuple>

namespace tarvelle {
namespace {

class TimeZonesWindow : public ::testing::Test {
protected:
    void SetUp() override {
        form_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form_));
        picture_ = form_.findChild<QLabel*>("Picture1");
        ok_ = form_.findChild<QPushButton*>("CmdOK");
        cancel_ = form_.findChild<QPushButton*>("CmdCancel");
        ASSERT_NE(picture_, nullptr);
        ASSERT_NE(ok_, nullptr);
        ASSERT_NE(cancel_, nullptr);
    }

    // Qt drops a move to where the cursor already is, so each move starts from the top row.
    void MoveTo(int x, int y) {
        QTest::mouseMove(picture_, QPoint(x, 0));
        QTest::mouseMove(picture_, QPoint(x, y));
    }
    void Click() { QTest::mouseClick(picture_, Qt::LeftButton, {}, QPoint(5, 5)); }

    FormTimeZones form_;
    QLabel* picture_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* cancel_ = nullptr;
};

TEST_F(TimeZonesWindow, AClickPicksTheZoneUnderTheLastMoveOverTheBar) {
    EXPECT_EQ(form_.SelectedTZ(), 99);
    // The picture is shown at 1:1, so mouse positions are picture pixels.
    EXPECT_EQ(picture_->size(), QImage(":/pictures/timezones.png").size());
    // Without any move over the bar the remembered x is the left edge.
    MoveTo(400, 200);
    Click();
    EXPECT_EQ(form_.SelectedTZ(), -11);
    const struct {
        int x, y, zone;
    } cases[] = {{300, 320, 1}, {150, 310, -5}, {600, 329, -11}};
    for (const auto& c : cases) {
        MoveTo(c.x, c.y);
        Click(); // the click's own place does not count, only the last move's x
        EXPECT_EQ(form_.SelectedTZ(), c.zone) << c.x;
        EXPECT_EQ(form_.windowTitle(), QString("Time Zone  %1").arg(c.zone)) << c.x;
    }
    // Moves above the bar keep the remembered x.
    MoveTo(292, 315);
    MoveTo(500, 309); // one row above the bar
    MoveTo(10, 100);
    Click();
    EXPECT_EQ(form_.SelectedTZ(), 0);
}

TEST_F(TimeZonesWindow, OkAndEscKeepTheZoneCancelForgetsIt) {
    MoveTo(400, 320);
    Click();
    ASSERT_EQ(form_.SelectedTZ(), 5);
    const struct {
        const char* what;
        std::function<void()> close;
        int result, zone;
    } cases[] = {
        {"OK", [&] { QTest::mouseClick(ok_, Qt::LeftButton); }, QDialog::Accepted, 5},
        {"Esc", [&] { QTest::keyClick(&form_, Qt::Key_Escape); }, QDialog::Rejected, 5},
        {"Cancel", [&] { QTest::mouseClick(cancel_, Qt::LeftButton); }, QDialog::Rejected, 99},
    };
    for (const auto& c : cases) {
        form_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form_));
        c.close();
        EXPECT_FALSE(form_.isVisible()) << c.what;
        EXPECT_EQ(form_.result(), c.result) << c.what;
        EXPECT_EQ(form_.SelectedTZ(), c.zone) << c.what;
    }
}

// The pictures, checked on their pixels.

bool Watery(QRgb c) {
    return qBlue(c) > qRed(c) + 30;
}
bool Sandy(QRgb c) {
    return qRed(c) > qBlue(c) + 30;
}

// The time-zone picture's map: 600 pixels for 360 degrees, Greenwich at x = 280.
QPoint ZoneMapPixel(double latitude, double longitudeEast) {
    return {static_cast<int>(std::lround(280.0 + longitudeEast / 0.6)),
            static_cast<int>(std::lround((90.0 - latitude) / 0.6))};
}

TEST(TimeZonesPicture, TheBarsCellsChangeExactlyWhereTheZonesDo) {
    const QImage image = QImage(":/pictures/timezones.png").convertToFormat(QImage::Format_RGB32);
    ASSERT_FALSE(image.isNull());
    ASSERT_EQ(image.width(), 640);
    ASSERT_GE(image.height(), 325);
    // Row 312 lies inside the bar, above the labels.
    for (int x = 1; x < image.width(); ++x) {
        const bool newCell = getTZ(x) != getTZ(x - 1);
        const bool newTone = image.pixel(x, 312) != image.pixel(x - 1, 312);
        EXPECT_EQ(newTone, newCell) << "x " << x;
    }
    // The two ends of the -11 cell share one tone.
    EXPECT_EQ(image.pixel(0, 312), image.pixel(639, 312));
}

TEST(TimeZonesPicture, EachCellStandsUnderTheLandsOfItsZone) {
    const QImage image = QImage(":/pictures/timezones.png").convertToFormat(QImage::Format_RGB32);
    ASSERT_FALSE(image.isNull());
    struct Place {
        const char* name;
        double latitude, longitudeEast;
        int zone;
    };
    // Standard zones, without summer time.
    const Place places[] = {
        {"London", 51.51, -0.13, 0},    {"New York", 40.71, -74.01, -5}, {"Tokyo", 35.65, 139.74, 9},
        {"Sydney", -33.87, 151.21, 10}, {"Moscow", 55.76, 37.62, 3},     {"Honolulu", 21.31, -157.86, -10},
    };
    for (const Place& p : places) {
        const QPoint pixel = ZoneMapPixel(p.latitude, p.longitudeEast);
        EXPECT_EQ(getTZ(pixel.x()), p.zone) << p.name;
    }
    // And the map really is drawn there.
    for (auto [lat, lon, land] : {std::tuple{23.0, 10.0, true}, {-25.0, 130.0, true}, {0.0, -150.0, false}, {20.0, -30.0, false}}) {
        const QRgb c = image.pixel(ZoneMapPixel(lat, lon));
        EXPECT_TRUE(land ? Sandy(c) : Watery(c)) << lat << " " << lon;
    }
}

TEST(WorldMapPicture, PlateCarreeWithGreenwichAtTheCentre) {
    const QImage image = QImage(":/pictures/worldmap.png").convertToFormat(QImage::Format_RGB32);
    ASSERT_FALSE(image.isNull());
    ASSERT_EQ(image.size(), QSize(640, 320));
    struct Sample {
        const char* name;
        double latitude, longitudeEast;
        bool land;
    };
    const Sample samples[] = {
        {"central Sahara", 23.0, 10.0, true},       {"central Australia", -25.0, 130.0, true},
        {"Arabian desert", 22.0, 47.0, true},       {"mid Pacific", 0.0, -150.0, false},
        {"mid Atlantic", 20.0, -30.0, false},       {"Indian Ocean", -20.0, 80.0, false},
        {"Gulf of Guinea, west", 0.0, -5.0, false}, {"Nigeria", 9.0, 8.0, true},
    };
    for (const Sample& s : samples) {
        // 0.5625 degrees a pixel from 90 N and 180 W, as MapLatLng reads the map.
        const int x = static_cast<int>(std::lround((180.0 + s.longitudeEast) / 0.5625));
        const int y = static_cast<int>(std::lround((90.0 - s.latitude) / 0.5625));
        const QRgb c = image.pixel(x, y);
        EXPECT_TRUE(s.land ? Sandy(c) || qGreen(c) > qBlue(c) : Watery(c)) << s.name;
    }
}

} // namespace
} // namespace tarvelle
