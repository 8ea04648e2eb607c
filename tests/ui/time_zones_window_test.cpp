#include "formats/places.h"
#include "ui/observer/time_zones_window.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <cmath>
#include <functional>

namespace tarvelle {
namespace {

class TimeZonesWindow : public ::testing::Test {
protected:
    void SetUp() override {
        form_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form_));
        ASSERT_TRUE(picture_ && ok_ && cancel_);
    }

    // Qt drops a move to where the cursor already is, so each move starts from the top row.
    void MoveTo(int x, int y) {
        QTest::mouseMove(picture_, QPoint(x, 0));
        QTest::mouseMove(picture_, QPoint(x, y));
    }
    void Click() { QTest::mouseClick(picture_, Qt::LeftButton, {}, QPoint(5, 5)); }

    FormTimeZones form_;
    QLabel* picture_ = form_.findChild<QLabel*>("Picture1");
    QPushButton* ok_ = form_.findChild<QPushButton*>("CmdOK");
    QPushButton* cancel_ = form_.findChild<QPushButton*>("CmdCancel");
};

TEST_F(TimeZonesWindow, AClickPicksTheZoneUnderTheLastMoveOverTheBar) {
    EXPECT_EQ(form_.SelectedTZ(), 99);
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
        EXPECT_EQ(form_.windowTitle(), QString("Time Zone  %1").arg(c.zone)) << c.x; // the zone shown
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

// The time-zone picture's map: 600 pixels for 360 degrees, Greenwich at x = 280.
QPoint ZoneMapPixel(double latitude, double longitudeEast) {
    return {static_cast<int>(std::lround(280.0 + longitudeEast / 0.6)),
            static_cast<int>(std::lround((90.0 - latitude) / 0.6))};
}
TEST(TimeZonesPicture, TheBarsCellsChangeExactlyWhereTheZonesDo) {
    const QImage image = QImage(":/pictures/timezones.png").convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(image.width(), 640);
    ASSERT_GE(image.height(), 325);
    // Row 312 lies inside the bar, above the labels.
    for (int x = 1; x < image.width(); ++x) {
        const bool newCell = getTZ(x) != getTZ(x - 1);
        const bool newTone = image.pixel(x, 312) != image.pixel(x - 1, 312);
        EXPECT_EQ(newTone, newCell) << "x " << x;
    }
    EXPECT_EQ(image.pixel(0, 312), image.pixel(639, 312)); // the two ends of the -11 cell share one tone
    // Each cell stands under the lands of its standard zone, without summer time.
    const struct {
        const char* name;
        double latitude, longitudeEast;
        int zone;
    } places[] = {
        {"London", 51.51, -0.13, 0},    {"New York", 40.71, -74.01, -5}, {"Tokyo", 35.65, 139.74, 9},
        {"Sydney", -33.87, 151.21, 10}, {"Moscow", 55.76, 37.62, 3},     {"Honolulu", 21.31, -157.86, -10},
    };
    for (const auto& p : places) EXPECT_EQ(getTZ(ZoneMapPixel(p.latitude, p.longitudeEast).x()), p.zone) << p.name;
}

} // namespace
} // namespace tarvelle
