#include "ui/sky/alt_az_window.h"

#include "core/date_value.h"
#include "core/numeric.h"
#include "core/text_forms.h"
#include "render/picture_store.h"
#include "sky/sky_places.h"
#include "ui/common/image_camera.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <cmath>

namespace tarvelle {

namespace {

constexpr int kChartWidth = 360, kChartHeight = 200;

QString Q(const std::string& s) { return QString::fromStdString(s); }

// The hour text beside the track: whole GMT hours of the day, moved to local time, with the
// leading blank of the Str form; 24 itself stays 24.
QString HourText(int i, bool useGMT, double obsTZ) {
    double h = (i / 60) % 24;
    if (!useGMT) h += obsTZ;
    if (h > 24) h -= 24;
    if (h < 0) h += 24;
    return Q(StrForm(h));
}

} // namespace

FormAltAz::FormAltAz(Station& station, Form8& pictures, std::function<void()> onClosed, QWidget* parent)
    : StationWindow(station, parent), pictures_(pictures), onClosed_(std::move(onClosed)) {
    setObjectName("FormAltAz");
    setProperty("tag", "altaz"); // found by ShowForThisTime
    setWindowTitle("Jupiter Altitude vs Azimuth Display");
    BuildControls();
    JupBlock.onPlot = false;
    SunBlock.onPlot = false;
    for (auto [box, key] : {std::pair{ChkPlotSun, "PlotSun"}, std::pair{ChkPlotJupiter, "PlotJup"}})
        box->setChecked(ValueOfText(st_.settings.get("AltAZ", key, "1").toStdString()) != 0.0);
    AllPlots();
    // Real time moves the sprites at every tick of the station, once a second.
    connect(&st_.model, &StationModel::ticked, this, [this] {
        if (core_.RealTimeMode) UpdateAltAz();
    });
    for (auto [box, key] : {std::pair{ChkPlotSun, "PlotSun"}, std::pair{ChkPlotJupiter, "PlotJup"}}) {
        connect(box, &QCheckBox::clicked, this, [this, key = key](bool on) {
            st_.settings.save("AltAz", key, on ? "1" : "0");
            AllPlots();
        });
    }
}

void FormAltAz::BuildControls() {
    Pic1 = new PlotWidget(kChartWidth, kChartHeight, this);
    Pic1->setObjectName("Pic1");
    PlotSurface& s = Pic1->Surface();
    s.SetBackColour(RGB(20, 40, 100));
    s.LoadBackground(st_.programDir + "altaz_chart.bmp"); // without it the chart is plain
    ChkPlotJupiter = new QCheckBox("Plot Jupiter", this);
    ChkPlotJupiter->setObjectName("ChkPlotJupiter");
    ChkPlotJupiter->setToolTip("Show Jupiter plot in white when checked.");
    ChkPlotSun = new QCheckBox("Plot Sun", this);
    ChkPlotSun->setObjectName("ChkPlotSun");
    ChkPlotSun->setToolTip("Show Sun plot in yellow when checked.");
    LBLDateTime = new QLabel(this);
    LBLDateTime->setObjectName("LBLDateTime");
    LBLaltAz = new QLabel(this);
    LBLaltAz->setObjectName("LBLaltAz");
    ImageCamera = new class ImageCamera(&s, this);
    ImageCamera->setObjectName("ImageCamera");
    auto* row = new QHBoxLayout;
    row->addWidget(ChkPlotJupiter);
    row->addWidget(ChkPlotSun);
    row->addStretch(1);
    row->addWidget(ImageCamera);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Pic1, 0, Qt::AlignHCenter);
    layout->addWidget(LBLDateTime);
    layout->addWidget(LBLaltAz);
    layout->addLayout(row);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void FormAltAz::GetPointer() { MinutePointer = PresentMinute(core_, st_.fixed, st_.clock.LocalNow()); }

void FormAltAz::AllPlots() {
    PlotSurface& s = Pic1->Surface();
    s.Refresh();
    s.Clear();
    PlotAltAz();
    PlotAltAzSun();
    if (core_.RealTimeMode) GetPointer();
    const SkyPlaces places = PlacesAt(core_, st_.fixed, MinutePointer);
    PlotJup(places.jupAz, places.jupAlt);
    PlotSun(places.sunAz, places.sunAlt);
    DoLabels();
    repaint();
}

void FormAltAz::PlotTrack(bool jupiter) {
    const DayTables& d = core_.Day;
    const auto& alt = jupiter ? d.DayJupAlt : d.DaySunAlt;
    const auto& az = jupiter ? d.DayJupAz : d.DaySunAz;
    const int point = jupiter ? QBColor(7) : QBColor(14);
    const int above = jupiter ? QBColor(15) : QBColor(14);
    const int below = QBColor(11);
    PlotSurface& s = Pic1->Surface();
    const auto A = [&alt](int i) { return static_cast<float>(alt[static_cast<size_t>(i)]); };
    const auto Z = [&az](int i) { return static_cast<float>(az[static_cast<size_t>(i)]); };
    s.SetScale(0, 90, 360, -10);
    s.DrawLine(0, 0, 360, 0);
    s.SetLineWidth(1);
    s.SetPenColour(jupiter ? 0xFFFFFF : 0xFFFF00);
    s.DrawPoint(Z(0), A(0), point);
    s.PrintText("0");
    for (int i = 15; i <= 1440; i += 15) {
        s.DrawPoint(Z(i), A(i), point);
        s.SetPenColour(A(i) < 0 ? below : above);
        // A step across azimuth 360 is not joined, nor one that ends below the chart.
        if (A(i) > -10 && std::fabs(Z(i) - Z(i - 15)) < 180) s.DrawLine(Z(i - 15), A(i - 15), Z(i), A(i));
        if (i % 60 != 0) continue;
        s.SetLineWidth(3);
        s.DrawPoint(Z(i), A(i), point);
        s.SetLineWidth(1);
        if (i < 1440) s.PrintText(HourText(i, core_.UseGMT, core_.ObsTZ));
    }
    core_.UpdateSiderealTime();
    core_.UpdatePositions();
    PlotJup(core_.JupAz, core_.JupAlt);
    if (!jupiter) PlotSun(core_.SunAz, core_.SunAlt);
}

void FormAltAz::PlotAltAz() {
    if (!ChkPlotJupiter->isChecked()) return;
    Pic1->Surface().Refresh();
    Pic1->Surface().Clear();
    PlotTrack(true);
}

void FormAltAz::PlotAltAzSun() {
    if (ChkPlotSun->isChecked()) PlotTrack(false);
}

void FormAltAz::MoveBody(bool jupiter, double az, double alt) {
    PlotSurface& s = Pic1->Surface();
    s.SetPixelScale();
    const PlotSurface& sprite = jupiter ? pictures_.PicJup : pictures_.PicSun;
    const double H = s.PixelHeight();
    const double left = RoundHalfEven(std::floor(az) - sprite.PixelWidth() / 2.0);
    const double top = RoundHalfEven((90.0 - alt) * H / 100.0 - sprite.PixelHeight() / 2.0);
    MoveSprite(s, sprite, pictures_.PicMask, jupiter ? pictures_.PicBack1 : pictures_.PicBack4,
               jupiter ? JupBlock : SunBlock, static_cast<int>(left), static_cast<int>(top));
}

void FormAltAz::PlotJup(double az, double alt) {
    if (ChkPlotJupiter->isChecked()) MoveBody(true, az, alt);
}

void FormAltAz::PlotSun(double az, double alt) {
    if (ChkPlotSun->isChecked()) MoveBody(false, az, alt);
}

// AllPlots ends with the labels.
void FormAltAz::UpdateAltAz() {
    GetPointer();
    AllPlots();
}

void FormAltAz::DoLabels() {
    const bool gmt = core_.UseGMT;
    const double moment = core_.RealTimeMode ? core_.CurrentUT : st_.fixed.FixedUT;
    QFont font = LBLDateTime->font();
    font.setBold(gmt);
    LBLDateTime->setFont(font);
    const double shown = gmt ? moment : moment + core_.ObsTZ / 24.0;
    LBLDateTime->setText((gmt ? "GMT:" : "Local :") + Q(FormatDateMask(shown, "hh:mm:ss  mm/dd/yyyy")));
    LBLaltAz->setText("Alt: " + Q(FormatNumberMask(core_.JupAlt, "##.##")) + "   Az: " +
                      Q(FormatNumberMask(core_.JupAz, "###.##")));
}

void FormAltAz::closeEvent(QCloseEvent* event) {
    if (!core_.ShuttingDown && onClosed_) onClosed_();
    event->accept();
}

} // namespace tarvelle
