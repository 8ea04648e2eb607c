#include "ui/scripting/parameters_window.h"

#include "ui/common/named_controls.h"
#include "core/date_value.h"
#include "core/text_forms.h"
#include "scripting/automation.h"
#include "scripting/automation_form.h"
#include "station/time_entry.h"
#include "ui/common/calendar_window.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <cmath>

namespace tarvelle {

namespace {

constexpr const char* kSection = kTasksSection;
constexpr char kNoPathTip[] = "Script file path and name goes here";

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

} // namespace

FormParameters::FormParameters(Station& station, AutomationTask& task, const QString& programTitle, QWidget* parent)
    : QDialog(parent), st_(station), task_(task), programTitle_(programTitle) {
    setObjectName("FormParameters");
    setWindowTitle("Automated Action Parameters");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildConditions());
    layout->addWidget(BuildWhen());
    layout->addWidget(BuildScripts());
    layout->addWidget(BuildMovement());
    auto* buttons = new QHBoxLayout;
    cmdOK = Named(new QPushButton("OK", this), "cmdOK");
    cmdCancel = Named(new QPushButton("Cancel", this), "cmdCancel");
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    layout->addLayout(buttons);

    task_.LoadAutomationParameters();
    FillFromRecord();
    ConnectLiveControls();
    connect(cmdOK, &QPushButton::clicked, this, &FormParameters::cmdOKClick);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

QWidget* FormParameters::BuildConditions() {
    auto* box = new QGroupBox("Conditions", this);
    auto* grid = new QGridLayout(box);
    auto* note = new QLabel("Tasks performed if any of the checked modes are predicted to be active and other criteria "
                            "are met. Uncheck all for no mode dependence.",
                            box);
    note->setWordWrap(true);
    grid->addWidget(note, 0, 0, 1, 6);
    for (size_t i = 0; i < ChkMode.size(); ++i) {
        ChkMode[i] = Named(new QCheckBox(box), ("ChkMode" + std::to_string(i)).c_str());
        ChkMode[i]->hide();
        grid->addWidget(ChkMode[i], 1 + static_cast<int>(i) / 3, static_cast<int>(i) % 3 * 2, 1, 2);
    }
    ChkJupAz = Named(new QCheckBox("Jup Az is Between", box), "ChkJupAz");
    TxtJupAz1 = NamedField(box, "TxtJupAz1", 60);
    TxtJupAz2 = NamedField(box, "TxtJupAz2", 60);
    ChkJupAlt = Named(new QCheckBox("Jup Alt is Between", box), "ChkJupAlt");
    TxtJupAlt1 = NamedField(box, "TxtJupAlt1", 60);
    TxtJupAlt2 = NamedField(box, "TxtJupAlt2", 60);
    ChkSunIsDown = Named(new QCheckBox("Only When Sun Is Below Horizon", box), "ChkSunIsDown");
    grid->addWidget(ChkJupAz, 3, 0);
    grid->addWidget(TxtJupAz1, 3, 1);
    grid->addWidget(new QLabel("and", box), 3, 2);
    grid->addWidget(TxtJupAz2, 3, 3);
    grid->addWidget(ChkJupAlt, 4, 0);
    grid->addWidget(TxtJupAlt1, 4, 1);
    grid->addWidget(new QLabel("and", box), 4, 2);
    grid->addWidget(TxtJupAlt2, 4, 3);
    grid->addWidget(ChkSunIsDown, 5, 0, 1, 4);
    return box;
}

QWidget* FormParameters::BuildWhen() {
    auto* box = new QGroupBox("When", this);
    auto* grid = new QGridLayout(box);
    ChkDoDaily = Named(new QCheckBox("Do Daily", box), "ChkDoDaily");
    ChkDoDaily->setToolTip("Task will be performed whenever criteria are met.");
    ChkDoOnThisDate = Named(new QCheckBox("Do On this Date:", box), "ChkDoOnThisDate");
    ChkDoOnThisDate->setToolTip("Perform task only on specified date.");
    ChkDoAtThisTime = Named(new QCheckBox("Do At This Time  (HH:MM)", box), "ChkDoAtThisTime");
    ChkDoAtThisTime->setToolTip(
        "Perform task at this time (GMT) either daily or on specified date. Other criteria will be ignored.");
    LBLDateFormat = Named(new QLabel(box), "LBLDateFormat");
    txtY = NamedField(box, "txtY", 52);
    txtM = NamedField(box, "txtM", 34);
    txtD = NamedField(box, "txtD", 34);
    txtH = NamedField(box, "txtH", 34);
    txtN = NamedField(box, "txtN", 34);
    CmdCal = Named(new QPushButton("Calendar", box), "CmdCal");
    OptGMT = Named(new QRadioButton("GMT", box), "OptGMT");
    OptLocal = Named(new QRadioButton("Local", box), "OptLocal");
    grid->addWidget(ChkDoDaily, 0, 0);
    grid->addWidget(LBLDateFormat, 0, 2, 1, 3);
    grid->addWidget(ChkDoOnThisDate, 1, 0);
    const auto order = InDateOrder(st_.core.DateFormatChoice, txtY, txtM, txtD);
    for (int k = 0; k < 3; ++k) grid->addWidget(order[static_cast<size_t>(k)], 1, 2 + k);
    grid->addWidget(CmdCal, 1, 5);
    grid->addWidget(ChkDoAtThisTime, 2, 0);
    grid->addWidget(txtH, 2, 2);
    grid->addWidget(txtN, 2, 3);
    grid->addWidget(OptGMT, 2, 4);
    grid->addWidget(OptLocal, 2, 5);
    const int choice = st_.core.DateFormatChoice;
    LBLDateFormat->setText(choice == 1 ? "MM   DD   YYYY" : choice == 2 ? "DD   MM   YYYY" : "YYYY   MM   DD");
    return box;
}

QWidget* FormParameters::BuildScripts() {
    auto* box = new QGroupBox("Scripts", this);
    auto* grid = new QGridLayout(box);
    const char* headings[] = {"When conditions are met ...", "When conditions no longer met ....",
                              "When Alt Az conditions met ....", "At certain times  ..."};
    for (size_t i = 0; i < kTaskScripts; ++i) {
        const int row = static_cast<int>(i) * 2;
        grid->addWidget(new QLabel(headings[i], box), row, 0, 1, 3);
        ChkRunScript[i] = Named(new QCheckBox("Run Script:", box), ("ChkRunScript" + std::to_string(i)).c_str());
        TxtScriptFileName[i] = Named(new QLineEdit(box), ("TxtScriptFileName" + std::to_string(i)).c_str());
        TxtScriptFileName[i]->setMinimumWidth(300);
        CmdBrowse[i] = Named(new QPushButton("...", box), ("CmdBrowse" + std::to_string(i)).c_str());
        grid->addWidget(ChkRunScript[i], row + 1, 0);
        grid->addWidget(TxtScriptFileName[i], row + 1, 1);
        grid->addWidget(CmdBrowse[i], row + 1, 2);
    }
    return box;
}

QWidget* FormParameters::BuildMovement() {
    auto* box = new QGroupBox("Movement", this);
    auto* grid = new QGridLayout(box);
    ChkAltChanges = Named(new QCheckBox("Alt Changes by", box), "ChkAltChanges");
    ChkAzChanges = Named(new QCheckBox("Az Changes by", box), "ChkAzChanges");
    TxtAltChange = NamedField(box, "TxtAltChange", 60);
    TxtAzChange = NamedField(box, "TxtAzChange", 60);
    OptJup = Named(new QRadioButton("Jup", box), "OptJup");
    OptSun = Named(new QRadioButton("Sun", box), "OptSun");
    ChkAudibleAlert = Named(new QCheckBox("Audible Alert", box), "ChkAudibleAlert");
    grid->addWidget(ChkAltChanges, 0, 0);
    grid->addWidget(TxtAltChange, 0, 1);
    grid->addWidget(OptJup, 0, 2);
    grid->addWidget(ChkAzChanges, 1, 0);
    grid->addWidget(TxtAzChange, 1, 1);
    grid->addWidget(OptSun, 1, 2);
    grid->addWidget(ChkAudibleAlert, 2, 0);
    return box;
}

void FormParameters::FillFromRecord() {
    const AutomationParameters& p = task_.p;
    for (int i = 1; i <= st_.modes.PredictedModes(); ++i) {
        const std::string& name = st_.modes.ModeName[static_cast<size_t>(i)];
        if (name.empty()) continue;
        QCheckBox* box = ChkMode[static_cast<size_t>(i - 1)];
        box->setText(Q(name));
        box->setEnabled(true);
        box->show();
        box->setChecked(p.ModeTask[static_cast<size_t>(i)]);
    }
    ChkJupAz->setChecked(p.UseJupAz);
    ChkJupAlt->setChecked(p.UseJupAlt);
    ChkSunIsDown->setChecked(p.SunIsDown);
    ChkDoDaily->setChecked(p.DoDaily);
    ChkDoOnThisDate->setChecked(p.DoOnThisDate);
    ChkDoAtThisTime->setChecked(p.DoAtThisTime);
    ChkAltChanges->setChecked(p.AltChanges);
    ChkAzChanges->setChecked(p.AzChanges);
    ChkAudibleAlert->setChecked(p.AudibleAlert);
    (p.TaskUseGMT ? OptGMT : OptLocal)->setChecked(true);
    (p.AltAzTarget == 0 ? OptJup : OptSun)->setChecked(true);
    TxtJupAz1->setText(Q(Trim(StrForm(p.JupAz1))));
    TxtJupAz2->setText(Q(Trim(StrForm(p.JupAz2))));
    TxtJupAlt1->setText(Q(Trim(StrForm(p.JupAlt1))));
    TxtJupAlt2->setText(Q(Trim(StrForm(p.JupAlt2))));
    TxtAltChange->setText(st_.settings.get(kSection, "AltChangeDeg", "0"));
    TxtAzChange->setText(st_.settings.get(kSection, "AzChangeDeg", "0"));
    for (size_t i = 0; i < kTaskScripts; ++i) {
        ChkRunScript[i]->setChecked(p.RunScript[i + 1]);
        TxtScriptFileName[i]->setText(Q(p.ScriptFileName[i + 1]));
        TxtScriptFileName[i]->setToolTip(p.ScriptFileName[i + 1].empty() ? kNoPathTip : Q(p.ScriptFileName[i + 1]));
    }
    DateTimeBoxes boxes;
    PutDateInBoxes(boxes, p.TaskDate);
    PutTimeInBoxes(boxes, p.TaskTime);
    txtY->setText(Q(boxes.Y));
    txtM->setText(Q(boxes.M));
    txtD->setText(Q(boxes.D));
    txtH->setText(Q(boxes.H));
    txtN->setText(Q(boxes.N));
}

void FormParameters::ConnectLiveControls() {
    AutomationParameters& p = task_.p;
    for (size_t i = 0; i < ChkMode.size(); ++i)
        connect(ChkMode[i], &QCheckBox::clicked, this, [this, i](bool on) {
            task_.p.ModeTask[i + 1] = on;
            st_.settings.save(kSection, QString("Mode%1Task").arg(i + 1), on ? " 1" : " 0");
        });
    connect(ChkDoDaily, &QCheckBox::clicked, this,
            [this] { ExclusiveDayBox(ChkDoDaily, ChkDoOnThisDate, "DoDaily", "DoOnThisDate"); });
    connect(ChkDoOnThisDate, &QCheckBox::clicked, this,
            [this] { ExclusiveDayBox(ChkDoOnThisDate, ChkDoDaily, "DoOnThisDate", "DoDaily"); });
    for (size_t i = 0; i < kTaskScripts; ++i) {
        connect(ChkRunScript[i], &QCheckBox::clicked, this, [this, i](bool on) { task_.p.RunScript[i + 1] = on; });
        connect(TxtScriptFileName[i], &QLineEdit::textChanged, this, [this, i](const QString& text) {
            TxtScriptFileName[i]->setToolTip(text.isEmpty() ? kNoPathTip : text);
        });
        connect(CmdBrowse[i], &QPushButton::clicked, this, [this, i] {
            const QString path = st_.dialogs.OpenFile("Select Script File", "Script File|*.scp |Any|*.*", "*.scp");
            if (!path.isEmpty()) TxtScriptFileName[i]->setText(path);
        });
    }
    const std::pair<QLineEdit*, float*> angles[] = {
        {TxtJupAz1, &p.JupAz1}, {TxtJupAz2, &p.JupAz2}, {TxtJupAlt1, &p.JupAlt1}, {TxtJupAlt2, &p.JupAlt2},
        {TxtAltChange, &p.AltChangeDeg}, {TxtAzChange, &p.AzChangeDeg}};
    for (const auto& [box, value] : angles)
        connect(box, &QLineEdit::textChanged, this, [value](const QString& text) {
            *value = static_cast<float>(ValueOfText(text.toStdString()));
        });
    connect(CmdCal, &QPushButton::clicked, this, &FormParameters::CmdCalClick);
}

void FormParameters::ExclusiveDayBox(QCheckBox* clicked, QCheckBox* other, const char* key, const char* otherKey) {
    st_.settings.save(kSection, key, clicked->isChecked() ? " 1" : " 0");
    if (!clicked->isChecked()) return;
    other->setChecked(false);
    st_.settings.save(kSection, otherKey, " 0");
}

void FormParameters::CmdCalClick() {
    double date = task_.p.TaskDate;
    bool cancelled = true;
    FormCalendar calendar(date, cancelled, std::floor(st_.clock.LocalNow()), this);
    calendar.exec();
    if (cancelled) return;
    DateTimeBoxes boxes;
    PutDateInBoxes(boxes, date);
    txtY->setText(Q(boxes.Y));
    txtM->setText(Q(boxes.M));
    txtD->setText(Q(boxes.D));
}

void FormParameters::cmdOKClick() {
    AutomationEntries e;
    e.useJupAz = ChkJupAz->isChecked();
    e.useJupAlt = ChkJupAlt->isChecked();
    e.sunIsDown = ChkSunIsDown->isChecked();
    e.doDaily = ChkDoDaily->isChecked();
    e.doOnThisDate = ChkDoOnThisDate->isChecked();
    e.doAtThisTime = ChkDoAtThisTime->isChecked();
    e.optGMT = OptGMT->isChecked();
    e.optJup = OptJup->isChecked();
    e.altChanges = ChkAltChanges->isChecked();
    e.azChanges = ChkAzChanges->isChecked();
    e.audibleAlert = ChkAudibleAlert->isChecked();
    for (size_t i = 0; i < kTaskScripts; ++i) e.paths[i + 1] = TxtScriptFileName[i]->text().toStdString();
    e.boxes = {txtY->text().toStdString(), txtM->text().toStdString(), txtD->text().toStdString(),
               txtH->text().toStdString(), txtN->text().toStdString(), "00"};
    e.altChangeText = TxtAltChange->text().toStdString();
    e.azChangeText = TxtAzChange->text().toStdString();
    const bool saved = SaveAutomationEntries(st_, task_.p, e, programTitle_);
    for (const auto& [box, text] : {std::pair{txtY, &e.boxes.Y}, {txtM, &e.boxes.M}, {txtD, &e.boxes.D},
                                    {txtH, &e.boxes.H}, {txtN, &e.boxes.N}})
        box->setText(Q(*text));
    ChkDoOnThisDate->setChecked(e.doOnThisDate);
    if (saved) accept();
}

} // namespace tarvelle
