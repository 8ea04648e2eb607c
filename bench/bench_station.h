// A station for the benchmarks of windows: a temporary program directory with the sample
// observer, its own settings, and a clock at 15:30 local on 2026-11-22, five hours west.
#pragma once

#include "core/date_value.h"
#include "doubles.h"
#include "station/settings_store.h"
#include "station/station.h"

#include <QFile>
#include <QTemporaryDir>

namespace tarvelle {

struct Bench {
    QTemporaryDir dir;
    QString programDir = dir.path() + "/";
    SettingsStore settings{dir.filePath("settings.ini")};
    FakeClock clock;
    ScriptedDialogs dialogs;
    RecordingDesktop desktop;
    Station station{settings, clock, dialogs, desktop, programDir};

    Bench() {
        QFile f(programDir + "viewer.obs");
        if (f.open(QIODevice::WriteOnly)) f.write("\"39:15:00.0\"\r\n\"76:30:00.0\"\r\n\"-5\"\r\n");
        f.close();
        clock.local = DateSerial(2026, 11, 22) + TimeSerial(15, 30, 0);
        clock.biasHours = 5.0;
    }
};

} // namespace tarvelle
