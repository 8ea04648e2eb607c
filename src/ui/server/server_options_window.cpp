#include "ui/server/server_options_window.h"

#include "ui/common/named_controls.h"
#include "core/numeric.h"
#include "core/text_forms.h"
#include "server/jis_block.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <limits>

namespace tarvelle {

namespace {

// A 16-bit field: the value of its text, rounded; nothing when it does not fit.
std::optional<int16_t> ShortField(const QLineEdit* box) {
    const double v = RoundHalfEven(ValueOfText(box->text().toStdString()));
    if (!(v >= 0 && v <= std::numeric_limits<int16_t>::max())) return std::nullopt;
    return static_cast<int16_t>(v);
}

} // namespace

FormServerOptions::FormServerOptions(Station& station, JisControl& server, QWidget* parent)
    : QWidget(parent, Qt::Window), st_(station), server_(server) {
    setObjectName("FormServerOptions");
    setWindowTitle("Jupiter Info Server Options");
    BuildControls();
    const ServerSchedule& p = st_.server;
    ChkRun->setChecked(p.RunJIS != 0);
    ChkPush->setChecked(p.PushJIS != 0);
    txtMin->setText(QString::number(p.JISMin));
    txtIP->setText(p.JISIP);
    txtPort->setText(QString::number(p.JISPort));
    chkTime->setChecked(p.JIStime);
    chkJupALTAZ->setChecked(p.JISjupALTAZ);
    chkJupCMLIO->setChecked(p.JISjupCMLIO);
    chkJupMode->setChecked(p.JISjupMODE);
    chkSun->setChecked(p.JISsun);
    ShowState();
}

void FormServerOptions::BuildControls() {
    auto* layout = new QVBoxLayout(this);
    ChkRun = Named(new QCheckBox("Run on startup.", this), "ChkRun");
    layout->addWidget(ChkRun);
    auto* push = new QHBoxLayout;
    ChkPush = Named(new QCheckBox("Push data every", this), "ChkPush");
    txtMin = Named(new QLineEdit(this), "txtMin");
    txtMin->setMaximumWidth(50);
    push->addWidget(ChkPush);
    push->addWidget(txtMin);
    push->addWidget(new QLabel("minutes.", this));
    push->addStretch();
    layout->addLayout(push);
    auto* address = new QGridLayout;
    txtIP = Named(new QLineEdit(this), "txtIP");
    txtPort = Named(new QLineEdit(this), "txtPort");
    address->addWidget(new QLabel("IP", this), 0, 0);
    address->addWidget(txtIP, 0, 1);
    address->addWidget(new QLabel("Port", this), 1, 0);
    address->addWidget(txtPort, 1, 1);
    layout->addLayout(address);
    chkTime = Named(new QCheckBox("Include Date/Time", this), "chkTime");
    chkJupALTAZ = Named(new QCheckBox("Include Jupiter Position", this), "chkJupALTAZ");
    chkJupCMLIO = Named(new QCheckBox("Include CML/Io Phase", this), "chkJupCMLIO");
    chkJupMode = Named(new QCheckBox("Include Current Mode", this), "chkJupMode");
    chkSun = Named(new QCheckBox("Include Sun", this), "chkSun");
    for (QCheckBox* c : {chkTime, chkJupALTAZ, chkJupCMLIO, chkJupMode, chkSun}) layout->addWidget(c);
    LBLCS = Named(new QLabel(this), "LBLCS");
    LBLFailure = Named(new QLabel(this), "LBLFailure");
    LBLFailure->setWordWrap(true);
    LBLFailure->setStyleSheet("color: #a00000");
    layout->addWidget(LBLCS);
    layout->addWidget(LBLFailure);
    auto* buttons = new QHBoxLayout;
    cmdRun = Named(new QPushButton(this), "cmdRun");
    cmdTest = Named(new QPushButton("Test", this), "cmdTest");
    cmdOK = Named(new QPushButton("&OK", this), "cmdOK");
    cmdOK->setToolTip("Keep these values for now..do not save as defaults.");
    CmdSave = Named(new QPushButton("&Save", this), "CmdSave");
    CmdSave->setToolTip("Save displayed values as defaults and exit.");
    cmdCancel = Named(new QPushButton("&Cancel", this), "cmdCancel");
    cmdCancel->setToolTip("Just exit..don't change any JIS options.");
    for (QPushButton* b : {cmdRun, cmdTest, cmdOK, CmdSave, cmdCancel}) buttons->addWidget(b);
    layout->addLayout(buttons);

    connect(cmdRun, &QPushButton::clicked, this, &FormServerOptions::cmdRunClick);
    connect(cmdTest, &QPushButton::clicked, this, [this] {
        if (!GetParamsFromForm()) return;
        server_.StartJIS();
        server_.SendJISInfo();
        ShowState();
    });
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (GetParamsFromForm()) close();
    });
    connect(CmdSave, &QPushButton::clicked, this, [this] {
        if (!GetParamsFromForm()) return;
        SaveJISParameters(st_.settings, st_.server);
        st_.dialogs.Message("JIS Settings Saved.");
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
}

void FormServerOptions::ShowState() {
    const bool running = server_.JISRunning();
    LBLCS->setText(running ? "JIS is Running" : "JIS is not Running");
    cmdRun->setText(running ? "Stop &JIS" : "Start &JIS");
    LBLFailure->setText(running ? QString() : server_.JISFailure());
}

void FormServerOptions::cmdRunClick() {
    if (cmdRun->text() == "Start &JIS")
        server_.StartJIS();
    else
        server_.StopJIS();
    ShowState();
}

bool FormServerOptions::GetParamsFromForm() {
    const auto port = ShortField(txtPort);
    const auto minutes = ShortField(txtMin);
    if (!port || !minutes) {
        st_.dialogs.Message(!port ? "The port must be a whole number from 0 to 32767."
                                  : "The minutes must be a whole number from 0 to 32767.",
                            "Jupiter Info Server Options", MsgButtons::OK, MsgIcon::Exclamation);
        return false;
    }
    const bool wasRunning = server_.JISRunning();
    if (wasRunning) {
        server_.StopJIS();
        QCoreApplication::processEvents();
    }
    ServerSchedule& p = st_.server;
    p.JIStime = chkTime->isChecked();
    p.JISjupALTAZ = chkJupALTAZ->isChecked();
    p.JISjupCMLIO = chkJupCMLIO->isChecked();
    p.JISjupMODE = chkJupMode->isChecked();
    p.JISsun = chkSun->isChecked();
    p.JISIP = txtIP->text();
    p.JISPort = *port;
    p.RunJIS = ChkRun->isChecked() ? 1 : 0;
    p.JISMin = *minutes;
    p.PushJIS = ChkPush->isChecked() ? 1 : 0;
    if (wasRunning) server_.StartJIS();
    return true;
}

} // namespace tarvelle
