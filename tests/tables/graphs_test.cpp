// The yearly visibility chart and the De graph.
#include "tables/de_graph.h"
#include "tables/visibility.h"

#include "core/date_value.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace tarvelle;

namespace {

TEST(Visibility, LetterOfTwoAltitudesKeepsThePreviousAtExactlyZero) {
    const struct { double jup, sun; Visible previous, expected; } cases[] = {
        {10, 5, Visible::Neither, Visible::Both},     {-10, 5, Visible::Both, Visible::Sun},
        {10, -5, Visible::Both, Visible::Jupiter},    {-10, -5, Visible::Both, Visible::Neither},
        {0, 5, Visible::Jupiter, Visible::Jupiter},   {10, 0, Visible::Sun, Visible::Sun},
        {0, 0, Visible::Both, Visible::Both},         {-1e-300, 1e-300, Visible::Neither, Visible::Sun},
    };
    for (const auto& c : cases)
        EXPECT_EQ(VisibilityOf(c.jup, c.sun, c.previous), c.expected) << c.jup << " " << c.sun;
}

// A year is its text's value rounded half to even (tests/reference/compare_tables.py runs the
// other years and refusals through tarvelle-cli); a refusal has its title and leaves the core.
TEST(Visibility, YearTextRoundsAndARefusalLeavesTheCore) {
    const struct { const char* text; int year; bool accepted; } cases[] = {
        {"1899.5", 1900, true}, {"2100.5", 2100, true}, {"2101", 2101, false}};
    for (const auto& c : cases) {
        const int year = YearFromText(c.text);
        EXPECT_EQ(year, c.year) << c.text;
        Core core;
        core.CurrentUT = 12345.5;
        const VisibilityResult r = ComputeVisibility(core, year, false);
        EXPECT_EQ(r.title, c.accepted ? "" : "Date Error") << c.text;
        EXPECT_EQ(core.CurrentUT, 12345.5);
    }
}

// One progress call a day, in order, at either resolution.
TEST(Visibility, ReportsEveryDayInOrder) {
    for (bool hiRes : {false, true}) {
        Core core;
        int calls = 0;
        const VisibilityResult r = ComputeVisibility(core, 2024, hiRes, [&](int day, const std::string&) {
            EXPECT_EQ(day, calls);
            ++calls;
        });
        EXPECT_EQ(calls, 365);
        EXPECT_EQ(r.days.front().size(), hiRes ? 1440u : 72u);
    }
}

// Which of the two years is wrong is told in the title (the year texts themselves are run
// through tarvelle-cli by tests/reference/compare_tables.py).
TEST(DeGraph, TheTitleNamesTheYearInError) {
    Core core;
    EXPECT_EQ(ComputeDeGraph(core, "x", "2000").title, "Start Year Error");
    EXPECT_EQ(ComputeDeGraph(core, "2000", "x").title, "End Year Error");
    EXPECT_EQ(ComputeDeGraph(core, "x", "y").message, "You must enter a valid year (YYYY)");
}

// The points are compared with tests/reference/compare_tables.py; here the years shown in their
// order, and a line at the first point of each new year, past the last point's year included:
// the last step lands past 31 December and draws the next year's line beyond the right edge.
TEST(DeGraph, YearsAreSwappedAndALineStartsEachYear) {
    Core core;
    core.CurrentUT = 40000.25;
    const DeGraph g = ComputeDeGraph(core, "2010", "2006");
    ASSERT_TRUE(g.message.empty());
    EXPECT_EQ(core.CurrentUT, 40000.25);
    EXPECT_EQ(g.fromText + "-" + g.toText, "2006-2010");
    ASSERT_EQ(g.points.size(), 184u);
    std::vector<int> years;
    for (const DeYearLine& l : g.yearLines) {
        years.push_back(l.year);
        EXPECT_EQ(FieldsOf(g.DeStart + 0.5 + l.x).year, l.year);
        EXPECT_LT(FieldsOf(g.DeStart + 0.5 + l.x - g.step).year, l.year) << "the first point of the year";
    }
    EXPECT_EQ(years, (std::vector<int>{2007, 2008, 2009, 2010, 2011}));
    EXPECT_GE(g.DeStart + 0.5 + g.points.back().x, g.DeEnd);
    EXPECT_LT(g.DeStart + 0.5 + g.points[g.points.size() - 2].x, g.DeEnd);
    for (const DePoint& p : g.points) EXPECT_LT(std::abs(p.De), kDeScaleTop);
}

TEST(DeGraph, ShortestSingleReadsBack) {
    for (float v : {0.0f, 2.9007783f, 1e-5f, -0.000123456f, 3.14159274f}) {
        const std::string t = ShortestSingle(v);
        EXPECT_EQ(std::strtof(t.c_str(), nullptr), v) << t;
    }
    EXPECT_EQ(ShortestSingle(-3.3f), "-3.3");
    EXPECT_EQ(ShortestSingle(2.5f), "2.5");
}

} // namespace
