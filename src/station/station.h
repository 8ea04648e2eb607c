// Everything the program shares for its whole run, created once by the application and
// handed to each window by reference. A test makes its own.
#pragma once

#include "core/astro_core.h"
#include "station/clock_source.h"
#include "station/desktop.h"
#include "station/dialogs.h"
#include "core/fixed_snapshot.h"
#include "station/prediction_state.h"
#include "station/settings_store.h"
#include "station/station_model.h"

#include <QString>

#include <cstdint>

namespace tarvelle {

// The automation task's limits on Jupiter's altitude for the activity line.
struct AutomationLimits {
    bool UseJupAlt = false;
    double JupAlt1 = 0.0, JupAlt2 = 90.0;
    bool DoneToday = false;
};

// The information server's parameters and when it pushes its values to a connected client.
struct ServerSchedule {
    int16_t RunJIS = 0;          // start the server at start-up
    int16_t PushJIS = 0;         // send the block periodically
    int16_t JISMin = 10;         // minutes between pushes
    double LastJISSend = 0.0;    // computer's clock at the last sending
    QString JISIP = "127.0.0.1"; // local address to listen on
    int16_t JISPort = 4711;      // local port; the one above it is taken too
    bool JIStime = true, JISjupALTAZ = true, JISjupCMLIO = true, JISjupMODE = true, JISsun = true;
};

struct Station {
    Station(SettingsStore& s, ClockSource& c, Dialogs& d, Desktop& k, QString dir)
        : settings(s), clock(c), dialogs(d), desktop(k), programDir(std::move(dir)) {}

    Core core;
    FixedSnapshot fixed;
    ModeTableState modes;
    MinuteTables minutes;
    ActivityState activity;
    ProbabilityTable ProbTable; // filled once at start-up
    AutomationLimits automation;
    ServerSchedule server;

    StationModel model; // what changed, for the windows that listen

    SettingsStore& settings;
    ClockSource& clock;
    Dialogs& dialogs;
    Desktop& desktop;
    QString programDir; // with a trailing separator
    std::string VersionText; // "3.8.2", set at start-up
    QString SelectedDir; // the folder the directory chooser starts from and gives back

    // Reads the computer's clock into CurrentUT, in GMT.
    void ReadClock() { core.CurrentUT = core.GMTFromClock(clock.LocalNow()); }
};

} // namespace tarvelle
