// The server's block, requests and parameters, without sockets.
#include "core/date_value.h"
#include "server/jis_block.h"
#include "station/settings_store.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace tarvelle;

namespace {

// 2017-09-22 12:00:05 GMT, values chosen to cross the masks' rounding and sign rules.
JisValues Sample() {
    JisValues v;
    v.CurrentUT = DateSerial(2017, 9, 22) + TimeSerial(12, 0, 5);
    v.Label3 = " LMST: 06:56:12";
    v.JupAlt = 8.6; v.JupAz = 231.4; v.CMLIII = 81.44f; v.IoPhase = 7.06f; v.SunAlt = -4.6; v.SunAz = 9.5;
    return v;
}

struct Group {
    bool ServerSchedule::*option;
    const char* lines;
};

// The groups in their order on the wire, as a client reads them for Sample().
const Group kGroups[] = {
    {&ServerSchedule::JIStime, "Year = 2017\r\nMonth = 09\r\nDay = 22\r\nHour = 12\r\nMinute = 00\r\n"
                               "Second = 05\r\nLMSTTIME =  LMST: 06:56:12\r\n"},
    {&ServerSchedule::JISjupALTAZ, "JUP ALT = 09\r\nJUP AZ = 231\r\n"},
    {&ServerSchedule::JISjupCMLIO, "CML3 = 081.4\r\nIO PHASE = 007.1\r\n"},
    {&ServerSchedule::JISjupMODE, "MODE = NONE\r\n"},
    {&ServerSchedule::JISsun, "SUN ALT = -05\r\nSUNAZ = 010\r\n"},
};

} // namespace

TEST(JisBlock, EveryCombinationOfOptionsGivesItsGroupsInOrder) {
    for (int mask = 0; mask < 32; ++mask) {
        ServerSchedule o;
        std::string expected;
        for (int g = 0; g < 5; ++g) {
            const bool on = (mask >> g & 1) != 0;
            o.*kGroups[g].option = on;
            if (on) expected += kGroups[g].lines;
        }
        EXPECT_EQ(BuildJISBlock(o, Sample()), expected) << "options " << mask;
    }
}

TEST(JisBlock, ModesAndNegativeValues) {
    ServerSchedule modeOnly;
    modeOnly.JIStime = modeOnly.JISjupALTAZ = modeOnly.JISjupCMLIO = modeOnly.JISsun = false;
    JisValues v = Sample();
    v.modeFound = true;
    v.modeNames = "   Io-A   Io-B";
    EXPECT_EQ(BuildJISBlock(modeOnly, v), "MODE =    Io-A   Io-B\r\n");

    ServerSchedule jupiter = modeOnly;
    jupiter.JISjupMODE = false;
    jupiter.JISjupALTAZ = true;
    v.JupAlt = -12.5; // halves away from zero
    v.JupAz = 359.6;  // rounds up to the full circle
    EXPECT_EQ(BuildJISBlock(jupiter, v), "JUP ALT = -13\r\nJUP AZ = 360\r\n");
}

TEST(JisBlock, RequestsAreReadInCapitalsOnly) {
    const auto none = std::nullopt;
    const struct { std::string data; bool block; std::optional<double> move; } cases[] = {
        {"J", true, none},         {"j", false, none},        {"hello", false, none}, {"P43000.5", false, 43000.5},
        {"P", false, 0.0},         {"p43000.5", false, none}, {"xJx", true, none},    {std::string("\0J", 2), true, none},
        {"JP42000.25", true, 0.0},      // the value starts after the first character: "P42..." is 0
        {"P42000.25J", true, 42000.25}, // both: the block first, then the move
    };
    for (const auto& c : cases) {
        const JisRequest r = ReadJISRequest(c.data);
        EXPECT_EQ(r.sendBlock, c.block) << c.data;
        EXPECT_EQ(r.moveTo, c.move) << c.data;
    }
}

TEST(JisParameters, ReadWriteAndFailures) {
    QTemporaryDir dir;
    SettingsStore store(dir.filePath("s.ini"));
    ServerSchedule p;
    // Keys in any case; numbers are the value of the text, rounded half to even.
    store.save("settings", "jisport", " 4712.5xyz");
    const std::pair<const char*, const char*> keys[] = {
        {"PushJIS", "1"}, {"JISsun", " false "}, {"JISjupMODE", "0"}, {"JIStime", "-1"}};
    for (const auto& [key, value] : keys) store.save("Settings", key, value);
    ASSERT_FALSE(LoadJISParameters(store, p).has_value());
    EXPECT_EQ(p.JISPort, 4712);
    EXPECT_EQ(p.PushJIS, 1);
    EXPECT_FALSE(p.JISsun || p.JISjupMODE);
    EXPECT_TRUE(p.JIStime);

    SaveJISParameters(store, p);
    EXPECT_EQ(store.get("Settings", "JISPort"), " 4712");
    EXPECT_EQ(store.get("Settings", "JISsun"), "False");
    EXPECT_EQ(store.get("Settings", "JIStime"), "True");

    // A value that cannot be read stops there; what follows keeps its value.
    const struct { const char *key, *value, *description; } bad[] = {
        {"JISMin", "40000", "OverFlow"}, {"JISjupALTAZ", "maybe", "Type mismatch"}};
    for (const auto& b : bad) {
        SettingsStore s(dir.filePath(b.key));
        s.save("Settings", b.key, b.value);
        s.save("Settings", "JISsun", "False");
        ServerSchedule q;
        const auto failure = LoadJISParameters(s, q);
        ASSERT_TRUE(failure.has_value()) << b.key;
        EXPECT_EQ(*failure, QString("Error Getting Jupiter Information Server Defaults.\r\n") + b.description);
        EXPECT_TRUE(q.JISsun) << "read past the failure at " << b.key;
    }
}
