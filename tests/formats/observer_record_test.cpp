// Observer texts and the observer file: awkward input must read as an observer means it.
#include "doubles.h"
#include "station/file_messages.h"
#include "formats/observer_record.h"

#include "formats/file_io.h"
#include "station/atomic_file.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tarvelle;

namespace {

struct ParseCase {
    const char* text;
    double value; // kRejected when refused
};

std::string WriteFile(const QTemporaryDir& dir, const char* name, const std::string& content) {
    const std::string path = dir.filePath(name).toStdString();
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

} // namespace

TEST(ParseLatitude, FormsSignsAndRange) {
    // "-0:30": negative zero degrees keeps its sign; "39:15,5": a comma as decimal point;
    // "95": plain numbers too stop at the poles.
    const ParseCase cases[] = {{"-33:52:00", -33.866667}, {"39:15", 39.25}, {"39:15:30.5", 39.0 + 15.0 / 60 + 30.5 / 3600},
                               {"-0:30", -0.5}, {"12.5", 12.5}, {"39:15,5", 39.0 + 15.5 / 60}, {"95:00:00", kRejected},
                               {"-90:00:01", kRejected}, {"95", kRejected}, {"-90", -90.0}};
    for (const auto& c : cases) {
        std::string text = c.text;
        EXPECT_NEAR(ParseLatitude(text), c.value, 1e-6) << c.text;
    }
    std::string text = "  45:00  ";
    ParseLatitude(text);
    EXPECT_EQ(text, "45:00"); // trimmed in place
}

TEST(ParseLongitude, WestPositiveEastByMinus) {
    // A plain number is taken as it is, negative or not, and stops at one turn.
    const ParseCase cases[] = {{"-75:00:00", 285.0}, {"-75", -75.0},          {"400", kRejected},
                               {"1e12", kRejected},  {"-360", -360.0},        {"76:30:00.0", 76.5},
                               {"+76:30", 76.5},     {"360:00:00", 360.0},    {"361:00:00", kRejected},
                               {"-0:30", 359.5},     {"120.25", 120.25}};
    for (const auto& c : cases) {
        std::string text = c.text;
        EXPECT_NEAR(ParseLongitude(text), c.value, 1e-9) << c.text;
    }
}

// Latitudes drop residues under 18 arc seconds and lose the sign between -1 and 0; longitudes
// have no 18-second floor, and seconds that round to 60 carry into the minutes and degrees, the
// small negative remainder left behind showing no minus (-75:12:00 east is 284:48:00.0 west).
TEST(FormatObserverText, ResiduesCarriesAndWraps) {
    const std::pair<double, const char*> latitudes[] = {
        {39.25, "39:15:00.0"},          {12.0 + 10.0 / 3600, "12:00:00.0"}, {12.0 + 20.0 / 3600, "12:00:20.0"},
        {-33.8666667, "-33:52:00.0"},   {-0.5, "0:30:00.0"},                {10.999999, "11:00:00.0"}};
    for (const auto& [value, text] : latitudes) EXPECT_EQ(FormatLatitudeText(value), text) << value;
    std::string east = "-75:12:00";
    const std::pair<double, const char*> longitudes[] = {
        {76.5, "76:30:00.0"},   {285.0, "285:00:00.0"},      {359.9999999, "0:00:00.0"},
        {static_cast<float>(360.0 - 75.2), "284:48:00.0"},   {ParseLongitude(east), "284:48:00.0"},
        {0.0, "0:00:00.0"},     {10.0 + 5.0 / 3600, "10:00:05.0"}};
    for (const auto& [value, text] : longitudes) EXPECT_EQ(FormatLongitudeText(value), text) << value;
    // Round trip of the single the core keeps.
    std::string text = FormatLatitudeText(static_cast<float>(51.4778));
    EXPECT_NEAR(ParseLatitude(text), 51.4778, 1e-4);
}

// Quoted or plain items; a byte-order mark is skipped and the texts are kept as typed. What is not
// an observer record is refused, naming the line or the error, and leaves the observer as it was.
// The error numbers of files that cannot be read come from the mode files' reader (mode_file_test).
TEST(LoadObserverFile, SetsTheCoreOrSaysWhyNot) {
    QTemporaryDir dir;
    ScriptedDialogs dialogs;
    Core core;
    core.ObFileName = dir.filePath("gone.obs").toStdString();
    EXPECT_FALSE(LoadObserverFile(core, dialogs));
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].text, "Error 53\n Occurred Loading " + QString::fromStdString(core.ObFileName));

    const struct {
        const char* content;
        const char* said; // the latitude text when it loads
        bool loads;
    } cases[] = {
        {"\xEF\xBB\xBF\"39:15\"\r\n\"-76:30:00.0\"\r\n\"-5\"\r\n", "39:15", true},
        {"39.25, 283.5,-5\n", "39.25", true},
        {"\"39:15\"\n\"76:30\"\n", "Error 62\n Occurred Loading ", false},
        {"abc\r\n10\r\n0\r\n", "Line 1 of ", false},
        {"10\r\n1e309\r\n0\r\n", "Line 2 of ", false},
        {"10\r\n20\r\n99\r\n", "invalid value for Time Zone", false},
        {"95:00:00\r\n20\r\n0\r\n", "The latitude \"95:00:00\"", false},
    };
    for (const auto& c : cases) {
        Core before;
        before.ObFileName = WriteFile(dir, "case.obs", c.content);
        Core loaded = before;
        dialogs.messages.clear();
        EXPECT_EQ(LoadObserverFile(loaded, dialogs), c.loads) << c.content;
        if (c.loads) {
            EXPECT_TRUE(loaded.ObsLatitude == 39.25f && loaded.ObsLongitude == 283.5f &&
                        loaded.ObsTZ == -5.0 && loaded.ObLatText == c.said)
                << c.content;
            continue;
        }
        ASSERT_EQ(dialogs.messages.size(), 1u) << c.content;
        EXPECT_TRUE(dialogs.messages[0].text.contains(c.said)) << dialogs.messages[0].text.toStdString();
        EXPECT_EQ(loaded.ObsLatitude, before.ObsLatitude);
        EXPECT_EQ(loaded.ObLatText, before.ObLatText);
    }
}

// A writer killed in the middle of replacing a file leaves the old file whole.
TEST(WriteFileAtomically, AWriterKilledMidFileLeavesTheOldFileWhole) {
    QTemporaryDir dir;
    const std::string path = WriteFile(dir, "report.txt", "the old report\r\n");
    const std::string temporary = path + ".saving~";
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        WriteFileAtomically(path, std::string(size_t{400} << 20, 'x'));
        _exit(0);
    }
    // Kill it once the new bytes have started to arrive.
    std::error_code ec;
    int status = 0;
    bool finished = false;
    for (int i = 0; i < 20000 && !finished; ++i) {
        if (std::filesystem::exists(temporary, ec) && std::filesystem::file_size(temporary, ec) > (1u << 20)) break;
        finished = waitpid(child, &status, WNOHANG) == child;
        usleep(500);
    }
    if (finished) GTEST_SKIP() << "the writer finished before it could be stopped";
    kill(child, SIGKILL);
    waitpid(child, &status, 0);
    std::ifstream in(path, std::ios::binary);
    const std::string kept((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(kept, "the old report\r\n");
}

namespace {

// Makes the disk under folder full for this process: a 64 KiB file system of its own (in a
// mount namespace) or, where the machine allows no such thing, a limit on the size of files.
bool FillTheDisk(const std::string& folder, bool ownFileSystem) {
    if (!ownFileSystem) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{32768, 32768};
        return setrlimit(RLIMIT_FSIZE, &limit) == 0;
    }
    const std::string uid = std::to_string(getuid()), gid = std::to_string(getgid());
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " << uid << " 1";
    std::ofstream("/proc/self/gid_map") << "0 " << gid << " 1";
    return mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=64k") == 0;
}

} // namespace

// A save that meets a full disk says why and leaves the old file whole, with no leftover, for
// both writers: the one of tarvelle-cli and the files, and the one of the windows. Each case
// runs in a child process, which reports the first check that failed by its exit status.
TEST(WriteFileAtomically, AFullDiskLeavesTheOldFileWholeAndSaysWhy) {
    enum Exit { Passed = 0, Claimed = 1, Silent = 2, OldFileChanged = 3, LeftOver = 4, Unfillable = 77 };
    for (const bool ownFileSystem : {true, false})
        for (const bool qtWriter : {false, true}) {
            SCOPED_TRACE(std::string(ownFileSystem ? "full file system" : "file size limit") +
                         (qtWriter ? ", window writer" : ", file writer"));
            QTemporaryDir dir;
            const std::string folder = dir.filePath("disk").toStdString();
            std::filesystem::create_directory(folder);
            const std::string path = folder + "/observer log.txt", old = "the old log\r\n";
            const std::string bytes(size_t{200} << 10, 'x');
            const pid_t child = fork();
            ASSERT_GE(child, 0);
            if (child == 0) {
                if (!FillTheDisk(folder, ownFileSystem)) _exit(Unfillable);
                std::ofstream(path, std::ios::binary) << old;
                QString qtError;
                FileFailure failure;
                if (qtWriter) {
                    if (SaveFileAtomically(QString::fromStdString(path), bytes, qtError)) _exit(Claimed);
                    failure.description = qtError.toStdString();
                } else {
                    failure = WriteFileAtomically(path, bytes);
                    if (failure.number == 0) _exit(Claimed);
                }
                if (failure.description.empty()) _exit(Silent);
                std::ifstream in(path, std::ios::binary);
                if (std::string(std::istreambuf_iterator<char>(in), {}) != old) _exit(OldFileChanged);
                int files = 0;
                for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) ++files;
                _exit(files == 1 ? Passed : LeftOver);
            }
            int status = 0;
            waitpid(child, &status, 0);
            ASSERT_TRUE(WIFEXITED(status));
            if (WEXITSTATUS(status) == Unfillable) {
                EXPECT_TRUE(ownFileSystem) << "a file size limit can always be set";
                continue; // no mount namespace here; the file size limit still runs
            }
            EXPECT_EQ(WEXITSTATUS(status), Passed);
        }
}
