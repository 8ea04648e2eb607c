// Real and fixed time, GMT and local, and the entry of dates and times on the station window.
#include "ui/common/station_window.h"
#include "ui/common/calendar_window.h"
#include "ui/common/date_format_window.h"
#include "core/date_value.h"
#include "ui/main/main_window.h"
#include "station_test.h"
#include "station/help_commands.h"
#include "station/time_entry.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QTest>
#include <QCalendarWidget>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <functional>
#include <memory>

using namespace tarvelle;

namespace {

// Runs `act` on the next modal dialog that opens, once it is up.
void OnNextModal(std::function<void(QWidget*)> act) {
    QTimer::singleShot(0, [act] {
        if (QWidget* w = QApplication::activeModalWidget()) act(w);
    });
}

} // namespace

// Bad dates fall back on today with their message (empty: none); good ones roll over as date
// arithmetic does.
TEST(TimeEntry, DatesFallBackOnTodayOrRollOver) {
    const double today = DateSerial(2026, 11, 22);
    struct Case { const char *y, *m, *d; double date; std::string message; };
    const std::string badYear = "Invalid Year {1900-3000} - Using Todays Date Instead.";
    const Case cases[] = {
        {"2026", "0", "5", today, "Invalid Day or Month - Using Todays Date Instead."},
        {"1899", "6", "1", today, badYear},
        {"3001", "6", "1", today, badYear},
        {"", "6", "1", today, badYear},
        {"2026", "99999999", "1", today, "Date Error: \n"},
        {"2025", "13", "1", DateSerial(2026, 1, 1), ""},
        {"2024", "2", "30", DateSerial(2024, 3, 1), ""},
        {"3000", "12", "32", DateSerial(3001, 1, 1), ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.y) + "-" + c.m + "-" + c.d);
        std::vector<std::string> messages;
        DateTimeBoxes b{c.y, c.m, c.d, "0", "0", "0"};
        const double date = DateFromBoxes(b, today, messages);
        EXPECT_EQ(date, c.date);
        ASSERT_EQ(messages.size(), c.message.empty() ? 0u : 1u);
        if (!c.message.empty()) {
            EXPECT_EQ(messages[0].rfind(c.message, 0), 0u) << messages[0];
        }
        // The boxes show the date used: today, or the date a roll-over became.
        EXPECT_EQ(b.Y + b.M + b.D, FormatDateMask(date, "yyyymmdd"));
    }
}

// Times out of range are clamped and written back to the boxes; a blank hour reads as 0 and
// stays blank.
TEST(TimeEntry, TimesAreClampedInTheBoxes) {
    const struct { const char *h, *n, *s; double time; const char* shown; } cases[] = {
        {"25", "70", "80", TimeSerial(23, 59, 59), "23:59:59"}, {"", "-3", "7", TimeSerial(0, 0, 7), ":00:7"}};
    for (const auto& c : cases) {
        DateTimeBoxes b{"", "", "", c.h, c.n, c.s};
        EXPECT_DOUBLE_EQ(TimeFromBoxes(b), c.time) << c.shown;
        EXPECT_EQ(b.H + ":" + b.N + ":" + b.S, c.shown);
    }
}

TEST(TimeEntry, TypedTimesAreNormalisedOrRefused) {
    for (auto [typed, shown] : {std::pair{" 1:2:3 ", "01:02:03"}, {"12:00:00", "12:00:00"}, {"9:05:7", "09:05:07"}})
        EXPECT_EQ(NormaliseTimeText(typed), shown);
    for (const char* bad : {"1:2", "12:30", ":12:00", "1::0", "24:00:00", "12:60:00", "12:00:61", "ab:cd:ef", "12-00-00",
                            "12:00:00:00", "1.5:00:00"})
        EXPECT_FALSE(NormaliseTimeText(bad)) << bad;
}

namespace {

class CommandsTest : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        form = std::make_unique<Form1>(*station);
        form->Load();
    }
    QString Boxes() const {
        return form->txtY->text() + "-" + form->txtM->text() + "-" + form->txtD->text() + " " + form->txtH->text() + ":" +
               form->txtN->text() + ":" + form->txtS->text();
    }
    void SetBoxes(const char* y, const char* m, const char* d, const char* h, const char* n, const char* s) {
        for (auto [box, text] : {std::pair{form->txtY, y}, {form->txtM, m}, {form->txtD, d}, {form->txtH, h},
                                 {form->txtN, n}, {form->txtS, s}})
            box->setText(text);
    }
    static QString Stamp(double ut) { return QString::fromStdString(FormatDateMask(ut, "yyyy-mm-dd hh:nn:ss")); }

    std::unique_ptr<Form1> form;
};

} // namespace

// Fixing the time freezes the instant shown: in GMT the boxes stay as they were, in local time
// the instant is the clock moved to GMT and the boxes show it locally.
TEST_F(CommandsTest, RealToFixedAndBack) {
    form->Timer1Tick();
    const QString shown = Boxes();
    form->cmdReal->click();
    EXPECT_EQ(Stamp(station->fixed.FixedUT), "2026-11-22 20:30:00");
    EXPECT_EQ(Boxes(), shown);
    form->MnuRealTime->trigger();

    core().UseGMT = false;
    form->cmdReal->click();
    EXPECT_FALSE(core().RealTimeMode);
    EXPECT_FALSE(form->Timer1()->isActive());
    EXPECT_EQ(Stamp(station->fixed.FixedUT), "2026-11-22 20:30:00");
    EXPECT_EQ(Boxes(), "2026-11-22 15:30:00");

    clock.local = DateSerial(2026, 12, 1) + TimeSerial(1, 0, 0);
    form->MnuRealTime->trigger();
    EXPECT_TRUE(core().RealTimeMode);
    EXPECT_TRUE(form->Timer1()->isActive());
    EXPECT_EQ(core().Day.DayMinuteTime[0], DateSerial(2026, 12, 1)); // tables of the new date
    // The readout is of the real instant at once, not of the fixed one until the next tick.
    Core real = core();
    real.CurrentUT = core().GMTFromClock(clock.local);
    real.UpdateSiderealTime();
    real.UpdatePositions();
    EXPECT_EQ(core().LST, real.LST);
    EXPECT_EQ(core().CMLIII, real.CMLIII);
}

TEST_F(CommandsTest, LocalTimeEnteredLandsInGMT) {
    core().UseGMT = false;
    form->cmdReal->click();
    SetBoxes("2026", "11", "23", "12", "00", "00");
    form->cmdUpdateTime->click();
    EXPECT_EQ(Stamp(core().CurrentUT), "2026-11-23 17:00:00");
    EXPECT_EQ(station->fixed.FixedUT, core().CurrentUT);
    EXPECT_EQ(Boxes(), "2026-11-23 12:00:00"); // the boxes keep the local time
    EXPECT_EQ(core().Day.DayMinuteTime[0], DateSerial(2026, 11, 23));
    // The snapshot is the sky of that instant.
    Core direct = core();
    direct.UpdateSiderealTime();
    direct.UpdatePositions();
    EXPECT_EQ(station->fixed.FixedCML, direct.CMLIII);
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(CommandsTest, BadEntriesAreToldAndClamped) {
    form->cmdReal->click();
    SetBoxes("2026", "0", "10", "25", "70", "80");
    form->cmdUpdateTime->click();
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].text, "Invalid Day or Month - Using Todays Date Instead.");
    EXPECT_EQ(Stamp(core().CurrentUT), "2026-11-22 23:59:59"); // the boxes' rules: TimeEntry

    EXPECT_TRUE(form->ParseTimeText("12:5").isEmpty());
    ASSERT_EQ(dialogs.messages.size(), 2u);
    EXPECT_EQ(dialogs.messages[1].text, "You entered a time that could not be interpreted. Please re-enter.");
}

TEST_F(CommandsTest, GMTAndLocalToggle) {
    form->cmdGMT->click();
    EXPECT_FALSE(core().UseGMT);
    EXPECT_EQ(settings->get("Startup", "UseGMT"), "False");
    EXPECT_EQ(form->txtH->text(), "15");
    form->MnuUseGMT->trigger();
    EXPECT_EQ(settings->get("Startup", "UseGMT"), "True");
    EXPECT_EQ(form->txtH->text(), "20");
}

TEST_F(CommandsTest, CalendarSetsTheDateInFixedTimeOnly) {
    const auto pick = [](QWidget* w) {
        auto* cal = qobject_cast<FormCalendar*>(w);
        ASSERT_NE(cal, nullptr);
        cal->Calendar1->setSelectedDate(QDate(2027, 3, 4));
        cal->cmdOK->click();
    };
    OnNextModal([pick](QWidget* w) {
        EXPECT_EQ(qobject_cast<FormCalendar*>(w)->Calendar1->selectedDate(), QDate(2026, 11, 22)); // the date shown
        pick(w);
    });
    form->cmdCal->click();
    EXPECT_EQ(Stamp(core().CurrentUT), "2026-11-22 20:30:00"); // in real time it has only been shown

    form->cmdReal->click();
    SetBoxes("2026", "11", "22", "06", "15", "00");
    OnNextModal(pick);
    form->mnuCalendar->trigger();
    EXPECT_EQ(Stamp(core().CurrentUT), "2027-03-04 06:15:00");
    EXPECT_EQ(station->fixed.FixedUT, core().CurrentUT);
    EXPECT_EQ(core().Day.DayMinuteTime[0], DateSerial(2027, 3, 4));

    SetBoxes("2027", "03", "04", "08", "00", "00");
    OnNextModal([](QWidget* w) { qobject_cast<FormCalendar*>(w)->cmdCancel->click(); });
    form->cmdCal->click();
    // Cancelled: the date stays, the time comes from the boxes.
    EXPECT_EQ(Stamp(core().CurrentUT), "2027-03-04 08:00:00");
}

// The chosen date format is saved, and the boxes and their tab order follow it.
TEST_F(CommandsTest, DateFormatIsSavedAndTheBoxesFollowIt) {
    OnNextModal([](QWidget* w) {
        auto* f = qobject_cast<FormDateFormat*>(w);
        ASSERT_NE(f, nullptr);
        f->OptDFormat[1]->setChecked(true);
        f->cmdOK->click();
    });
    form->findChild<QAction*>("mnuDateFormat")->trigger();
    EXPECT_EQ(core().DateFormatChoice, 1);
    EXPECT_EQ(settings->get("Settings", "DFormat"), "1");
    const auto order = InDateOrder(1, form->txtY, form->txtM, form->txtD);
    auto nextTabStop = [](QWidget* w) {
        do w = w->nextInFocusChain();
        while (!(w->focusPolicy() & Qt::TabFocus));
        return w;
    };
    EXPECT_EQ(nextTabStop(order[0]), order[1]);
    EXPECT_EQ(nextTabStop(order[1]), order[2]);
    EXPECT_EQ(nextTabStop(order[2]), form->txtH);
}

TEST_F(CommandsTest, EnterInABoxAppliesTheBoxes) {
    form->cmdReal->click();
    SetBoxes("2024", "03", "05", "12", "00", "00");
    QTest::keyClick(form->txtS, Qt::Key_Return);
    EXPECT_EQ(Stamp(station->fixed.FixedUT), "2024-03-05 12:00:00");
}

// Closing the views leaves other windows; the Window menu brings a view back; the help menu
// opens the help pages.
TEST_F(CommandsTest, ViewWindowsAndHelpMenu) {
    StationWindow view(*station);
    QWidget other;
    for (QWidget* w : {static_cast<QWidget*>(&view), &other}) w->show();
    form->CloseForms();
    EXPECT_FALSE(view.isVisible());
    EXPECT_TRUE(other.isVisible());

    QAction* entry = form->findChild<QAction*>("MnuWindowSkyMap");
    form->RegisterViewWindow(&other, form->findChild<QAction*>("MnuSkyMap"), entry);
    other.hide();
    entry->trigger();
    EXPECT_TRUE(other.isVisible());

    form->findChild<QAction*>("mnuHTMLHelp")->trigger();
    form->findChild<QAction*>("mnuOnLineHelp")->trigger();
    EXPECT_EQ(desktop.opened, QStringList({programDir + "gethelp.htm", MakerWebAddress()}));
}
