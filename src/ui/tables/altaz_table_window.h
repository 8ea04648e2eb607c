// FormAltAzTable, the Alt/Az table file creator: the record file of 18-byte records, or with
// chkRandomAccess off a readable text table of the chosen columns and bodies.
//
// Each time the window is activated it stops the main window's Timer1; while a table is
// written the timer is off and afterwards goes back to how it was.
#pragma once

#include "tables/altaz_table.h"
#include "ui/common/station_window.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTimer;

namespace tarvelle {

class FormAltAzTable : public StationWindow {
    Q_OBJECT
public:
    FormAltAzTable(Station& station, QTimer* mainTimer, QWidget* parent = nullptr);

    void cmdCreateClick();
    AltAzTableInput Input() const;

    QLineEdit *txtYS = nullptr, *txtMS = nullptr, *txtDS = nullptr;
    QLineEdit *txtYE = nullptr, *txtME = nullptr, *txtDE = nullptr;
    QComboBox* Combo1 = nullptr;
    QCheckBox *chkRandomAccess = nullptr, *ChkIncludeDate = nullptr, *chkIncludeTime = nullptr;
    QRadioButton *OptJup = nullptr, *OptSun = nullptr, *OptBoth = nullptr;
    QLabel* LBLS = nullptr;
    QPushButton* cmdCreate = nullptr;

protected:
    void changeEvent(QEvent* event) override;

private:
    void BuildControls();
    void ShowTextTableChoices();

    QTimer* mainTimer_;
    bool busy_ = false;
};

} // namespace tarvelle
