// The Alt/Az display, the sky image viewer and the antenna finder, driven as a user would.
#include "core/date_value.h"
#include "render/picture_store.h"
#include "station_test.h"
#include "formats/antenna_file.h"
#include "ui/sky/alt_az_window.h"
#include "ui/sky/define_antenna_window.h"
#include "ui/sky/find_antenna_window.h"
#include "ui/sky/sky_image_window.h"
#include "ui/sky/sky_map_window.h"
#include "ui/main/main_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QToolButton>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <memory>
#include <tuple>

using namespace tarvelle;

namespace {

class AltAzTest : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        UseSampleObserver();
        ASSERT_TRUE(QFile::copy(TARVELLE_SOURCE_DATA "/altaz_chart.bmp", programDir + "altaz_chart.bmp"));
        Core& c = core();
        c.RealTimeMode = false;
        c.CurrentUT = DateSerial(2026, 11, 22) + 0.25;
        c.UpdateSiderealTime();
        c.BuildDayTables(c.CurrentUT);
        station->fixed.FixedUT = c.CurrentUT;
        station->fixed.FixedJupAz = 180.0;
        station->fixed.FixedJupAlt = 45.0;
        station->fixed.FixedSunAz = 90.0;
        station->fixed.FixedSunAlt = -50.0;
    }
    Form8 pictures;
};

TEST_F(AltAzTest, TheSpritesStandAtTheirPlacesOnTheChart) {
    FormAltAz chart(*station, pictures);
    const PlotSurface& s = chart.Pic1->Surface();
    // Jupiter: left = Int(180) - 9.5 = 170.5 -> 170, top = 45 * 200 / 100 - 9.5 = 80.5 -> 80.
    EXPECT_EQ(s.Pixel(170 + 9, 80 + 8), pictures.PicJup.Pixel(9, 8));
    // The Sun at -50 stands below the chart: its block starts past the foot.
    EXPECT_EQ(chart.SunBlock.top, 280 - 10);
}

TEST_F(AltAzTest, WithBothBoxesOffOnlyTheChartShows) {
    settings->save("AltAz", "PlotJup", "0");
    settings->save("AltAz", "PlotSun", "0");
    FormAltAz chart(*station, pictures);
    const QImage plain = QImage(programDir + "altaz_chart.bmp").convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(chart.Pic1->Surface().Image().convertToFormat(QImage::Format_RGB32), plain);
    chart.ChkPlotJupiter->click();
    EXPECT_EQ(settings->get("AltAz", "PlotJup"), "1");
    EXPECT_NE(chart.Pic1->Surface().Image().convertToFormat(QImage::Format_RGB32), plain);
}

using SkyImageTest = AltAzTest;

TEST_F(SkyImageTest, ZoomingAcrossZeroHoursJoinsBothEndsOfThePicture) {
    Form5 viewer(*station, pictures);
    const QImage& sky = pictures.Pic408.Image();
    viewer.ZoomTo(300, 60, 300, 160); // 120 degrees across 0 h, declination +60 to -10
    EXPECT_TRUE(viewer.view.crosses);
    EXPECT_EQ(viewer.view.ViewRASpan, 120);
    EXPECT_EQ(viewer.view.ViewDecTop, 300);
    const PlotSurface& s = viewer.Pic1->Surface();
    const int w = s.PixelWidth(), h = s.PixelHeight();
    // Left half from RA 300..360, right half from 0..60; rows from the second axis 300..160.
    const auto source = [&](double ra, double v) { return static_cast<int>(sky.pixel(int(ra), int(360 - v)) & 0xFFFFFF); };
    const auto shown = [&](int x, int y) { return static_cast<int>(s.Image().pixel(x, y) & 0xFFFFFF); };
    EXPECT_EQ(shown(w / 8, h / 2), source(315.5, 229.75)); // the middle row: v = 230, source row 130
    EXPECT_EQ(shown(w * 7 / 8, h / 2), source(45.5, 229.75));
    // The read-out wraps: x near the right edge of the view lies past 0 h.
    EXPECT_NEAR(viewer.Pix2RA(355), 300 + 355.0 / 3 - 360, 1e-9);
    EXPECT_EQ(viewer.Pix2Dec(0), 300);
}

TEST_F(SkyImageTest, SmallOrThinBoxesAreRefused) {
    Form5 viewer(*station, pictures);
    const struct {
        float x1, y1, x2, y2;
        bool taken;
    } cases[] = {
        {100, 100, 100, 100, false}, // a click
        {100, 100, 200, 105, false}, // 100 x 5
        {100, 100, 200, 111, true},  // 100 x 11
        {200, 100, 100, 200, true},  // dragged leftwards
    };
    for (const auto& c : cases) {
        viewer.ResetView();
        dialogs.messages.clear();
        viewer.Pic1MouseDown(1, c.x1, c.y1);
        viewer.Pic1MouseMove(1, c.x2, c.y2);
        viewer.Pic1MouseUp(1, c.x2, c.y2);
        EXPECT_EQ(dialogs.messages.empty(), c.taken) << c.x2 << " " << c.y2;
        if (!c.taken) {
            EXPECT_EQ(dialogs.messages[0].text, "Select larger region");
        } else {
            EXPECT_EQ(viewer.view.ViewRALeft, 100);
        }
    }
    viewer.ZoomTo(10, 10, 100, 200);
    EXPECT_EQ(dialogs.messages.back().text, "Region to small.");
}

TEST_F(SkyImageTest, TheFinderListsAntennasByNameWithNoneLast) {
    QDir().mkpath(programDir + "Antennas/more");
    WriteFile("Antennas/a.ant", "ANTENNA FILE\r\nNAME = Same\r\n");
    WriteFile("Antennas/more/bXANT", "ANTENNA FILE\r\nNAME = Same\r\n");
    WriteFile("Antennas/c.ant", "NAME = not one\r\n");
    WriteFile("Antennas/notes.txt", "ANTENNA FILE\r\nNAME = text\r\n");
    QString chosen = "before";
    FormFindAnt finder(*station, chosen);
    ASSERT_EQ(finder.List1->count(), 3);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(finder.List1->item(i)->text(), i < 2 ? "Same" : "NONE") << i;
    EXPECT_EQ(finder.LBLStatus->text(), "Not recognized as an antenna file!");
    finder.List1->setCurrentRow(1);
    finder.cmdOKClick();
    EXPECT_TRUE(chosen.endsWith("more/bXANT"));
    EXPECT_EQ(settings->get("Settings", "AntennaPath"), programDir + "Antennas");
    FormFindAnt again(*station, chosen);
    again.List1->setCurrentRow(again.List1->count() - 1);
    again.cmdOKClick();
    EXPECT_TRUE(chosen.isEmpty()); // "NONE"
}

TEST_F(SkyImageTest, TheMainWindowOpensTheSkyViewsAndTheirTicksFollowThem) {
    Form1 form(*station);
    auto* item = form.findChild<QAction*>("MnuSkyMap");
    form.cmdSkyMap->click();
    auto* map = form.findChild<FormSkyMap*>();
    ASSERT_TRUE(map && map->isVisible());
    EXPECT_TRUE(item->isChecked());
    form.findChild<QAction*>("MnuAltAzDisplay")->trigger();
    ASSERT_NE(form.findChild<FormAltAz*>(), nullptr);
    station->model.CloseViews(); // a change of time mode closes both
    EXPECT_FALSE(item->isChecked());
    EXPECT_FALSE(form.findChild<QAction*>("MnuWindowSkyMap")->isEnabled());
    EXPECT_FALSE(form.findChild<QAction*>("MnuAltAzDisplay")->isChecked());
    form.findChild<QAction*>("mnuSkyImage")->trigger();
    EXPECT_NE(form.findChild<Form5*>(), nullptr);
}

TEST_F(SkyImageTest, LobesTypedAndUpdatedAreSavedAndReadBack) {
    FormDefineAnt editor(*station);
    editor.txtLobes->setText("2");
    editor.txtLobesChange();
    EXPECT_EQ(editor.LobeCount, 2);
    for (auto [box, text] : {std::pair{editor.txtName, "Pair, phased"}, {editor.txtALT, "60"}, {editor.txtAZ, "180"},
                             {editor.txtGain, "7.5"}})
        box->setText(text);
    editor.cmdUpdate->click();
    EXPECT_EQ(editor.edit.Lobes[1].ALT, 60);
    editor.cmdLobeUp->click();
    EXPECT_EQ(editor.LBLLobe->text(), "LOBE #2");
    EXPECT_EQ(editor.txtALT->text(), "0");
    EXPECT_EQ(editor.txtEWBW->text(), "10"); // a new lobe's widths of 0 show as 10
    const QString path = programDir + "pair.ant";
    dialogs.paths = {path};
    editor.mnuSaveAnt->trigger();
    EXPECT_FALSE(editor.Changed);
    Antenna back;
    ASSERT_EQ(ReadAntennaFile(path.toStdString(), back).status, AntennaStatus::Loaded);
    EXPECT_EQ(back.AntName, "Pair"); // the comma ends the name on reading, as in every antenna file
    ASSERT_EQ(back.LobeCount(), 2);
    EXPECT_EQ(std::tuple(back.Lobes[1].AZ, back.Lobes[1].GAIN, back.Lobes[2].NSBW), std::tuple(180.0, 7.5, 10.0));
    // A change not saved is asked about on closing.
    editor.txtAZ->setText("90");
    editor.cmdUpdate->click();
    dialogs.answers = {MsgAnswer::No};
    editor.reject();
    EXPECT_EQ(dialogs.messages.back().text, "Save Antenna?");
}

} // namespace
