// A station for window tests: a temporary program directory holding the sample observer and
// the bundled mode file, a settings store of its own, a clock the test sets (15:30 local on 2026-11-22, five hours
// west of Greenwich), and doubles of the dialogs and the desktop.
#pragma once

#include "doubles.h"
#include "core/date_value.h"
#include "station/desktop.h"
#include "station/dialogs.h"
#include "station/settings_store.h"
#include "station/station.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace tarvelle {

class StationTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        programDir = dir.path() + "/";
        WriteFile("viewer.obs", "\"39:15:00.0\"\r\n\"76:30:00.0\"\r\n\"-5\"\r\n");
        ASSERT_TRUE(QFile::copy(TARVELLE_SOURCE_DATA "/UFMODES.JMF", programDir + "UFMODES.JMF"));
        settings = std::make_unique<SettingsStore>(dir.filePath("settings.ini"));
        clock.local = DateSerial(2026, 11, 22) + TimeSerial(15, 30, 0);
        clock.biasHours = 5.0;
        station = std::make_unique<Station>(*settings, clock, dialogs, desktop, programDir);
    }

    void WriteFile(const QString& name, const QByteArray& content) {
        QFile f(programDir + name);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(content);
    }

    static QString ReadFile(const QString& path) {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }

    Core& core() { return station->core; }

    // The core set to the sample observer of viewer.obs, its clock on the observer's zone.
    void UseSampleObserver() {
        Core& c = core();
        c.ObFileName = (programDir + "viewer.obs").toStdString();
        c.ObLatText = "39:15:00.0";
        c.ObLngText = "76:30:00.0";
        c.ObsLatitude = 39.25f;
        c.ObsLongitude = 76.5f;
        c.ObsTZ = -5.0;
        c.SystemClockTZ = -5.0;
        c.UpdateClockOffset();
    }

    QTemporaryDir dir;
    QString programDir;
    std::unique_ptr<SettingsStore> settings;
    FakeClock clock;
    ScriptedDialogs dialogs;
    RecordingDesktop desktop;
    std::unique_ptr<Station> station;
};

} // namespace tarvelle
