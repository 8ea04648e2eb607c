// The CML-Io phase plane: where the marker and the track land, the read-outs and the choices.
#include "ui/prediction/cmio_plane_window.h"
#include "core/date_value.h"
#include "render/picture_store.h"
#include "station_test.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <cmath>
#include <memory>

using namespace tarvelle;

namespace {

constexpr int kPlain = 0x400000; // RGB(0, 0, 64): the plane without its picture

class PlaneTest : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        UseSampleObserver();
        Core& c = core();
        station->ReadClock();
        station->ProbTable.assign(361, {});
        station->ProbTable[90][145] = 42;
        // A day whose CML runs 15 degrees and Io phase 2 degrees each 20 minutes, from CML 300
        // and Io 10, so that the CML wraps through 360 now and then; Jupiter below the horizon
        // from minute 1000.
        for (size_t k = 0; k < static_cast<size_t>(kDayTableSize); ++k) {
            c.Day.DayCML[k] = static_cast<float>(Cml(static_cast<double>(k)));
            c.Day.DayIoPhase[k] = static_cast<float>(Io(static_cast<double>(k)));
            c.Day.DayJupAlt[k] = k < 1000 ? 20.0 : -5.0;
        }
        c.RealTimeMode = false;
        station->fixed.FixedUT = DateSerial(2026, 11, 22) + 0.5;
        station->fixed.FixedCML = 30.0f;
        station->fixed.FixedIoPhase = 90.0f;
        settings->save("CMLIoPlane", "ShowScale", "0");
        pictures = std::make_unique<Form8>();
        Open();
    }
    void Open() {
        plane = std::make_unique<FormCMIoPlane>(*station, *pictures, [] {}, [this] { ++closed; });
    }
    static double Cml(double k) { return std::fmod(300.0 + 0.75 * k, 360.0); }
    static double Io(double k) { return 10.0 + 0.1 * k; }
    // Pixels of a colour inside the box that the step from minute k - 20 to k spans, its end
    // columns left out (the points and hour texts stand there).
    int CountAlongStep(int k, int colour) const {
        const PlotSurface& s = plane->Pic1->Surface();
        const int x0 = static_cast<int>(Cml(k - 20)), x1 = static_cast<int>(Cml(k));
        const int top = static_cast<int>(std::floor(360.0 - Io(k))), bottom = static_cast<int>(std::floor(360.0 - Io(k - 20)));
        int n = 0;
        for (int x = x0 + 2; x <= x1 - 2; ++x)
            for (int y = top - 1; y <= bottom + 1; ++y) n += s.Pixel(x, y) == colour ? 1 : 0;
        return n;
    }
    int PixelAt(double cml, double io) const {
        const PlotSurface& s = plane->Pic1->Surface();
        return s.Pixel(static_cast<int>(std::floor(cml)), static_cast<int>(std::floor(360.0 - io)));
    }

    std::unique_ptr<Form8> pictures;
    std::unique_ptr<FormCMIoPlane> plane;
    int closed = 0;
};

} // namespace

TEST_F(PlaneTest, MarkerStandsWhereTheShiftPutsIt) {
    // CML 30 shifted by 45 is at x = 345: the 19-pixel block stands at (336, 260), its top
    // 360 - 90 - 9.5 halved to even.
    const PlotSurface& s = plane->Pic1->Surface();
    EXPECT_EQ(s.Pixel(336 + 9, 260 + 9), pictures->PicJup.Pixel(9, 9)); // the disc's centre

    plane->chkShift45->setChecked(false);
    EXPECT_EQ(settings->get("CMLIoPlane", "Shift45"), "0");
    EXPECT_EQ(s.Pixel(20 + 9, 260 + 9), pictures->PicJup.Pixel(9, 9));
}

TEST_F(PlaneTest, TrackDrawsNoLineAcrossTheEdgeAndColoursBelowTheHorizon) {
    plane->chkShift45->setChecked(false);
    // Minutes 20 to 40: CML 315 to 330, Jupiter up: a white line.
    EXPECT_GE(CountAlongStep(40, 0xFFFFFF), 8);
    // The CML passes 360 at minute 80 (345 to 0): no line along the would-be step, whose
    // middle stays plain.
    EXPECT_EQ(PixelAt(172.0, 17.0), kPlain);
    // After minute 1000 Jupiter is down: the step from 1060 to 1080 is cyan.
    EXPECT_GE(CountAlongStep(1080, QBColor(11)), 8);
    EXPECT_EQ(CountAlongStep(1080, 0xFFFFFF), 0);
}

TEST_F(PlaneTest, TheTrackIsDottedAfterTheEndOfTheLocalDay) {
    plane->chkShift45->setChecked(false);
    core().UseGMT = false; // at -5 hours the day ends at minute 1740
    plane->PlotDay();
    const int solid = CountAlongStep(1720, QBColor(11));
    const int dotted = CountAlongStep(1780, QBColor(11));
    EXPECT_GE(solid, 8);
    EXPECT_GT(dotted, 0);
    EXPECT_LT(dotted * 4, solid * 3); // gaps in the dotted step (the day's end per zone: PlaneTrack tests)
}

TEST_F(PlaneTest, ReadOutUnderTheMouseAndAwayFromIt) {
    // Pixel 100 with the shift of 45 is CML 145; Io 90. (The fold at 360: PlaneTrack tests.)
    plane->Pic1MouseMove(100, 270);
    EXPECT_EQ(plane->LBLProb->text(), "Prob:  42%");
    plane->ShowPlottedValues();
    EXPECT_EQ(plane->LBLCML->text(), "CML: 30");
}

TEST_F(PlaneTest, ChoicesPickThePictureAndAMissingOneIsSaid) {
    EXPECT_TRUE(plane->LBLNote->isVisibleTo(plane.get()));
    EXPECT_TRUE(plane->LBLNote->text().contains("pp45-with-scale-and-zones-360.bmp"));
    const struct {
        QCheckBox* box;
        bool on;
        const char* file;
    } steps[] = {{plane->chkShowLegend, false, "pp45-with-zones-360.bmp"},
                 {plane->chkShowZones, false, "pp45-360.bmp"},
                 {plane->chkShift45, false, "pp-360.bmp"},
                 {plane->chkShowLegend, true, "pp-with-scale-360.bmp"}};
    for (const auto& c : steps) {
        c.box->setChecked(c.on);
        EXPECT_EQ(plane->PictureFileName(), c.file) << c.file;
    }
    EXPECT_EQ(settings->get("CMLIoPlane", "ShowZones"), "0");

    // With its picture in the program directory the plane shows it and no note.
    QImage picture(360, 360, QImage::Format_RGB32);
    picture.fill(QColor(10, 200, 30));
    ASSERT_TRUE(picture.save(programDir + "pp-with-scale-360.bmp"));
    plane->CreateBackground();
    EXPECT_FALSE(plane->LBLNote->isVisibleTo(plane.get()));
    EXPECT_EQ(plane->Pic1->Surface().Pixel(5, 5), RGB(10, 200, 30));
}

// In fixed time a tick moves nothing; the help button opens the page on the probabilities.
TEST_F(PlaneTest, FixedTimeTicksHelpAndClose) {
    const int left = plane->JupiterSprite.left;
    station->fixed.FixedCML = 200.0f;
    QMetaObject::invokeMethod(plane->Timer1, "timeout"); // a tick in fixed time changes nothing
    EXPECT_EQ(plane->JupiterSprite.left, left);
    plane->cmdProbHelp->click();
    EXPECT_EQ(desktop.opened, QStringList({programDir + "about_cml.htm"}));
    plane->close();
    EXPECT_EQ(closed, 1);
}

TEST_F(PlaneTest, RealTimeFollowsTheDayTablesAtThePresentMinute) {
    core().RealTimeMode = true;
    Open();
    EXPECT_TRUE(plane->Timer1->isActive());
    // 15:30 local at -5 is 20:30 GMT: minute 1230 of the day, as the table step counts it.
    EXPECT_EQ(plane->DayPointer, static_cast<int16_t>(std::nearbyint((20.5 / 24.0) / 0.000694444)));
    EXPECT_EQ(plane->PlotCML, core().Day.DayCML[static_cast<size_t>(plane->DayPointer)]);
}
