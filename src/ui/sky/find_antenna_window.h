// FormFindAnt ("Select Antenna"): the antenna files under a folder, listed by their
// descriptive names, with "NONE" last. OK (or a double click) leaves the chosen file's path in
// the sky map's AntFileName, empty for "NONE"; Cancel leaves it alone. The folder is the
// setting "AntennaPath" of section "Settings", the program directory's Antennas by default.
#pragma once

#include "station/station.h"

#include <QDialog>
#include <QString>
#include <QStringList>

class QLabel;
class QListWidget;
class QPushButton;

namespace tarvelle {

class FormFindAnt : public QDialog {
    Q_OBJECT
public:
    FormFindAnt(Station& station, QString& AntFileName, QWidget* parent = nullptr);

    void DoFind();
    void GetFindSettings();
    void SaveFindSettings();
    void cmdOKClick();
    void cmdAntDirClick();

    QString AntPath;
    QStringList FilesFound;
    QStringList ListPaths; // by index of List1

    QListWidget* List1 = nullptr;
    QLabel* LBLStatus = nullptr;
    QPushButton *cmdOK = nullptr, *cmdCancel = nullptr, *cmdAntDir = nullptr;

protected:
    void done(int result) override;

private:
    Station& st_;
    QString& AntFileName_;
};

} // namespace tarvelle
