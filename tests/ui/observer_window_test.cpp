// FormObserver driven through its named controls, with messages read from the dialog double.
#include "core/date_value.h"
#include "ui/observer/observer_window.h"
#include "station_test.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>

#include <memory>
#include <tuple>

using namespace tarvelle;

namespace {

// A move of the mouse over a widget, with no button held.
void MoveOver(QWidget* w, QPoint p) {
    QMouseEvent move(QEvent::MouseMove, p, w->mapToGlobal(p), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(w, &move);
}

class FormObserverTest : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        UseSampleObserver();
        Core& c = core();
        station->ReadClock();
        c.UpdateSiderealTime();
        c.BuildDayTables(c.CurrentUT);
        form = std::make_unique<FormObserver>(*station);
        QObject::connect(&station->model, &StationModel::closeViews, [this] { ++closeForms; });
    }
    bool Apply() {
        bool done = false;
        form->UpdateValues(done);
        return done;
    }

    std::unique_ptr<FormObserver> form;
    int closeForms = 0;
};

} // namespace

TEST_F(FormObserverTest, OpensOnTheCurrentRecordAndAppliesItWithoutAsking) {
    EXPECT_EQ(form->TxtLng->text() + " " + form->txtSCTZ->text(), "76:30:00.0 -5");
    EXPECT_TRUE(Apply());
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(closeForms, 0);
}

// A place or zone out of range is refused after the question, naming its field, and is never
// stored.
TEST_F(FormObserverTest, BadPlacesAndZonesAreRefusedAndNeverStored) {
    const struct {
        const char *lat, *tz, *clockTz, *title, *told;
    } cases[] = {
        {"95:00:00", "-5", "-5", "Latitude Error", "\"95:00:00\""},
        {"39:15:00", "24.5", "-5", "", "You entered an invalid value for Time Zone. Please re-enter."},
        {"39:15:00", "24", "-25", "", "You entered an invalid value for the System Clock Time Zone. Please re-enter."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.told);
        for (auto [box, text] : {std::pair{form->Txtlat, c.lat}, {form->TxtTZ, c.tz}, {form->txtSCTZ, c.clockTz}})
            box->setText(text);
        dialogs.messages.clear();
        EXPECT_TRUE(form->Edited());
        EXPECT_FALSE(Apply());
        ASSERT_EQ(dialogs.messages.size(), 2u);
        EXPECT_EQ(dialogs.messages[0].title, "Update Parameters Message");
        EXPECT_EQ(dialogs.messages[0].buttons, MsgButtons::OKCancel);
        if (*c.title) {
            EXPECT_EQ(dialogs.messages[1].title, c.title);
        }
        EXPECT_TRUE(dialogs.messages[1].text.contains(c.told)) << dialogs.messages[1].text.toStdString();
    }
    EXPECT_EQ(core().ObsLatitude, 39.25f);
    EXPECT_EQ(core().ObsTZ, -5.0);
    EXPECT_EQ(closeForms, 0);

    // Saving a record with a refused longitude writes nothing.
    form->TxtTZ->setText("-5");
    form->TxtLng->setText("400:00:00");
    const QString saved = ReadFile(QString::fromStdString(core().ObFileName));
    form->SaveoB();
    EXPECT_EQ(dialogs.messages.back().title, "Save Error");
    EXPECT_TRUE(dialogs.messages.back().text.contains("longitude"));
    EXPECT_EQ(ReadFile(QString::fromStdString(core().ObFileName)), saved);
}

TEST_F(FormObserverTest, CancelRestoresThePreviousValues) {
    form->Txtlat->setText("-33:52:00");
    form->TxtTZ->setText("10");
    dialogs.answers = {MsgAnswer::Cancel};
    EXPECT_TRUE(Apply());
    ASSERT_EQ(dialogs.messages.size(), 2u);
    EXPECT_EQ(dialogs.messages[1].text, "Previous values restored");
    EXPECT_EQ(form->Txtlat->text() + " " + form->TxtTZ->text(), "39:15:00.0 -5");
    EXPECT_EQ(core().ObsTZ, -5.0);
}

TEST_F(FormObserverTest, ApplyingStoresRebuildsAndClosesTheOtherWindows) {
    const double altBefore = core().Day.DayJupAlt[600];
    form->Txtlat->setText("-33:52:00");
    form->TxtLng->setText("-151:12:00");
    form->TxtTZ->setText("10");
    form->txtSCTZ->setText("10");
    form->chkDetectTZ->setChecked(false);
    form->ChkMakeDefault->setChecked(true);
    EXPECT_TRUE(Apply());
    EXPECT_NEAR(core().ObsLongitude, 208.8f, 1e-4f);
    EXPECT_EQ(core().ClockOffset, 0.0);
    EXPECT_FALSE(core().UseDetectedTZ);
    EXPECT_NE(core().Day.DayJupAlt[600], altBefore);
    EXPECT_EQ(closeForms, 1);
    EXPECT_EQ(settings->get("Startup", "SystemClockTZ"), "10");
    EXPECT_EQ(settings->get("Startup", "UseDetectedTZ"), "False");
    EXPECT_FALSE(form->Edited());
}

TEST_F(FormObserverTest, EastShowsTheOtherWayAndSavesWest) {
    form->cmdEW->click();
    EXPECT_EQ(core().DisplayWest, "E");
    EXPECT_EQ(form->TxtLng->text(), "283:30:00.0");
    core().ObFileName = (programDir + "east.obs").toStdString();
    form->SaveoB();
    EXPECT_EQ(ReadFile(programDir + "east.obs"), "\"39:15:00.0\"\r\n\"76:30:00.0\"\r\n\"-5\"\r\n");
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(FormObserverTest, SaveAndLoadThroughTheFileDialogs) {
    form->Txtlat->setText("51:28:40");
    form->TxtLng->setText("0:00:05");
    form->TxtTZ->setText("0");
    dialogs.paths = {programDir + "greenwich"};
    form->CmdSave->click(); // applies first, then writes, adding the extension
    EXPECT_EQ(ReadFile(programDir + "greenwich.obs"), "\"51:28:40.0\"\r\n\"0:00:05.0\"\r\n\"0\"\r\n");
    EXPECT_EQ(QString::fromStdString(core().ObFileName), programDir + "greenwich.obs");

    dialogs.paths = {programDir + "viewer.obs"};
    form->CmdLoad->click();
    EXPECT_EQ(core().ObsLatitude, 39.25f);
    EXPECT_EQ(form->Txtlat->text(), "39:15:00.0");
    EXPECT_TRUE(form->Edited()); // a loaded record still has to be applied

    dialogs.paths = {""}; // cancelled: nothing changes
    form->CmdLoad->click();
    EXPECT_EQ(QString::fromStdString(core().ObFileName), programDir + "viewer.obs");
}

TEST_F(FormObserverTest, TheMapReadsAndPicksPlaces) {
    MoveOver(form->Picture1, QPoint(160, 80)); // 45 N, 90 W
    EXPECT_EQ(form->LBLLatLng->text(), "Lat: 45:00:00.0   Lng:90:00:00.0 W");
    QTest::mousePress(form->Picture1, Qt::RightButton, {}, QPoint(160, 80));
    EXPECT_EQ(form->Txtlat->text() + " " + form->TxtLng->text(), "45:00:00.0 90:00:00.0");
    form->cmdEW->click();
    MoveOver(form->Picture1, QPoint(480, 80)); // 90 E
    EXPECT_EQ(form->LBLLatLng->text(), "Lat: 45:00:00.0   Lng:90:00:00.0 E");
}

TEST_F(FormObserverTest, CitiesFromTheListFillTheBoxes) {
    WriteFile("latlng.txt", "*Europe\nLondon, United Kingdom\n51.5083\n0.1253\nParis, France\n48.8667\n357.6667\n"
                            "*Oceania\nSydney, Australia\n-33.8667\n208.7833\n");
    form->CmdCities->click();
    ASSERT_EQ(form->ListRegions->count(), 2);
    form->ListRegionsClick("Europe");
    form->ListCitiesClick(form->ListCities->item(2)->text());
    EXPECT_EQ(form->Txtlat->text() + " " + form->TxtLng->text(), "48:52:00.0 357:40:00.1"); // 40' 0.12"
    EXPECT_FALSE(form->ListCities->isVisibleTo(form.get()));
    EXPECT_EQ(form->ListRegions->count(), 0);
    EXPECT_TRUE(form->Edited());
}

TEST_F(FormObserverTest, DetectingTheZoneFillsBothBoxes) {
    clock.biasHours = -5.5; // the computer now runs on 5.5 hours east
    form->chkDetectTZ->setChecked(false);
    form->chkDetectTZ->setChecked(true);
    EXPECT_EQ(form->TxtTZ->text(), "5.5");
    EXPECT_EQ(form->txtSCTZ->text(), "5.5");
}

TEST_F(FormObserverTest, LoadThenCancelLeavesTheObserverAsItWas) {
    WriteFile("far.obs", "\"-33:52:00\"\r\n\"-151:12:00\"\r\n\"10\"\r\n");
    const Core before = core();
    dialogs.paths = {programDir + "far.obs"};
    form->CmdLoad->click();
    EXPECT_NE(core().ObsTZ, before.ObsTZ); // loaded into the boxes and the core
    form->CmdCancel->click();
    EXPECT_EQ(std::tuple(core().ObFileName, core().ObsLatitude, core().ObsTZ, core().ClockOffset),
              std::tuple(before.ObFileName, before.ObsLatitude, before.ObsTZ, before.ClockOffset));

    // A file that does not load is not remembered.
    WriteFile("bad.obs", "abc\r\n1\r\n0\r\n");
    dialogs.paths = {programDir + "bad.obs"};
    form->CmdLoad->click();
    EXPECT_EQ(core().ObFileName, before.ObFileName);
}

TEST_F(FormObserverTest, ApplyThenOKAsksOnce) {
    form->Txtlat->setText("40:00:00");
    ASSERT_TRUE(Apply());
    const size_t asked = dialogs.messages.size();
    form->CmdOK->click();
    EXPECT_EQ(dialogs.messages.size(), asked) << "OK after Apply asked again";
}
