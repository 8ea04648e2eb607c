#include "ui/tables/ephemeris_window.h"

#include "core/date_value.h"
#include "render/page_printer.h"
#include "station/time_entry.h"
#include "ui/tables/table_controls.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace tarvelle {

namespace {

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

constexpr int kOpeningRows = 13;
constexpr double kPageBottom = 10.0; // inches: a new page below this
// The grid's eleven columns ten characters apart fit a page's width at this size.
constexpr float kGridPoints = 8.0f;

} // namespace

Form2::Form2(Station& station, QTimer* mainTimer, std::function<void()> onClosed, QWidget* parent)
    : StationWindow(station, parent), mainTimer_(mainTimer), onClosed_(std::move(onClosed)) {
    setObjectName("Form2");
    if (mainTimer_) mainTimer_->stop();
    BuildControls();
    Label4->hide();
    const double now = core_.CurrentUT;
    txtY->setText(Q(FormatDateMask(now, "YYYY")));
    txtM->setText(Q(FormatDateMask(now, "MM")));
    txtD->setText(Q(FormatDateMask(now, "DD")));
    Text2->setText("30");
    Timer1 = new QTimer(this);
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(1000);
    connect(Timer1, &QTimer::timeout, this, &Form2::Tick);
    Timer1->start();
    Tick();
}

void Form2::BuildControls() {
    LBLDate = NamedLabel(this, "LBLDate", "GMT Date:");
    LBLDateFormat = NamedLabel(this, "LBLDateFormat", Q(DateFieldsFor(core_.DateFormatChoice).heading));
    txtY = NamedField(this, "txtY", 56);
    txtM = NamedField(this, "txtM", 36);
    txtD = NamedField(this, "txtD", 36);
    Text2 = NamedField(this, "Text2", 48);
    CmdCalc = NamedButton(this, "CmdCalc", "&Calculate");
    CmdCalc->setDefault(true);
    CmdPrint = NamedButton(this, "CmdPrint", "&Print");
    CmdExit = NamedButton(this, "CmdExit", "E&xit");
    Label4 = NamedLabel(this, "Label4", "PLEASE WAIT, CALCULATING.....");
    Label4->setStyleSheet("color: #b00000; font-weight: bold;");
    LBLLocalDate = NamedLabel(this, "LBLLocalDate", "");
    LbLJupRA = NamedLabel(this, "LbLJupRA", "");
    LbLJupDec = NamedLabel(this, "LbLJupDec", "");
    LbLSunRA = NamedLabel(this, "LbLSunRA", "");
    LbLSunDec = NamedLabel(this, "LbLSunDec", "");
    LBLDe = NamedLabel(this, "LBLDe", "");
    LbLDist = NamedLabel(this, "LbLDist", "");
    LbLSep = NamedLabel(this, "LbLSep", "");

    Grid1 = new QTableWidget(kOpeningRows - 1, kEphemerisColumns, this);
    Grid1->setObjectName("Grid1");
    QStringList headings;
    for (const std::string& h : EphemerisHeadings()) headings << Q(h);
    Grid1->setHorizontalHeaderLabels(headings);
    Grid1->verticalHeader()->hide();
    Grid1->verticalHeader()->setDefaultSectionSize(Grid1->fontMetrics().height() + 6);
    Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid1->setAlternatingRowColors(true);
    Grid1->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    Grid1->setMinimumWidth(760);

    auto* dateRow = new QHBoxLayout;
    auto* fields = new QGridLayout;
    fields->addWidget(LBLDateFormat, 0, 1, 1, 3);
    fields->addWidget(LBLDate, 1, 0);
    const auto order = InDateOrder(core_.DateFormatChoice, txtY, txtM, txtD);
    for (int i = 0; i < 3; ++i) fields->addWidget(order[static_cast<size_t>(i)], 1, i + 1);
    dateRow->addLayout(fields);
    dateRow->addSpacing(20);
    dateRow->addWidget(new QLabel("Interval:", this));
    dateRow->addWidget(Text2);
    dateRow->addWidget(new QLabel("Minutes", this));
    dateRow->addSpacing(20);
    for (QPushButton* b : {CmdCalc, CmdPrint, CmdExit}) dateRow->addWidget(b);
    dateRow->addStretch(1);

    auto* day = new QGridLayout;
    day->addWidget(LBLLocalDate, 0, 0);
    day->addWidget(LbLSep, 0, 1);
    day->addWidget(LbLJupRA, 1, 0);
    day->addWidget(LbLJupDec, 1, 1);
    day->addWidget(LbLSunRA, 2, 0);
    day->addWidget(LbLSunDec, 2, 1);
    day->addWidget(LBLDe, 3, 0);
    day->addWidget(LbLDist, 3, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(dateRow);
    layout->addLayout(day);
    layout->addWidget(Label4);
    layout->addWidget(Grid1, 1);
    resize(820, 560);

    connect(CmdCalc, &QPushButton::clicked, this, &Form2::CmdCalcClick);
    connect(CmdPrint, &QPushButton::clicked, this, &Form2::CmdPrintClick);
    connect(CmdExit, &QPushButton::clicked, this, &QWidget::close);
}

void Form2::Tick() {
    if (busy_) Label4->setVisible(!Label4->isVisible());
    const double gmt = core_.GMTFromClock(st_.clock.LocalNow());
    setWindowTitle("Ephemeris     Current GMT Time: " + Q(FormatDateMask(gmt, "yyyy/mm/dd hh:nn:ss")));
}

void Form2::CmdCalcClick() {
    const EphemerisInput input{txtY->text().toStdString(), txtM->text().toStdString(), txtD->text().toStdString(),
                               Text2->text().toStdString()};
    CmdCalc->setEnabled(false);
    busy_ = true;
    EphemerisResult r = ComputeEphemeris(core_, input, [] { QCoreApplication::processEvents(); });
    busy_ = false;
    CmdCalc->setEnabled(true);
    Label4->hide();
    if (!r.message.empty()) {
        st_.dialogs.Message(Q(r.message), {}, MsgButtons::OK, r.exclamation ? MsgIcon::Exclamation : MsgIcon::None);
        return;
    }
    result_ = std::move(r);
    ShowResult();
}

void Form2::ShowResult() {
    for (const auto& [name, caption] : result_.labels)
        if (auto* label = findChild<QLabel*>(Q(name))) label->setText(Q(caption));
    Grid1->clearContents();
    Grid1->setRowCount(result_.gridRows - 1);
    for (size_t r = 1; r < result_.rows.size(); ++r)
        for (int c = 0; c < kEphemerisColumns; ++c) {
            auto* item = new QTableWidgetItem(Q(result_.rows[r][static_cast<size_t>(c)]));
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            Grid1->setItem(static_cast<int>(r) - 1, c, item);
        }
}

void Form2::PrintHeading(PagePrinter& printer, const QString& title) const {
    printer.PrintLine({PagePrinter::Tab(30), title, "   Page ", QString::number(printer.Page())});
    printer.PrintLine({});
}

void Form2::CmdPrintClick() {
    PagePrinter printer;
    if (!printer.ChoosePrinter(st_.dialogs)) return;
    auto rowItems = [](const EphemerisRow& row) {
        std::vector<PagePrinter::Item> items;
        for (int c = 0; c < kEphemerisColumns; ++c) {
            items.push_back(PagePrinter::Tab(10 * (c + 1)));
            items.emplace_back(Q(row[static_cast<size_t>(c)]));
        }
        return items;
    };
    // The table's own date, not the clock's: the printout tells which day it holds.
    const QString date = Q(core_.FormatDateByChoice(result_.rows.empty() ? core_.CurrentUT : result_.firstUT));
    printer.SetCurrentX(1.0);
    printer.SetCurrentY(0.5);
    printer.SetFontBold(false);
    printer.SetFontSize(18);
    printer.PrintLine({"JUPITER/SOLAR EPHEMERIS", "    ", date});
    printer.PrintLine({});
    printer.SetFontSize(10);
    printer.PrintLine({PagePrinter::Tab(10), "Reference Coordinates:  Longitude " + Q(core_.ObLngText) + " " +
                                                 Q(core_.DisplayWest) + "     Latitude " + Q(core_.ObLatText)});
    for (const auto& [left, right] : {std::pair{LbLJupRA, LbLJupDec}, {LbLSunRA, LbLSunDec}, {LBLDe, LbLDist}})
        printer.PrintLine({PagePrinter::Tab(10), left->text(), PagePrinter::Tab(30), right->text()});
    printer.PrintLine({});
    printer.SetFontSize(kGridPoints);
    const EphemerisRow& headings = EphemerisHeadings();
    const std::vector<EphemerisRow> empty{headings};
    for (const EphemerisRow& row : result_.rows.empty() ? empty : result_.rows) {
        if (printer.CurrentY() >= kPageBottom) {
            printer.NewPage();
            printer.SetCurrentX(1.0);
            printer.SetCurrentY(0.5);
            printer.SetFontSize(10);
            PrintHeading(printer, "JUPITER SOLAR EPHEMERIS    " + date);
            printer.SetFontSize(kGridPoints);
            printer.PrintLine(rowItems(headings));
        }
        printer.PrintLine(rowItems(row));
    }
    printer.EndDocument();
}

void Form2::closeEvent(QCloseEvent* event) {
    Timer1->stop();
    if (onClosed_ && !core_.ShuttingDown) onClosed_();
    event->accept();
}

} // namespace tarvelle
