// Mode files read and written through real files, and the editor's read-back of its rows.
#include "formats/mode_file.h"
#include "station/file_messages.h"
#include "doubles.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <sys/stat.h>

#include <fstream>
#include <sstream>

using namespace tarvelle;

namespace {

using Row = std::array<int16_t, 5>;

// One record as the writer puts it.
std::string Record(const std::string& name, int cml1, int cml2, int io1, int io2) {
    std::string text = name + "\r\n";
    for (int v : {cml1, cml2, io1, io2}) text += (v >= 0 ? " " : "") + std::to_string(v) + " \r\n";
    return text;
}

class ModeFileTest : public ::testing::Test {
protected:
    std::string PathOf(const std::string& name) const { return (dir.path() + "/").toStdString() + name; }
    std::string Write(const std::string& name, const std::string& content) {
        const std::string path = PathOf(name);
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }
    static std::string Read(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        return text.str();
    }
    // Loads the file's text; returns the status, which starts at a value no failure gives.
    int Load(const std::string& content) {
        modes.ModeFileName = Write("modes.jmf", content);
        int status = -1;
        LoadModeFile(modes, status, dialogs);
        return status;
    }

    QTemporaryDir dir;
    ModeTableState modes;
    ScriptedDialogs dialogs;
};

ModeEditRows RowsOf(std::initializer_list<ModeRowTexts> rows) {
    ModeEditRows out{};
    std::copy(rows.begin(), rows.end(), out.begin());
    return out;
}

} // namespace

TEST_F(ModeFileTest, FourRecordsLoadAsFourClearTheRestAndSaveAsSix) {
    // Rows beyond the file are cleared: no stale numbers under an empty name.
    modes.ModeTable[5] = {0, 11, 12, 13, 14};
    modes.ModeTable[6] = {0, -1, 2, 3, 4};
    modes.ModeName[6] = "stale";
    const std::string four = Record("Io-A", 200, 270, 195, 265) + Record("Io-B", 105, 185, 75, 105) +
                             Record("Io-C", 280, 360, 225, 250) + Record("Io-D", 0, 200, 95, 130);
    EXPECT_EQ(Load(four), -1);
    EXPECT_TRUE(dialogs.messages.empty() && modes.ModesLoaded && modes.NumModes == 4);
    EXPECT_TRUE(modes.ModeName[2] == "Io-B" && modes.ModeTable[2][IoP1] == 75 && modes.ModeName[6].empty());

    int status = 0;
    const std::string saved = PathOf("saved.jmf");
    SaveModeFile(modes, saved, status, dialogs);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Read(saved), four + Record("", 0, 0, 0, 0) + Record("", 0, 0, 0, 0));

    // Empty names still count: only the end of the file ends the count.
    modes.ModeFileName = saved;
    LoadModeFile(modes, status, dialogs);
    EXPECT_TRUE(status == 0 && modes.NumModes == 6 && modes.ModeName[5].empty());

    // More than six modes are all read and written, up to ten; records past the tenth are
    // dropped without a message.
    std::string ten;
    for (int i = 1; i <= 10; ++i) ten += Record("M" + std::to_string(i), i, i + 1, i + 2, i + 3);
    ASSERT_EQ(Load(ten + Record("M11", 1, 2, 3, 4)), -1);
    EXPECT_TRUE(dialogs.messages.empty() && modes.NumModes == 10);
    SaveModeFile(modes, saved, status, dialogs);
    EXPECT_EQ(Read(saved), ten);
}

TEST_F(ModeFileTest, FieldsEndAtCommasAndLineEndsWithBlanksIgnored) {
    // LF-only and lone-CR lines, commas, tabs, a fraction, and no line end at the very end.
    EXPECT_EQ(Load("Io A, 200 ,\t270\n195\r265\r\nnon-Io,-5,5,0,360"), -1);
    EXPECT_TRUE(modes.NumModes == 2 && modes.ModeName[1] == "Io A");
    EXPECT_EQ(modes.ModeTable[1], (Row{0, 200, 270, 195, 265}));
    EXPECT_EQ(modes.ModeTable[2], (Row{0, -5, 5, 0, 360}));

    EXPECT_EQ(Load(Record("edge", -32768, 32767, 0, 0)), -1);
    EXPECT_EQ(modes.ModeTable[1], (Row{0, -32768, 32767, 0, 0}));
    // Halves round to even; an empty field is 0.
    EXPECT_EQ(Load("half\r\n12.5\r\n13.5\r\n\r\n1e2\r\n"), -1);
    EXPECT_EQ(modes.ModeTable[1], (Row{0, 12, 14, 0, 100}));
}

TEST_F(ModeFileTest, AFailedLoadSaysWhereAndLeavesTheTableWhole) {
    ASSERT_EQ(Load(Record("Old", 1, 2, 3, 4)), -1);
    const ModeTableState before = modes;
    EXPECT_EQ(Load(Record("Io-A", 200, 270, 195, 265) + "Io-B\r\n 105 \r\n 185 \r\n 75 \r\n"), 62);
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].text, "Error 62 Occurred Loading " + QString::fromStdString(modes.ModeFileName) +
                                            ".\r\nInput Past End of File\r\nLine 10.");
    // Each failure gives its number and says it; the table and ModesLoaded stay as the good load
    // left them. The end-of-file test comes right after the fifth field: a blank line after the
    // last record opens a record with no numbers.
    const struct { std::string content; int status; const char* said; } failures[] = {
        {Record("big", 200, 32768, 0, 0), 6, ".\r\nOverFlow"},
        {Record("small", -32769, 0, 0, 0), 6, "OverFlow"},
        {"word\r\n 200 \r\n two \r\n 0 \r\n 0 \r\n", 13, "\r\nLine 3."}, // a bad number names its own line
        {"word\r\n 200 \r\n 20x \r\n 0 \r\n 0 \r\n", 13, "\r\nLine 3."},
        {Record("Io-A", 200, 270, 195, 265) + "\r\n", 62, "Input Past End of File"},
        {"Io-A\r\n", 62, "Input Past End of File"},
    };
    for (const auto& c : failures) {
        EXPECT_EQ(Load(c.content), c.status) << c.content;
        EXPECT_TRUE(dialogs.messages.back().text.contains(c.said)) << c.content;
        EXPECT_TRUE(modes.NumModes == before.NumModes && modes.ModeName == before.ModeName &&
                    modes.ModeTable == before.ModeTable && modes.ModesLoaded)
            << c.content;
    }
}

TEST_F(ModeFileTest, FilesThatCannotBeReadFailWithTheirNumbers) {
    // A FIFO is refused at once rather than read (which would wait for a writer), and a file far
    // larger than any mode file is refused too.
    const std::string fifo = PathOf("fifo.jmf"), huge = PathOf("huge.jmf");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    std::ofstream(huge) << std::string(2 << 20, ' ');
    const std::pair<std::string, int> cases[] = {{PathOf("absent.jmf"), 53},
                                                 {PathOf("no-such-folder/modes.jmf"), 76},
                                                 {dir.path().toStdString(), 75},
                                                 {fifo, 75},
                                                 {huge, 7}};
    for (const auto& [path, number] : cases) {
        modes = ModeTableState{};
        modes.NumModes = 3;
        modes.ModeName[1] = "kept?";
        modes.ModeFileName = path;
        int status = 0;
        LoadModeFile(modes, status, dialogs);
        EXPECT_EQ(status, number) << path;
        // The file never opened: the table stays and is not marked loaded.
        EXPECT_TRUE(modes.NumModes == 3 && modes.ModeName[1] == "kept?" && !modes.ModesLoaded) << path;
    }
    EXPECT_EQ(dialogs.messages[0].text,
              "Error 53 Occurred Loading " + QString::fromStdString(PathOf("absent.jmf")) + ".\r\nFile Not Found");
}

// A failed save names the mode file, not the target, and sets the status to 1.
TEST_F(ModeFileTest, AFailedSaveNamesTheModeFileAndSetsStatusOne) {
    modes.ModeFileName = "/data/current.jmf";
    const std::pair<std::string, const char*> cases[] = {
        {PathOf("missing/out.jmf"), "Error 76 Occurred Saving /data/current.jmf.\r\nPath not found"},
        {dir.path().toStdString(), "Error 75 Occurred Saving "}}; // a folder
    for (const auto& [path, said] : cases) {
        int status = 0;
        dialogs.messages.clear();
        SaveModeFile(modes, path, status, dialogs);
        EXPECT_EQ(status, 1) << path;
        ASSERT_EQ(dialogs.messages.size(), 1u);
        EXPECT_TRUE(dialogs.messages[0].text.startsWith(said)) << dialogs.messages[0].text.toStdString();
    }
}

TEST_F(ModeFileTest, ARangeThroughThreeSixtySurvivesLoadEditAndSave) {
    std::string text = Record("wrap", 350, 10, 200, 250);
    for (int i = 2; i <= 6; ++i) text += Record("m" + std::to_string(i), i, i, i, i);
    ASSERT_EQ(Load(text), -1);
    ApplyModeEdits(modes, ModeEditRowsOf(modes));
    EXPECT_EQ(ModeFileText(modes), text);
}

TEST_F(ModeFileTest, ABlankNameEndsTheListAndRowsBelowItAreNotTaken) {
    modes.NumModes = 6;
    modes.ModeName[4] = "old four";
    modes.ModeTable[4] = {0, 1, 2, 3, 4};
    ApplyModeEdits(modes, RowsOf({{"  one ", {"1", "2", "3", "4"}},
                                  {"two", {"5", "6", "7", "8"}},
                                  {"   ", {"9", "9", "9", "9"}},
                                  {"four", {"40", "41", "42", "43"}},
                                  {"five", {"50", "51", "52", "53"}}}));
    EXPECT_EQ(modes.NumModes, 2);
    EXPECT_EQ(modes.ModeName[1] + "|" + modes.ModeName[3] + "|" + modes.ModeName[4], "one||old four");
    EXPECT_TRUE(modes.ModeTable[2][IoP2] == 8 && modes.ModeTable[3][CML1] == 0 &&
                modes.ModeTable[4][CML1] == 1);
}

TEST_F(ModeFileTest, TheTenthNameIsNeverReadBack) {
    modes.NumModes = 10;
    modes.ModeName[10] = "ten";
    ModeEditRows rows{};
    for (int r = 0; r < kMaxModes; ++r) rows[r] = {"row" + std::to_string(r), {"1", "2", "3", "4"}};
    rows[9].name = "";
    ApplyModeEdits(modes, rows);
    EXPECT_EQ(modes.NumModes, 10); // no empty name among the nine
    EXPECT_TRUE(modes.ModeName[9] == "row8" && modes.ModeName[10] == "ten");

    modes.NumModes = 4; // nine names and no blank: the count stays, whatever the rows hold
    ApplyModeEdits(modes, rows);
    EXPECT_EQ(modes.NumModes, 4);
}

TEST_F(ModeFileTest, NumberTextsRoundHalfToEvenAndNonNumbersAreZero) {
    modes.NumModes = 1;
    modes.ModeTable[1] = {0, 1, 2, 3, 4};
    ApplyModeEdits(modes, RowsOf({{"m", {"12.5", "13.5", "abc", " -2.5 degrees"}}, {"", {}}}));
    EXPECT_EQ(modes.ModeTable[1], (Row{0, 12, 14, 0, -2}));
    // A value beyond 16 bits leaves the table's value.
    ApplyModeEdits(modes, RowsOf({{"m", {"40000", "7", "-32768", "-32769"}}, {"", {}}}));
    EXPECT_EQ(modes.ModeTable[1], (Row{0, 12, 7, -32768, -2}));
}

TEST_F(ModeFileTest, TheBundledModeFileHoldsTheSixSourceRegionsAsTheWriterWritesThem) {
    modes.ModeFileName = TARVELLE_SOURCE_DATA "/UFMODES.JMF";
    int status = 0;
    LoadModeFile(modes, status, dialogs);
    ASSERT_TRUE(status == 0 && modes.NumModes == 6);
    for (int i = 1; i <= 6; ++i) {
        const auto& r = modes.ModeTable[i];
        EXPECT_TRUE(std::min(r[CML1], r[CML2]) >= 0 && std::max(r[CML1], r[CML2]) <= 360 && r[IoP1] >= 0 &&
                    r[IoP1] <= r[IoP2] && r[IoP2] <= 360)
            << i << ": an Io range never wraps";
    }
    for (int i : {5, 6}) EXPECT_TRUE(modes.ModeTable[i][IoP1] == 0 && modes.ModeTable[i][IoP2] == 360) << i;
    EXPECT_EQ(Read(modes.ModeFileName), ModeFileText(modes));
}
