#include "ui/sky/sky_map_window.h"

#include "core/date_value.h"
#include "core/text_forms.h"
#include "render/picture_store.h"
#include "sky/beam.h"
#include "sky/sky_places.h"
#include "sky/sky_projection.h"
#include "ui/common/image_camera.h"
#include "ui/sky/find_antenna_window.h"
#include "ui/sky/define_antenna_window.h"
#include "ui/sky/sky_map_drawing.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QTimer>
#include <QVBoxLayout>

namespace tarvelle {

namespace {

constexpr int kMargin = 13;       // the map's top and left, 200 twips
constexpr int kBelow = 37;        // the window's height less the map's, 560 twips
constexpr int kColumnGap = 5;     // 80 twips between the map and the controls
constexpr int kMinimumSide = 120;
constexpr int kStartSide = 600;
constexpr int kColumnWidth = 170;

QString Q(const std::string& s) { return QString::fromStdString(s); }

bool On(const QCheckBox* box) { return box->isChecked(); }

} // namespace

FormSkyMap::FormSkyMap(Station& station, const Form8& pictures, std::function<void()> onClosed, QWidget* parent)
    : StationWindow(station, parent), pictures_(pictures), onClosed_(std::move(onClosed)) {
    setObjectName("FormSkyMap");
    setProperty("tag", "skymap"); // found by ShowForThisTime
    setWindowTitle("SkyMap");
    BuildControls();
    resize(kMargin + kStartSide + kColumnGap + kColumnWidth + kMargin, kStartSide + kBelow);

    AntFileName = "NONE";
    ReadSettings();
    HorizonAlt.fill(0.0);
    antenna = Antenna{};
    LoadHorizonFile(HorizonFileName);
    if (UseHorizon != 0) chkHorizon->setChecked(true);
    AntFileName.replace(QDir::separator() + QString(QDir::separator()), QString(QDir::separator()));
    if (!AntFileName.isEmpty()) LoadAntFile(AntFileName);
    Timer1->setInterval(60000);
    if (core_.RealTimeMode) GetPointer();
    if (core_.RealTimeMode) Timer1->start();
    ConnectControls();
    UpdateSkymap();
}

void FormSkyMap::BuildControls() {
    PicSkyMap = new PlotWidget(kStartSide, kStartSide, this);
    PicSkyMap->setObjectName("PicSkyMap");
    PicSkyMap->Surface().SetBackColour(RGB(128, 0, 128));
    PicSkyMap->move(kMargin, kMargin);
    Controls = new QWidget(this);
    Controls->setObjectName("SkyMapControls");
    auto* column = new QVBoxLayout(Controls);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    const auto check = [this, column](QCheckBox*& box, const char* name, const char* caption, const char* tip) {
        box = new QCheckBox(caption, Controls);
        box->setObjectName(name);
        if (tip) box->setToolTip(tip);
        column->addWidget(box);
    };
    const auto button = [this, column](QPushButton*& b, const char* name, const char* caption, const char* tip) {
        b = new QPushButton(caption, Controls);
        b->setObjectName(name);
        if (tip) b->setToolTip(tip);
        column->addWidget(b);
    };
    const auto label = [this, column](QLabel*& l, const char* name, const char* text) {
        l = new QLabel(text, Controls);
        l->setObjectName(name);
        column->addWidget(l);
    };
    label(LBLDateFormat, "LBLDateFormat", "");
    label(LBLDate, "LBLDate", "");
    label(LBLTime, "LBLTime", "");
    column->addSpacing(8);
    label(LabelJup, "LabelJup", "Jupiter:");
    label(LBLJupAlt, "LBLJupAlt", "");
    label(LBLJupAz, "LBLJupAz", "");
    label(LabelSun, "LabelSun", "Sun:");
    label(LBLSunAlt, "LBLSunAlt", "");
    label(LBLSunAz, "LBLSunAz", "");
    for (QLabel* l : {LabelJup, LabelSun}) l->setStyleSheet("font-weight: bold;");
    column->addSpacing(8);
    check(ChkGrid, "ChkGrid", "Grid", "Display an ALTAZ Grid on the map.");
    check(ChkStars, "ChkStars", "Plot Stars", "Plot Stars on Sky Map.");
    button(CmdMag, "CmdMag", "mag", "Set star magnitude limit.");
    check(ChkJupTrack, "ChkJupTrack", "Jup Track", "Show track of Jupiter through the sky.");
    check(ChkSunTrack, "ChkSunTrack", "Sun Track", "Show the track of the Sun through the sky.");
    check(chkGalacticPlane, "chkGalacticPlane", "Galactic Plane", "Show track of Galactic Plane - 0 is the center region.");
    check(chkHorizon, "chkHorizon", "Horizon", nullptr);
    button(cmdHorizon, "cmdHorizon", "Horizon File", nullptr);
    column->addSpacing(8);
    button(cmdAnt, "cmdAnt", "Load Ant", "Load an antenna definition file.");
    button(cmdDefAnt, "cmdDefAnt", "Define Ant", "Create or modify an antenna definition file.");
    label(LBLAntName, "LBLAntName", "");
    LBLAntName->setWordWrap(true);
    column->addStretch(1);
    ImageCamera = new class ImageCamera(&PicSkyMap->Surface(), Controls);
    ImageCamera->setObjectName("ImageCamera");
    column->addWidget(ImageCamera);
    Controls->setFixedWidth(kColumnWidth);
    Timer1 = new QTimer(this);
    Timer1->setObjectName("Timer1");
}

void FormSkyMap::ReadSettings() {
    const auto number = [this](const char* key, const char* fallback) {
        return ValueOfText(st_.settings.get("Skymap", key, fallback).toStdString());
    };
    const std::pair<QCheckBox*, const char*> boxes[] = {
        {ChkGrid, "UseGrid"}, {ChkStars, "ShowStars"}, {ChkJupTrack, "JupTrack"}, {ChkSunTrack, "SunTrack"}};
    for (const auto& [box, key] : boxes) box->setChecked(number(key, "1") != 0.0);
    StarMagLimit = static_cast<float>(number("StarMag", "5"));
    chkGalacticPlane->setChecked(number("GalacticPlane", "1") != 0.0);
    AntFileName = st_.settings.get("Skymap", "AntennaFile", "");
    HorizonFileName = st_.settings.get("Skymap", "HorizonFileName", "");
    UseHorizon = static_cast<int>(number("UseHorizonFile", "0"));
}

void FormSkyMap::ConnectControls() {
    const std::pair<QCheckBox*, const char*> boxes[] = {
        {ChkGrid, "UseGrid"},         {ChkStars, "ShowStars"}, {ChkJupTrack, "JupTrack"},
        {ChkSunTrack, "SunTrack"},    {chkGalacticPlane, "GalacticPlane"}, {chkHorizon, "UseHorizonFile"}};
    for (const auto& [box, key] : boxes) {
        connect(box, &QCheckBox::clicked, this, [this, box = box, key = key](bool on) {
            if (box == chkHorizon) UseHorizon = on ? 1 : 0;
            st_.settings.save("Skymap", key, on ? "1" : "0");
            UpdateSkymap();
        });
    }
    connect(CmdMag, &QPushButton::clicked, this, &FormSkyMap::CmdMagClick);
    connect(cmdHorizon, &QPushButton::clicked, this, &FormSkyMap::cmdHorizonClick);
    connect(cmdAnt, &QPushButton::clicked, this, &FormSkyMap::cmdAntClick);
    connect(cmdDefAnt, &QPushButton::clicked, this, &FormSkyMap::cmdDefAntClick);
    connect(PicSkyMap, &PlotWidget::mouseMove, this, [this](int, float x, float y) { PicSkyMapMouseMove(x, y); });
    connect(Timer1, &QTimer::timeout, this, [this] {
        if (!core_.RealTimeMode) return;
        GetPointer();
        UpdateSkymap();
    });
}

void FormSkyMap::scalemap() { tarvelle::scalemap(PicSkyMap->Surface()); }

void FormSkyMap::GetPointer() { MinutePointer = PresentMinute(core_, st_.fixed, st_.clock.LocalNow()); }

void FormSkyMap::UpdateSkymap() {
    SkyMapScene scene{core_, st_.fixed, &pictures_};
    scene.MinutePointer = MinutePointer;
    scene.grid = On(ChkGrid);
    scene.stars = On(ChkStars);
    scene.jupTrack = On(ChkJupTrack);
    scene.sunTrack = On(ChkSunTrack);
    scene.galacticPlane = On(chkGalacticPlane);
    scene.StarMagLimit = StarMagLimit;
    scene.useHorizon = UseHorizon != 0;
    scene.horizon = &HorizonAlt;
    scene.antenna = AntennaLoaded() ? &antenna : nullptr;
    scene.starFile = (st_.programDir + "star.dat").toStdString();
    scene.yield = [] { QCoreApplication::processEvents(); };
    const SkyPlaces shown = DrawSkyMap(PicSkyMap->Surface(), scene);
    LBLJupAlt->setText("Alt " + Q(FormatNumberMask(shown.jupAlt, "##.##")));
    LBLJupAz->setText("Az " + Q(FormatNumberMask(shown.jupAz, "###.##")));
    LBLSunAlt->setText("Alt " + Q(FormatNumberMask(shown.sunAlt, "##.##")));
    LBLSunAz->setText("Az " + Q(FormatNumberMask(shown.sunAz, "###.##")));
    DoTimeDateLabels();
    PicSkyMap->Surface().Refresh();
    repaint();
    QCoreApplication::processEvents();
}

void FormSkyMap::DoTimeDateLabels() {
    core_.FormatDateByChoice(core_.CurrentUT);
    LBLDateFormat->setText(Q(core_.DateHeading));
    const bool gmt = core_.UseGMT;
    const double moment = gmt ? core_.CurrentUT : core_.CurrentUT + core_.ObsTZ / 24.0;
    for (QLabel* l : {LBLDate, LBLTime}) {
        QFont font = l->font();
        font.setBold(gmt);
        l->setFont(font);
    }
    LBLDate->setText((gmt ? "GMT Date:" : "Local Date:") + Q(core_.FormatDateByChoice(moment)));
    LBLTime->setText((gmt ? "GMT Time:" : "Local Time:") + Q(FormatDateMask(moment, "hh:mm:ss")));
}

void FormSkyMap::LoadAntFile(QString& path) {
    if (path == "NONE" || path.isEmpty()) {
        LBLAntName->clear();
        return;
    }
    const AntennaLoad load = ReadAntennaFile(path.toStdString(), antenna);
    switch (load.status) {
    case AntennaStatus::Loaded:
        LBLAntName->setText(Q(antenna.AntName));
        st_.settings.save("Skymap", "AntennaFile", path);
        CalcBeamEdges(antenna);
        return;
    case AntennaStatus::LobeError:
        st_.dialogs.Message(Q(load.message));
        return;
    case AntennaStatus::LoadError:
        st_.dialogs.Message(Q(load.message), Q(load.title), MsgButtons::OK, MsgIcon::Critical);
        path.clear();
        st_.settings.save("Skymap", "AntennaFile", path);
        return;
    default:
        st_.dialogs.Message(Q(load.message));
        LBLAntName->clear();
        path.clear();
        return;
    }
}

void FormSkyMap::LoadHorizonFile(const QString& path) {
    const HorizonLoad load = tarvelle::LoadHorizonFile(path.toStdString(), HorizonAlt);
    if (!load.message.empty()) st_.dialogs.Message(Q(load.message));
    if (!load.toolTip.empty()) cmdHorizon->setToolTip(Q(load.toolTip));
}

QString FormSkyMap::AntennaDirectory() const {
    if (!AntennaLoaded()) {
        const QString dir = st_.programDir + "Antennas";
        QDir().mkpath(dir);
        return dir;
    }
    return QFileInfo(AntFileName).absolutePath();
}

void FormSkyMap::cmdAntClick() {
    const QString start = AntennaDirectory();
    if (!QDir::setCurrent(start)) {
        st_.dialogs.Message("There was an error: \r\nThe folder can't be entered.\r\nAnt File Name: " + AntFileName +
                            "\r\nAnt File Path: " + start);
        return;
    }
    FormFindAnt finder(st_, AntFileName, this);
    finder.exec();
    if (AntennaLoaded()) {
        LoadAntFile(AntFileName);
    } else {
        AntFileName.clear();
        LBLAntName->clear();
    }
    st_.settings.save("Skymap", "AntennaFile", AntFileName);
    UpdateSkymap();
}

void FormSkyMap::cmdDefAntClick() {
    FormDefineAnt editor(st_, this);
    editor.exec();
    if (!AntFileName.isEmpty()) LoadAntFile(AntFileName);
}

void FormSkyMap::cmdHorizonClick() {
    const QString chosen = st_.dialogs.OpenFile("Load Horizon File", "Horizon File|*.txt|Any|*.*", HorizonFileName);
    if (chosen.isEmpty()) return;
    HorizonFileName = chosen;
    LoadHorizonFile(HorizonFileName);
    st_.settings.save("Skymap", "HorizonFileName", HorizonFileName);
    UpdateSkymap();
}

void FormSkyMap::CmdMagClick() {
    const auto answer = st_.dialogs.Input("Enter limiting star magnitude (0 to 5)", "Star Magnitude",
                                          Q(Trim(StrForm(StarMagLimit))));
    double limit = ValueOfText(answer.value_or("").toStdString());
    limit = std::clamp(limit, 0.0, 5.0);
    StarMagLimit = static_cast<float>(limit);
    st_.settings.save("Skymap", "StarMag", Q(Trim(StrForm(StarMagLimit))));
    UpdateSkymap();
    cmdAnt->setFocus();
}

void FormSkyMap::PicSkyMapMouseMove(float x, float y) { setWindowTitle(Q(PointerText(PointerAt(x, y)))); }

void FormSkyMap::resizeEvent(QResizeEvent* event) {
    StationWindow::resizeEvent(event);
    if (isMinimized()) return;
    const int side = std::max(kMinimumSide, height() - kBelow);
    PicSkyMap->move(kMargin, kMargin);
    if (side != PicSkyMap->Surface().PixelWidth()) PicSkyMap->ResizeSurface(side, side);
    Controls->setGeometry(kMargin + side + kColumnGap, kMargin, Controls->width(), std::max(side, 300));
    GetPointer();
    UpdateSkymap();
}

void FormSkyMap::closeEvent(QCloseEvent* event) {
    Timer1->stop();
    if (!core_.ShuttingDown && onClosed_) onClosed_();
    event->accept();
}

} // namespace tarvelle
