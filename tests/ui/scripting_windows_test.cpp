// The windows of scripts and automation, offscreen: the Script Builder's editing and saving,
// the parameters window's checks and what it saves, and the station window's automation
// commands.
#include "station_test.h"

#include "core/date_value.h"
#include "formats/script_file.h"
#include "scripting/automation.h"
#include "ui/main/main_window.h"
#include "ui/scripting/parameters_window.h"
#include "ui/scripting/script_builder_window.h"
#include "ui/scripting/script_runner.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

using namespace tarvelle;

namespace {

using ScriptBuilder = StationTest;

TEST_F(ScriptBuilder, EditsLinesFromTemplatesAndSavesThemWithComments) {
    WriteFile("Commands.txt", "PAUSE (10)\r\nEXIT\r\n");
    WriteFile("in.scp", "\\\\ keep me\r\nAB\r\nA = (1)\r\n");
    FormScripter form(*station);
    ASSERT_EQ(form.ListCmd->count(), 2);
    form.CmdDelete->click(); // an empty list: nothing happens
    form.CmdEdit->click();
    ASSERT_TRUE(form.LoadScriptFile(programDir + "in.scp"));
    form.ListCmd->setCurrentRow(0);
    form.CmdAddCmd->click();   // PAUSE at the end
    form.CmdDelete->click();   // no line clicked yet: the first goes
    form.ListCmd->setCurrentRow(1);
    emit form.ComboScript->activated(1);
    EXPECT_EQ(form.LBLindex->text(), "Line : 2");
    form.CmdInsert->click();   // EXIT before line 2
    form.ComboScript->lineEdit()->setText("A = (2)");
    emit form.ComboScript->activated(2);
    form.ComboScript->lineEdit()->setText("A = (3)");
    form.CmdEdit->click();
    EXPECT_TRUE(form.ScriptChanged);

    dialogs.paths = {programDir + "out.scp"};
    form.CmdSave->click();
    EXPECT_FALSE(form.ScriptChanged);
    EXPECT_EQ(form.windowTitle(), "Script Builder : " + programDir + "out.scp");
    const std::vector<std::string> expected = {"AB", "EXIT", "A = (3)", "PAUSE (10)"};
    EXPECT_EQ(ReadScriptText((programDir + "out.scp").toStdString()), expected);
}

TEST_F(ScriptBuilder, ANewScriptProposesANameFromTodayAndCancelKeepsItUnsaved) {
    FormScripter form(*station); // no Commands.txt: an empty list
    form.CmdNew->click();
    form.ComboScript->addItem("EXIT");
    form.ScriptChanged = true;
    dialogs.paths = {""};
    form.CmdSave->click();
    EXPECT_TRUE(form.ScriptChanged);
    EXPECT_EQ(form.BuilderFileName, "112226*.scp");
}

class Parameters : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        UseSampleObserver();
        station->modes.ModesLoaded = true;
        station->modes.NumModes = 2;
        station->modes.ModeName[1] = "Io-A";
        station->modes.ModeName[2] = "Io-B";
        WriteFile("one.scp", "EXIT\n");
        host = std::make_unique<QuietScriptHost>();
        script = std::make_unique<ScriptInterpreter>(*station, *host, devices);
        task = std::make_unique<AutomationTask>(*station, *script);
    }
    QString Saved(const char* key) { return settings->get("Tasks", key, "<none>"); }

    RecordingScriptDevices devices;
    std::unique_ptr<QuietScriptHost> host;
    std::unique_ptr<ScriptInterpreter> script;
    std::unique_ptr<AutomationTask> task;
};

TEST_F(Parameters, OkChecksInOrderAndSavesWhatPassed) {
    FormParameters form(*station, *task, "Tarvelle");
    form.ChkMode[1]->click(); // saved at once
    EXPECT_EQ(Saved("Mode2Task"), " 1");

    const struct {
        std::function<void()> edit;
        const char* title; // of the message that stops OK; empty when OK goes through
    } steps[] = {
        {[&] { form.TxtJupAlt2->setText("95"); }, "Altitude Error"},
        {[&] { form.TxtJupAlt2->setText("40"); form.TxtJupAz1->setText("200"); form.TxtJupAz2->setText("200"); },
         "Altitude Error"},
        {[&] { form.TxtJupAz2->setText("100"); form.ChkRunScript[1]->click(); }, "Script File Missing"},
        {[&] { form.TxtScriptFileName[1]->setText(programDir + "one.scp"); form.ChkAltChanges->click();
               form.TxtAltChange->setText("0"); }, "Tarvelle"},
        {[&] { form.TxtAltChange->setText("7.5"); form.OptSun->click(); }, ""},
    };
    for (const auto& s : steps) {
        const size_t before = dialogs.messages.size();
        s.edit();
        form.cmdOK->click();
        if (*s.title == '\0') {
            EXPECT_EQ(dialogs.messages.size(), before);
        } else {
            ASSERT_EQ(dialogs.messages.size(), before + 1);
            EXPECT_EQ(dialogs.messages.back().title, s.title);
        }
    }
    EXPECT_EQ(dialogs.messages[2].text, "The Third Script File you have indicated cannot be found.");
    EXPECT_EQ(Saved("JupAlt2"), " 40");
    EXPECT_EQ(Saved("JupAz1"), " 100"); // exchanged so that the first is the smaller
    EXPECT_EQ(Saved("JupAz2"), " 200");
    EXPECT_EQ(Saved("RunScript2"), "1");
    EXPECT_EQ(Saved("AltChangeDeg"), "7.5");
    EXPECT_EQ(Saved("AltChanges"), "1");
    EXPECT_EQ(Saved("AltAzTarget"), "1");
    EXPECT_EQ(task->p.AltChangeDeg, 7.5f);
    EXPECT_EQ(form.result(), QDialog::Accepted);
}

TEST_F(Parameters, ATaskDateInThePastIsRefusedAndDoDailyWins) {
    FormParameters form(*station, *task, "Tarvelle");
    form.ChkDoOnThisDate->click();
    EXPECT_EQ(Saved("DoOnThisDate"), " 1");
    for (auto [box, text] : {std::pair{form.txtY, "2026"}, {form.txtM, "11"}, {form.txtD, "21"}}) box->setText(text);
    form.cmdOK->click();
    ASSERT_FALSE(dialogs.messages.empty());
    EXPECT_EQ(dialogs.messages.back().title, "Task Date Expired");
    form.txtD->setText("23");
    form.txtH->setText("30"); // written back as 23
    form.cmdOK->click();
    EXPECT_EQ(form.txtH->text(), "23");
    EXPECT_EQ(Saved("TaskDate"), "2026/11/23");
    EXPECT_EQ(Saved("TaskTime"), "23:00:00");
    form.ChkDoDaily->click();
    EXPECT_FALSE(form.ChkDoOnThisDate->isChecked());
    EXPECT_EQ(Saved("DoOnThisDate"), " 0");
}

using StationAutomation = StationTest;

TEST_F(StationAutomation, ActivateSwapsTheButtonsAndReportsOnTheStatusLine) {
    UseSampleObserver();
    Form1 form(*station);
    form.Load();
    QAction* activate = form.findChild<QAction*>("MnuActivate");
    activate->trigger();
    EXPECT_EQ(dialogs.messages.back().title, "No Tasks Selected");
    EXPECT_FALSE(activate->isChecked());
    form.Scripts().Task().p.RunScript[4] = true;
    form.cmdRunAutomation->click();
    EXPECT_TRUE(activate->isChecked());
    EXPECT_EQ(form.LBLQ->text(), "  Automation Started");
    form.cmdStopAutomation->click();
    EXPECT_FALSE(activate->isChecked());
    EXPECT_EQ(form.LBLQ->text(), "  Automation Stopped");

    // A script from the menu reports on the status line.
    WriteFile("menu.scp", "A = (3)\nEXIT\n");
    dialogs.paths = {programDir + "menu.scp"};
    form.findChild<QAction*>("MnuRunScript")->trigger();
    EXPECT_EQ(form.LBLQ->text(), "Script " + programDir + "menu.scp   Finished");
    EXPECT_TRUE(form.Timer1()->isActive());
}

} // namespace
