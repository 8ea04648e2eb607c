#include "ui/tables/visibility_window.h"

#include "core/date_value.h"
#include "core/numeric.h"
#include "core/text_forms.h"
#include "ui/common/plot_widget.h"
#include "ui/tables/table_controls.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDate>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace tarvelle {

namespace {

constexpr int kChartWidth = 480, kChartHeight = 365;
constexpr int kAxisX = 40, kAxisY = 52; // the axis pictures' depth below and beside the chart

QString StoredFlag(bool on) {
    return QString::fromStdString(StrForm(on ? 1.0 : 0.0));
}

// LOCAL TIME with the hours from 12AM in steps of three, lined up under the chart.
QPixmap TimeAxis() {
    QPixmap p(kChartWidth + kAxisY + 20, kAxisX);
    p.fill(Qt::white);
    QPainter g(&p);
    QFont f = g.font();
    f.setPointSize(8);
    g.setFont(f);
    static const char* hours[] = {"12AM", "3AM", "6AM", "9AM", "12PM", "3PM", "6PM", "9PM", "12AM"};
    for (int i = 0; i <= 8; ++i) {
        const int x = kAxisY + i * kChartWidth / 8;
        g.drawLine(x, 0, x, 5);
        const QRect box(x - 20, 6, 40, 14);
        g.drawText(box, Qt::AlignCenter, hours[i]);
    }
    f.setBold(true);
    g.setFont(f);
    g.drawText(QRect(kAxisY, 22, kChartWidth, 16), Qt::AlignCenter, "LOCAL TIME");
    return p;
}

// The months beside the chart, each name midway between its tick marks.
QPixmap MonthAxis() {
    QPixmap p(kAxisY, kChartHeight);
    p.fill(Qt::white);
    QPainter g(&p);
    QFont f = g.font();
    f.setPointSize(8);
    g.setFont(f);
    static const char* months[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                   "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    static const int starts[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};
    for (int m = 0; m < 12; ++m) {
        g.drawLine(kAxisY - 8, starts[m], kAxisY, starts[m]);
        g.drawText(QRect(0, starts[m], kAxisY - 10, starts[m + 1] - starts[m]), Qt::AlignRight | Qt::AlignVCenter,
                   months[m]);
    }
    g.drawLine(kAxisY - 8, kChartHeight - 1, kAxisY, kChartHeight - 1);
    return p;
}

} // namespace

int VisibilityColour(Visible v) {
    switch (v) {
    case Visible::Both: return QBColor(2);
    case Visible::Sun: return QBColor(14);
    case Visible::Jupiter: return QBColor(3);
    case Visible::Neither: break;
    }
    return QBColor(15);
}

FormRiseSet::FormRiseSet(Station& station, QTimer* mainTimer, QWidget* parent)
    : StationWindow(station, parent), mainTimer_(mainTimer) {
    setObjectName("FormRiseSet");
    setWindowTitle("Yearly Visibility Schedule");
    BuildControls();
    TxtGraphYear->setText(QString::fromStdString(StrForm(static_cast<double>(FieldsOf(core_.CurrentUT).year))));
    ChkGrid->setChecked(StoredBool(st_.settings.get("RiseSet", "UseGrid", "0").toStdString()));
    ChkHiRes->setChecked(StoredBool(st_.settings.get("RiseSet", "HiRes", "0").toStdString()));
    connect(ChkGrid, &QCheckBox::toggled, this, [this](bool on) { st_.settings.save("RiseSet", "UseGrid", StoredFlag(on)); });
    connect(ChkHiRes, &QCheckBox::toggled, this, [this](bool on) { st_.settings.save("RiseSet", "HiRes", StoredFlag(on)); });
}

QWidget* FormRiseSet::BuildLegend() {
    auto* legend = new QWidget(this);
    auto* grid = new QGridLayout(legend);
    auto* heading = new QLabel("Above Horizon", legend);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    grid->addWidget(heading, 0, 0, 1, 2);
    struct Entry {
        QLabel** label;
        const char *name, *text, *tip;
        Visible v;
    } entries[] = {
        {&Label1, "Label1", "Jup and Sun", "Jupiter and the Sun are both up.", Visible::Both},
        {&Label2, "Label2", "Sun", "Only the Sun is up.", Visible::Sun},
        {&Label3, "Label3", "Jup", "Only Jupiter is up.", Visible::Jupiter},
        {&Label4, "Label4", "Neither", "Jupiter and the Sun are both below the horizon.", Visible::Neither},
    };
    int row = 1;
    for (const Entry& e : entries) {
        auto* swatch = new QLabel(legend);
        swatch->setFixedSize(22, 14);
        swatch->setStyleSheet(QString("background: %1; border: 1px solid #606060;")
                                  .arg(QColor(ToQRgb(VisibilityColour(e.v))).name()));
        *e.label = NamedLabel(legend, e.name, e.text);
        (*e.label)->setToolTip(e.tip);
        grid->addWidget(swatch, row, 0);
        grid->addWidget(*e.label, row++, 1);
    }
    grid->setRowStretch(row, 1);
    return legend;
}

void FormRiseSet::BuildControls() {
    Pic1 = new PlotWidget(kChartWidth, kChartHeight, this);
    Pic1->setObjectName("Pic1");
    Pic1->Surface().SetPixelScale();
    PicX = NamedLabel(this, "PicX", "");
    PicX->setPixmap(TimeAxis());
    PicY = NamedLabel(this, "PicY", "");
    PicY->setPixmap(MonthAxis());
    TxtGraphYear = NamedField(this, "TxtGraphYear", 60, "Enter the year in YYYY format.");
    CmdCalc = NamedButton(this, "CmdCalc", "&Calc", "Calculate visibility for the indicated year.");
    CmdCalc->setDefault(true);
    CmdNextYear = NamedButton(this, "CmdNextYear", "&Next Year", "Increment the year.");
    CmdExit = NamedButton(this, "CmdExit", "E&xit", "Leave this routine.");
    ChkGrid = NamedCheck(this, "ChkGrid", "Grid", "Use 3 hour grid lines.");
    ChkHiRes = NamedCheck(this, "ChkHiRes", "High Res", "High Resolution runs much slower put gives cleaner lines.");
    Progress = new QProgressBar(this);
    Progress->setObjectName("Progress");
    Progress->setRange(0, kVisibilityDays);
    Progress->setTextVisible(false);
    Progress->setFixedHeight(8);
    Progress->hide();

    auto* chart = new QGridLayout;
    chart->setSpacing(0);
    chart->addWidget(PicY, 0, 0, Qt::AlignRight | Qt::AlignTop);
    chart->addWidget(Pic1, 0, 1, Qt::AlignLeft | Qt::AlignTop);
    chart->addWidget(PicX, 1, 0, 1, 2, Qt::AlignLeft | Qt::AlignTop);

    auto* side = new QVBoxLayout;
    side->addWidget(new QLabel("Set Year", this));
    side->addWidget(TxtGraphYear);
    for (QWidget* w : std::initializer_list<QWidget*>{CmdCalc, CmdNextYear, ChkGrid, ChkHiRes}) side->addWidget(w);
    side->addSpacing(12);
    side->addWidget(BuildLegend());
    side->addStretch(1);
    side->addWidget(CmdExit);

    auto* top = new QHBoxLayout;
    top->addLayout(chart);
    top->addSpacing(12);
    top->addLayout(side);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(Progress);

    connect(CmdCalc, &QPushButton::clicked, this, &FormRiseSet::CmdCalcClick);
    connect(CmdNextYear, &QPushButton::clicked, this, &FormRiseSet::CmdNextYearClick);
    connect(CmdExit, &QPushButton::clicked, this, &QWidget::close);
    connect(TxtGraphYear, &QLineEdit::textChanged, this,
            [this](const QString& text) { year_ = YearFromText(text.toStdString()); });
    connect(Pic1, &PlotWidget::mouseMove, this, [this](int, float x, float y) { Pic1MouseMove(x, y); });
}

void FormRiseSet::CmdNextYearClick() {
    TxtGraphYear->setText(QString::fromStdString(StrForm(static_cast<double>(year_ + 1))));
}

void FormRiseSet::DrawDay(int day, const std::string& letters, const VisibilityResolution& res) {
    PlotSurface& s = Pic1->Surface();
    double h = 0.0;
    const auto y = static_cast<float>(day);
    for (char letter : letters) {
        s.DrawLine(static_cast<float>(h), y, static_cast<float>(h + res.hourStep), y,
                   VisibilityColour(static_cast<Visible>(letter)));
        h += res.hourStep;
    }
}

void FormRiseSet::CmdCalcClick() {
    if (busy_) return;
    if (year_ < 1900 || year_ > 2100) {
        st_.dialogs.Message("You must enter a year between 1900 and 2100", "Date Error");
        return;
    }
    PlotSurface& s = Pic1->Surface();
    s.SetScale(0, 0, 24, static_cast<float>(kChartHeight));
    s.Clear();
    if (mainTimer_) mainTimer_->stop();
    s.SetLineWidth(1);
    busy_ = true;
    CmdCalc->setEnabled(false);
    Progress->setValue(0);
    Progress->show();
    const VisibilityResolution res = ResolutionOf(ChkHiRes->isChecked());
    ComputeVisibility(core_, year_, ChkHiRes->isChecked(), [&](int day, const std::string& letters) {
        DrawDay(day, letters, res);
        Progress->setValue(day + 1);
        if (day % 8 == 7) s.Refresh();
        QCoreApplication::processEvents();
    });
    s.SetLineWidth(1);
    if (ChkGrid->isChecked())
        for (int h = 3; h <= 21; h += 3)
            s.DrawLine(static_cast<float>(h), 0, static_cast<float>(h), static_cast<float>(kChartHeight), QBColor(7));
    s.Refresh();
    Progress->hide();
    CmdCalc->setEnabled(true);
    busy_ = false;
}

void FormRiseSet::Pic1MouseMove(float x, float y) {
    const double day = DateSerial(year_, 1, static_cast<int>(RoundHalfEven(y)));
    const CalendarFields f = FieldsOf(day);
    const QString date = QLocale().toString(QDate(f.year, f.month, f.day), QLocale::ShortFormat);
    setWindowTitle(date + "  " + QString::fromStdString(FormatHours(x)));
}

} // namespace tarvelle
