// FormDirList: the directory chooser. It starts from the station's SelectedDir and gives the
// chosen folder back there:
//
//     station.SelectedDir = startFolder;
//     FormDirList chooser(station, parentWindow);
//     if (chooser.exec() == QDialog::Accepted) use(station.SelectedDir);
//
// Drive1 lists the places a user starts from (home, the file system, the program directory,
// mounted volumes); Dir1 is the folder tree of the chosen place; txtPath holds the folder
// clicked in the tree or typed. OKButton (or a double click in the tree) takes txtPath,
// creating the folder if it does not exist yet; CancelButton leaves SelectedDir alone.
#pragma once

#include <QDialog>

class QComboBox;
class QFileSystemModel;
class QLabel;
class QLineEdit;
class QModelIndex;
class QPushButton;
class QTreeView;

namespace tarvelle {

struct Station;

class FormDirList : public QDialog {
    Q_OBJECT
public:
    explicit FormDirList(Station& station, QWidget* parent = nullptr);

    // Controls, named as their objectNames.
    QLabel* Label1 = nullptr;
    QComboBox* Drive1 = nullptr;
    QTreeView* Dir1 = nullptr;
    QLineEdit* txtPath = nullptr;
    QPushButton* OKButton = nullptr;
    QPushButton* CancelButton = nullptr;

    // The folder the tree shows as its top, and the folder selected in it.
    QString Dir1Root() const;
    QString Dir1Path() const;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Load();
    void FillDrives();
    void Drive1Change(int index);
    void MoveDir1To(const QString& root, const QString& folder);
    void Dir1Change(const QModelIndex& index);
    void OKButtonClick();

    Station& st_;
    QFileSystemModel* model_ = nullptr;
    bool centred_ = false;
};

} // namespace tarvelle
