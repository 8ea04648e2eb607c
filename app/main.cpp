// The station program: fills the program directory, creates the station and opens Form1.
#include "platform/program_directory.h"
#include "platform/system_clock.h"
#include "platform/system_desktop.h"
#include "station/settings_store.h"
#include "station/station.h"
#include "station/version.h"
#include "ui/common/qt_dialogs.h"
#include "ui/main/main_window.h"

#include <QApplication>
#include <QTimer>

int main(int argc, char** argv) {
    QApplication::setOrganizationName("Tarvelle");
    QApplication::setApplicationName("Tarvelle");
    QApplication::setApplicationVersion(tarvelle::kVersionText);
    QApplication app(argc, argv);

    const QString programDir = tarvelle::DefaultProgramDirectory();
    tarvelle::FillProgramDirectory(tarvelle::BundledDataDirectory(), programDir);

    tarvelle::SettingsStore settings;
    tarvelle::SystemClock clock;
    tarvelle::QtDialogs dialogs;
    tarvelle::SystemDesktop desktop([] { QApplication::beep(); });
    tarvelle::Station station(settings, clock, dialogs, desktop, programDir);

    tarvelle::Form1 form(station);
    form.Load();
    form.show();
    // The first readout at once rather than a second after start.
    QTimer::singleShot(0, &form, &tarvelle::Form1::Timer1Tick);
    return app.exec();
}
