// The server's options window and the prediction chart's view command, offscreen.
#include "core/date_value.h"
#include "server/jis_server.h"
#include "station_test.h"
#include "ui/main/main_window.h"
#include "ui/prediction/prediction_window.h"
#include "ui/server/server_options_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <memory>

using namespace tarvelle;

namespace {

class ServerWindowsTest : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        form = std::make_unique<Form1>(*station);
        form->Load();
    }
    std::unique_ptr<Form1> form;
};

} // namespace

TEST_F(ServerWindowsTest, OptionsTakeSaveAndRunTheServer) {
    form->mnuJIS->trigger();
    auto* options = form->findChild<FormServerOptions*>();
    ASSERT_NE(options, nullptr);
    FormServerOptions& w = *options;

    // A port that does not fit 16 bits is refused, and nothing is taken.
    w.txtPort->setText("40000");
    w.chkSun->setChecked(false);
    w.CmdSave->click();
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_TRUE(dialogs.messages[0].text.contains("32767"));
    EXPECT_TRUE(station->server.JISsun);
    EXPECT_TRUE(settings->get("Settings", "JISPort").isEmpty());

    // Taken and saved (the keys' texts are checked in jis_block_test).
    w.txtPort->setText("0");
    w.txtIP->setText("127.0.0.1");
    w.CmdSave->click();
    ASSERT_EQ(dialogs.messages.size(), 2u);
    EXPECT_EQ(dialogs.messages[1].text, "JIS Settings Saved.");
    EXPECT_FALSE(station->server.JISsun);
    EXPECT_EQ(settings->get("Settings", "JISsun"), "False");

    // Start and stop from the window; the state follows.
    w.cmdRun->click();
    EXPECT_TRUE(form->JISRunning());
    w.cmdRun->click();
    EXPECT_FALSE(form->JISRunning());

    // A start that fails says why on the window and on the status line.
    w.txtIP->setText("192.0.2.77");
    w.cmdTest->click();
    EXPECT_FALSE(form->JISRunning());
    EXPECT_EQ(w.LBLCS->text(), "JIS is not Running");
    EXPECT_FALSE(w.LBLFailure->text().isEmpty());
}

TEST_F(ServerWindowsTest, TheChartsRightButtonShowsTheViewsAtThatMoment) {
    UseSampleObserver();
    form->MnuPrediction->trigger();
    auto* chart = form->findChild<Form3*>();
    ASSERT_NE(chart, nullptr);
    chart->PredictDate = DateSerial(2017, 9, 22);
    chart->Picture1RightButton(6 * 3600.0f);
    chart->mnuShowForThisTime->trigger();
    EXPECT_FALSE(core().RealTimeMode);
    EXPECT_EQ(station->fixed.FixedUT, DateSerial(2017, 9, 22) + 0.25);
    QWidget* plane = Form1::TaggedWindow("cmio");
    ASSERT_NE(plane, nullptr) << "the plane was opened";
    for (const char* tag : {"altaz", "skymap"}) EXPECT_NE(Form1::TaggedWindow(tag), nullptr) << tag;

    // An open plane is brought along, not opened twice.
    form->ShowForThisTime(DateSerial(2017, 9, 23), false);
    EXPECT_EQ(Form1::TaggedWindow("cmio"), plane);
    plane->close();
    QApplication::processEvents();
    form->ShowForThisTime(DateSerial(2017, 9, 24), false);
    EXPECT_EQ(Form1::TaggedWindow("cmio"), nullptr) << "not opened when not asked";
}
