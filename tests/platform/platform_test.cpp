// The seams' real parts that can run here: the program directory and the clock.
#include "platform/program_directory.h"
#include "platform/system_clock.h"

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
    for (const char* f : {"README.md", "icons/x.svg"}) EXPECT_FALSE(QFile::exists(program.filePath(f))) << f;

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
