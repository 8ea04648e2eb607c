#include "ui/sky/define_antenna_window.h"

#include "core/text_forms.h"
#include "sky/beam.h"
#include "sky/sky_places.h"
#include "sky/sky_projection.h"
#include "ui/sky/sky_map_drawing.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvelle {

namespace {

constexpr int kMapSide = 320;
constexpr int kMostLobes = 1000;

QString Q(const std::string& s) { return QString::fromStdString(s); }
QString NumberText(double v) { return Q(Trim(StrForm(v))); }
double Value(const QLineEdit* box) { return ValueOfText(box->text().toStdString()); }

} // namespace

FormDefineAnt::FormDefineAnt(Station& station, QWidget* parent) : QDialog(parent), st_(station) {
    setObjectName("FormDefineAnt");
    setWindowTitle("Define Antenna");
    BuildControls();
    mnuNewClick();
}

void FormDefineAnt::BuildControls() {
    auto* bar = new QMenuBar(this);
    QMenu* file = bar->addMenu("&File");
    file->setObjectName("mnuFile");
    const auto action = [file](QAction*& a, const char* name, const char* caption) {
        a = file->addAction(caption);
        a->setObjectName(name);
    };
    action(mnuNew, "mnuNew", "&New Antenna");
    action(mnuLoadAnt, "mnuLoadAnt", "&Load Antenna");
    action(mnuSaveAnt, "mnuSaveAnt", "&Save Antenna");
    action(mnuExit, "mnuExit", "E&xit");

    PicSkyMap = new PlotWidget(kMapSide, kMapSide, this);
    PicSkyMap->setObjectName("PicSkyMap");
    PicSkyMap->Surface().SetBackColour(RGB(128, 0, 128));
    auto* map = new QGridLayout;
    const auto compass = [this](const char* letter) {
        auto* l = new QLabel(letter, this);
        l->setStyleSheet("font-weight: bold;");
        return l;
    };
    map->addWidget(compass("N"), 0, 1, Qt::AlignHCenter);
    map->addWidget(compass("E"), 1, 0);
    map->addWidget(PicSkyMap, 1, 1);
    map->addWidget(compass("W"), 1, 2);
    map->addWidget(compass("S"), 2, 1, Qt::AlignHCenter);
    LBLpt = new QLabel(this);
    LBLpt->setObjectName("LBLpt");
    map->addWidget(LBLpt, 3, 0, 1, 3);

    const auto box = [this](QLineEdit*& b, const char* name, const char* tip) {
        b = new QLineEdit(this);
        b->setObjectName(name);
        if (tip) b->setToolTip(tip);
    };
    box(txtName, "txtName", "Descriptive name for this antenna (does not equal file name.) ");
    box(txtLobes, "txtLobes", "Total number of lobes displayed for this antenna pattern");
    box(txtALT, "txtALT", "Altitude or Elevation of the central point of this lobe.");
    box(txtAZ, "txtAZ", "Azimuth of the central point of this lobe.");
    box(txtEWBW, "txtEWBW", "Horizontal width of this lobe in degrees.");
    box(txtNSBW, "txtNSBW", nullptr);
    box(txtGain, "txtGain", "Gain of this antenna lobe over an isotropic antenna.");
    Combo1 = new QComboBox(this);
    Combo1->setObjectName("Combo1");
    Combo1->setToolTip("Predefined antenna element image.");
    Combo1->addItems({"NONE", "D1NS", "D1EW", "D2NS", "D2EW", "DANS", "DAEW", "YAGI"});
    const auto button = [this](QPushButton*& b, const char* name, const char* caption) {
        b = new QPushButton(caption, this);
        b->setObjectName(name);
    };
    button(cmdLobeDown, "cmdLobeDown", "<");
    button(cmdLobeUp, "cmdLobeUp", ">");
    button(cmdUpdate, "cmdUpdate", "Update");
    cmdUpdate->setToolTip("Update any changes to the memory copy of this antenna - Remember to Save the Antenna to "
                          "make changes permanent.");
    LBLLobe = new QLabel(this);
    LBLLobe->setObjectName("LBLLobe");

    auto* form = new QFormLayout;
    form->addRow("Name", txtName);
    form->addRow("Number of Lobes", txtLobes);
    form->addRow("Picture", Combo1);
    auto* lobeRow = new QHBoxLayout;
    lobeRow->addWidget(cmdLobeDown);
    lobeRow->addWidget(LBLLobe, 1, Qt::AlignCenter);
    lobeRow->addWidget(cmdLobeUp);
    form->addRow(lobeRow);
    form->addRow("ALT", txtALT);
    form->addRow("AZ", txtAZ);
    form->addRow("Horiz. Beamwidth", txtEWBW);
    form->addRow("Vertical Beamwidth", txtNSBW);
    form->addRow("Gain (dBi)", txtGain);
    form->addRow(cmdUpdate);

    auto* body = new QHBoxLayout;
    body->addLayout(map);
    body->addLayout(form);
    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(bar);
    layout->addLayout(body);

    connect(mnuNew, &QAction::triggered, this, &FormDefineAnt::mnuNewClick);
    connect(mnuLoadAnt, &QAction::triggered, this, &FormDefineAnt::mnuLoadAntClick);
    connect(mnuSaveAnt, &QAction::triggered, this, &FormDefineAnt::mnuSaveAntClick);
    connect(mnuExit, &QAction::triggered, this, &QDialog::reject);
    connect(cmdLobeUp, &QPushButton::clicked, this, &FormDefineAnt::cmdLobeUpClick);
    connect(cmdLobeDown, &QPushButton::clicked, this, &FormDefineAnt::cmdLobeDownClick);
    connect(cmdUpdate, &QPushButton::clicked, this, &FormDefineAnt::cmdUpdateClick);
    connect(txtLobes, &QLineEdit::textEdited, this, &FormDefineAnt::txtLobesChange);
    for (QLineEdit* b : {txtName, txtALT, txtAZ, txtEWBW, txtNSBW, txtGain})
        connect(b, &QLineEdit::textEdited, this, [this] { Changed = true; });
    connect(PicSkyMap, &PlotWidget::mouseMove, this,
            [this](int, float x, float y) { LBLpt->setText(Q(PointerText(PointerAt(x, y)))); });
}

AntennaLobe& FormDefineAnt::Lobe() { return edit.Lobes[static_cast<size_t>(CurrentLobe)]; }

void FormDefineAnt::DrawAnt() { tarvelle::DrawAnt(PicSkyMap->Surface(), edit.AntPic); }

void FormDefineAnt::DrawSkyGrid() {
    SkyMapScene scene{st_.core, st_.fixed};
    scene.MinutePointer = PresentMinute(st_.core, st_.fixed, st_.clock.LocalNow());
    scene.grid = true;
    tarvelle::DrawSkyGrid(PicSkyMap->Surface(), scene, false);
    DrawAnt();
    PicSkyMap->Surface().Refresh();
}

void FormDefineAnt::RedrawAll() {
    DrawSkyGrid();
    PlotSurface& s = PicSkyMap->Surface();
    s.SetFillColour(QBColor(7));
    s.SetFillStyle(FillStyle::Transparent);
    s.SetLineWidth(2);
    s.SetPenColour(QBColor(11));
    for (int k = 1; k <= LobeCount && k < static_cast<int>(edit.Lobes.size()); ++k) {
        s.SetLineWidth(3);
        PlotBeamEdge(s, edit.Lobes[static_cast<size_t>(k)], k == CurrentLobe ? 65535 : 0);
    }
    s.SetLineWidth(1);
    s.Refresh();
    repaint();
    QCoreApplication::processEvents();
}

void FormDefineAnt::UpdateLobeBoxes() {
    if (CurrentLobe >= static_cast<int>(edit.Lobes.size())) {
        edit.Lobes.resize(static_cast<size_t>(CurrentLobe) + 1);
        Lobe().Edge.assign(kBeamEdgeSize, {});
    }
    AntennaLobe& lobe = Lobe();
    if (lobe.NSBW <= 0.0) lobe.NSBW = 10;
    if (lobe.EWBW <= 0.0) lobe.EWBW = 10;
    if (lobe.AZ < 0.0) lobe.AZ = 0;
    const std::pair<QLineEdit*, double> shown[] = {
        {txtALT, lobe.ALT}, {txtAZ, lobe.AZ}, {txtNSBW, lobe.NSBW}, {txtEWBW, lobe.EWBW}, {txtGain, lobe.GAIN}};
    for (const auto& [box, value] : shown) box->setText(NumberText(value));
    txtName->setText(Q(edit.AntName));
    LBLLobe->setText("LOBE #" + QString::number(CurrentLobe));
    if (edit.AntPic.empty()) edit.AntPic = "NONE";
    Combo1->setCurrentText(Q(edit.AntPic));
    cmdLobeDown->setEnabled(CurrentLobe > 1);
    cmdLobeUp->setEnabled(CurrentLobe < LobeCount);
}

void FormDefineAnt::cmdLobeUpClick() {
    if (CurrentLobe < LobeCount) ++CurrentLobe;
    UpdateLobeBoxes();
    RedrawAll();
}

void FormDefineAnt::cmdLobeDownClick() {
    if (CurrentLobe > 1) --CurrentLobe;
    UpdateLobeBoxes();
    RedrawAll();
}

void FormDefineAnt::txtLobesChange() {
    const double count = Value(txtLobes);
    if (count < 1.0 || count > kMostLobes) return; // 0, not a number, or beyond any file
    LobeCount = static_cast<int16_t>(count);
    UpdateLobeBoxes();
    CalcBeamEdge(Lobe());
    RedrawAll();
    Changed = true;
}

void FormDefineAnt::cmdUpdateClick() {
    edit.AntName = txtName->text().toStdString();
    // The height has no field here: it stays as the file gave it, so a save doesn't lose it.
    const double count = Value(txtLobes);
    if (count < 1.0 || count > kMostLobes) {
        st_.dialogs.Message("No Lobes defined for antenna.");
        return;
    }
    LobeCount = static_cast<int16_t>(count);
    AntennaLobe& lobe = Lobe();
    lobe.ALT = Value(txtALT);
    lobe.AZ = Value(txtAZ);
    lobe.NSBW = Value(txtNSBW);
    lobe.EWBW = Value(txtEWBW);
    lobe.GAIN = Value(txtGain);
    edit.AntPic = Combo1->currentText().toStdString();
    CalcBeamEdge(lobe);
    RedrawAll();
    Changed = true;
}

void FormDefineAnt::mnuNewClick() {
    edit = Antenna{};
    EditFile.clear();
    edit.AntHeight = "0";
    edit.AntPic = "NONE";
    txtLobes->setText("1");
    LobeCount = 1;
    edit.Lobes.resize(2);
    CurrentLobe = 1;
    UpdateLobeBoxes();
    DrawSkyGrid();
    Changed = false;
}

QString FormDefineAnt::AntennaDirectory() const {
    const QString dir = st_.programDir + "Antennas";
    QDir().mkpath(dir);
    return dir;
}

void FormDefineAnt::mnuLoadAntClick() {
    const QString path =
        st_.dialogs.OpenFile("Load Antenna File", "Antenna File|*.ant|Any|*.*", AntennaDirectory() + "/");
    if (path.isEmpty()) return;
    const AntennaLoad load = ReadAntennaFile(path.toStdString(), edit);
    if (load.status == AntennaStatus::LoadError)
        st_.dialogs.Message(Q(load.message), Q(load.title), MsgButtons::OK, MsgIcon::Critical);
    else if (load.status != AntennaStatus::Loaded)
        st_.dialogs.Message(Q(load.message));
    EditFile = path;
    LobeCount = static_cast<int16_t>(std::clamp(edit.LobeCount(), 1, kMostLobes));
    txtLobes->setText(QString::number(LobeCount));
    CalcBeamEdges(edit);
    CurrentLobe = 1;
    UpdateLobeBoxes();
    RedrawAll();
    Changed = true;
}

void FormDefineAnt::mnuSaveAntClick() {
    const QString start = AntennaDirectory() + "/" + QFileInfo(EditFile).fileName();
    const QString path = st_.dialogs.SaveFile("Save Antenna File", "Antenna File|*.ant|Any|*.*", start);
    if (path.isEmpty()) return;
    EditFile = path;
    const std::string failure = WriteAntennaFile(EditFile.toStdString(), edit, LobeCount);
    if (!failure.empty()) {
        st_.dialogs.Message("Error saving: " + EditFile + "\r\n" + Q(failure));
        return;
    }
    Changed = false;
}

void FormDefineAnt::done(int result) {
    if (Changed && st_.dialogs.Message("Save Antenna?", {}, MsgButtons::YesNo) == MsgAnswer::Yes) mnuSaveAntClick();
    QDialog::done(result);
}

} // namespace tarvelle
