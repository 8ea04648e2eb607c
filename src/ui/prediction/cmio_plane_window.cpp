#include "ui/prediction/cmio_plane_window.h"
#include "ui/common/named_controls.h"

#include "core/date_value.h"
#include "ui/common/image_camera.h"
#include "core/numeric.h"
#include "render/outlined_text.h"
#include "render/picture_store.h"
#include "prediction/plane_track.h"
#include "station/help_commands.h"
#include "prediction/prob_table.h"
#include "core/text_forms.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarvelle {

namespace {

constexpr int kPlaneSize = 360;
constexpr int kWhite = 0xFFFFFF;

QString Q(const std::string& s) { return QString::fromStdString(s); }

} // namespace

FormCMIoPlane::FormCMIoPlane(Station& station, Form8& pictures, std::function<void()> startMainTimer,
                             std::function<void()> onClosed, QWidget* parent)
    : StationWindow(station, parent), pictures_(pictures),
      startMainTimer_(std::move(startMainTimer)), onClosed_(std::move(onClosed)) {
    setObjectName("FormCMIoPlane");
    setProperty("tag", "cmio"); // found by ShowForThisTime
    setMouseTracking(true);
    BuildControls();

    // Opening: the four choices from the settings, then the picture, the track and the marker.
    auto stored = [this](const char* key) { return StoredBool(st_.settings.get("CMLIoPlane", key, "1").toStdString()); };
    for (auto [box, key] : {std::pair{chkShift45, "Shift45"}, std::pair{chkShowZones, "ShowZones"},
                            std::pair{ChkShowScale, "ShowScale"}, std::pair{chkShowLegend, "ShowLegend"}}) {
        box->blockSignals(true);
        box->setChecked(stored(key));
        box->blockSignals(false);
    }
    PlaneShift = chkShift45->isChecked() ? 45 : 0;
    Image1->setVisible(chkShowLegend->isChecked());
    GetPointer();
    DoCaption();
    CreateBackground();
    PlotDay();
    PlotJup();
    ShowPlottedValues();
    PlaneDay = static_cast<int16_t>(FieldsOf(core_.CurrentUT).day);
    if (core_.RealTimeMode) Timer1->start();
}

void FormCMIoPlane::BuildControls() {
    Pic1 = new PlotWidget(kPlaneSize, kPlaneSize, this);
    Pic1->setObjectName("Pic1");
    Pic1->Surface().SetBackColour(RGB(0, 0, 64));
    Image1 = new QLabel(this);
    Image1->setObjectName("Image1");
    const QString legend = st_.programDir + "pp-legend.bmp";
    if (QFileInfo::exists(legend)) Image1->setPixmap(QPixmap(legend));
    auto check = [this](const char* name, const char* caption) {
        auto* box = new QCheckBox(caption, this);
        box->setObjectName(name);
        return box;
    };
    chkShift45 = check("chkShift45", "Shift Display 45 deg.");
    chkShowZones = check("chkShowZones", "Show Zones");
    ChkShowScale = check("ChkShowScale", "ShowScale");
    ChkShowScale->setToolTip("Show scale markings on the perimeter of chart.");
    chkShowLegend = check("chkShowLegend", "Show Legend");
    cmdProbHelp = new QPushButton("?", this);
    cmdProbHelp->setObjectName("cmdProbHelp");
    cmdProbHelp->setToolTip("About CML, Io phase and this plane");
    cmdProbHelp->setFixedWidth(28);
    ImageCamera = new class ImageCamera(&Pic1->Surface(), this);
    auto label = [this](const char* name, const char* text) { return NamedLabel(this, name, text); };
    LBLCML = label("LBLCML", "CML: ");
    LBLioPhase = label("LBLioPhase", "Io Phase: ");
    LBLProb = label("LBLProb", "Prob: ");
    LBLTime = label("LBLTime", "");
    LBLDate = label("LBLDate", "");
    LBLDateFormat = label("LBLDateFormat", "");
    LBLNote = label("LBLNote", "");
    LBLNote->setWordWrap(true);
    LBLNote->hide();
    Timer1 = new QTimer(this);
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(6000);

    auto* axis = label(nullptr, "Io Phase Axis");
    auto* plane = new QGridLayout;
    plane->addWidget(axis, 0, 0, Qt::AlignVCenter);
    plane->addWidget(Pic1, 0, 1);
    plane->addWidget(Image1, 0, 2, Qt::AlignTop);
    plane->addWidget(label(nullptr, "System III Central Meridian Longitude"), 1, 1, Qt::AlignHCenter);

    auto* side = new QVBoxLayout;
    side->addWidget(LBLDateFormat);
    side->addWidget(LBLDate);
    side->addWidget(LBLTime);
    side->addSpacing(8);
    side->addWidget(label(nullptr, "Last Plotted..."));
    for (QLabel* l : {LBLCML, LBLioPhase, LBLProb}) side->addWidget(l);
    side->addSpacing(8);
    for (QCheckBox* box : {chkShift45, chkShowZones, ChkShowScale, chkShowLegend}) side->addWidget(box);
    side->addWidget(LBLNote);
    side->addStretch(1);
    auto* tools = new QHBoxLayout;
    tools->addWidget(ImageCamera);
    tools->addWidget(cmdProbHelp);
    tools->addStretch(1);
    side->addLayout(tools);

    auto* layout = new QHBoxLayout(this);
    layout->addLayout(plane);
    layout->addLayout(side);

    connect(Timer1, &QTimer::timeout, this, [this] {
        if (core_.RealTimeMode) UpdateCMIoPlane();
    });
    auto store = [this](const char* key, bool on) { st_.settings.save("CMLIoPlane", key, on ? "1" : "0"); };
    connect(chkShift45, &QCheckBox::toggled, this, [this, store](bool on) {
        store("Shift45", on);
        PlaneShift = on ? 45 : 0;
        Redraw();
    });
    connect(chkShowZones, &QCheckBox::toggled, this, [this, store](bool on) {
        store("ShowZones", on);
        Redraw();
    });
    connect(ChkShowScale, &QCheckBox::toggled, this, [this, store](bool on) {
        store("ShowScale", on);
        Redraw();
    });
    connect(chkShowLegend, &QCheckBox::toggled, this, [this, store](bool on) {
        store("ShowLegend", on);
        Image1->setVisible(on);
        Redraw();
    });
    connect(cmdProbHelp, &QPushButton::clicked, this,
            [this] { OpenInBrowser(st_, st_.programDir + "about_cml.htm"); });
    connect(Pic1, &PlotWidget::mouseMove, this, [this](int, float x, float y) { Pic1MouseMove(x, y); });
}

void FormCMIoPlane::Redraw() {
    CreateBackground();
    PlotDay();
    PlotJup();
}

QString FormCMIoPlane::PictureFileName() const {
    const bool legend = chkShowLegend->isChecked(), zones = chkShowZones->isChecked();
    if (chkShift45->isChecked()) {
        if (legend) return zones ? "pp45-with-scale-and-zones-360.bmp" : "pp45-scale-360.bmp";
        return zones ? "pp45-with-zones-360.bmp" : "pp45-360.bmp";
    }
    if (legend) return zones ? "pp-with-scale-and-zones-360.bmp" : "pp-with-scale-360.bmp";
    return zones ? "pp-with-zones-360.bmp" : "pp-360.bmp";
}

void FormCMIoPlane::CreateBackground() {
    JupiterSprite.onPlot = false;
    PlotSurface& s = Pic1->Surface();
    s.SetScale(0, 360, 360, 0);
    const QString file = PictureFileName();
    QString error;
    if (s.LoadBackground(st_.programDir + file, &error)) {
        LBLNote->hide();
    } else {
        // Without its picture the plane is still drawn, on a plain background, and says why.
        s.RemoveBackgroundPicture();
        s.Clear();
        s.SetPenColour(kWhite);
        s.SetFontSize(9);
        s.SetCurrentPoint(10, 350);
        s.PrintText("Picture " + file + " was not found");
        s.SetCurrentPoint(10, 335);
        s.PrintText("in " + st_.programDir);
        LBLNote->setText("The probability picture " + file + " is missing from the program directory.");
        LBLNote->show();
    }
    if (!ChkShowScale->isChecked()) return;
    s.SetLineWidth(1);
    const float half = s.FontSize() / 2;
    for (int i = 45; i <= 315; i += 45) {
        double x = i - PlaneShift;
        if (x > 360) x -= 360;
        if (x < 0) x += 360;
        const auto fi = static_cast<float>(i), fx = static_cast<float>(x);
        const QString text = " " + QString::number(i);
        s.DrawLine(0, fi, 10, fi, kWhite);
        s.DrawPoint(12, fi + half, 0);
        s.SetPenColour(kWhite);
        s.PrintText(text);
        s.DrawLine(360, fi, 350, fi, kWhite);
        s.DrawLine(fx, 0, fx, 10, kWhite);
        // A label centred on the left edge (45 when shifted) starts at the edge, whole.
        s.DrawPoint(std::max(0.0f, fx - s.FontSize() * static_cast<float>(text.size()) / 2), 20, 0);
        s.PrintText(text);
        s.DrawLine(fx, 360, fx, 350, kWhite);
    }
}

void FormCMIoPlane::PlotDay() {
    const bool running = Timer1->isActive();
    Timer1->stop();
    CreateBackground();
    PlotSurface& s = Pic1->Surface();
    const DayTables& d = core_.Day;
    s.SetLineWidth(2);
    s.SetPenColour(kWhite);
    // Hour texts ringed in black read on the white top of the colour ramp as on its dark foot.
    const std::vector<size_t> labelled = TrackHourRows(core_.UseGMT, core_.ObsTZ);
    auto hourText = [&](size_t k) {
        if (std::find(labelled.begin(), labelled.end(), k) == labelled.end()) return;
        PrintOutlinedText(s, Q(TrackHourText(static_cast<double>(k / 60), core_.UseGMT, core_.ObsTZ)), kWhite, 0);
    };
    s.DrawPoint(static_cast<float>(PlaneX(d.DayCML[0], PlaneShift)), d.DayIoPhase[0], QBColor(7));
    hourText(0);
    const double endOfDay = TrackEndOfDay(core_.UseGMT, core_.ObsTZ);
    for (size_t k = 20; k <= 1800; k += 20) {
        s.SetLineWidth(3);
        const auto x1 = static_cast<float>(PlaneX(d.DayCML[k], PlaneShift));
        const auto x0 = static_cast<float>(PlaneX(d.DayCML[k - 20], PlaneShift));
        s.DrawPoint(x1, d.DayIoPhase[k], QBColor(7));
        // A step that wraps in either coordinate draws no line, only its point.
        if (x1 > x0 && d.DayIoPhase[k] > d.DayIoPhase[k - 20]) {
            const int colour = d.DayJupAlt[k] < 0 ? QBColor(11) : kWhite;
            s.SetLineWidth(1);
            s.SetLineStyle(static_cast<double>(k) > endOfDay ? LineStyle::Dotted : LineStyle::Solid);
            s.DrawLine(x0, d.DayIoPhase[k - 20], x1, d.DayIoPhase[k], colour);
            s.SetLineStyle(LineStyle::Solid);
        }
        if (k % 60 == 0) hourText(k);
    }
    s.Refresh();
    if (running) Timer1->start();
}

void FormCMIoPlane::GetPointer() {
    const int day = FieldsOf(core_.CurrentUT).day;
    if (day != PlaneDay) {
        PlaneDay = static_cast<int16_t>(day);
        PlotDay();
    }
    const double t = core_.RealTimeMode ? core_.GMTFromClock(st_.clock.LocalNow()) : st_.fixed.FixedUT - core_.ObsTZ / 24.0;
    DayPointer = DayPointerOf(t);
}

void FormCMIoPlane::PlotJup() {
    const bool running = Timer1->isActive();
    Timer1->stop();
    if (core_.RealTimeMode) {
        const auto k = static_cast<size_t>(std::clamp<int>(DayPointer, 0, kDayTableSize - 1));
        PlotCML = core_.Day.DayCML[k];
        PlotIo = core_.Day.DayIoPhase[k];
    } else {
        PlotCML = st_.fixed.FixedCML;
        PlotIo = st_.fixed.FixedIoPhase;
    }
    LBLCML->setText("CML: " + Q(PlaneReadoutText(PlotCML)));
    LBLioPhase->setText("Io Phase: " + Q(PlaneReadoutText(PlotIo)));
    PlotSurface& s = Pic1->Surface();
    s.SetPixelScale();
    const PlotSurface& sprite = pictures_.PicJup;
    const BlockCorner corner = MarkerCorner(PlotCML, PlotIo, PlaneShift, s.PixelWidth(), s.PixelHeight(),
                                            sprite.PixelWidth(), sprite.PixelHeight());
    MoveSprite(s, sprite, pictures_.PicMask, pictures_.PicBack2, JupiterSprite, corner.left, corner.top);
    DoCaption();
    if (running) Timer1->start();
}

void FormCMIoPlane::DoCaption() {
    const bool real = core_.RealTimeMode, gmt = core_.UseGMT;
    const double shown = (real ? core_.CurrentUT : st_.fixed.FixedUT) + (gmt ? 0.0 : core_.ObsTZ / 24.0);
    const QString time = Q(FormatDateMask(shown, "hh:nn:ss"));
    if (real) {
        setWindowTitle(gmt ? "CML-Io Phase Plane GMT Real Time" : "CML-Io Phase Plane Local Real Time");
    } else {
        // In local time the title's date stays that of FixedUT.
        setWindowTitle("CML-Io Phase Plane " + time + "   " + Q(core_.FormatDateByChoice(st_.fixed.FixedUT)) +
                       (gmt ? " GMT (FIXED)" : " Local (FIXED)"));
    }
    LBLTime->setText(time);
    LBLDate->setText(Q(core_.FormatDateByChoice(shown)));
    LBLDateFormat->setText(Q(core_.DateHeading));
}

void FormCMIoPlane::UpdateCMIoPlane() {
    GetPointer();
    PlotJup();
}

void FormCMIoPlane::StartTimers() {
    if (startMainTimer_) startMainTimer_();
    Timer1->start();
}

void FormCMIoPlane::SetProbabilityLabels(float cml, float io) {
    LBLCML->setText("CML: " + Q(PlaneReadoutText(cml)));
    LBLioPhase->setText("Io Phase: " + Q(PlaneReadoutText(io)));
    LBLProb->setText("Prob: " + Q(StrForm(ProbabilityAt(st_.ProbTable, io, cml))) + "%");
}

void FormCMIoPlane::Pic1MouseMove(float x, float y) {
    const PlanePoint p = PlanePointAt(x, y, PlaneShift);
    SetProbabilityLabels(p.cml, p.io);
}

void FormCMIoPlane::ShowPlottedValues() { SetProbabilityLabels(PlotCML, PlotIo); }

void FormCMIoPlane::mouseMoveEvent(QMouseEvent* event) {
    ShowPlottedValues();
    QWidget::mouseMoveEvent(event);
}

void FormCMIoPlane::closeEvent(QCloseEvent* event) {
    Timer1->stop();
    if (!core_.ShuttingDown && onClosed_) onClosed_();
    event->accept();
}

} // namespace tarvelle
