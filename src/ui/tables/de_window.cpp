#include "ui/tables/de_window.h"

#include "core/date_value.h"
#include "core/text_forms.h"
#include "ui/common/plot_widget.h"
#include "ui/tables/table_controls.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvelle {

namespace {

constexpr int kGraphWidth = 720, kGraphHeight = 400;
// The year lines and their numbers: a dark yellow that reads on the white graph.
constexpr int kYearColour = RGB(176, 144, 0);
constexpr int kCurveColour = RGB(0, 0, 160);

void DrawFrame(PlotSurface& s, float n) {
    s.DrawLine(0, 0, n, 0, QBColor(0));
    s.SetLineStyle(LineStyle::Dotted);
    for (float y : {3.0f, 2.0f, 1.0f, -3.0f, -2.0f, -1.0f}) s.DrawLine(0, y, n, y, QBColor(8));
    s.SetPenColour(QBColor(0));
    for (int y = 3; y >= -3; --y) {
        s.SetCurrentPoint(1, static_cast<float>(y));
        s.PrintText(QString::number(y));
    }
    s.SetLineStyle(LineStyle::Solid);
}

} // namespace

void DrawDeGraph(PlotSurface& s, const DeGraph& g) {
    const auto n = static_cast<float>(g.days);
    s.SetBackColour(QBColor(15));
    s.Clear();
    s.SetScale(0, kDeScaleTop, n, -kDeScaleTop);
    DrawFrame(s, n);
    s.SetLineWidth(2);
    for (size_t i = 1; i < g.points.size(); ++i)
        s.DrawLine(static_cast<float>(g.points[i - 1].x), g.points[i - 1].De, static_cast<float>(g.points[i].x),
                   g.points[i].De, kCurveColour);
    s.SetLineWidth(1);
    s.SetPenColour(kYearColour);
    for (const DeYearLine& l : g.yearLines) {
        const auto x = static_cast<float>(l.x);
        s.DrawLine(x, kDeScaleTop, x, -kDeScaleTop, kYearColour);
        s.SetCurrentPoint(x, -3.1f);
        s.PrintText(QString::number(l.year));
    }
}

FormDe::FormDe(Station& station, QWidget* parent) : StationWindow(station, parent) {
    setObjectName("FormDe");
    setWindowTitle("Plot Jovicentric Declination of the Earth");
    TxtY1 = NamedField(this, "TxtY1", 60);
    TxtY2 = NamedField(this, "TxtY2", 60, "Enter ending year in YYYY format.");
    cmdGraph = NamedButton(this, "cmdGraph", "Graph",
                           "Graph the Jovicentric declination of the Earth for the indicated years.");
    cmdGraph->setDefault(true);
    LBLDe = NamedLabel(this, "LBLDe", "");
    LBLDate = NamedLabel(this, "LBLDate", "");
    for (QLabel* l : {LBLDe, LBLDate}) l->setMinimumWidth(90);
    Pic1 = new PlotWidget(kGraphWidth, kGraphHeight, this);
    Pic1->setObjectName("Pic1");
    Pic1->Surface().SetBackColour(QBColor(15));
    Pic1->Surface().Clear();

    const int year = FieldsOf(core_.CurrentUT).year;
    TxtY1->setText(QString::number(year - 5));
    TxtY2->setText(QString::number(year + 5));

    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel("From Year:", this));
    row->addWidget(TxtY1);
    row->addSpacing(10);
    row->addWidget(new QLabel("To Year:", this));
    row->addWidget(TxtY2);
    row->addSpacing(10);
    row->addWidget(cmdGraph);
    row->addStretch(1);
    row->addWidget(new QLabel("De:", this));
    row->addWidget(LBLDe);
    row->addWidget(new QLabel("Date:", this));
    row->addWidget(LBLDate);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(Pic1);

    connect(cmdGraph, &QPushButton::clicked, this, &FormDe::cmdGraphClick);
    connect(Pic1, &PlotWidget::mouseMove, this, [this](int, float x, float y) { Pic1MouseMove(x, y); });
}

void FormDe::cmdGraphClick() {
    if (busy_) return;
    busy_ = true;
    cmdGraph->setEnabled(false);
    const DeGraph g = ComputeDeGraph(core_, TxtY1->text().toStdString(), TxtY2->text().toStdString(),
                                     [] { QCoreApplication::processEvents(); });
    cmdGraph->setEnabled(true);
    busy_ = false;
    if (!g.message.empty()) {
        st_.dialogs.Message(QString::fromStdString(g.message), QString::fromStdString(g.title));
        return;
    }
    TxtY1->setText(QString::fromStdString(g.fromText));
    TxtY2->setText(QString::fromStdString(g.toText));
    DeStart_ = g.DeStart;
    DrawDeGraph(Pic1->Surface(), g);
    Pic1->Surface().Refresh();
    noGraph_ = false;
}

void FormDe::Pic1MouseMove(float x, float y) {
    if (noGraph_) return;
    LBLDe->setText(QString::fromStdString(FormatNumberMask(static_cast<double>(y), "0.00")));
    LBLDate->setText(QString::fromStdString(FormatDateMask(DeStart_ + static_cast<double>(x), "mm/dd/yyyy")));
}

} // namespace tarvelle
