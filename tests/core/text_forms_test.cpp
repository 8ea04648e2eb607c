// The shared text forms: what the user reads must be the same on every machine.
#include "core/date_value.h"
#include "core/text_forms.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

using namespace tarvelle;

// Rounding, padding, carries, signs and optional digits of number masks.
TEST(NumberMask, RoundsPadsAndShowsSign) {
    const struct { double value; const char *mask, *text; } cases[] = {
        // Exact halves round away from zero; 0.125 is exact in binary.
        {2.5, "0", "3"}, {-2.5, "0", "-3"}, {3.5, "0", "4"}, {0.125, "0.00", "0.13"}, {59.5, "00", "60"},
        // Not a half in binary: 2.675 is 2.67499..., 0.05 is 0.0500...0277, 0.15 is 0.1499...9445,
        // 1.005 is 1.00499..., -0.35 is -0.3499...
        {2.675, "0.00", "2.67"}, {0.05, "0.0", "0.1"}, {0.15, "0.0", "0.1"}, {1.005, "0.00", "1.00"},
        {-0.35, "0.0", "-0.3"}, {1e17, "0.0", "100000000000000000.0"},
        {0.4999999999999999, "0", "0"}, // a run of nines is no half
        // Padding, a whole part longer than the mask, signs and carries through every digit.
        {7, "00", "07"}, {123, "00", "123"}, {5.25, "000.0", "005.3"}, {-5.3, "00.0", "-05.3"},
        {-0.04, "00.0", "-00.0"}, {359.996, "000.00", "360.00"}, {99.96, "00.0", "100.0"},
        // Hash digits show only when needed.
        {3, "##", "3"}, {0, "##", ""}, {0, "#0", "0"}, {12, "#0", "12"}, {0.5, "#.##", ".5"},
    };
    for (const auto& c : cases) EXPECT_EQ(FormatNumberMask(c.value, c.mask), c.text) << c.value << " " << c.mask;
}

// A leading blank for non-negative values; singles show seven significant digits.
TEST(StrForm, LeadingBlankAndSingleDigits) {
    const std::pair<double, const char*> doubles[] = {{7.0, " 7"}, {-7.0, "-7"}, {0.0, " 0"}, {-0.0, " 0"},
                                                      {0.1, " 0.1"}, {1.0 / 3.0, " 0.333333333333333"}};
    for (const auto& [value, text] : doubles) EXPECT_EQ(StrForm(value), text) << value;
    const std::pair<float, const char*> singles[] = {
        {123.45f, " 123.45"}, {360.0f, " 360"}, {0.01f, " 0.01"}, {-1.0f / 3.0f, "-0.3333333"}};
    for (const auto& [value, text] : singles) EXPECT_EQ(StrForm(value), text) << value;
}

// The leading number of a text, blanks skipped, with &H and &O prefixes.
TEST(ValueOfText, ReadsTheLeadingNumber) {
    const std::pair<const char*, double> cases[] = {
        {"  42abc", 42.0}, {"-5", -5.0}, {"+5.5", 5.5}, {"1 2 3", 123.0}, {"3.25.7", 3.25}, {"1e3", 1000.0},
        {"2e", 2.0}, // an exponent without digits is not part of it
        {".5", 0.5}, {"abc", 0.0}, {"", 0.0}, {"-", 0.0}, {"&H1F", 31.0}, {"&hff", 255.0}, {"&O17", 15.0},
        {"&O19", 1.0}, // 9 is no octal digit
        {"&X10", 0.0}};
    for (const auto& [text, value] : cases) EXPECT_EQ(ValueOfText(text), value) << text;
}

TEST(PlainNumber, StrictWithFallback) {
    const struct { const char* text; double fallback, value; } cases[] = {
        {"-5.5", 0, -5.5}, {" 3 ", 0, 3.0}, {"3x", -1, -1}, {"0x10", -1, -1}, {"", 7, 7}};
    for (const auto& c : cases) EXPECT_EQ(PlainNumber(c.text, c.fallback), c.value) << c.text;
    for (const char* yes : {"True", "true", " 1"}) EXPECT_TRUE(StoredBool(yes)) << yes;
    for (const char* no : {"False", "0", "maybe"}) EXPECT_FALSE(StoredBool(no)) << no;
}

TEST(DateValue, FieldsRoundToTheSecondWithCarry) {
    const double d = DateSerial(2024, 2, 29);
    const auto fields = [](double t) {
        const CalendarFields f = FieldsOf(t);
        return std::array<int, 6>{f.year, f.month, f.day, f.hour, f.minute, f.second};
    };
    EXPECT_EQ(fields(d), (std::array<int, 6>{2024, 2, 29, 0, 0, 0}));
    EXPECT_EQ(fields(d + 86399.6 / 86400.0), (std::array<int, 6>{2024, 3, 1, 0, 0, 0})); // into the next date
    EXPECT_EQ(fields(d + (3600.0 * 13 + 60 * 7 + 9.4) / 86400.0), (std::array<int, 6>{2024, 2, 29, 13, 7, 9}));
}

TEST(DateValue, KnownEpochsAndCarryingArithmetic) {
    // Day numbers and Julian dates are compared value by value by tests/reference/compare_cli.py.
    EXPECT_EQ(DateSerial(1899, 12, 30), 0.0);
    EXPECT_EQ(DateSerial(2025, 13, 1), DateSerial(2026, 1, 1));
    EXPECT_EQ(DateSerial(2026, 4, 31), DateSerial(2026, 5, 1));
    EXPECT_EQ(DateSerial(2026, 3, 0), DateSerial(2026, 2, 28));
    EXPECT_EQ(DateSerial(2026, 0, 15), DateSerial(2025, 12, 15));
    EXPECT_EQ(DateSerial(2100, 2, 29), DateSerial(2100, 3, 1)); // 2100 is no leap year
    EXPECT_DOUBLE_EQ(TimeSerial(25, 0, 0), 25.0 / 24.0);
}

// Date masks ("mm" after an hour is the minute) and instants parsed or refused.
TEST(DateValue, MasksAndInstants) {
    const double t = DateSerial(2026, 7, 4) + TimeSerial(9, 5, 3);
    const std::pair<const char*, const char*> masks[] = {{"yyyy/mm/dd", "2026/07/04"}, {"dd/mm/yy", "04/07/26"},
                                                         {"HH:MM:SS", "09:05:03"}, {"hh:nn:ss", "09:05:03"},
                                                         {"mm", "07"}};
    for (const auto& [mask, text] : masks) EXPECT_EQ(FormatDateMask(t, mask), text) << mask;
    EXPECT_EQ(ParseIsoDateTime("2000-01-01 12:00:00"), DateSerial(2000, 1, 1) + 0.5);
    EXPECT_EQ(ParseIsoDateTime("2000-01-01"), DateSerial(2000, 1, 1));
    for (const char* bad : {"2026-04-31", "2026-01-01 24:00:00", "yesterday", "2026-01-01 10:00:00x"})
        EXPECT_FALSE(ParseIsoDateTime(bad)) << bad;
}
