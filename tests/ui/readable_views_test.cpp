// What a person sees: links that act once per key press, labels that never widen their
// window, message boxes over their own window, the day chart's marks and the plane's texts.
#include "render/outlined_text.h"
#include "ui/common/click_label.h"
#include "ui/common/elided_label.h"
#include "ui/common/qt_dialogs.h"
#include "ui/observer/observer_window.h"
#include "ui/prediction/prediction_chart.h"
#include "core/date_value.h"
#include "station_test.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QFile>
#include <QMainWindow>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>

using namespace tarvelle;

namespace {

TEST(ClickLabel, AKeyHeldDownActsOnce) {
    // A held key repeats: only its first press acts.
    const struct { int key; bool repeat; int clicks; } cases[] = {
        {Qt::Key_Return, false, 1}, {Qt::Key_Return, true, 0}, {Qt::Key_Enter, false, 1},
        {Qt::Key_Space, false, 1},  {Qt::Key_Space, true, 0},   {Qt::Key_A, false, 0}};
    for (const auto& c : cases) {
        int clicks = 0;
        ClickLabel label(nullptr, [&clicks] { ++clicks; });
        QKeyEvent press(QEvent::KeyPress, c.key, Qt::NoModifier, QString(), c.repeat);
        QApplication::sendEvent(&label, &press);
        EXPECT_EQ(clicks, c.clicks) << "key " << c.key << " repeat " << c.repeat;
    }
}

TEST(ElidedLabel, TheTextNeverWidensTheLabel) {
    const QString texts[] = {"short", QString(300, 'x'), "/home/observer/" + QString(5000, 'd') + "/viewer.obs"};
    ElidedLabel label("start", Qt::ElideMiddle);
    label.setMinimumWidth(120);
    label.resize(120, label.sizeHint().height());
    const QSize hint = label.sizeHint();
    for (const QString& text : texts) {
        label.setText(text);
        EXPECT_EQ(label.sizeHint(), hint) << text.size();
        EXPECT_EQ(label.text(), text); // the whole text is kept
        const QString shown = label.ShownText();
        EXPECT_LE(label.fontMetrics().horizontalAdvance(shown), label.contentsRect().width());
        if (text.size() > 100) {
            EXPECT_TRUE(shown.contains(QChar(0x2026))) << shown.toStdString();
            EXPECT_TRUE(shown.endsWith(text.right(2))); // the middle goes, both ends stay
        } else {
            EXPECT_EQ(shown, text);
        }
    }
}

TEST_F(StationTest, TheObserverWindowKeepsItsSizeWhateverItShows) {
    UseSampleObserver();
    ASSERT_TRUE(QFile::copy(TARVELLE_SOURCE_DATA "/latlng.txt", programDir + "latlng.txt"));
    core().ObFileName = (programDir + QString(400, 'p') + ".obs").toStdString();
    FormObserver form(*station);
    form.show();
    QApplication::processEvents();
    const QSize opened = form.size(), hint = form.sizeHint();
    const QPoint map = form.Picture1->mapTo(&form, QPoint(0, 0));
    const std::function<void()> steps[] = {
        [&] { form.MapMouseMove(0, 0); },
        [&] { form.MapMouseMove(639, 319); },
        [&] { form.LBLObFileName->setText("Observer File: /" + QString(2000, 'q')); },
        [&] { form.CmdCitiesClick(); },
        [&] { form.ListRegionsClick(form.ListRegions->item(0)->text()); },
        [&] { form.ListCitiesClick("<CANCEL>"); },
    };
    for (const auto& step : steps) {
        step();
        QApplication::processEvents();
        EXPECT_EQ(form.size(), opened);
        EXPECT_EQ(form.sizeHint(), hint);
        EXPECT_EQ(form.Picture1->mapTo(&form, QPoint(0, 0)), map);
    }
    // The map's read-out is never cut short, wherever the mouse is.
    const auto* readout = dynamic_cast<const ElidedLabel*>(form.LBLLatLng);
    ASSERT_NE(readout, nullptr);
    for (const QPoint p : {QPoint(0, 0), QPoint(639, 319), QPoint(1, 300), QPoint(320, 160)}) {
        form.MapMouseMove(p.x(), p.y());
        EXPECT_EQ(readout->ShownText(), readout->text());
    }
}

TEST(QtDialogsOwner, ABoxBelongsToTheModalDialogElseTheMainWindow) {
    QMainWindow main;
    main.show();
    QWidget other;
    other.show();
    QApplication::processEvents();
    QDialog modal(&main);
    modal.setModal(true);
    modal.show();
    QApplication::processEvents();
    EXPECT_EQ(QtDialogs::OwnerWindow(), &modal);
    modal.hide();
    QApplication::processEvents();
    QWidget* owner = QtDialogs::OwnerWindow();
    ASSERT_NE(owner, nullptr); // never a box alone in the middle of the screen
    EXPECT_TRUE(owner == &main || owner == &other);
    EXPECT_TRUE(owner->isVisible());
}

// The chart of a day on a surface of the window's first size, two minutes a pixel.
class ChartTest : public ::testing::Test {
protected:
    ChartDay Day(int altitude) const {
        ChartDay day;
        std::fill(day.jupAlt.begin(), day.jupAlt.end(), static_cast<int16_t>(altitude));
        for (int m = 300; m <= 400; ++m) {
            day.activity[1][static_cast<size_t>(m)] = 1;  // heard
            day.activity[2][static_cast<size_t>(m)] = -1; // taken out by a limit
        }
        return day;
    }
    // The colours inside the bar of a mode over minutes 320 to 380, in the band that no other
    // mode's bar overlaps (the bars overlap by half a row).
    std::map<int, int> BarColours(const PlotSurface& s, int mode) const {
        const ScaleFrame f = s.Frame();
        std::map<int, int> counts;
        for (int c = f.PixelColumn(60.0 * 320); c <= f.PixelColumn(60.0 * 380); ++c)
            for (int r = f.PixelRow(mode + 1.05); r <= f.PixelRow(mode + 1.45); ++r) ++counts[s.Pixel(c, r)];
        return counts;
    }
};

TEST_F(ChartTest, HeardAndTakenOutEventsDifferOnEveryGround) {
    for (const int altitude : {-10, 0, 30, 90}) {
        for (const int width : {720, 1500}) {
            SCOPED_TRACE(testing::Message() << "altitude " << altitude << " width " << width);
            PlotSurface s(width, 190);
            DrawChartBody(s, Day(altitude));
            const int ground = altitude < 0 ? RGB(0, 0, 255) : AltitudeColour(altitude);
            const std::map<int, int> heard = BarColours(s, 1), out = BarColours(s, 2);
            EXPECT_EQ(heard, (std::map<int, int>{{ModeColour(1), heard.begin()->second}})); // heard: solid in its colour
            // Taken out: stripes of the mode's colour and black over the ground showing through.
            ASSERT_TRUE(out.count(ModeColour(2)) && out.count(0) && out.count(ground));
            int total = 0;
            for (const auto& [colour, n] : out) total += n;
            EXPECT_LT(out.at(ModeColour(2)) * 2, total); // less than half: never read as solid
            // The heard bar's edge is black, so that a pale colour stands out on the pale ground.
            const ScaleFrame f = s.Frame();
            EXPECT_EQ(s.Pixel(f.PixelColumn(60.0 * 350), f.PixelRow(1.5)), 0);
        }
    }
}

TEST_F(ChartTest, TheNowLineStandsAtThePresentMinuteOfToday) {
    const double today = DateSerial(2026, 11, 22);
    struct Case {
        double shown, now;
        std::optional<double> second;
    };
    const Case cases[] = {
        {today, today + TimeSerial(0, 0, 30), 0.0},
        {today + 0.75, today + TimeSerial(12, 0, 59), 43200.0}, // any time of the day shown
        {today, today + TimeSerial(23, 59, 0), 86340.0},
        {today + 1, today + TimeSerial(12, 0, 0), std::nullopt},
        {today - 1, today + TimeSerial(0, 1, 0), std::nullopt},
    };
    for (const Case& c : cases) EXPECT_EQ(NowLineSecond(c.shown, c.now), c.second) << c.now;

    struct Column {
        int width;
        double second;
        int column;
    };
    const Column columns[] = {{720, 0, 0}, {720, 43200, 360}, {720, 86340, 719}, {1440, 43200, 720}, {1440, 600, 10}};
    for (const Column& c : columns) {
        SCOPED_TRACE(testing::Message() << "width " << c.width << " second " << c.second);
        PlotSurface s(c.width, 190);
        DrawChartBody(s, Day(-10));
        DrawNowLine(s, c.second);
        // Top to bottom of the chart between the hour bands (rows 0-30 and 160-189), not over their labels.
        for (const int row : {32, 100, 158}) EXPECT_EQ(s.Pixel(c.column, row), 0xFFFFFF);
        for (const int row : {0, 29, 161, 189}) EXPECT_NE(s.Pixel(c.column, row), 0xFFFFFF);
        for (const int x : {c.column - 1, c.column + 1})
            if (x >= 0 && x < c.width) EXPECT_EQ(s.Pixel(x, 100), 0) << "at " << x;
        EXPECT_NE(s.Pixel((c.column + c.width / 2) % c.width, 100), 0xFFFFFF); // one line only
    }
}

TEST(OutlinedText, ReadsOnTheBrightestAndTheDarkestGround) {
    for (const int ground : {0xFFFFFF, RGB(255, 245, 235), 0, RGB(12, 22, 90)}) {
        PlotSurface s(60, 30, ground);
        s.SetScale(0, 360, 360, 0);
        s.Clear();
        s.SetFontSize(9);
        s.SetCurrentPoint(30, 330);
        PrintOutlinedText(s, "23", 0xFFFFFF, 0);
        int ink = 0, ring = 0;
        for (int y = 0; y < s.PixelHeight(); ++y)
            for (int x = 0; x < s.PixelWidth(); ++x) {
                ink += s.Pixel(x, y) == 0xFFFFFF && ground != 0xFFFFFF;
                ring += s.Pixel(x, y) == 0 && ground != 0;
            }
        if (ground != 0xFFFFFF) {
            EXPECT_GT(ink, 5) << ground;
        }
        if (ground != 0) {
            EXPECT_GT(ring, ink / 2) << ground;
        }
        EXPECT_EQ(s.CurrentX(), 30.0f); // the point moves on as PrintText leaves it
    }
}

} // namespace
