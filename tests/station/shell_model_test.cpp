// Error texts, the path helpers and the breadth-first walk of a folder.
#include "formats/error_text.h"
#include "station/shell_paths.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

using namespace tarvelle;
namespace fs = std::filesystem;

namespace {

// A fresh folder under the system's temporary folder, removed with the test.
class TempTree : public ::testing::Test {
protected:
    void File(const std::string& relative) {
        const fs::path p = fs::path(root) / relative;
        fs::create_directories(p.parent_path());
        std::ofstream(p) << "x";
    }
    void Folder(const std::string& relative) { fs::create_directories(fs::path(root) / relative); }

    QTemporaryDir dir;
    std::string root = dir.path().toStdString();
};

} // namespace

// Known numbers read as their sentences (the first and last of the table here, not a copy of
// it); the comm port's has carriage returns alone; other numbers carry the Str form, a minus
// taking the blank's place.
TEST(ErrorText, KnownNumbersReadAsTheirSentencesOthersAsNumbers) {
    const std::pair<int, const char*> cases[] = {
        {6, "OverFlow"}, {482, "Printer Error"}, {5, "Error # 5"}, {381, "Error # 381"}, {-3, "Error #-3"},
        {380, "If this error occurs when accessing\ra Comm Port, a bad Comm paramter\rshould be suspected."},
    };
    for (const auto& [n, text] : cases) EXPECT_EQ(ErrorText(n), text) << n;
}

TEST(ShellPaths, StripTrailingSlashAndLastPathPart) {
    // Every trailing slash goes, and only those at the end.
    const std::pair<const char*, const char*> strip[] = {
        {"/home/obs/Antennas//", "/home/obs/Antennas"}, {"a//b", "a//b"}, {"//", ""}, {"", ""}};
    for (const auto& [path, stripped] : strip) EXPECT_EQ(StripTrailingSlash(path), stripped) << path;
    // The file name; with no separator, the text itself.
    const std::pair<const char*, const char*> last[] = {
        {"/home/obs/Antennas/dipole.ant", "dipole.ant"}, {"dipole.ant", "dipole.ant"}, {"Antennas/", ""}};
    for (const auto& [path, name] : last) EXPECT_EQ(LastPathPart(path), name) << path;
}

TEST_F(TempTree, ListFilesWalksBreadthFirstInNameOrder) {
    File("b.ant");
    File("a.ant");
    Folder("empty");
    File("m/x.ant");
    File("m/n/y.ant");
    File("z/deep.ant");

    std::vector<std::string> files{"kept"};
    int folders = 99, count = 99;
    ListFiles(root, files, folders, count);
    // z/deep.ant lies one level down and comes before m/n/y.ant two levels down, though "m"
    // sorts before "z": a depth-first walk would get this wrong.
    const std::vector<std::string> expected{"kept",
                                            root + "/a.ant",
                                            root + "/b.ant",
                                            root + "/m/x.ant",
                                            root + "/z/deep.ant",
                                            root + "/m/n/y.ant"};
    EXPECT_EQ(files, expected);
    EXPECT_TRUE(folders == 4 && count == 5); // empty, m, z, m/n; counts start at 0, the list is appended to

    // A missing folder finds nothing and sets the counts to 0.
    std::vector<std::string> none;
    ListFiles(root + "/nowhere", none, folders, count);
    EXPECT_TRUE(none.empty() && folders == 0 && count == 0);
}

TEST_F(TempTree, ListFilesDoesNotLoopThroughALinkBackUp) {
    File("top.ant");
    File("sub/inner.ant");
    fs::create_directory_symlink(root, fs::path(root) / "sub" / "back");

    std::vector<std::string> files;
    int folders = 0, count = 0;
    ListFiles(root, files, folders, count);
    EXPECT_EQ(files, (std::vector<std::string>{root + "/top.ant", root + "/sub/inner.ant"}));
    EXPECT_TRUE(folders == 1 && count == 2);
}

TEST_F(TempTree, MakeFolderCreatesParentsOrSaysWhy) {
    std::string error;
    EXPECT_TRUE(MakeFolder(root + "/logs/2026/nov", error));
    EXPECT_TRUE(fs::is_directory(root + "/logs/2026/nov"));
    EXPECT_TRUE(MakeFolder(root + "/logs", error)); // already there

    File("plain");
    EXPECT_FALSE(MakeFolder(root + "/plain/sub", error));
    EXPECT_NE(error.find("could not create folder " + root + "/plain/sub"), std::string::npos) << error;
    EXPECT_FALSE(MakeFolder(root + "/plain", error) || MakeFolder("", error)); // a file stands there
}
