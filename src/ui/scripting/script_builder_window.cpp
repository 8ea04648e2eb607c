#include "ui/scripting/script_builder_window.h"

#include "ui/common/named_controls.h"
#include "core/date_value.h"
#include "core/text_forms.h"
#include "formats/script_file.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>

namespace tarvelle {

namespace {

constexpr char kScriptFilter[] = "Script File(*.scp)|*.scp|Any (*.*)|*.*";

} // namespace

FormScripter::FormScripter(Station& station, QWidget* parent) : QDialog(parent), st_(station) {
    setObjectName("FormScripter");
    setWindowTitle("Script Builder");
    auto* grid = new QGridLayout(this);
    auto* scriptLabel = new QLabel("SCRIPT", this);
    auto* commandsLabel = new QLabel("COMMANDS", this);
    ComboScript = new QComboBox(this);
    ComboScript->setObjectName("ComboScript");
    ComboScript->setEditable(true);
    ComboScript->setInsertPolicy(QComboBox::NoInsert);
    ComboScript->setMinimumWidth(320);
    ListCmd = new QListWidget(this);
    ListCmd->setObjectName("ListCmd");
    ListCmd->setMinimumWidth(260);
    LBLindex = new QLabel(this);
    LBLindex->setObjectName("LBLindex");
    CmdAddCmd = NamedButton(this, "CmdAddCmd", "<- Add");
    CmdInsert = NamedButton(this, "CmdInsert", "Insert");
    CmdDelete = NamedButton(this, "CmdDelete", "Delete");
    CmdEdit = NamedButton(this, "CmdEdit", "Edit");
    CmdNew = NamedButton(this, "CmdNew", "New");
    CmdLoad = NamedButton(this, "CmdLoad", "Load");
    CmdSave = NamedButton(this, "CmdSave", "Save");
    CmdExit = NamedButton(this, "CmdExit", "Exit");
    grid->addWidget(scriptLabel, 0, 0);
    grid->addWidget(commandsLabel, 0, 2);
    grid->addWidget(ComboScript, 1, 0);
    grid->addWidget(LBLindex, 2, 0);
    auto* middle = new QVBoxLayout;
    for (QPushButton* b : {CmdAddCmd, CmdInsert, CmdDelete, CmdEdit}) middle->addWidget(b);
    middle->addStretch();
    grid->addLayout(middle, 1, 1, 3, 1);
    grid->addWidget(ListCmd, 1, 2, 3, 1);
    auto* bottom = new QHBoxLayout;
    for (QPushButton* b : {CmdNew, CmdLoad, CmdSave, CmdExit}) bottom->addWidget(b);
    grid->addLayout(bottom, 4, 0, 1, 3);
    grid->setRowStretch(3, 1);

    connect(CmdAddCmd, &QPushButton::clicked, this, &FormScripter::CmdAddCmdClick);
    connect(CmdInsert, &QPushButton::clicked, this, &FormScripter::CmdInsertClick);
    connect(CmdDelete, &QPushButton::clicked, this, &FormScripter::CmdDeleteClick);
    connect(CmdEdit, &QPushButton::clicked, this, &FormScripter::CmdEditClick);
    connect(CmdNew, &QPushButton::clicked, this, &FormScripter::CmdNewClick);
    connect(CmdLoad, &QPushButton::clicked, this, &FormScripter::CmdLoadClick);
    connect(CmdSave, &QPushButton::clicked, this, &FormScripter::CmdSaveClick);
    connect(CmdExit, &QPushButton::clicked, this, &QDialog::close);
    connect(ComboScript, qOverload<int>(&QComboBox::activated), this, &FormScripter::ComboScriptClick);

    // A missing template file leaves the list empty.
    if (const auto templates = ReadScriptText((st_.programDir + "Commands.txt").toStdString()))
        for (const std::string& t : *templates) ListCmd->addItem(QString::fromStdString(t));
    adjustSize();
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

QString FormScripter::SelectedTemplate() const {
    const QListWidgetItem* item = ListCmd->currentItem();
    return item != nullptr ? item->text() : QString();
}

void FormScripter::CmdAddCmdClick() {
    if (ListCmd->currentItem() == nullptr) return;
    ComboScript->addItem(SelectedTemplate());
    ScriptChanged = true;
}

void FormScripter::CmdInsertClick() {
    if (ListCmd->currentItem() == nullptr) return;
    ComboScript->insertItem(std::min(ScriptIndex, ComboScript->count()), SelectedTemplate());
    ScriptChanged = true;
}

void FormScripter::CmdDeleteClick() {
    if (ScriptIndex >= ComboScript->count()) return;
    ComboScript->removeItem(ScriptIndex);
    ScriptChanged = true;
}

void FormScripter::CmdEditClick() {
    if (ScriptIndex >= ComboScript->count()) return;
    ComboScript->setItemText(ScriptIndex, ComboScript->lineEdit()->text());
    ScriptChanged = true;
}

void FormScripter::CmdNewClick() {
    ComboScript->clear();
    BuilderFileName.clear();
    setWindowTitle("Script Builder : New Script");
}

void FormScripter::ComboScriptClick(int index) {
    ScriptIndex = index;
    LBLindex->setText("Line :" + QString::fromStdString(StrForm(static_cast<double>(ScriptIndex + 1))));
}

bool FormScripter::LoadScriptFile(const QString& fileName) {
    ComboScript->clear();
    const auto lines = ReadScriptText(fileName.toStdString());
    if (!lines) return false;
    for (const std::string& line : *lines) ComboScript->addItem(QString::fromStdString(line));
    return true;
}

void FormScripter::CmdLoadClick() {
    const QString path = st_.dialogs.OpenFile("Load Script File", kScriptFilter, "*.scp");
    if (path.isEmpty()) return;
    BuilderFileName = path;
    LoadScriptFile(path);
    setWindowTitle("Script Builder : " + path);
}

void FormScripter::CmdSaveClick() {
    // A new script proposes a name from today's date: 111926*.scp for 19 November 2026.
    if (BuilderFileName.isEmpty())
        BuilderFileName = QString::fromStdString(FormatDateMask(st_.clock.LocalNow(), "mmddyy") + "*.scp");
    if (!SaveScriptFile(BuilderFileName)) return;
    setWindowTitle("Script Builder : " + BuilderFileName);
}

bool FormScripter::SaveScriptFile(QString& fileName) {
    const QString path =
        st_.dialogs.SaveFile("Save Script File As...", "Script File (*.scp)|*.scp|Any (*.*)|*.*", fileName);
    if (path.isEmpty()) return false;
    fileName = path;
    std::vector<std::string> lines;
    for (int i = 0; i < ComboScript->count(); ++i) lines.push_back(ComboScript->itemText(i).toStdString());
    if (!WriteScriptText(path.toStdString(), lines)) return false;
    ScriptChanged = false;
    return true;
}

} // namespace tarvelle
