// The sky map's files read through real files: entries, antennas, horizons and star records.
#include "formats/antenna_file.h"
#include "formats/entries.h"
#include "formats/horizon_file.h"
#include "formats/star_catalogue.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <fstream>

using namespace tarvelle;

namespace {

class SkyFilesTest : public ::testing::Test {
protected:
    std::string Write(const std::string& name, const std::string& content) {
        const std::string path = (dir.path() + "/").toStdString() + name;
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }
    QTemporaryDir dir;
};

using Entries = std::vector<std::string>;

TEST(EntriesTest, LineEndsCommasQuotesAndBlanks) {
    const struct { const char* text; Entries expected; } cases[] = {
        {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
        {"a\r\n\r\nb\r\n", {"a", "", "b"}},          // an empty line is an entry, the last line end adds none
        {"  a b  , c\t", {"a b", "c\t"}},            // only spaces are dropped
        {"\"x, y\" tail,z\n", {"x, y", "z"}},       // a quoted entry keeps its comma, the rest is dropped
        {"NAME = a, b", {"NAME = a", "b"}},          // an unquoted comma cuts the entry
        {"a,", {"a", ""}},
        {"", {}},
    };
    for (const auto& c : cases) EXPECT_EQ(SplitEntries(c.text), c.expected) << c.text;
    EXPECT_EQ(SplitEntries("1,2,3,4", 3), (Entries{"1", "2", "3"}));
}

// A one-lobe file as the writer writes it, with the lobe's lines given.
std::string AntennaText(const std::string& lobe, const std::string& head = "LOBES = 1\r\n") {
    return "ANTENNA FILE\r\nNAME = Dipole\r\nPIC = D1NS\r\nHEIGHT = 3\r\n" + head + "START LOBE 1\r\n" + lobe +
           "END LOBE 1\r\n";
}

TEST_F(SkyFilesTest, AntennaFilesAreReadAsTheStationReadsThem) {
    const struct {
        const char* what;
        std::string text;
        AntennaStatus status;
        std::string messageStart;
    } cases[] = {
        {"written form", AntennaText("ALT = 90\r\nAZ = 0\r\nNSBW = 78\r\nEWBW = 360\r\nGAIN = 2.15\r\n"),
         AntennaStatus::Loaded, ""},
        {"empty", "", AntennaStatus::Empty, "Empty Antenna File: "},
        {"magic in small letters", "antenna file\r\nLOBES = 1\r\n", AntennaStatus::NotAntenna, ""},
        {"lobe count not a number", AntennaText("ALT = 1\r\nAZ = 2\r\nGAIN = 3\r\n", "LOBES = many\r\n"),
         AntennaStatus::NoLobes, "No Lobes defined in antenna file:\r\n\r\n"},
        {"no lobe count", AntennaText("ALT = 1\r\nAZ = 2\r\nGAIN = 3\r\n", ""), AntennaStatus::NoLobes, "No Lobes"},
        {"markers too close", AntennaText("ALT = 1\r\nAZ = 2\r\n"), AntennaStatus::LobeError,
         "There was an error in the lobe definition  1  in:\r\n"},
        {"second lobe missing", AntennaText("ALT = 1\r\nAZ = 2\r\nGAIN = 3\r\n", "LOBES = 2\r\n"),
         AntennaStatus::LobeError, "There was an error in the lobe definition  2  in:"},
        {"value not a number", AntennaText("ALT = high\r\nAZ = 2\r\nGAIN = 3\r\n"), AntennaStatus::LoadError,
         "There was and an error loading:\r\n\r\n"},
        {"lobe count with trailing text", AntennaText("ALT = 1\r\nAZ = 2\r\nGAIN = 3\r\n", "LOBES = 1x\r\n"),
         AntennaStatus::LoadError, "There was and"},
    };
    for (const auto& c : cases) {
        const std::string path = Write("a.ant", c.text);
        Antenna antenna;
        const AntennaLoad load = ReadAntennaFile(path, antenna);
        EXPECT_EQ(load.status, c.status) << c.what;
        EXPECT_EQ(load.message.rfind(c.messageStart, 0), 0u) << c.what << ": " << load.message;
        EXPECT_EQ(load.message == path + "\r\n\r\nNot recognized as an antenna file!",
                  c.status == AntennaStatus::NotAntenna) << load.message;
        EXPECT_EQ(load.message.find(path) != std::string::npos, c.status != AntennaStatus::Loaded) << c.what;
    }
    Antenna missing;
    EXPECT_EQ(ReadAntennaFile(Write("", "") + "/absent.ant", missing).status, AntennaStatus::LoadError);
}

TEST_F(SkyFilesTest, AntennaKeysInAnyCaseOrderAndPlace) {
    // Lower-case keys, a quoted name with a comma, keys in another order, RA and DEC, a key
    // given twice, a lobe without gain, and ten lobes whose markers 1 and 10 must not mix.
    std::string text = "ANTENNA FILE\r\n\"name = Yagi, 3 el\"\r\npic = YAGI\r\nLobes = 10\r\n";
    for (int k = 10; k >= 1; --k) {
        text += "START LOBE " + std::to_string(k) + "\r\naz = " + std::to_string(10 * k) + "\r\nALT = 5\r\nALT = " +
                std::to_string(k) + "\r\nRA = 1.5e1\r\nDEC = -2\r\n";
        if (k != 3) text += "GAIN = +7.5\r\n";
        text += "END LOBE " + std::to_string(k) + "\r\n";
    }
    Antenna antenna;
    ASSERT_EQ(ReadAntennaFile(Write("y.ant", text), antenna).status, AntennaStatus::Loaded);
    EXPECT_TRUE(antenna.AntName == "Yagi, 3 el" && antenna.AntPic == "YAGI" && antenna.AntHeight.empty());
    ASSERT_EQ(antenna.LobeCount(), 10);
    for (int k = 1; k <= 10; ++k) {
        const AntennaLobe& lobe = antenna.Lobes[static_cast<size_t>(k)];
        EXPECT_TRUE(lobe.ALT == k && lobe.AZ == 10 * k && lobe.RA == 15.0 && lobe.DEC == -2.0 &&
                    lobe.Edge.empty() && lobe.GAIN == (k == 3 ? 0.0 : 7.5))
            << k;
    }
}

TEST_F(SkyFilesTest, AFailedLobeKeepsTheLastGoodNameAndTheLobesReadSoFar) {
    Antenna antenna;
    ASSERT_EQ(ReadAntennaFile(Write("a.ant", AntennaText("ALT = 9\r\nAZ = 2\r\nGAIN = 3\r\n")), antenna).status,
              AntennaStatus::Loaded);
    const std::string broken = "ANTENNA FILE\r\nNAME = Other\r\nLOBES = 2\r\nSTART LOBE 1\r\nALT = 40\r\nAZ = 1\r\n"
                               "NSBW = 5\r\nEND LOBE 1\r\nSTART LOBE 2\r\nEND LOBE 2\r\n";
    EXPECT_EQ(ReadAntennaFile(Write("b.ant", broken), antenna).status, AntennaStatus::LobeError);
    ASSERT_EQ(antenna.LobeCount(), 2);
    EXPECT_TRUE(antenna.AntName == "Dipole" && antenna.Lobes[1].ALT == 40.0 && antenna.Lobes[2].ALT == 0.0);
}

TEST_F(SkyFilesTest, OnlyTheFirst1001EntriesAreRead) {
    std::string text = "ANTENNA FILE\r\nLOBES = 1\r\nSTART LOBE 1\r\nALT = 1\r\nAZ = 1\r\nGAIN = 1\r\n";
    for (int i = 0; i < 994; ++i) text += "filler\r\n";
    Antenna antenna;
    // Entry 1000 is the last one read: the end marker there counts, one further on doesn't.
    EXPECT_EQ(ReadAntennaFile(Write("a.ant", text + "END LOBE 1\r\n"), antenna).status, AntennaStatus::Loaded);
    EXPECT_EQ(ReadAntennaFile(Write("b.ant", text + "filler\r\nEND LOBE 1\r\n"), antenna).status,
              AntennaStatus::LobeError);
}

TEST_F(SkyFilesTest, TheWriterWritesWhatTheReaderReadsBack) {
    Antenna antenna;
    antenna.AntName = "Pair";
    antenna.AntPic = "DANS";
    antenna.AntHeight = "3.5";
    antenna.Lobes.resize(3);
    antenna.Lobes[1] = {70.5, 100, 60, 180, 0, 0, 7.1, {}};
    antenna.Lobes[2] = {20, 30, -5, 359.25, 0, 0, -1.5, {}};
    const std::string path = Write("w.ant", "");
    ASSERT_EQ(WriteAntennaFile(path, antenna, 2), "");
    Antenna back;
    ASSERT_EQ(ReadAntennaFile(path, back).status, AntennaStatus::Loaded);
    EXPECT_EQ(back.AntHeight, "3.5");
    for (size_t k = 1; k <= 2; ++k)
        EXPECT_TRUE(back.Lobes[k].NSBW == antenna.Lobes[k].NSBW && back.Lobes[k].AZ == antenna.Lobes[k].AZ &&
                    back.Lobes[k].ALT == antenna.Lobes[k].ALT && back.Lobes[k].GAIN == antenna.Lobes[k].GAIN)
            << k;
    EXPECT_EQ(ReadAntennaName(path).name, "Pair");
    EXPECT_EQ(ReadAntennaName(Write("n.ant", "NAME = x\r\n")).status, "Not recognized as an antenna file!");
}

TEST_F(SkyFilesTest, HorizonFilesFillEveryDegree) {
    const struct {
        const char* what;
        const char* text;
        std::vector<std::pair<int, double>> values; // degree and value
        const char* message;
    } cases[] = {
        {"bridge across north", "10 5\n20 15\n", {{10, 5}, {20, 15}, {21, 15 - 10.0 / 350}, {0, 5 + 10 * 10.0 / 350},
                                                  {15, 10}}, ""},
        {"two neighbours only", "100 5\n101 6\n", {}, "There were not enough legitimate values in the horizon file."},
        {"nothing valid", "# none\n5,6\n", {{0, 0}, {200, 0}, {360, 0}},
         "There were not enough legitimate values in the horizon file."},
        {"comments, commas and limits", "#0 30\n0 10 # remark\n0,40\n90 90\n90 89\n180 -1\n360 5\n0 20\n",
         {{0, 20}, {90, 89}, {45, 20 + 45 * 69.0 / 90}, {180, 89 + 90 * (20 - 89) / 270.0}}, ""},
        {"north as a word, fractions cut", "north 10\n180.9 40\n", {{0, 10}, {180, 40}, {90, 25}}, ""},
        {"gap at the top end", "0 10\n100 20\n358 30\n", {{359, 20}, {50, 15}}, ""},
        {"the end marker stays", "0 10\n", {{359, 10}, {360, -99}}, ""},
    };
    for (const auto& c : cases) {
        HorizonTable table{};
        const HorizonLoad load = LoadHorizonFile(Write("h.txt", c.text), table);
        EXPECT_EQ(load.message, c.message) << c.what;
        EXPECT_TRUE(load.changed) << c.what;
        for (const auto& [degree, value] : c.values)
            EXPECT_NEAR(table[static_cast<size_t>(degree)], value, 1e-9) << c.what << " at " << degree;
        for (int a = 0; a < 360 && *c.message == '\0'; ++a)
            EXPECT_NE(table[static_cast<size_t>(a)], kNoHorizonValue) << c.what << a;
    }
}

TEST_F(SkyFilesTest, MissingOrEmptyHorizonPaths) {
    HorizonTable table{};
    table.fill(7.0);
    const std::string missing = Write("", "") + "/absent.txt";
    const HorizonLoad load = LoadHorizonFile(missing, table);
    EXPECT_EQ(load.message, "Horizon File: " + missing + "\r\nNot Found.");
    EXPECT_TRUE(!load.changed && table[100] == 7.0);
    EXPECT_TRUE(LoadHorizonFile("", table).message.empty());
    EXPECT_TRUE(table[100] == 0.0 && table[360] == 0.0);
}

TEST_F(SkyFilesTest, StarRecordsRoundTripAndAShortTailIsNotARecord) {
    const StarRecord stars[] = {{6.752481f, -16.716116f, -1.46f, "Sirius"}, {18.615649f, 38.783691f, 0.03f, "Vega"}};
    std::string bytes;
    for (const StarRecord& s : stars) {
        unsigned char record[kStarRecordSize];
        EncodeStarRecord(s, record);
        bytes.append(reinterpret_cast<const char*>(record), kStarRecordSize);
    }
    EXPECT_EQ(static_cast<unsigned char>(bytes[16 + 3]), 0xBF); // -1.46 little-endian: sign and exponent last
    const std::string path = Write("star.dat", bytes + "tail");
    const std::vector<StarRecord> read = ReadStarFile(path);
    ASSERT_EQ(read.size(), 2u);
    for (size_t i = 0; i < 2; ++i)
        EXPECT_TRUE(read[i].ra == stars[i].ra && read[i].dec == stars[i].dec &&
                    read[i].magnitude == stars[i].magnitude && read[i].name == stars[i].name)
            << stars[i].name;
    EXPECT_TRUE(ReadStarFile(path + ".absent").empty());
}

} // namespace
