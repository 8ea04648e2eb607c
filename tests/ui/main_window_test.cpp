// Form1 driven offscreen through its named controls, with a clock the test sets.
#include "core/date_value.h"
#include "ui/main/main_window.h"
#include "station_test.h"
#include "core/text_forms.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include <memory>

using namespace tarvelle;

namespace {

class Form1Test : public StationTest {
protected:
    Form1& LoadForm() {
        form = std::make_unique<Form1>(*station);
        form->Load();
        return *form;
    }
    QString Text(const char* name) const { return form->findChild<QLabel*>(name)->text(); }
    QString Time() const { return form->txtH->text() + ":" + form->txtN->text() + ":" + form->txtS->text(); }
    static QString GMT(double ut) { return QString::fromStdString(FormatDateMask(ut, "yyyy-mm-dd hh:nn:ss")); }

    std::unique_ptr<Form1> form;
};

} // namespace

// The detected zone overrides a stored one, only in memory; a stale probability file goes.
TEST_F(Form1Test, StartUpTakesTheDefaultsAndTheDetectedZone) {
    settings->save("Startup", "SystemClockTZ", "2");
    WriteFile("Io-CMLProb.csv", "");
    Form1& f = LoadForm();
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_FALSE(QFile::exists(programDir + "Io-CMLProb.csv"));
    EXPECT_EQ(core().SystemClockTZ, -5.0);
    EXPECT_EQ(settings->get("Startup", "SystemClockTZ"), "2");
    EXPECT_EQ(GMT(core().CurrentUT), "2026-11-22 20:30:00");
    EXPECT_EQ(f.LastDay(), 22);
    EXPECT_FALSE(f.LastMinute().has_value()); // no mode file: the minute duties never ran
    EXPECT_EQ(core().Day.DayMinuteTime[0], DateSerial(2026, 11, 22));
    EXPECT_TRUE(f.Timer1()->isActive());
    EXPECT_EQ(settings->get("Startup", "UseGMT", "absent"), "absent"); // reading writes nothing back
}

TEST_F(Form1Test, StoredChoicesAreRead) {
    settings->save("startup", "usegmt", "False");
    settings->save("Startup", "UseDetectedTZ", "0");
    settings->save("Startup", "SystemClockTZ", "-3.5");
    settings->save("Startup", "DisplayWest", "E");
    settings->save("Settings", "DFormat", "2");
    LoadForm();
    EXPECT_FALSE(core().UseGMT);
    EXPECT_EQ(core().ClockOffset, -5.0 - -3.5);
    // The clock runs on -3.5 hours: 15:30 on it is 19:00 GMT.
    EXPECT_EQ(FormatDateMask(core().CurrentUT, "hh:nn"), "19:00");
    EXPECT_EQ(core().DisplayWest, "E");
    EXPECT_EQ(core().DateFormatChoice, 2);
}

TEST_F(Form1Test, MissingObserverFileIsReportedAndStartUpGoesOn) {
    QFile::remove(programDir + "viewer.obs");
    Form1& f = LoadForm();
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].title, "FILE ERROR!");
    EXPECT_TRUE(dialogs.messages[0].text.startsWith("Error 53\n Occurred Loading "));
    EXPECT_TRUE(f.Timer1()->isActive());
}

// A tick shows the clock of that moment. (In local time: CommandsTest.GMTAndLocalToggle.)
TEST_F(Form1Test, TickFillsTheBoxesInGMTOrLocal) {
    Form1& f = LoadForm();
    clock.local += 2.0 / 86400.0;
    f.Timer1Tick();
    EXPECT_EQ(form->txtY->text() + form->txtM->text() + form->txtD->text() + " " + Time(), "20261122 20:30:02");
}

TEST_F(Form1Test, ANewGMTDateRebuildsTheDayTablesOnce) {
    clock.local = DateSerial(2026, 11, 22) + TimeSerial(18, 59, 59); // 23:59:59 GMT
    Form1& f = LoadForm();
    f.Timer1Tick();
    EXPECT_EQ(core().Day.DayMinuteTime[0], DateSerial(2026, 11, 22));
    clock.local += 1.0 / 86400.0; // 00:00:00 GMT of the 23rd
    station->automation.DoneToday = true;
    f.Timer1Tick();
    EXPECT_EQ(core().Day.DayMinuteTime[0], DateSerial(2026, 11, 23));
    EXPECT_EQ(f.LastDay(), 23);
    EXPECT_FALSE(station->automation.DoneToday);
    core().Day.DayCML[5] = -1.0f; // a rebuild would overwrite this mark
    clock.local += 1.0 / 86400.0;
    f.Timer1Tick();
    EXPECT_EQ(core().Day.DayCML[5], -1.0f);
}

TEST_F(Form1Test, ClosingStopsTheTickAndClosesOtherWindows) {
    Form1& f = LoadForm();
    f.show();
    QWidget other;
    other.show();
    f.MnuFileExit->trigger();
    EXPECT_TRUE(core().ShuttingDown);
    EXPECT_FALSE(f.Timer1()->isActive());
    EXPECT_FALSE(other.isVisible());
    EXPECT_FALSE(f.isVisible());
}

// The next audible window at the right of the status line: made anew as the minutes pass, and
// at once when the stored exclusions or the modes change.
TEST_F(Form1Test, TheNextWindowFollowsTheClockTheExclusionsAndTheModes) {
    Form1& f = LoadForm();
    f.Timer1Tick();
    const QString first = Text("LBLNext");
    ASSERT_TRUE(first.startsWith("Next: ") && first.contains(" GMT, in ")) << first.toStdString();
    clock.local += 1.0 / 1440.0; // the wait shrinks (its texts: the storm window tests)
    f.Timer1Tick();
    const QString later = Text("LBLNext");
    EXPECT_NE(later, first);
    settings->save("Settings", "ReportJupAltMin", "91"); // Jupiter is never that high
    station->model.ExclusionsChanged();
    EXPECT_EQ(Text("LBLNext"), "Next: none in the coming 48 h");
    settings->save("Settings", "ReportJupAltMin", "0");
    station->model.ExclusionsChanged();
    EXPECT_EQ(Text("LBLNext"), later);
    station->modes.ModesLoaded = false;
    station->model.ModesChanged();
    EXPECT_TRUE(Text("LBLNext").isEmpty());
}

// Regression: an absurd clock zone in the settings hung the station; a value out of range now
// goes back to its default and the user is told once.
TEST_F(StationTest, SettingsOutOfRangeAreResetAndTold) {
    settings->save("Startup", "SystemClockTZ", "1e300");
    settings->save("Startup", "UseDetectedTZ", "False");
    settings->save("Settings", "DFormat", "7");
    settings->save("Startup", "ModeFileName", QString(5000, 'x'));
    Form1 f(*station);
    f.Load();
    ASSERT_EQ(dialogs.messages.size(), 1u);
    for (const char* name : {"Startup/SystemClockTZ", "Settings/DFormat", "Startup/ModeFileName"})
        EXPECT_TRUE(dialogs.messages[0].text.contains(name)) << name;
    EXPECT_EQ(core().SystemClockTZ, core().ObsTZ);
    EXPECT_EQ(core().DateFormatChoice, 0);
}
