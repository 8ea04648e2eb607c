#include "ui/sky/find_antenna_window.h"

#include "formats/antenna_file.h"
#include "station/shell_paths.h"
#include "ui/common/dir_list_window.h"

#include <QApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvelle {

namespace {

constexpr int kListCapacity = 1001; // index 0 to 1000

QString Q(const std::string& s) { return QString::fromStdString(s); }

} // namespace

FormFindAnt::FormFindAnt(Station& station, QString& AntFileName, QWidget* parent)
    : QDialog(parent), st_(station), AntFileName_(AntFileName) {
    setObjectName("FormFindAnt");
    setWindowTitle("Select Antenna");
    List1 = new QListWidget(this);
    List1->setObjectName("List1");
    List1->setToolTip("Files Searched...You may manually load a file by double clicking it.");
    LBLStatus = new QLabel(this);
    LBLStatus->setObjectName("LBLStatus");
    LBLStatus->setWordWrap(true);
    cmdOK = new QPushButton("&OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdCancel = new QPushButton("&Cancel", this);
    cmdCancel->setObjectName("cmdCancel");
    cmdAntDir = new QPushButton("Directory", this);
    cmdAntDir->setObjectName("cmdAntDir");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdAntDir);
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(List1, 1);
    layout->addWidget(LBLStatus);
    layout->addLayout(buttons);
    resize(380, 300);

    connect(cmdOK, &QPushButton::clicked, this, &FormFindAnt::cmdOKClick);
    connect(List1, &QListWidget::itemDoubleClicked, this, &FormFindAnt::cmdOKClick);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdAntDir, &QPushButton::clicked, this, &FormFindAnt::cmdAntDirClick);

    GetFindSettings();
    DoFind();
    if (List1->count() > 1) List1->setCurrentRow(0);
}

void FormFindAnt::GetFindSettings() { AntPath = st_.settings.get("Settings", "AntennaPath", ""); }

void FormFindAnt::SaveFindSettings() {
    if (AntPath.isEmpty()) AntPath = st_.programDir + "Antennas";
    st_.settings.save("Settings", "AntennaPath", AntPath);
}

void FormFindAnt::DoFind() {
    ListPaths.clear();
    List1->clear();
    AntPath = Q(StripTrailingSlash(AntPath.toStdString()));
    if (AntPath.isEmpty()) AntPath = st_.programDir + "Antennas";
    std::vector<std::string> files;
    int folders = 0, count = 0;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ListFiles(AntPath.toStdString(), files, folders, count);
    QApplication::restoreOverrideCursor();
    FilesFound.clear();
    for (const std::string& f : files) FilesFound << Q(f);
    if (FilesFound.isEmpty()) st_.dialogs.Message("No Antenna Files in this Directory");
    for (const QString& path : FilesFound) {
        const QString name = Q(LastPathPart(path.toStdString()));
        if (name.size() <= 4 || !name.right(3).toUpper().endsWith("ANT")) continue;
        const AntennaNameRead read = ReadAntennaName(path.toStdString());
        if (!read.failure.empty()) {
            const QString text = "There was and an error loading:\r\n\r\n" + path + "\r\n\r\n" + Q(read.failure);
            st_.dialogs.Message(text, "Antenna File Load Error", MsgButtons::OK, MsgIcon::Critical);
            LBLStatus->setText(text);
            continue;
        }
        if (!read.status.empty() || read.name.empty()) {
            LBLStatus->setText(Q(read.status));
            continue;
        }
        if (ListPaths.size() >= kListCapacity - 1) break; // room is kept for "NONE"
        List1->addItem(Q(read.name));
        ListPaths << path;
    }
    if (ListPaths.isEmpty()) LBLStatus->setText("No File Found");
    List1->addItem("NONE");
    ListPaths << QString();
}

void FormFindAnt::cmdOKClick() {
    const int row = List1->currentRow();
    if (row >= 0 && row < ListPaths.size()) AntFileName_ = ListPaths[row];
    accept();
}

void FormFindAnt::cmdAntDirClick() {
    st_.SelectedDir = AntPath;
    FormDirList chooser(st_, this);
    chooser.exec();
    AntPath = st_.SelectedDir;
    QDir::setCurrent(AntPath);
    DoFind();
}

void FormFindAnt::done(int result) {
    SaveFindSettings();
    QDialog::done(result);
}

} // namespace tarvelle
