#include "ui/prediction/prediction_window.h"
#include "ui/common/named_controls.h"

#include "ui/common/plot_widget.h"
#include "ui/prediction/prediction_chart.h"

#include "core/date_value.h"
#include "prediction/event_report.h"
#include "prediction/storm_windows.h"
#include "station/atomic_file.h"
#include "ui/common/image_camera.h"
#include "core/numeric.h"
#include "render/page_printer.h"
#include "render/plot_surface.h"
#include "core/text_forms.h"
#include "station/time_entry.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <cmath>
#include <sstream>

namespace tarvelle {

namespace {

constexpr int kChartWidth = 720; // two minutes a pixel
constexpr int kChartHeight = 190;
constexpr int kSunBarHeight = 14;
constexpr int kNowLineCheckMs = 10000;

QString Q(const std::string& s) { return QString::fromStdString(s); }
std::string S(const QLineEdit* box) { return box->text().toStdString(); }

} // namespace

Form3::Form3(Station& station, std::function<void()> stopMainTimer, std::function<void()> onClosed, QWidget* parent)
    : StationWindow(station, parent), stopMainTimer_(std::move(stopMainTimer)),
      onClosed_(std::move(onClosed)) {
    setObjectName("Form3");
    setWindowTitle("Jupiter Radio Noise Storm Predictions");
    BuildControls();

    // Loading.
    if (stopMainTimer_) stopMainTimer_();
    for (int i = 0; i < kPredictedModes; ++i) LBLMode[i]->setVisible(i < st_.modes.PredictedModes());
    choices_.ReportIncludeHA = StoredBool(st_.settings.get("Settings", "ReportIncludeHA", "0").toStdString());
    core_.SaveCurrentTime();
    PredictDate = core_.RealTimeMode ? core_.CurrentUT : st_.fixed.FixedUT;
    ShowDateInFields(PredictDate);
    ArrangeDateFields();
    LBLWait->hide();
    Picture1->Surface().Clear();
    txtJupAltMin->setText(st_.settings.get("Settings", "ReportJupAltMin", "0"));
    txtSunAltMax->setText(st_.settings.get("Settings", "ReportSunAltMax", "0"));
    DoPredictions();
}

void Form3::BuildControls() {
    auto label = [this](const char* name, const char* text) { return NamedLabel(this, name, text); };
    auto field = [this](const char* name, int width) { return NamedField(this, name, width); };
    auto button = [this](const char* name, const char* caption) { return NamedButton(this, name, caption); };

    LblPrintTitle = label("LblPrintTitle", "Jupiter Radio Noise Storm Prediction");
    QFont title = LblPrintTitle->font();
    title.setPointSize(title.pointSize() + 3);
    title.setBold(true);
    LblPrintTitle->setFont(title);
    LBLDate = label("LBLDate", "GMT Date:");
    LBLDateFormat = label("LBLDateFormat", "");
    txtYear = field("txtYear", 56);
    txtMonth = field("txtMonth", 36);
    txtDay = field("txtDay", 36);
    CmdPredict = button("CmdPredict", "Predict Events");
    CmdPredict->setDefault(true);
    CmdNextDay = button("CmdNextDay", "Next Day");
    CmdPrevious = button("CmdPrevious", "Previous Day");
    cmdNow = button("cmdNow", "now");
    CmdPredictPrint = button("CmdPredictPrint", "Print");
    CmdReport = button("CmdReport", "Report");
    CmdCancelReport = button("CmdCancelReport", "Cancel  Report");
    CmdCancelReport->setToolTip("Stop the Report in Progress.");
    CmdCancelReport->setEnabled(false);
    CmdExit = button("CmdExit", "Exit");

    Picture1 = new PlotWidget(kChartWidth, kChartHeight, this);
    Picture1->setObjectName("Picture1");
    Picture1->Surface().SetBackColour(RGB(255, 255, 255));
    PicSunAlt = new PlotWidget(kChartWidth, kSunBarHeight, this);
    PicSunAlt->setObjectName("PicSunAlt");
    // The chart and the Sun's strip grow with the window and are drawn again at each size.
    Picture1->FollowWindowSize(kChartWidth, kChartHeight, true);
    PicSunAlt->FollowWindowSize(kChartWidth, kSunBarHeight, false);
    connect(Picture1, &PlotWidget::resized, this, &Form3::RedrawChart);
    connect(PicSunAlt, &PlotWidget::resized, this, [this] {
        DrawSunBar(PicSunAlt->Surface(), chartDay_);
        PicSunAlt->Surface().Refresh();
    });
    // The present minute's line moves on while the window is open.
    nowTimer_ = new QTimer(this);
    nowTimer_->setInterval(kNowLineCheckMs);
    connect(nowTimer_, &QTimer::timeout, this, &Form3::MoveNowLine);
    nowTimer_->start();
    LBLWait = label("LBLWait", "Calculating Please Wait....");
    LBLTime = label("LBLTime", "GMT: ");
    LBLJupAlt = label("LBLJupAlt", "Jup Alt ");
    LBLJupHA = label("LBLJupHA", "Jup HA ");
    LBLSunAlt = label("LBLSunAlt", "Sun Alt ");
    LBLReportProgress = label("LBLReportProgress", "");
    for (int i = 0; i < kPredictedModes; ++i) {
        QLabel* legend = label("LBLMode", "");
        const int c = ModeColour(i + 1);
        legend->setStyleSheet(QString("background: rgb(%1,%2,%3); color: black; padding: 2px 8px;")
                                  .arg(c & 0xFF)
                                  .arg((c >> 8) & 0xFF)
                                  .arg((c >> 16) & 0xFF));
        LBLMode << legend;
    }

    Grid1 = new QTableWidget(1, 7, this);
    Grid1->setObjectName("Grid1");
    Grid1->horizontalHeader()->hide();
    Grid1->verticalHeader()->hide();
    Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid1->setSelectionMode(QAbstractItemView::SingleSelection);
    Grid1->horizontalHeader()->setMinimumSectionSize(64);
    Grid1->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Grid1->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred); // the chart takes the height

    txtJupAltMin = field("txtJupAltMin", 48);
    txtSunAltMax = field("txtSunAltMax", 48);
    txtMinHA = field("txtMinHA", 48);
    txtMaxHA = field("txtMaxHA", 48);
    txtMinHA->setText("-6");
    txtMaxHA->setText("6");

    // Layout: date and day buttons; the chart with its bands; legend and read-outs; grid;
    // exclusions; commands.
    auto* dateRow = new QGridLayout;
    dateRow->addWidget(LBLDateFormat, 0, 1, 1, 3);
    dateRow->addWidget(LBLDate, 1, 0);
    auto* fields = new QHBoxLayout;
    fields->setObjectName("DateFields");
    dateRow->addLayout(fields, 1, 1, 1, 3);
    auto* dayButtons = new QHBoxLayout;
    for (QPushButton* b : {CmdPrevious, CmdPredict, CmdNextDay, cmdNow}) dayButtons->addWidget(b);
    dateRow->addLayout(dayButtons, 1, 4);
    dateRow->setColumnStretch(5, 1);

    auto* chart = new QGridLayout;
    ImageCamera = new class ImageCamera(&Picture1->Surface(), this);
    chart->addWidget(ImageCamera, 3, 0, Qt::AlignLeft);
    chart->addWidget(label(nullptr, "GMT"), 0, 0, Qt::AlignTop);
    chart->addWidget(Picture1, 0, 1, 2, 1);
    chart->addWidget(label(nullptr, "LOCAL"), 1, 0, Qt::AlignBottom);
    chart->addWidget(label(nullptr, "Sun Visiblity"), 2, 0);
    chart->addWidget(PicSunAlt, 2, 1);
    chart->addWidget(label(nullptr, "Blue background indicates Jupiter is below the horizon."), 3, 1);
    chart->addWidget(LBLWait, 3, 1, Qt::AlignRight);
    chart->setColumnStretch(1, 1);
    chart->setRowStretch(0, 1);
    chart->setRowStretch(1, 1);

    auto* legend = new QHBoxLayout;
    for (QLabel* l : LBLMode) legend->addWidget(l);
    legend->addStretch(1);
    for (QLabel* l : {LBLTime, LBLJupAlt, LBLJupHA, LBLSunAlt}) {
        l->setMinimumWidth(90);
        legend->addWidget(l);
    }

    auto* limits = new QGridLayout;
    limits->addWidget(label(nullptr, "Exclude times when Jupiter altitude is below:"), 0, 0);
    limits->addWidget(txtJupAltMin, 0, 1);
    limits->addWidget(label(nullptr, "deg."), 0, 2);
    limits->addWidget(label(nullptr, "Exclude times when Sun altitude is above:"), 1, 0);
    limits->addWidget(txtSunAltMax, 1, 1);
    limits->addWidget(label(nullptr, "deg."), 1, 2);
    limits->addWidget(label(nullptr, "Min Hour Angle Allowed"), 0, 3);
    limits->addWidget(txtMinHA, 0, 4);
    limits->addWidget(label(nullptr, "Max Hour Angle Allowed"), 1, 3);
    limits->addWidget(txtMaxHA, 1, 4);
    limits->setColumnStretch(5, 1);

    auto* commands = new QHBoxLayout;
    commands->addWidget(LBLReportProgress, 1);
    for (QPushButton* b : {CmdPredictPrint, CmdReport, CmdCancelReport, CmdExit}) commands->addWidget(b);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(LblPrintTitle);
    layout->addLayout(dateRow);
    layout->addLayout(chart, 1);
    layout->addLayout(legend);
    layout->addWidget(Grid1);
    layout->addLayout(limits);
    layout->addLayout(commands);

    connect(CmdPredict, &QPushButton::clicked, this, &Form3::CmdPredictClick);
    // Enter in a date field predicts, as the default button would in a dialog.
    for (QLineEdit* box : {txtYear, txtMonth, txtDay})
        connect(box, &QLineEdit::returnPressed, CmdPredict, &QPushButton::click);
    connect(CmdNextDay, &QPushButton::clicked, this, &Form3::CmdNextDayClick);
    connect(CmdPrevious, &QPushButton::clicked, this, &Form3::CmdPreviousClick);
    connect(cmdNow, &QPushButton::clicked, this, &Form3::cmdNowClick);
    connect(CmdPredictPrint, &QPushButton::clicked, this, &Form3::CmdPredictPrintClick);
    connect(CmdReport, &QPushButton::clicked, this, &Form3::CmdReportClick);
    connect(CmdCancelReport, &QPushButton::clicked, this, &Form3::CmdCancelReportClick);
    connect(CmdExit, &QPushButton::clicked, this, [this] {
        hide();
        if (QWidget* main = parentWidget()) {
            main->show();
            main->raise();
        }
        close();
    });
    connect(Picture1, &PlotWidget::mouseMove, this, [this](int, float x, float) { Picture1MouseMove(x); });
    mnuOtherScreens = new QMenu(this);
    mnuOtherScreens->setObjectName("mnuOtherScreens");
    mnuShowForThisTime = mnuOtherScreens->addAction("Show Available Views for this time.");
    mnuShowForThisTime->setObjectName("mnuShowForThisTime");
    connect(mnuShowForThisTime, &QAction::triggered, this, [this] { emit showForThisTime(PredictDate); });
    connect(Picture1, &PlotWidget::mouseDown, this, [this](int pressed, float x, float) {
        if (pressed == 2) Picture1RightButton(x);
    });
    connect(Grid1, &QTableWidget::cellPressed, this, [this](int row, int column) {
        setWindowTitle(QString::number(column) + "    " + QString::number(row));
    });
}

void Form3::ArrangeDateFields() {
    const int choice = core_.DateFormatChoice;
    if (const std::string heading = DateFieldsFor(choice).heading; !heading.empty()) LBLDateFormat->setText(Q(heading));
    auto* fields = findChild<QHBoxLayout*>("DateFields");
    const auto order = InDateOrder(choice, txtYear, txtMonth, txtDay);
    for (QLineEdit* box : order) fields->removeWidget(box);
    for (QLineEdit* box : order) fields->addWidget(box);
    // Tab goes through the fields in the order they are read.
    setTabOrder(order[0], order[1]);
    setTabOrder(order[1], order[2]);
}

void Form3::ShowDateInFields(double t) {
    txtYear->setText(Q(FormatDateMask(t, "yyyy")));
    txtMonth->setText(Q(FormatDateMask(t, "mm")));
    txtDay->setText(Q(FormatDateMask(t, "dd")));
}

ReportExclusions Form3::Exclusions() const {
    ReportExclusions ex = ExclusionsFromTexts(S(txtJupAltMin), S(txtSunAltMax), S(txtMinHA), S(txtMaxHA));
    ex.ReportInProgress = reportInProgress_;
    ex.ReportMinDuration = choices_.ReportMinDuration;
    return ex;
}

void Form3::DoPredictions() {
    if (FieldsOf(PredictDate).year < 1900) {
        st_.dialogs.Message("Dates Prior to 1900 are not permitted.");
        return;
    }
    if (FieldsOf(PredictDate).year > kLastDateYear) {
        st_.dialogs.Message(kDatesAfterLastYear);
        return;
    }
    Picture1->Surface().Clear();
    LBLWait->show();
    const ReportExclusions ex = Exclusions();
    auto decimal = [](float v) { return Q(Trim(StrForm(v))); };
    st_.settings.save("Settings", "ReportJupAltMin", decimal(ex.ReportJupAltMin));
    st_.settings.save("Settings", "ReportSunAltMax", decimal(ex.ReportSunAltMax));
    // The hour angle limits as typed, for the main window's next window.
    st_.settings.save("Settings", "ReportMinHA", txtMinHA->text());
    st_.settings.save("Settings", "ReportMaxHA", txtMaxHA->text());
    st_.model.ExclusionsChanged();
    PredictDay(core_, st_.modes, ex, st_.minutes, st_.activity.ModeActivity, grid_, PredictDate);
    ShowPrediction();
}

// The day just predicted: chart, grid, hour bar and the present minute.
void Form3::ShowPrediction() {
    DrawChart();
    ShowGrid();
    HourBar();
    NowLine();
    Picture1->Surface().Refresh();
    LBLWait->hide();
}

void Form3::DrawChart() {
    chartDay_ = ChartDayOf(st_.minutes, st_.activity.ModeActivity);
    chartMinutes_ = st_.minutes; // the read-out under the mouse stays with the day drawn
    DrawChartBody(Picture1->Surface(), chartDay_);
}

void Form3::NowLine() {
    nowSecond_ = NowLineSecond(PredictDate, core_.GMTFromClock(st_.clock.LocalNow()));
    if (nowSecond_) DrawNowLine(Picture1->Surface(), *nowSecond_);
}

void Form3::RedrawChart() {
    PlotSurface& s = Picture1->Surface();
    DrawChartBody(s, chartDay_);
    DrawHourBands(s, core_.ObsTZ);
    NowLine();
    s.Refresh();
}

void Form3::MoveNowLine() {
    if (NowLineSecond(PredictDate, core_.GMTFromClock(st_.clock.LocalNow())) != nowSecond_) RedrawChart();
}

void Form3::ShowGrid() {
    Grid1->setRowCount(grid_.Rows);
    for (int r = 0; r < grid_.Rows; ++r) {
        for (int c = 0; c < kGridColumns; ++c) {
            auto* item = new QTableWidgetItem(Q(grid_.Text(r, c)));
            if (r == 0 || c == 0) {
                item->setBackground(QColor(224, 224, 224));
                QFont f = item->font();
                f.setBold(true);
                item->setFont(f);
            }
            Grid1->setItem(r, c, item);
        }
    }
    for (int i = 1; i <= st_.modes.PredictedModes(); ++i) LBLMode[i - 1]->setText(Q(st_.modes.ModeName[static_cast<size_t>(i)]));
    Grid1->resizeColumnsToContents();
    Grid1->resizeRowsToContents();
    // The whole grid in view: seven rows at most.
    int height = 2 * Grid1->frameWidth();
    for (int r = 0; r < Grid1->rowCount(); ++r) height += Grid1->rowHeight(r);
    Grid1->setMinimumHeight(height);
}

void Form3::HourBar() {
    DrawHourBands(Picture1->Surface(), core_.ObsTZ);
    SunAltBar();
}

void Form3::SunAltBar() {
    PlotSurface& s = PicSunAlt->Surface();
    DrawSunBar(s, chartDay_);
    s.Refresh();
    txtSunAltMax->setText(st_.settings.get("Settings", "ReportSunAltMax", "0").trimmed());
    txtJupAltMin->setText(st_.settings.get("Settings", "ReportJupAltMin", "0").trimmed());
}

void Form3::ChkValidDate(bool& valid) {
    valid = false;
    const double y = ValueOfText(S(txtYear)), m = ValueOfText(S(txtMonth)), d = ValueOfText(S(txtDay));
    const std::optional<double> date = CheckedDateSerial(y, m, d);
    if (!date) {
        st_.dialogs.Message(txtYear->text() + " is not a valid date.", {}, MsgButtons::OK, MsgIcon::Exclamation);
        return;
    }
    if (y < 1900.0) {
        st_.dialogs.Message("Dates Prior to 1900 are not permitted.");
        return;
    }
    PredictDate = *date;
    ShowDateInFields(PredictDate); // 13/32 shows as the date it became
    valid = true;
}

void Form3::CmdPredictClick() {
    bool valid = false;
    ChkValidDate(valid);
    if (valid) {
        Picture1->Surface().Clear();
        DoPredictions();
    }
    // The limits are brought into range after the prediction that used them.
    for (QLineEdit* box : {txtJupAltMin, txtSunAltMax}) {
        const double v = ValueOfText(S(box));
        if (v < -90.0) box->setText("-90");
        if (v > 90.0) box->setText("90");
    }
}

void Form3::CmdNextDayClick() {
    Picture1->Surface().Clear();
    bool valid = false;
    ChkValidDate(valid);
    PredictDate += 1.0;
    ShowDateInFields(PredictDate);
    DoPredictions();
}

void Form3::CmdPreviousClick() {
    Picture1->Surface().Clear();
    bool valid = false;
    ChkValidDate(valid);
    PredictDate -= 1.0;
    ShowDateInFields(PredictDate);
    DoPredictions();
}

void Form3::cmdNowClick() {
    PredictDate = core_.GMTFromClock(st_.clock.LocalNow());
    ShowDateInFields(PredictDate);
    CmdPredict->setFocus();
    CmdPredictClick();
}

void Form3::Picture1RightButton(float x) {
    if (!(PredictDate > 0)) return;
    PredictDate = std::floor(PredictDate) + static_cast<double>(x) / 86400.0;
    setWindowTitle("Tarvelle Predictions  ");
    mnuOtherScreens->popup(QCursor::pos());
}

void Form3::Picture1MouseMove(float x) {
    const double k0 = RoundHalfEven(static_cast<double>(x) / 60.0);
    if (k0 < 0 || k0 > kMinutesPerDay || chartMinutes_.MinuteJupAlt.empty()) return;
    const auto k = static_cast<size_t>(k0);
    LBLTime->setText("GMT: " + Q(FormatDateMask(static_cast<double>(x) / 86400.0, "hh:nn")));
    LBLJupAlt->setText("Jup Alt " + Q(FormatNumberMask(chartMinutes_.MinuteJupAlt[k], "00")) + " deg.");
    LBLJupHA->setText("Jup HA " + Q(FormatNumberMask(chartMinutes_.MinuteJupHA[k], "00.0")));
    LBLSunAlt->setText("Sun Alt " + Q(FormatNumberMask(chartMinutes_.MinuteSunAlt[k], "00")) + " deg");
}

void Form3::CmdPredictPrintClick() {
    PagePrinter printer;
    if (!printer.ChoosePrinter(st_.dialogs)) return;
    printer.SetCurrentX(1.0);
    printer.SetCurrentY(0.5);
    printer.SetFontBold(false);
    printer.SetFontSize(18);
    printer.PrintLine({"JUPITER EVENT PREDICTIONS", "    ", Q(core_.FormatDateByChoice(PredictDate)), "    ", "GMT"});
    printer.PrintLine({});
    printer.SetFontSize(10);
    auto at10 = [&printer](const QString& text) { printer.PrintLine({PagePrinter::Tab(10), text}); };
    at10("Reference Coordinates:  Longitude " + Q(core_.ObLngText) + " " + Q(core_.DisplayWest) + "     Latitude " +
         Q(core_.ObLatText));
    at10("Exclude times when Jupiter is below " + txtJupAltMin->text() + " deg.");
    at10("Exclude times when Sun is above " + txtSunAltMax->text() + " deg.");
    at10("Tarvelle Software Version " + Q(st_.VersionText));
    printer.PrintLine({});
    for (int r = 0; r < grid_.Rows; ++r) {
        std::vector<PagePrinter::Item> items;
        for (int c = 0; c < kGridColumns; ++c) {
            items.push_back(PagePrinter::Tab(10 * (c + 1)));
            items.emplace_back(Q(grid_.Text(r, c)));
        }
        printer.PrintLine(items);
    }
    printer.EndDocument();
}

QString Form3::ReportPath() {
    const QString dir = st_.settings.get("Startup", "ReportDir", st_.programDir);
    QString name = Q(DefaultReportFileName(choices_.ReportStart));
    if (choices_.ReportCalendar) name.replace(".TXT", ".ics");
    return st_.dialogs.SaveFile("Save Event Report",
                                choices_.ReportCalendar ? "Calendar|*.ics|Any|*.*" : "Text File|*.TXT|Any|*.*",
                                QDir(dir).filePath(name));
}

void Form3::CmdReportClick() {
    bool valid = false;
    ChkValidDate(valid);
    formReportOptions options(st_, choices_, reportCancelled_, PredictDate, this);
    options.exec();
    if (reportCancelled_) {
        reportInProgress_ = false;
        return;
    }
    choices_.jupAltMinText = S(txtJupAltMin);
    choices_.sunAltMaxText = S(txtSunAltMax);
    choices_.versionText = st_.VersionText;
    if (const std::string refusal = ReportTextRefusal(core_, choices_); !refusal.empty()) {
        st_.dialogs.Message(Q(refusal), "Report", MsgButtons::OK, MsgIcon::Exclamation);
        return;
    }
    reportInProgress_ = true;
    CmdCancelReport->setEnabled(true);
    PredictDate = choices_.ReportStart;
    const QString path = ReportPath();
    if (path.isEmpty()) {
        reportInProgress_ = false;
        CmdCancelReport->setEnabled(false);
        return;
    }

    const int days = static_cast<int>(std::floor(choices_.ReportEnd) - std::floor(choices_.ReportStart)) + 1;
    int day = 0;
    ReportHooks hooks;
    hooks.beforeDay = [&](double date) {
        PredictDate = date;
        if (reportCancelled_) {
            st_.dialogs.Message("Report " + path + " Canceled by User.");
            return false;
        }
        LBLReportProgress->setText(QString("Report: day %1 of %2").arg(++day).arg(days));
        Picture1->Surface().Clear();
        ShowDateInFields(date);
        LBLWait->show();
        return true;
    };
    hooks.afterPrediction = [this] { ShowPrediction(); };
    hooks.afterRow = [] { QCoreApplication::processEvents(); };
    const ReportWork work{st_.minutes, st_.activity.ModeActivity, grid_};
    std::ostringstream report;
    // A calendar's stamp is the GMT of the computer's clock.
    const double stamp = st_.clock.LocalNow() + st_.clock.ClockTimeZoneBias() / 24.0;
    const ReportOutcome outcome =
        choices_.ReportCalendar
            ? WriteCalendarReport(core_, st_.modes, choices_, Exclusions(), stamp, report, hooks, &work)
            : WriteEventReport(core_, st_.modes, choices_, Exclusions(), report, hooks, &work);
    if (outcome == ReportOutcome::Completed)
        PredictDate += 1.0;
    CmdCancelReport->setEnabled(false);
    LBLReportProgress->clear();
    reportInProgress_ = false;

    // The file is replaced only once the whole report is in hand, and the folder remembered
    // only once it holds the file.
    QString error;
    if (!SaveFileAtomically(path, report.str(), error)) {
        st_.dialogs.Message("There was an error trying to save " + path + "\n" + error, "FILE ERROR!",
                            MsgButtons::OK, MsgIcon::Exclamation);
        return;
    }
    st_.settings.save("Startup", "ReportDir", QFileInfo(path).absolutePath());
    if (st_.dialogs.Message(" View Event Report " + path + " ?", {}, MsgButtons::YesNo) == MsgAnswer::Yes &&
        !(choices_.ReportCalendar ? st_.desktop.OpenDocument(path) : st_.desktop.ShowTextFile(path)))
        st_.dialogs.Message("No program to show " + path + " was found.", "View Event Report", MsgButtons::OK,
                            MsgIcon::Exclamation);
}

void Form3::closeEvent(QCloseEvent* event) {
    if (!core_.ShuttingDown) {
        core_.RestoreCurrentTime();
        if (onClosed_) onClosed_();
    }
    event->accept();
}

void Form3::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && stopMainTimer_) stopMainTimer_();
}

} // namespace tarvelle
