// Form4: the mode table editor, opened modally by "&Edit Mode File".
//
// Ten rows of five boxes (name, CML1, CML2, IoP1, IoP2) show the table as it stands. "Discard"
// closes and leaves the table alone; "Apply" reads the rows back into the table and closes;
// "Save" reads them back, asks for a path and writes the file there, and stays open. File >
// Print prints the window's picture; File > Exit closes without reading anything back.
//
// Reading back follows ApplyModeEdits (mode_file.h): the first empty name among the first nine
// rows ends the list, and the tenth row's name is never taken.
#pragma once

#include "station/station.h"

#include <QDialog>
#include <QList>

class QAction;
class QLabel;
class QLineEdit;
class QMenu;
class QMenuBar;
class QPushButton;

namespace tarvelle {

class Form4 : public QDialog {
    Q_OBJECT
public:
    explicit Form4(Station& station, QWidget* parent = nullptr);

    // The rows into the table.
    void ApplyModeEdits();

    void CmdSaveClick();
    void MnuPrintClick();
    void MnuExitClick();

    QLabel* Label1 = nullptr; // the column heading
    // Rows 0 to 9 of each column, in order; each box's objectName is its array's name.
    QList<QLineEdit*> txtName, txtCMLs, txtCMLe, txtIoS, txtIoE;
    QPushButton *CmdCancel = nullptr, *CmdKeep = nullptr, *CmdSave = nullptr;
    QMenuBar* MenuBar = nullptr;
    QMenu* MnuFile = nullptr;
    QAction *MnuPrint = nullptr, *MnuExit = nullptr;

private:
    void BuildControls();
    void FillRows();

    Station& st_;
};

} // namespace tarvelle
