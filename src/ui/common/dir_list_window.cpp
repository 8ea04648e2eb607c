#include "ui/common/dir_list_window.h"

#include "station/shell_paths.h"
#include "station/station.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStorageInfo>
#include <QTreeView>
#include <QVBoxLayout>

namespace tarvelle {

namespace {

// Mount points of the system itself, not places where a user keeps files.
bool IsSystemMount(const QString& root) {
    for (const char* prefix : {"/proc", "/sys", "/dev", "/run", "/boot", "/snap", "/var/lib", "/etc"}) {
        const QString p = QString::fromLatin1(prefix);
        if (root == p || root.startsWith(p + "/")) {
            // Removable media are mounted under /run/media on some systems.
            if (root.startsWith("/run/media/")) return false;
            return true;
        }
    }
    return false;
}

// True if folder is place or lies under it.
bool LiesUnder(const QString& folder, const QString& place) {
    if (place == "/") return folder.startsWith('/');
    return folder == place || folder.startsWith(place + "/");
}

// The nearest folder at or above path that exists; the file system's root at worst.
QString NearestExistingFolder(const QString& path) {
    QString folder = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    while (!QFileInfo(folder).isDir() && folder != "/") folder = QFileInfo(folder).absolutePath();
    return folder;
}

} // namespace

FormDirList::FormDirList(Station& station, QWidget* parent) : QDialog(parent), st_(station) {
    setObjectName("FormDirList");
    setWindowTitle("Select a Directory");
    setModal(true);

    Label1 = new QLabel("Double Click Directory to Select It.", this);
    Label1->setObjectName("Label1");

    txtPath = new QLineEdit(this);
    txtPath->setObjectName("txtPath");

    model_ = new QFileSystemModel(this);
    model_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Hidden); // the program directory is hidden
    model_->setRootPath("/");

    Dir1 = new QTreeView(this);
    Dir1->setObjectName("Dir1");
    Dir1->setModel(model_);
    for (int column = 1; column < model_->columnCount(); ++column) Dir1->hideColumn(column);
    Dir1->header()->hide();
    Dir1->setSortingEnabled(true);
    Dir1->sortByColumn(0, Qt::AscendingOrder);
    Dir1->setExpandsOnDoubleClick(false); // a double click selects
    Dir1->setUniformRowHeights(true);

    Drive1 = new QComboBox(this);
    Drive1->setObjectName("Drive1");

    OKButton = new QPushButton("OK", this);
    OKButton->setObjectName("OKButton");
    OKButton->setDefault(true);
    CancelButton = new QPushButton("Cancel", this);
    CancelButton->setObjectName("CancelButton");

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(OKButton);
    buttons->addWidget(CancelButton);
    buttons->addStretch(1);

    auto* layout = new QGridLayout(this);
    layout->addWidget(Label1, 0, 0);
    layout->addWidget(txtPath, 1, 0);
    layout->addWidget(Dir1, 2, 0);
    layout->addWidget(Drive1, 3, 0);
    layout->addLayout(buttons, 1, 1, 3, 1);
    layout->setRowStretch(2, 1);
    resize(440, 420);

    connect(Drive1, &QComboBox::activated, this, &FormDirList::Drive1Change);
    connect(Dir1, &QTreeView::clicked, this, &FormDirList::Dir1Change);
    connect(Dir1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { Dir1Change(current); });
    connect(Dir1, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
        Dir1Change(index);
        OKButtonClick();
    });
    connect(OKButton, &QPushButton::clicked, this, &FormDirList::OKButtonClick);
    connect(CancelButton, &QPushButton::clicked, this, &FormDirList::reject);

    FillDrives();
    Load();
}

void FormDirList::FillDrives() {
    QStringList seen;
    auto add = [this, &seen](const QString& label, const QString& path) {
        const QString clean = QDir::cleanPath(path);
        if (clean.isEmpty() || seen.contains(clean)) return;
        seen << clean;
        Drive1->addItem(label + "  (" + clean + ")", clean);
    };
    add("Home", QDir::homePath());
    add("Program folder", st_.programDir);
    add("File system", "/");
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        if (!volume.isValid() || !volume.isReady() || IsSystemMount(volume.rootPath())) continue;
        const QString name = volume.displayName() == volume.rootPath()
                                 ? QFileInfo(volume.rootPath()).fileName()
                                 : volume.displayName();
        add(name.isEmpty() ? QStringLiteral("Volume") : name, volume.rootPath());
    }
}

void FormDirList::Load() {
    const QString start = st_.SelectedDir.isEmpty() ? QDir::homePath() : st_.SelectedDir;
    const QString folder = NearestExistingFolder(start);

    // The place that holds the folder most closely is the drive it is on.
    int drive = -1;
    int longest = -1;
    for (int i = 0; i < Drive1->count(); ++i) {
        const QString place = Drive1->itemData(i).toString();
        if (LiesUnder(folder, place) && place.size() > longest) {
            drive = i;
            longest = static_cast<int>(place.size());
        }
    }
    Drive1->setCurrentIndex(drive);
    MoveDir1To(drive >= 0 ? Drive1->itemData(drive).toString() : QStringLiteral("/"), folder);
    // A folder that does not exist yet stays in the box as given, for OK to create.
    txtPath->setText(start);
}

void FormDirList::Drive1Change(int index) {
    const QString place = Drive1->itemData(index).toString();
    MoveDir1To(place, place);
}

void FormDirList::MoveDir1To(const QString& root, const QString& folder) {
    Dir1->setRootIndex(model_->index(root));
    const QModelIndex current = model_->index(folder);
    Dir1->setCurrentIndex(current);
    if (current.isValid()) {
        Dir1->scrollTo(current);
        Dir1->expand(current);
    }
    txtPath->setText(folder);
}

void FormDirList::Dir1Change(const QModelIndex& index) {
    if (index.isValid()) txtPath->setText(model_->filePath(index));
}

QString FormDirList::Dir1Root() const {
    return model_->filePath(Dir1->rootIndex());
}

QString FormDirList::Dir1Path() const {
    return model_->filePath(Dir1->currentIndex());
}

void FormDirList::OKButtonClick() {
    const QString text = txtPath->text();
    if (!QFileInfo(text).isDir()) {
        std::string error;
        if (!MakeFolder(text.toStdString(), error)) {
            st_.dialogs.Message("There was an error: " + QString::fromStdString(error));
            return;
        }
    }
    st_.SelectedDir = text;
    accept();
}

void FormDirList::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (centred_) return;
    centred_ = true;
    if (const QScreen* s = screen()) move(s->availableGeometry().center() - rect().center());
}

} // namespace tarvelle
