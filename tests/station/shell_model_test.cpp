// Error texts, the path helpers and the breadth-first walk of a folder.
#include "formats/error_text.h"
#include "station/shell_paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
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
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "tarvelle-paths-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        root = pattern;
    }
    void TearDown() override {
        std::error_code ec;
        fs::remove_all(root, ec);
    }
    void File(const std::string& relative) {
        const fs::path p = fs::path(root) / relative;
        fs::create_directories(p.parent_path());
        std::ofstream(p) << "x";
    }
    void Folder(const std::string& relative) { fs::create_directories(fs::path(root) / relative); }

    std::string root;
};

} // namespace

TEST(ErrorText, KnownNumbersReadAsTheirSentences) {
    const std::pair<int, const char*> cases[] = {
        {6, "OverFlow"},           {53, "File Not Found"},
        {57, "Device I/O Error"},  {62, "Input Past End of File"},
        {70, "Permission Denied"}, {74, "Can't Rename with Different Drive"},
        {76, "Path Not Found"},    {453, "Specified DLL Function Can't Be Found"},
        {482, "Printer Error"},
    };
    for (const auto& [n, text] : cases) EXPECT_EQ(ErrorText(n), text) << n;
}

TEST(ErrorText, CommPortTextHasCarriageReturnsAlone) {
    const std::string t = ErrorText(380);
    EXPECT_EQ(t,
              "If this error occurs when accessing\ra Comm Port, a bad Comm paramter\rshould be suspected.");
    EXPECT_EQ(t.find('\n'), std::string::npos);
}

TEST(ErrorText, OtherNumbersCarryTheStrForm) {
    EXPECT_EQ(ErrorText(999), "Error # 999");
    EXPECT_EQ(ErrorText(0), "Error # 0");
    EXPECT_EQ(ErrorText(5), "Error # 5"); // between two numbers of the table
    EXPECT_EQ(ErrorText(381), "Error # 381");
    EXPECT_EQ(ErrorText(-3), "Error #-3"); // a minus takes the blank's place
}

TEST(ShellPaths, StripTrailingSlashTakesOffEveryOne) {
    EXPECT_EQ(StripTrailingSlash("/home/obs/Antennas//"), "/home/obs/Antennas");
    EXPECT_EQ(StripTrailingSlash("/home/obs/Antennas/"), "/home/obs/Antennas");
    EXPECT_EQ(StripTrailingSlash("/home/obs/Antennas"), "/home/obs/Antennas");
    EXPECT_EQ(StripTrailingSlash("a//b"), "a//b"); // only the end
    EXPECT_EQ(StripTrailingSlash("//"), "");
    EXPECT_EQ(StripTrailingSlash(""), "");
}

TEST(ShellPaths, LastPathPartIsTheFileName) {
    EXPECT_EQ(LastPathPart("/home/obs/Antennas/dipole.ant"), "dipole.ant");
    EXPECT_EQ(LastPathPart("dipole.ant"), "dipole.ant"); // no separator: the text itself
    EXPECT_EQ(LastPathPart("/dipole.ant"), "dipole.ant");
    EXPECT_EQ(LastPathPart("Antennas/"), "");
    EXPECT_EQ(LastPathPart(""), "");
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
    EXPECT_EQ(folders, 4); // empty, m, z, m/n
    EXPECT_EQ(count, 5);   // counts start at 0; the list is appended to
}

TEST_F(TempTree, ListFilesOfAMissingFolderFindsNothing) {
    std::vector<std::string> files;
    int folders = 7, count = 7;
    ListFiles(root + "/nowhere", files, folders, count);
    EXPECT_TRUE(files.empty());
    EXPECT_EQ(folders, 0);
    EXPECT_EQ(count, 0);
}

TEST_F(TempTree, ListFilesDoesNotLoopThroughALinkBackUp) {
    File("top.ant");
    File("sub/inner.ant");
    fs::create_directory_symlink(root, fs::path(root) / "sub" / "back");

    std::vector<std::string> files;
    int folders = 0, count = 0;
    ListFiles(root, files, folders, count);
    EXPECT_EQ(files, (std::vector<std::string>{root + "/top.ant", root + "/sub/inner.ant"}));
    EXPECT_EQ(folders, 1);
    EXPECT_EQ(count, 2);
}

TEST_F(TempTree, MakeFolderCreatesParentsOrSaysWhy) {
    std::string error;
    EXPECT_TRUE(MakeFolder(root + "/logs/2026/nov", error));
    EXPECT_TRUE(fs::is_directory(root + "/logs/2026/nov"));
    EXPECT_TRUE(MakeFolder(root + "/logs", error)); // already there

    File("plain");
    EXPECT_FALSE(MakeFolder(root + "/plain/sub", error));
    EXPECT_NE(error.find("could not create folder " + root + "/plain/sub"), std::string::npos) << error;
    EXPECT_FALSE(MakeFolder(root + "/plain", error)); // a file stands there
    EXPECT_FALSE(MakeFolder("", error));
}
