// Form1's part of the information server and the observer log, and ShowForThisTime, which
// puts the whole station at an instant.
#include "ui/main/main_window.h"

#include "server/jis_block.h"
#include "server/jis_server.h"
#include "ui/log/observer_log_window.h"
#include "ui/prediction/cmio_plane_window.h"
#include "ui/sky/alt_az_window.h"
#include "ui/sky/sky_map_window.h"
#include "ui/server/server_options_window.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QToolButton>

namespace tarvelle {

void Form1::ConnectServerAndLog() {
    socket1_ = new JisServer(this);
    connect(socket1_, &JisServer::blockRequested, this, &Form1::SendJISInfo);
    connect(socket1_, &JisServer::moveRequested, this, [this](double t) {
        ShowForThisTime(t, true);
        SendJISInfo();
    });
    for (QAction* a : {mnuJIS, mnuObserverLog}) a->setEnabled(true);
    cmdObserverlog->setEnabled(true);
    connect(mnuJIS, &QAction::triggered, this, &Form1::mnuJISClick);
    connect(mnuObserverLog, &QAction::triggered, this, &Form1::mnuObserverLogClick);
    connect(cmdObserverlog, &QToolButton::clicked, this, &Form1::mnuObserverLogClick);
}

void Form1::LoadJISParameters() {
    if (const auto failure = tarvelle::LoadJISParameters(st_.settings, st_.server)) st_.dialogs.Message(*failure);
}

// A start that fails leaves the server stopped and says why; the next start tries again.
void Form1::StartJIS() {
    if (const auto failure = socket1_->Start(st_.server.JISIP, st_.server.JISPort)) {
        jisRunning_ = false;
        jisFailure_ = *failure;
        LBLQ->setText("JIS not running: " + *failure);
        return;
    }
    jisRunning_ = true;
    jisFailure_.clear();
}

// Stopping also stops listening, so that a client is refused rather than left waiting.
void Form1::StopJIS() {
    socket1_->Stop();
    jisRunning_ = false;
}

void Form1::SendJISInfo() {
    if (!socket1_->IsConnected()) return;
    const std::string block = BuildJISBlock(st_.server, CurrentJisValues(st_, Label3->text().toStdString()));
    socket1_->Write(QByteArray::fromStdString(block));
    st_.server.LastJISSend = st_.clock.LocalNow();
}

void Form1::mnuJISClick() {
    if (auto* open = findChild<FormServerOptions*>()) {
        open->raise();
        open->activateWindow();
        return;
    }
    auto* options = new FormServerOptions(st_, *this, this);
    options->setAttribute(Qt::WA_DeleteOnClose);
    options->show();
}

// The log hides rather than closes on its Hide command; it comes back with its text.
void Form1::mnuObserverLogClick() {
    if (!observerLog_) {
        observerLog_ = new FormObserverLog(st_, this);
        observerLog_->setAttribute(Qt::WA_DeleteOnClose);
        connect(observerLog_, &QObject::destroyed, this, [this] { observerLog_ = nullptr; });
    }
    observerLog_->show();
    observerLog_->raise();
    observerLog_->activateWindow();
}

QWidget* Form1::TaggedWindow(const char* tag) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (qsizetype i = windows.size() - 1; i >= 0; --i) {
        QWidget* w = windows[i];
        if (w->isVisible() && w->property("tag").toString() == QLatin1String(tag)) return w;
    }
    return nullptr;
}

// The views in the order ShowForThisTime serves them: the Alt/Az display, the CML-Io plane,
// the sky map. A view joins with its tag, its refresh and how it opens.
std::vector<Form1::TimedView> Form1::ViewsForThisTime() {
    return {
        {"altaz", [](QWidget* w) { static_cast<FormAltAz*>(w)->UpdateAltAz(); },
         [this] {
             MnuAltAzDisplayClick();
             if (auto* altAz = static_cast<FormAltAz*>(TaggedWindow("altaz"))) altAz->UpdateAltAz();
         }},
        {"cmio", [](QWidget* w) { static_cast<FormCMIoPlane*>(w)->UpdateCMIoPlane(); },
         [this] {
             MnuCMIOPlaneMapClick();
             if (auto* plane = static_cast<FormCMIoPlane*>(TaggedWindow("cmio"))) plane->UpdateCMIoPlane();
         }},
        {"skymap",
         [](QWidget* w) {
             auto* map = static_cast<FormSkyMap*>(w);
             map->GetPointer();
             map->UpdateSkymap();
         },
         [this] {
             MnuSkyMapClick();
             if (auto* map = static_cast<FormSkyMap*>(TaggedWindow("skymap"))) map->UpdateSkymap();
         }},
    };
}

void Form1::ShowForThisTime(double t, bool openWindows) {
    core_.RealTimeMode = false;
    core_.CurrentUT = t;
    SwitchToFixedTime();
    for (const TimedView& view : ViewsForThisTime()) {
        if (QWidget* open = TaggedWindow(view.tag))
            view.refresh(open);
        else if (openWindows)
            view.open();
    }
}

} // namespace tarvelle
