// FormScripter, the Script Builder: templates of commands on one side, the lines of a script
// on the other; add, insert, delete and edit lines, and load and save the file. It checks no
// syntax and runs nothing. Modal; opened by the main window's "Load/Edit Script".
#pragma once

#include "station/station.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace tarvelle {

class FormScripter : public QDialog {
    Q_OBJECT
public:
    explicit FormScripter(Station& station, QWidget* parent = nullptr);

    // Every line of the file, comments included; false (and an empty list) when it is missing.
    bool LoadScriptFile(const QString& fileName);
    // Asks for the path, proposing fileName, and writes the lines; the chosen path comes back
    // in fileName. False when cancelled or the file cannot be written.
    bool SaveScriptFile(QString& fileName);

    QListWidget* ListCmd = nullptr;
    QComboBox* ComboScript = nullptr;
    QLabel* LBLindex = nullptr;
    QPushButton *CmdAddCmd = nullptr, *CmdInsert = nullptr, *CmdDelete = nullptr, *CmdEdit = nullptr;
    QPushButton *CmdNew = nullptr, *CmdLoad = nullptr, *CmdSave = nullptr, *CmdExit = nullptr;
    int ScriptIndex = 0;
    QString BuilderFileName;
    bool ScriptChanged = false;

private:
    void CmdAddCmdClick();
    void CmdInsertClick();
    void CmdDeleteClick();
    void CmdEditClick();
    void CmdNewClick();
    void CmdLoadClick();
    void CmdSaveClick();
    void ComboScriptClick(int index);
    QString SelectedTemplate() const;

    Station& st_;
};

} // namespace tarvelle
