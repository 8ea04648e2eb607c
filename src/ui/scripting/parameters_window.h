// FormParameters, "Automated Action Parameters": edits the automation task's record. Modal;
// opened by the main window's automation button and menu entry. Some controls save at once
// (the mode boxes, Do Daily and Do On this Date), the rest on OK after its checks.
#pragma once

#include "scripting/automation.h"
#include "station/station.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tarvelle {

class FormParameters : public QDialog {
    Q_OBJECT
public:
    FormParameters(Station& station, AutomationTask& task, const QString& programTitle, QWidget* parent = nullptr);

    std::array<QCheckBox*, kPredictedModes> ChkMode{};
    std::array<QCheckBox*, kTaskScripts> ChkRunScript{};
    std::array<QLineEdit*, kTaskScripts> TxtScriptFileName{};
    std::array<QPushButton*, kTaskScripts> CmdBrowse{};
    QCheckBox *ChkJupAz = nullptr, *ChkJupAlt = nullptr, *ChkSunIsDown = nullptr, *ChkDoDaily = nullptr;
    QCheckBox *ChkDoOnThisDate = nullptr, *ChkDoAtThisTime = nullptr, *ChkAltChanges = nullptr;
    QCheckBox *ChkAzChanges = nullptr, *ChkAudibleAlert = nullptr;
    QLineEdit *TxtJupAz1 = nullptr, *TxtJupAz2 = nullptr, *TxtJupAlt1 = nullptr, *TxtJupAlt2 = nullptr;
    QLineEdit *TxtAltChange = nullptr, *TxtAzChange = nullptr;
    QLineEdit *txtY = nullptr, *txtM = nullptr, *txtD = nullptr, *txtH = nullptr, *txtN = nullptr;
    QRadioButton *OptGMT = nullptr, *OptLocal = nullptr, *OptJup = nullptr, *OptSun = nullptr;
    QPushButton *CmdCal = nullptr, *cmdOK = nullptr, *cmdCancel = nullptr;
    QLabel* LBLDateFormat = nullptr;

private:
    QWidget* BuildConditions();
    QWidget* BuildWhen();
    QWidget* BuildScripts();
    QWidget* BuildMovement();
    void FillFromRecord();
    void ConnectLiveControls();
    void ExclusiveDayBox(QCheckBox* clicked, QCheckBox* other, const char* key, const char* otherKey);
    void CmdCalClick();
    void cmdOKClick();

    Station& st_;
    AutomationTask& task_;
    QString programTitle_;
};

} // namespace tarvelle
