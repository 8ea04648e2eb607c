// The built-in probability table: the values it must hold, and the expansion's rules on
// small hand-made rows.
#include "prediction/prob_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tarvelle;

namespace {

ProbabilityTable BuiltIn() {
    ProbabilityTable table;
    std::string failure;
    EXPECT_TRUE(LoadProbTable(table, failure)) << failure;
    return table;
}

// The rows expanded into a table that held other values before: the expansion starts afresh.
ProbabilityTable Expanded(const std::vector<std::string>& rows) {
    ProbabilityTable table(5);
    for (auto& row : table) row.fill(42.0);
    ExpandProbRows(rows, table);
    EXPECT_EQ(table.size(), 361u);
    return table;
}

struct Cell {
    size_t io, cml;
    double value;
};

bool InPeak(size_t io, size_t cml) {
    return io >= 90 && io <= 91 && cml >= 134 && cml <= 138;
}

} // namespace

TEST(ProbTable, StatedCells) {
    const ProbabilityTable t = BuiltIn();
    ASSERT_EQ(t.size(), 361u);

    // The first row's runs, the row stored one value short (12), and spot cells far into the
    // packed text: a row shifted or cut short moves them.
    for (const Cell& c : {Cell{1, 64, 8}, {1, 72, 12}, {1, 116, 9}, {12, 359, 0}, {12, 360, 8}, {90, 120, 85},
                          {90, 150, 92}, {240, 240, 78}, {360, 360, 8}})
        EXPECT_EQ(t[c.io][c.cml], c.value) << c.io << "," << c.cml;

    for (size_t k = 0; k <= 360; ++k) {
        EXPECT_EQ(t[0][k], 0.0) << k;
        EXPECT_EQ(t[k][0], 0.0) << k;
    }
}

// The peak plateau, the range elsewhere, and the non-Io-A source standing above the quiet
// longitudes whatever Io does.
TEST(ProbTable, PeakPlateauRangeAndNonIoBand) {
    const ProbabilityTable t = BuiltIn();
    ASSERT_EQ(t.size(), 361u);
    for (size_t io = 1; io <= 360; ++io) {
        EXPECT_TRUE(t[io][250] >= 14.0 && t[io][250] > t[io][60]) << io;
        for (size_t c = 1; c <= 360; ++c) {
            const double v = t[io][c];
            ASSERT_TRUE((io == 12 && c == 359) || (InPeak(io, c) ? v == 100.0 : v >= 3.0 && v < 100.0))
                << io << "," << c;
        }
    }
}

// Fields fill CML 1 on and a short row's last number goes to CML 360 (a row with no "_" has only
// that one); the rows are joined first, so an "X" inside a string ends a row and a row may run
// on into the next string; rows not given stay 0.
TEST(ProbTableExpansion, ShortRowsKeepTheirLastValueAtCml360AndRowsFollowTheX) {
    const struct { std::vector<std::string> rows; std::vector<Cell> cells; } cases[] = {
        {{"5_6_7X", "9X"}, {{1, 1, 5}, {1, 2, 6}, {1, 3, 0}, {1, 359, 0}, {1, 360, 7}, {2, 1, 0}, {2, 360, 9},
        {3, 360, 0}, {360, 360, 0}, {0, 0, 0}, {4, 4, 0}}},
        {{"1_2", "X3X4_", "5X"}, {{1, 1, 1}, {1, 360, 2}, {2, 360, 3}, {3, 1, 4}, {3, 360, 5}}},
        {{"1X"}, {{0, 0, 0}, {1, 1, 0}, {1, 360, 1}, {4, 4, 0}}},
    };
    for (const auto& c : cases) {
        const ProbabilityTable t = Expanded(c.rows);
        for (const Cell& cell : c.cells)
            EXPECT_EQ(t[cell.io][cell.cml], cell.value) << c.rows[0] << " at " << cell.io << "," << cell.cml;
        for (size_t cml = 3; cml <= 359 && c.rows[0] == "5_6_7X"; ++cml) EXPECT_EQ(t[1][cml], 0.0) << cml;
    }
}

TEST(ProbTableExpansion, TokensBecomeTheirRuns) {
    const ProbabilityTable t = Expanded({"3_u_y_4_z_w_5X"});
    size_t c = 1; // runs of {count, value}: u is eight 8s, y five 12s, z four 20s, w four 11s
    for (const auto& [count, value] :
         {std::pair{1, 3.0}, {8, 8.0}, {5, 12.0}, {1, 4.0}, {4, 20.0}, {4, 11.0}})
        for (int k = 0; k < count; ++k, ++c) EXPECT_EQ(t[1][c], value) << c;
    EXPECT_TRUE(t[1][c] == 0.0 && t[1][360] == 5.0);
}

TEST(ProbTableExpansion, FullAndOverlongRows) {
    std::string full, longer;
    for (int c = 1; c <= 360; ++c) full += std::to_string(c) + (c < 360 ? "_" : "X");
    for (int c = 1; c <= 362; ++c) longer += std::to_string(c) + (c < 362 ? "_" : "X");
    const ProbabilityTable t = Expanded({full, longer});
    for (size_t c = 1; c <= 360; ++c) EXPECT_EQ(t[1][c], static_cast<double>(c)) << c;
    // What is left after 359 fields is "360_361_362": its leading number.
    EXPECT_TRUE(t[2][359] == 359.0 && t[2][360] == 360.0);
}

TEST(ProbabilityLookup, RoundsHalvesToEvenAndStaysInside) {
    ProbabilityTable t(361);
    for (const Cell& c : {Cell{90, 136, 1}, {92, 136, 2}, {90, 134, 3}, {360, 360, 4}, {0, 0, 5}}) t[c.io][c.cml] = c.value;
    // Both halves go down or up to the even degree; outside the table reads 0.
    const std::array<double, 3> cases[] = {{90.4, 135.6, 1}, {90.5, 135.5, 1},   {91.5, 136.5, 2},
                                           {89.5, 134.5, 3}, {360.5, 360.5, 4},  {-0.5, -0.5, 5},
                                           {360.6, 360, 0},  {360, -0.6, 0},     {-1, 10, 0}};
    for (const auto& [io, cml, value] : cases) EXPECT_EQ(ProbabilityAt(t, io, cml), value) << io << "," << cml;
    EXPECT_EQ(ProbabilityAt(ProbabilityTable{}, 90.0, 136.0), 0.0); // never loaded

    const ProbabilityTable built = BuiltIn();
    EXPECT_TRUE(ProbabilityAt(built, 90.49, 136.2) == 100.0 && ProbabilityAt(built, 12.0, 359.0) == 0.0);
}
