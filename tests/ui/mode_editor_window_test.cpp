// Form4 and the File menu's mode file commands, driven through named controls, with file
// dialogs and messages scripted by the dialog double.
#include "ui/prediction/mode_commands.h"
#include "ui/prediction/mode_editor_window.h"
#include "formats/mode_file.h"
#include "station_test.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <memory>

using namespace tarvelle;

namespace {

class ModeEditorTest : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        ModeTableState& m = modes();
        m.ModeFileName = (programDir + "UFMODES.JMF").toStdString();
        m.NumModes = 3;
        const char* names[] = {"Io-A", "Io-B", "wrap"};
        const int16_t rows[][4] = {{200, 270, 195, 265}, {105, 185, 75, 105}, {350, 10, 0, 360}};
        for (int i = 1; i <= 3; ++i) {
            m.ModeName[i] = names[i - 1];
            for (int c = 1; c <= 4; ++c) m.ModeTable[i][c] = rows[i - 1][c - 1];
        }
        m.ModesLoaded = true;
    }
    ModeTableState& modes() { return station->modes; }
    QByteArray Read(const QString& path) {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    QString StoredModeFile() { return settings->get("Startup", "ModeFileName", "unset"); }
};

} // namespace

TEST_F(ModeEditorTest, ShowsTheTableApplyTakesTheRowsAndDiscardAndExitLeaveIt) {
    {
        Form4 form(*station);
        ASSERT_EQ(form.txtName.size(), 10);
        const auto row = [&form](int i) {
            return form.txtName[i]->text() + " " + form.txtCMLs[i]->text() + " " + form.txtCMLe[i]->text();
        };
        EXPECT_EQ(row(2), "wrap 350 10");
        EXPECT_EQ(row(3), "  "); // rows beyond NumModes stay empty
        form.txtCMLs[0]->setText("12.5");
        form.txtName[1]->setText("renamed");
        form.CmdCancel->click();
        form.MnuExit->trigger();
    }
    EXPECT_EQ(modes().ModeTable[1][CML1], 200);
    EXPECT_EQ(modes().ModeName[2], "Io-B");

    Form4 form(*station);
    form.txtCMLs[0]->setText("12.5");
    form.txtCMLe[0]->setText("13.5");
    form.txtIoS[1]->setText("none");
    form.txtName[3]->setText("below");
    form.txtName[2]->setText(" ");
    form.CmdKeep->click();
    EXPECT_EQ(modes().NumModes, 2);
    EXPECT_EQ(modes().ModeTable[1][CML1], 12);
    EXPECT_EQ(modes().ModeTable[1][CML2], 14);
    EXPECT_EQ(modes().ModeTable[2][IoP1], 0);
    EXPECT_EQ(modes().ModeName[4], "");
}

TEST_F(ModeEditorTest, SaveInTheEditorMovesTheModeFileAndTheSettingButTheMenuSaveDoesNot) {
    const QString menuCopy = programDir + "copy.jmf";
    dialogs.paths = {menuCopy};
    MnuSaveModeFileClick(*station);
    EXPECT_EQ(QString::fromStdString(modes().ModeFileName), programDir + "UFMODES.JMF");
    EXPECT_EQ(StoredModeFile(), "unset");
    EXPECT_TRUE(Read(menuCopy).startsWith("Io-A\r\n 200 \r\n 270 \r\n 195 \r\n 265 \r\nIo-B\r\n")); // layout: ModeFileTest

    Form4 form(*station);
    form.show();
    form.txtCMLs[2]->setText("340");
    dialogs.paths = {""}; // cancelled: the edits are applied but nothing is written
    form.CmdSave->click();
    EXPECT_EQ(modes().ModeTable[3][CML1], 340);
    EXPECT_EQ(QString::fromStdString(modes().ModeFileName), programDir + "UFMODES.JMF");

    const QString mine = programDir + "mine.jmf";
    dialogs.paths = {mine};
    form.CmdSave->click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(QString::fromStdString(modes().ModeFileName), mine);
    EXPECT_EQ(StoredModeFile(), mine);
    EXPECT_TRUE(Read(mine).contains("wrap\r\n 340 \r\n 10 \r\n"));
    EXPECT_TRUE(dialogs.messages.empty());

    // A failed write keeps the setting where it was.
    dialogs.paths = {programDir + "missing/other.jmf"};
    form.CmdSave->click();
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_TRUE(
        dialogs.messages[0].text.startsWith("Error 76 Occurred Saving " + programDir + "missing/other.jmf."));
    EXPECT_EQ(StoredModeFile(), mine);
}

TEST_F(ModeEditorTest, LoadStoresTheSettingOnlyWhenTheFileLoaded) {
    dialogs.paths = {""};
    MnuLoadModeFileClick(*station);
    EXPECT_EQ(modes().NumModes, 3);
    EXPECT_EQ(StoredModeFile(), "unset");

    WriteFile("bad.jmf", "Io-A\r\n 200 \r\n");
    dialogs.paths = {programDir + "bad.jmf"};
    const std::string before = modes().ModeFileName;
    MnuLoadModeFileClick(*station);
    EXPECT_EQ(modes().ModeFileName, before); // a file that failed is not remembered
    EXPECT_EQ(StoredModeFile(), "unset");
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].title, "FILE ERROR!");

    const QString good = programDir + "good.jmf";
    WriteFile("good.jmf", "only\r\n 1 \r\n 2 \r\n 3 \r\n 4 \r\n");
    dialogs.paths = {good};
    MnuLoadModeFileClick(*station);
    EXPECT_EQ(modes().NumModes, 1);
    EXPECT_EQ(modes().ModeName[1], "only");
    EXPECT_EQ(StoredModeFile(), good);
    EXPECT_EQ(dialogs.messages.size(), 1u);
}

// Six modes load silently; more are loaded and told about, as only six are predicted.
TEST_F(ModeEditorTest, AFileOfMoreThanSixModesIsToldAboutOnLoad) {
    for (const int count : {6, 8}) {
        WriteFile("many.jmf", QByteArray("m\r\n 1 \r\n 2 \r\n 3 \r\n 4 \r\n").repeated(count));
        dialogs.paths = {programDir + "many.jmf"};
        dialogs.messages.clear();
        MnuLoadModeFileClick(*station);
        EXPECT_EQ(modes().NumModes, count);
        ASSERT_EQ(dialogs.messages.size(), count > 6 ? 1u : 0u) << count;
    }
    EXPECT_TRUE(dialogs.messages[0].text.contains("holds 8 modes"));
    EXPECT_TRUE(dialogs.messages[0].text.contains("Only the first six are predicted"));
}

TEST_F(ModeEditorTest, TheEditCommandOpensTheEditorModally) {
    bool sawEditor = false;
    QTimer::singleShot(0, [&] {
        auto* form = qobject_cast<Form4*>(QApplication::activeModalWidget());
        if (!form) return;
        sawEditor = true;
        form->txtName[0]->setText("edited");
        form->CmdKeep->click();
    });
    QTimer::singleShot(2000, [] { // never leave the test hanging on a modal window
        if (QWidget* w = QApplication::activeModalWidget()) w->close();
    });
    MnuEditModeFileClick(*station, nullptr);
    EXPECT_TRUE(sawEditor);
    EXPECT_EQ(modes().ModeName[1], "edited");
}

TEST_F(ModeEditorTest, PrintWritesTheWindowToTheChosenPrinter) {
    Form4 form(*station);
    form.show();
    dialogs.printToPdf = programDir + "form4.pdf";
    form.MnuPrint->trigger();
    const QByteArray pdf = Read(dialogs.printToPdf);
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    EXPECT_GT(pdf.size(), 1000);
    EXPECT_TRUE(dialogs.messages.empty());
}
