// FormServerOptions, "Jupiter Info Server Options": the server's parameters, its state, and
// starting, stopping and testing it. Not modal; belongs to the main window, which runs the
// server (reached through JisControl).
#pragma once

#include "server/jis_control.h"
#include "station/station.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tarvelle {

class FormServerOptions : public QWidget {
    Q_OBJECT
public:
    FormServerOptions(Station& station, JisControl& server, QWidget* parent = nullptr);

    // Takes the controls into the parameters, restarting a running server on them. A port or
    // a period that does not fit is refused with a message, and nothing is taken: false.
    bool GetParamsFromForm();
    void ShowState();

    QCheckBox *ChkRun = nullptr, *ChkPush = nullptr, *chkTime = nullptr, *chkJupALTAZ = nullptr;
    QCheckBox *chkJupCMLIO = nullptr, *chkJupMode = nullptr, *chkSun = nullptr;
    QLineEdit *txtMin = nullptr, *txtIP = nullptr, *txtPort = nullptr;
    QLabel *LBLCS = nullptr, *LBLFailure = nullptr;
    QPushButton *cmdRun = nullptr, *cmdTest = nullptr, *cmdOK = nullptr, *CmdSave = nullptr, *cmdCancel = nullptr;

private:
    void BuildControls();
    void cmdRunClick();

    Station& st_;
    JisControl& server_;
};

} // namespace tarvelle
