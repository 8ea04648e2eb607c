// The observer log's lines and files, and its window offscreen.
#include "core/date_value.h"
#include "log/observer_log.h"
#include "station_test.h"
#include "ui/log/observer_log_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>

#include <unistd.h>

using namespace tarvelle;

namespace {

const double k2104 = DateSerial(2026, 11, 19) + TimeSerial(21, 4, 33);

} // namespace

TEST(ObserverLogLines, StampsQuickLinesAndNames) {
    EXPECT_EQ(GetTimeStamp(k2104, "11/19/2026", true), "<21:04:33  11/19/2026 UT>");
    EXPECT_DOUBLE_EQ(LogMoment(k2104, -5.0, true), k2104 + 5.0 / 24.0);
    EXPECT_EQ(LogMoment(k2104, -5.0, false), k2104);

    const QString s = "<S>";
    EXPECT_EQ(JupAltAzLines(s, 8.66, 231.04), "\r\n<S>     Jup Alt: 08.7   Az: 231.0\r\n");
    EXPECT_EQ(CMLIoPhaseLines(s, 81.25f, 7.005f), "\r\n<S>     CML:  81.25   Io Phase: 007.01\r\n");
    EXPECT_EQ(ProposedLogName(k2104), "2611192104JupLog.txt");
}

TEST(ObserverLogFiles, LoadingGivesEveryLineItsLineEnd) {
    QTemporaryDir dir;
    // A saved log comes back as it was; a last line gains its line end; 8-bit text is Latin-1.
    const struct { QByteArray file; const char* text; } cases[] = {
        {"a\r\nb\r\n", "a\r\nb\r\n"}, {"a\r\nb", "a\r\nb\r\n"}, {"a\nb\rc", "a\r\nb\r\nc\r\n"},
        {"\r\n\r\nx", "\r\n\r\nx\r\n"}, {"", ""}, {"caf\xe9", "caf\u00e9\r\n"}};
    for (const auto& c : cases) {
        const QString path = dir.filePath("in.txt");
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(c.file);
        f.close();
        QString text;
        EXPECT_FALSE(LoadLogText(path, text).has_value());
        EXPECT_EQ(text, QString::fromUtf8(c.text)) << c.file.toStdString();
        ASSERT_FALSE(SaveLogText(dir.filePath("out.txt"), text).has_value());
        QString again;
        ASSERT_FALSE(LoadLogText(dir.filePath("out.txt"), again).has_value());
        EXPECT_EQ(again, text) << "round trip of " << c.file.toStdString();
    }
    QString none;
    const auto missing = LoadLogText(dir.filePath("absent.txt"), none);
    const auto noFolder = SaveLogText(dir.filePath("no/such/folder/x.txt"), "x");
    ASSERT_TRUE(missing.has_value() && noFolder.has_value());
    EXPECT_EQ(missing->number, 53);
    EXPECT_EQ(noFolder->number, 76);
}

namespace {

class LogWindowTest : public StationTest {
protected:
    void SetUp() override {
        StationTest::SetUp();
        UseSampleObserver();
        clock.local = k2104;
        log = std::make_unique<FormObserverLog>(*station);
        log->show();
    }
    void TearDown() override {
        log->LogDirty = false;
        log.reset();
    }
    std::unique_ptr<FormObserverLog> log;
};

// Makes a folder that even the super-user cannot write into; false where the system won't.
bool MakeUnwritable(const QString& folder) {
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
    if (geteuid() == 0) QProcess::execute("chattr", {"+i", folder});
    QFile probe(folder + "/probe");
    if (!probe.open(QIODevice::WriteOnly)) return true;
    probe.remove();
    return false;
}

void MakeWritable(const QString& folder) {
    if (geteuid() == 0) QProcess::execute("chattr", {"-i", folder});
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace

TEST_F(LogWindowTest, QuickButtonsAndInsertionsGoAtTheEnd) {
    const QString stamp = "<21:04:33  " + ShortDate(k2104) + ">";
    log->cmdL[2]->click();
    EXPECT_EQ(log->LogText(), stamp + "   Strong  L-Burst\r\n");
    log->txtEntry->moveCursor(QTextCursor::Start); // the cursor's place does not matter
    log->cmdU[0]->click();
    log->cmdS[1]->click();
    EXPECT_TRUE(log->LogText().endsWith("   Weak  Burst of Undetermined Type\r\n" + stamp + "   Medium  S-Burst\r\n"));
    EXPECT_TRUE(log->txtEntry->textCursor().atEnd());
    EXPECT_TRUE(log->LogDirty);

    // With UT on, the stamp moves by the zone and says so.
    log->mnuUseUT->trigger();
    EXPECT_EQ(settings->get("Settings", "OLogUT"), "True");
    log->mnuTimeStamp->trigger();
    EXPECT_TRUE(log->LogText().endsWith("\r\n<02:04:33  " + ShortDate(k2104 + 1) + " UT>\r\n"));

    // Quick panel shown and hidden, the choice kept.
    log->mnuQuickLog->trigger();
    EXPECT_EQ(log->Frame1->isVisible(), log->mnuQuickLog->isChecked());
    EXPECT_EQ(settings->get("Settings", "QuickLog"), log->mnuQuickLog->isChecked() ? "True" : "False");
}

TEST_F(LogWindowTest, SaveReloadAndTheQuestions) {
    // Nothing to save on an empty log.
    EXPECT_FALSE(log->mnuSaveClick());
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].text, "There is nothing to save.");

    log->mnuTimeStamp->trigger();
    log->cmdL[0]->click();
    const QString text = log->LogText();
    const QString path = programDir + "night.txt";
    dialogs.paths = {"", path, path};
    EXPECT_FALSE(log->mnuSaveClick()); // cancelled: the proposed name stays
    EXPECT_EQ(log->LogFileName, "2611192104JupLog.txt");
    ASSERT_TRUE(log->mnuSaveClick());
    EXPECT_EQ(ReadFile(path), text);
    EXPECT_FALSE(log->LogDirty);
    ASSERT_TRUE(log->mnuSaveClick()); // asked again, from the path of the first
    EXPECT_EQ(log->LogFileName, path);

    // New asks first: Cancel keeps the text, No throws it away.
    dialogs.messages.clear();
    dialogs.answers = {MsgAnswer::Cancel, MsgAnswer::No};
    log->mnuNewClick();
    EXPECT_EQ(log->LogText(), text);
    EXPECT_EQ(dialogs.messages[0].text, "Do you want to save " + path + " ?");
    log->mnuNewClick();
    EXPECT_TRUE(log->LogText().isEmpty());
    EXPECT_TRUE(log->LogFileName.isEmpty());

    // Loaded again, the same text (the file forms are checked in ObserverLogFiles).
    dialogs.paths = {path};
    log->mnuLoadClick();
    EXPECT_EQ(log->LogText(), text);

    // Closing with unsaved text: Cancel stays, a Yes whose save is cancelled stays, No closes.
    log->cmdS[2]->click();
    dialogs.messages.clear();
    dialogs.answers = {MsgAnswer::Cancel, MsgAnswer::Yes, MsgAnswer::No};
    dialogs.paths = {""};
    EXPECT_FALSE(log->close());
    EXPECT_FALSE(log->close());
    EXPECT_EQ(dialogs.messages[0].text, "Do you want to save the observer log?\r\n\r\n" + path);
    EXPECT_TRUE(log->close());
}

TEST_F(LogWindowTest, AFailedSaveLeavesTheOldFileWhole) {
    const QString folder = programDir + "locked";
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString path = folder + "/log.txt";
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    ASSERT_EQ(old.write("old night\r\n"), 11);
    old.close();
    if (!MakeUnwritable(folder)) {
        MakeWritable(folder);
        GTEST_SKIP() << "this system lets the test write into any folder";
    }
    log->cmdU[1]->click();
    dialogs.paths = {path};
    const bool saved = log->mnuSaveClick();
    MakeWritable(folder);
    EXPECT_FALSE(saved);
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_TRUE(dialogs.messages[0].text.startsWith("There was an error saving: " + path + "\r\n"));
    EXPECT_TRUE(dialogs.messages[0].text.contains("\r\nError # "));
    EXPECT_EQ(ReadFile(path), "old night\r\n");
    EXPECT_TRUE(log->LogDirty);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList{"log.txt"}) << "no half-written file left";
}
