// The seams' real parts that can run here: the program directory, the clock, file filters.
#include "platform/clock_source.h"
#include "platform/dialogs.h"
#include "platform/program_directory.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimeZone>

using namespace tarvelle;

namespace {

void Write(const QString& path, const QByteArray& content) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(content);
}

QByteArray Read(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

TEST(ProgramDirectory, FillsWhatIsMissingAndKeepsWhatTheUserChanged) {
    QTemporaryDir bundled, program;
    Write(bundled.filePath("viewer.obs"), "bundled observer");
    Write(bundled.filePath("UFMODES.JMF"), "bundled modes");
    Write(bundled.filePath("Antennas/dipole.ant"), "bundled antenna");
    Write(bundled.filePath("README.md"), "notes");
    Write(bundled.filePath("icons/x.svg"), "<svg/>");
    Write(program.filePath("viewer.obs"), "my observer");

    QStringList copied = FillProgramDirectory(bundled.path(), program.path() + "/");
    copied.sort();
    EXPECT_EQ(copied, QStringList({"Antennas/dipole.ant", "UFMODES.JMF"}));
    EXPECT_EQ(Read(program.filePath("viewer.obs")), "my observer");
    EXPECT_EQ(Read(program.filePath("Antennas/dipole.ant")), "bundled antenna");
    EXPECT_FALSE(QFile::exists(program.filePath("README.md")));
    EXPECT_FALSE(QFile::exists(program.filePath("icons/x.svg")));

    // The copies can be changed by the user, and a second start leaves them so.
    Write(program.filePath("UFMODES.JMF"), "my modes");
    EXPECT_TRUE(FillProgramDirectory(bundled.path(), program.path() + "/").isEmpty());
    EXPECT_EQ(Read(program.filePath("UFMODES.JMF")), "my modes");
    EXPECT_TRUE(FillProgramDirectory(QString(), program.path()).isEmpty());
}

TEST(SystemClock, AgreesWithTheSystemZoneAndReadsWholeSeconds) {
    SystemClock clock;
    const double bias = clock.ClockTimeZoneBias();
    const int offset = QTimeZone::systemTimeZone().offsetFromUtc(QDateTime::currentDateTime());
    EXPECT_DOUBLE_EQ(bias, -offset / 3600.0);
    const double now = clock.LocalNow();
    EXPECT_NEAR(now * 86400.0, std::round(now * 86400.0), 1e-3); // whole seconds
    const auto seconds = static_cast<double>(QDateTime::currentDateTime().toSecsSinceEpoch());
    const double expected = seconds / 86400.0 + 25569.0 + offset / 86400.0;
    EXPECT_NEAR(now, expected, 3.0 / 86400.0);
}

TEST(QtDialogs, FiltersBecomeQtNameFilters) {
    EXPECT_EQ(QtDialogs::QtFilter("Observer File|*.obs|Any|*.*"), "Observer File (*.obs);;Any (*.*)");
    EXPECT_EQ(QtDialogs::QtFilter("Pictures|*.bmp;*.gif"), "Pictures (*.bmp *.gif)");
}

TEST(ScriptedDialogs, AnswersInOrderThenDefaults) {
    ScriptedDialogs d;
    d.answers = {MsgAnswer::Cancel};
    d.inputs = {QString("12:00:00")};
    d.paths = {"/tmp/a.obs", ""};
    EXPECT_EQ(d.Message("a", "t", MsgButtons::OKCancel, MsgIcon::None), MsgAnswer::Cancel);
    EXPECT_EQ(d.Message("b", "t", MsgButtons::OKCancel, MsgIcon::None), MsgAnswer::OK);
    EXPECT_EQ(d.Message("c", "t", MsgButtons::YesNo, MsgIcon::Question), MsgAnswer::Yes);
    EXPECT_EQ(d.Input("p", "t", ""), QString("12:00:00"));
    EXPECT_FALSE(d.Input("p", "t", ""));
    EXPECT_EQ(d.OpenFile("t", "", ""), "/tmp/a.obs");
    EXPECT_EQ(d.SaveFile("t", "", ""), "");
    EXPECT_EQ(d.ChooseDirectory("t", ""), "");
    ASSERT_EQ(d.messages.size(), 3u);
    EXPECT_EQ(d.messages[2].icon, MsgIcon::Question);
}
