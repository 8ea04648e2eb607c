// The tables' windows driven through their named controls: the ephemeris grid and printout,
// the visibility chart's colours, the De graph's read-out and the Alt/Az table file. With
// TARVELLE_KEEP_PRINTOUTS set to a folder, the printouts and window pictures stay there.
#include "tables/altaz_table.h"
#include "tables/ephemeris.h"
#include "tables/visibility.h"
#include "ui/common/plot_widget.h"
#include "ui/main/main_window.h"
#include "ui/tables/altaz_table_window.h"
#include "ui/tables/de_window.h"
#include "ui/tables/ephemeris_window.h"
#include "ui/tables/visibility_window.h"
#include "core/date_value.h"
#include "station_test.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

using namespace tarvelle;

namespace {

class TablesWindows : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        UseSampleObserver();
        station->ReadClock();
        mainTimer.start(1000);
    }
    QString Keep(const QString& name) const {
        const QByteArray keep = qgetenv("TARVELLE_KEEP_PRINTOUTS");
        return (keep.isEmpty() ? programDir : QString::fromLocal8Bit(keep) + "/") + name;
    }
    static int PdfPages(const QString& path) {
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly)) return -1;
        const QByteArray data = f.readAll();
        return static_cast<int>(data.count("/Type /Page") - data.count("/Type /Pages"));
    }
    QTimer mainTimer;
};

TEST_F(TablesWindows, EphemerisGridLabelsRefusalsAndPrintouts) {
    Form2 form(*station, &mainTimer, {});
    EXPECT_FALSE(mainTimer.isActive()) << "the main timer stops while the ephemeris is open";
    for (auto [box, text] : {std::pair{form.txtY, "2024"}, {form.txtM, "2"}, {form.txtD, "29"}, {form.Text2, "360"}})
        box->setText(text);
    form.CmdCalc->click();
    Core reference = core();
    const EphemerisResult r = ComputeEphemeris(reference, {"2024", "2", "29", "360"});
    ASSERT_EQ(form.Grid1->rowCount(), 4) << "three rows and the empty last one";
    for (size_t row = 1; row <= 3; ++row)
        for (int c = 0; c < kEphemerisColumns; ++c)
            EXPECT_EQ(form.Grid1->item(int(row) - 1, c)->text().toStdString(), r.rows[row][static_cast<size_t>(c)]);
    EXPECT_EQ(form.Grid1->item(3, 0), nullptr);
    EXPECT_EQ(form.LbLDist->text().toStdString(), r.labels.back().second);

    // A refusal (its texts: the Ephemeris tests) reaches the user with its icon; the last table stays.
    form.Text2->setText("0");
    form.CmdCalc->click();
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(form.Grid1->rowCount(), 4);

    // One page at 6 hours; at 5 minutes 288 rows run over several pages.
    dialogs.printToPdf = Keep("ephemeris-one-page.pdf");
    form.CmdPrint->click();
    EXPECT_EQ(PdfPages(dialogs.printToPdf), 1);
    form.Text2->setText("5");
    form.CmdCalc->click();
    ASSERT_EQ(form.Grid1->rowCount(), 288);
    dialogs.printToPdf = Keep("ephemeris-pages.pdf");
    form.CmdPrint->click();
    EXPECT_GE(PdfPages(dialogs.printToPdf), 4);
    form.grab().save(Keep("ephemeris.png"));
}

TEST_F(TablesWindows, VisibilityChartColoursFollowTheLettersAndTheGrid) {
    FormRiseSet form(*station, &mainTimer);
    form.TxtGraphYear->setText("2101");
    form.CmdCalc->click();
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].title, "Date Error");
    EXPECT_TRUE(mainTimer.isActive()) << "a refused year leaves the main timer alone";

    form.TxtGraphYear->setText("2023");
    form.CmdNextYear->click();
    EXPECT_EQ(form.TxtGraphYear->text(), " 2024");
    form.ChkGrid->setChecked(true);
    EXPECT_EQ(settings->get("RiseSet", "UseGrid", "0"), " 1");
    form.CmdCalc->click();
    EXPECT_FALSE(mainTimer.isActive());
    Core reference = core();
    const VisibilityResult r = ComputeVisibility(reference, 2024, false);
    const PlotSurface& s = form.Pic1->Surface();
    const ScaleFrame f = s.Frame();
    // Cells clear of the grid lines (every 3 hours) show the computed letters' colours.
    for (int day : {0, 100, 200, 364})
        for (int step : {1, 11, 26, 41, 61}) {
            const double h = (step + 0.5) * ResolutionOf(false).hourStep;
            EXPECT_EQ(s.Pixel(f.PixelColumn(h), f.PixelRow(day + 0.5)),
                      VisibilityColour(static_cast<Visible>(r.days[static_cast<size_t>(day)][static_cast<size_t>(step)])))
                << day << " " << step;
        }
    EXPECT_EQ(s.Pixel(f.PixelColumn(12.0), f.PixelRow(180.5)), QBColor(7)) << "the noon grid line";
    form.Pic1MouseMove(6.0f, 32.0f);
    EXPECT_TRUE(form.windowTitle().endsWith("  06:00")) << form.windowTitle().toStdString();
    form.grab().save(Keep("visibility.png"));
}

TEST_F(TablesWindows, DeGraphReadOutOnlyAfterAGraphAndRefusalsKeepIt) {
    FormDe form(*station);
    form.Pic1MouseMove(100.0f, 1.0f);
    EXPECT_TRUE(form.LBLDe->text().isEmpty());
    form.TxtY1->setText("2030");
    form.TxtY2->setText("2020");
    form.cmdGraph->click();
    EXPECT_EQ(form.TxtY1->text(), "2020");
    EXPECT_EQ(form.TxtY2->text(), "2030");
    form.Pic1MouseMove(366.0f, 1.234f);
    EXPECT_EQ(form.LBLDe->text(), "1.23");
    EXPECT_EQ(form.LBLDate->text(), "01/01/2021");
    const QImage before = form.Pic1->Surface().Image();
    form.TxtY2->setText("20x0");
    form.cmdGraph->click();
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].title, "End Year Error");
    EXPECT_EQ(form.Pic1->Surface().Image(), before);
    form.grab().save(Keep("de.png"));
}

TEST_F(TablesWindows, AltAzTableWritesTheFileAndPutsTheTimerBack) {
    FormAltAzTable form(*station, &mainTimer);
    EXPECT_FALSE(mainTimer.isActive());
    mainTimer.start();
    for (auto [box, text] : {std::pair{form.txtYS, "2024"}, {form.txtMS, "2"}, {form.txtDS, "29"},
                             {form.txtYE, "2024"}, {form.txtME, "2"}, {form.txtDE, "29"}})
        box->setText(text);
    form.Combo1->setCurrentText("60");
    const QString path = programDir + "table.dat";
    dialogs.paths = {"", path};
    form.cmdCreate->click(); // cancelled
    EXPECT_FALSE(QFile::exists(path));
    form.cmdCreate->click();
    EXPECT_EQ(QFile(path).size(), 24 * kAltAzRecordBytes);
    EXPECT_EQ(form.LBLS->text(), "Done");
    EXPECT_TRUE(mainTimer.isActive());
}

TEST_F(TablesWindows, MainWindowOpensEachTablesWindowOnce) {
    Form1 main(*station);
    const struct {
        const char *action, *window;
    } entries[] = {{"MnuEphemeris", "Form2"}, {"mnuYearlyRiseSet", "FormRiseSet"}, {"MnuDe", "FormDe"},
                   {"mnuAltAzTable", "FormAltAzTable"}};
    for (const auto& e : entries) {
        QAction* item = main.findChild<QAction*>(e.action);
        ASSERT_TRUE(item && item->isEnabled()) << e.action;
        item->trigger();
        item->trigger();
        int open = 0;
        for (QWidget* w : main.findChildren<QWidget*>(e.window)) open += w->isVisible();
        EXPECT_EQ(open, 1) << e.window;
    }
}

} // namespace
