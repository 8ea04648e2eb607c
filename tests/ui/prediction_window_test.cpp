// Form3 and its report driven through named controls, and the main window's side of the
// prediction: the prediction command and the activity line.
#include "station/file_messages.h"
#include "ui/common/plot_widget.h"
#include "prediction/event_report.h"
#include "prediction/storm_windows.h"
#include "ui/common/image_camera.h"
#include "ui/main/main_window.h"
#include "formats/mode_file.h"
#include "render/plot_surface.h"
#include "ui/prediction/prediction_window.h"
#include "ui/prediction/report_options_window.h"
#include "station_test.h"
#include "core/text_forms.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QToolButton>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <memory>
#include <sstream>

using namespace tarvelle;

namespace {

void OnNextModal(std::function<void(QWidget*)> act) {
    QTimer::singleShot(0, [act] {
        if (QWidget* w = QApplication::activeModalWidget()) act(w);
    });
}

class Form3Test : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        UseSampleObserver();
        station->VersionText = "3.8.2";
        station->modes.ModeFileName = (programDir + "UFMODES.JMF").toStdString();
        int status = 0;
        LoadModeFile(station->modes, status, dialogs);
        ASSERT_EQ(status, 0);
        station->ReadClock();
        form = std::make_unique<Form3>(*station, [this] { ++timerStops; }, [this] { ++closed; });
    }
    QString Cell(int row, int column) const {
        const QTableWidgetItem* item = form->Grid1->item(row, column);
        return item ? item->text() : QString();
    }
    // The chart's pixel at a minute and a height of its frame of seconds and rows.
    int ChartPixel(double minute, double y) const {
        const PlotSurface& s = form->Picture1->Surface();
        ScaleFrame f = s.Frame();
        return s.Pixel(f.PixelColumn(minute * 60.0), f.PixelRow(y));
    }

    // The report command saving to `path`, with the options window set by `set` and then OK.
    void RunReport(const QString& path, std::function<void(formReportOptions*)> set) {
        dialogs.paths = {path};
        dialogs.answers = {MsgAnswer::Yes};
        OnNextModal([set](QWidget* w) {
            auto* options = qobject_cast<formReportOptions*>(w);
            ASSERT_NE(options, nullptr);
            set(options);
            options->cmdOK->click();
        });
        form->CmdReport->click();
    }
    void TypeDate(const char* y, const char* m, const char* d) {
        form->txtYear->setText(y);
        form->txtMonth->setText(m);
        form->txtDay->setText(d);
    }
    static ReportOptions From22November(double end) {
        ReportOptions o;
        o.ReportStart = DateSerial(2026, 11, 22);
        o.ReportEnd = end;
        o.versionText = "3.8.2";
        return o;
    }

    std::unique_ptr<Form3> form;
    int timerStops = 0, closed = 0;
};

} // namespace

// The window opens on today with the main timer stopped and shows the grid the computing code fills.
TEST_F(Form3Test, OpensOnTodayShowingTheComputedGrid) {
    EXPECT_EQ(timerStops, 1);
    EXPECT_EQ(form->PredictDate, core().CurrentUT);
    ASSERT_EQ(form->Grid1->rowCount(), 7);
    for (int r = 0; r < 7; ++r)
        for (int c = 0; c < 7; ++c) EXPECT_EQ(Cell(r, c).toStdString(), form->Grid().Text(r, c));
}

// The day's activity reaches the chart: a heard minute of a mode shows in its colour, at a
// height no other mode's bar reaches. (Where bars stand and their colours: ChartTest.)
TEST_F(Form3Test, TheActivityReachesTheChart) {
    int checked = 0;
    for (int i = 1; i <= 6; ++i) {
        int m = 30;
        while (m < 1400 && (station->activity.ModeActivity[static_cast<size_t>(i)][static_cast<size_t>(m)] != 1 ||
                            (m + 1) % 20 == 0 || (m + 2) % 20 == 0)) // the minute lines draw over
            ++m;
        if (m == 1400) continue;
        EXPECT_EQ(ChartPixel(m + 1.5, i + 1.25), ModeColour(i)) << "mode " << i << " minute " << m;
        ++checked;
    }
    EXPECT_GT(checked, 0);
}

TEST_F(Form3Test, TheCameraCopiesTheChartAndThePrintoutGoesToAPdf) {
    QGuiApplication::clipboard()->clear();
    form->ImageCamera->Click();
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), form->Picture1->Surface().Image().size());
    // The printout goes to a PDF; a cancelled print dialog gives nothing.
    form->CmdPredictPrint->click();
    EXPECT_EQ(dialogs.printDialogs, 1);
    dialogs.printToPdf = dir.filePath("prediction.pdf");
    form->CmdPredictPrint->click();
    EXPECT_TRUE(ReadFile(dialogs.printToPdf).startsWith("%PDF"));
}

TEST_F(Form3Test, NextPreviousTheDateChecksAndTheLimits) {
    const double ut = core().CurrentUT;
    form->CmdNextDay->click();
    EXPECT_EQ(std::floor(form->PredictDate), DateSerial(2026, 11, 23));
    form->CmdPrevious->click();
    form->CmdPrevious->click();
    EXPECT_EQ(form->txtDay->text(), "21");
    form->txtYear->setText("1899");
    form->CmdPredict->click();
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].text, "Dates Prior to 1900 are not permitted.");
    TypeDate("2027", "13", "32"); // carries into the next year, and the fields show where
    form->CmdPredict->click();
    EXPECT_EQ(form->PredictDate, DateSerial(2028, 2, 1));
    EXPECT_EQ(form->txtYear->text() + form->txtMonth->text() + form->txtDay->text(), "20280201");
    // Years past 9999 are refused, typed or reached by Next Day.
    dialogs.messages.clear();
    form->txtYear->setText("10000");
    form->CmdPredict->click();
    TypeDate("9999", "12", "31");
    form->CmdPredict->click();
    form->CmdNextDay->click();
    ASSERT_EQ(dialogs.messages.size(), 2u);
    EXPECT_EQ(dialogs.messages[0].text, "10000 is not a valid date.");
    EXPECT_EQ(dialogs.messages[1].text, "Dates After 9999 are not permitted.");
    TypeDate("2028", "2", "1");
    // Limits are used as typed, then brought into range.
    form->txtJupAltMin->setText("-100");
    form->txtSunAltMax->setText("95");
    form->CmdPredict->click();
    EXPECT_EQ(settings->get("Settings", "ReportJupAltMin"), "-100");
    EXPECT_EQ(form->txtJupAltMin->text(), "-90");
    EXPECT_EQ(form->txtSunAltMax->text(), "90");
    // Closing puts the station's clock back.
    form->close();
    EXPECT_EQ(core().CurrentUT, ut);
    EXPECT_EQ(closed, 1);
}

// The read-out is of the day drawn, even after the station's shared tables moved on.
TEST_F(Form3Test, TheMouseReadsTheMinuteUnderIt) {
    const MinuteTables t = station->minutes;
    std::fill(station->minutes.MinuteJupAlt.begin(), station->minutes.MinuteJupAlt.end(), int16_t{77});
    std::fill(station->minutes.MinuteJupHA.begin(), station->minutes.MinuteJupHA.end(), 7.0f);
    form->Picture1MouseMove(6 * 3600.0f);
    EXPECT_EQ(form->LBLTime->text(), "GMT: 06:00");
    EXPECT_EQ(form->LBLJupAlt->text().toStdString(), "Jup Alt " + FormatNumberMask(t.MinuteJupAlt[360], "00") + " deg.");
    EXPECT_EQ(form->LBLJupHA->text().toStdString(), "Jup HA " + FormatNumberMask(t.MinuteJupHA[360], "00.0"));
}

TEST_F(Form3Test, TheWindowsReportIsTheHeadlessReport) {
    const QString path = dir.filePath("20261122JP.TXT");
    RunReport(path, [](formReportOptions* options) {
        options->txtEMonth->setText("12");
        options->txtEDay->setText("2"); // across the end of the month
        options->chkHA->setChecked(true);
    });
    EXPECT_FALSE(form->ReportInProgress());
    ASSERT_FALSE(dialogs.messages.empty());
    EXPECT_EQ(dialogs.messages.back().text, " View Event Report " + path + " ?");
    EXPECT_EQ(desktop.shown, QStringList({path}));
    EXPECT_EQ(settings->get("Settings", "ReportIncludeHA"), "1");

    ReportOptions o = From22November(DateSerial(2026, 12, 2));
    o.ReportIncludeHA = true;
    std::ostringstream expected;
    Core fresh = core();
    WriteEventReport(fresh, station->modes, o, ExclusionsFromTexts("0", "0", "-6", "6"), expected);
    EXPECT_EQ(ReadFile(path).toStdString(), expected.str());
    EXPECT_EQ(std::floor(form->PredictDate), DateSerial(2026, 12, 3)); // one day past the end
}

// The calendar choice gives the headless calendar of the same span, stamped with the GMT of
// the station's clock, and hands it to the desktop's calendar program.
TEST_F(Form3Test, TheCalendarChoiceWritesTheHeadlessCalendar) {
    const QString path = dir.filePath("20261122JP.ics");
    RunReport(path, [](formReportOptions* options) {
        options->txtEDay->setText("29");
        options->chkCalendar->setChecked(true);
    });
    EXPECT_EQ(desktop.opened, QStringList({path}));

    std::ostringstream expected;
    Core fresh = core();
    WriteCalendarReport(fresh, station->modes, From22November(DateSerial(2026, 11, 29)),
                        ExclusionsFromTexts("0", "0", "-6", "6"), DateSerial(2026, 11, 22) + TimeSerial(20, 30, 0),
                        expected);
    EXPECT_EQ(ReadFile(path).toStdString(), expected.str());
}

// Regression: the folder was remembered before the file was written, and a failed save said
// nothing of why.
TEST_F(Form3Test, AFailedReportSaysWhyAndRemembersNoFolder) {
    const QString path = dir.filePath("no-such-folder/20261122JP.TXT");
    RunReport(path, [](formReportOptions*) {});
    ASSERT_FALSE(dialogs.messages.empty());
    const QString told = "There was an error trying to save " + path + "\n";
    EXPECT_TRUE(dialogs.messages.back().text.startsWith(told));
    EXPECT_GT(dialogs.messages.back().text.size(), told.size());
    EXPECT_EQ(settings->get("Startup", "ReportDir"), QString());
    EXPECT_FALSE(QFile::exists(path));
    // A limit of 100 KB is refused before any file is asked for or written.
    dialogs.messages.clear();
    form->txtSunAltMax->setText(QString(100000, '0') + "5");
    const QString good = dir.filePath("20261122JP.TXT");
    RunReport(good, [](formReportOptions*) {});
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_TRUE(dialogs.messages[0].text.startsWith("The Sun altitude limit text is too long"));
    EXPECT_FALSE(QFile::exists(good));
    EXPECT_FALSE(form->ReportInProgress());
    form->txtSunAltMax->setText("0");
    // A cancelled options window writes and says nothing.
    dialogs.messages.clear();
    OnNextModal([](QWidget* w) { qobject_cast<formReportOptions*>(w)->cmdCancel->click(); });
    form->CmdReport->click();
    EXPECT_FALSE(form->ReportInProgress());
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(Form3Test, ReportOptionsRefuseBadFieldsInOrder) {
    ReportOptions choices;
    bool cancelled = false;
    formReportOptions options(*station, choices, cancelled, DateSerial(2026, 3, 1));
    options.txtSYear->setText("1899");
    options.txtEMonth->setText("13");
    options.cmdOKClick();
    options.txtSYear->setText("2026");
    options.cmdOKClick();
    options.txtEMonth->setText("2");
    options.txtEDay->setText("28");
    options.cmdOKClick();
    ASSERT_EQ(dialogs.messages.size(), 3u);
    EXPECT_EQ(dialogs.messages[0].text, "Invalid Start Year");
    EXPECT_EQ(dialogs.messages[1].text, "Invalid End Month");
    EXPECT_EQ(dialogs.messages[2].text, "You entered a which occurs ending date before the start date.");
    EXPECT_TRUE(cancelled);
    options.txtEMonth->setText("4");
    options.txtEDay->setText("31"); // 31 April is 1 May
    options.txtMin->setText("-5");
    options.cmdOKClick();
    EXPECT_FALSE(cancelled);
    EXPECT_EQ(choices.ReportEnd, DateSerial(2026, 5, 1));
    EXPECT_EQ(options.txtMin->text(), "0");
    EXPECT_EQ(settings->get("Settings", "ReportMinDuration"), "0");
}

using PredictionCommandTest = StationTest;

TEST_F(PredictionCommandTest, MainWindowOpensThePredictionAndShowsActivity) {
    Form1 main(*station);
    main.Load();
    main.findChild<QAction*>("MnuPrediction")->trigger();
    auto* form3 = main.findChild<Form3*>();
    ASSERT_NE(form3, nullptr);
    EXPECT_FALSE(main.Timer1()->isActive());
    form3->close();

    // The activity line names the modes predicted for this minute.
    const CalendarFields now = FieldsOf(core().CurrentUT);
    station->activity.TodayActivity = {};
    station->activity.TodayActivity[2][static_cast<size_t>(now.hour * 60 + now.minute)] = 1;
    main.VisualAlert();
    EXPECT_EQ(main.LBLQ->text(), "Possible Activity:     Io-B");
    station->activity.TodayActivity = {};
    main.VisualAlert();
    EXPECT_TRUE(main.LBLQ->text().isEmpty());
}

TEST_F(PredictionCommandTest, NoModeFileNoPrediction) {
    QFile::remove(programDir + "UFMODES.JMF");
    Form1 main(*station);
    main.Load();
    dialogs.messages.clear();
    main.CmdPredict->click();
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].text, "No Mode File Has Been Loaded. \r\n Prediction Not Possible.");
    EXPECT_EQ(main.findChild<Form3*>(), nullptr);
}

TEST_F(Form3Test, TheNowLineOnTodayOnlyAndTheChartGrowsWithTheWindow) {
    // The station's clock reads 15:30 at -5 hours: 20:30 GMT on the day shown.
    ASSERT_TRUE(form->NowSecond().has_value());
    EXPECT_EQ(*form->NowSecond(), 20.5 * 3600);
    EXPECT_EQ(ChartPixel(20.5 * 60, 4.0), 0xFFFFFF);
    form->CmdNextDayClick();
    EXPECT_FALSE(form->NowSecond().has_value());
    form->CmdPreviousClick();

    // Drawn again at a new size: the hour band reaches the right edge, the now line moved with it.
    form->show();
    const int first = form->Picture1->Surface().PixelWidth();
    form->resize(form->width() + 600, form->height() + 300);
    QApplication::processEvents();
    const PlotSurface& s = form->Picture1->Surface();
    EXPECT_GT(s.PixelWidth(), first + 400);
    EXPECT_EQ(s.Pixel(s.PixelWidth() - 1, 2), QBColor(2));
    EXPECT_EQ(ChartPixel(20.5 * 60, 4.0), 0xFFFFFF);
    form->close();
}
