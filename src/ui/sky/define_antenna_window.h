// FormDefineAnt ("Define Antenna"): creates and changes antenna files on a small copy of the
// sky map that shows the lobes as they are entered, the lobe in hand in yellow and the others
// in black. Typed values reach the map on Update; File > Save writes the file.
#pragma once

#include "formats/antenna_file.h"
#include "station/station.h"
#include "ui/common/plot_widget.h"

#include <QDialog>
#include <QString>

#include <cstdint>

class QComboBox;
class QLabel;
class QLineEdit;
class QMenuBar;
class QAction;
class QPushButton;

namespace tarvelle {

class FormDefineAnt : public QDialog {
    Q_OBJECT
public:
    explicit FormDefineAnt(Station& station, QWidget* parent = nullptr);

    void DrawSkyGrid();
    void DrawAnt();
    void UpdateLobeBoxes();
    void RedrawAll();

    // Commands.
    void cmdLobeUpClick();
    void cmdLobeDownClick();
    void cmdUpdateClick();
    void txtLobesChange();
    void mnuNewClick();
    void mnuLoadAntClick();
    void mnuSaveAntClick();

    Antenna edit; // EditName, EditPic, EditHeight and EditLobes
    QString EditFile;
    int16_t CurrentLobe = 1;
    int16_t LobeCount = 1;
    bool Changed = false;

    PlotWidget* PicSkyMap = nullptr;
    QLineEdit *txtName = nullptr, *txtLobes = nullptr, *txtALT = nullptr, *txtAZ = nullptr;
    QLineEdit *txtEWBW = nullptr, *txtNSBW = nullptr, *txtGain = nullptr;
    QComboBox* Combo1 = nullptr;
    QPushButton *cmdLobeUp = nullptr, *cmdLobeDown = nullptr, *cmdUpdate = nullptr;
    QLabel *LBLLobe = nullptr, *LBLpt = nullptr;
    QAction *mnuNew = nullptr, *mnuLoadAnt = nullptr, *mnuSaveAnt = nullptr, *mnuExit = nullptr;

protected:
    void done(int result) override;

private:
    void BuildControls();
    AntennaLobe& Lobe();
    QString AntennaDirectory() const;

    Station& st_;
};

} // namespace tarvelle
