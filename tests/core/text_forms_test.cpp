// The shared text forms: what the user reads must be the same on every machine.
#include "core/date_value.h"
#include "core/text_forms.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace tarvelle;

TEST(NumberMask, RoundsExactHalvesAwayFromZero) {
    EXPECT_EQ(FormatNumberMask(2.5, "0"), "3");
    EXPECT_EQ(FormatNumberMask(-2.5, "0"), "-3");
    EXPECT_EQ(FormatNumberMask(3.5, "0"), "4");
    EXPECT_EQ(FormatNumberMask(0.125, "0.00"), "0.13"); // 0.125 is exact in binary
    EXPECT_EQ(FormatNumberMask(59.5, "00"), "60");
    // 2.675 is really 2.67499999... in binary: not a half, so it rounds down.
    EXPECT_EQ(FormatNumberMask(2.675, "0.00"), "2.67");
    // Decimal fractions that sit a hair off a half in binary go the way of their exact value.
    EXPECT_EQ(FormatNumberMask(0.05, "0.0"), "0.1");    // 0.05000000000000000277
    EXPECT_EQ(FormatNumberMask(0.15, "0.0"), "0.1");    // 0.14999999999999999445
    EXPECT_EQ(FormatNumberMask(1.005, "0.00"), "1.00"); // 1.00499999999999989342
    EXPECT_EQ(FormatNumberMask(-0.35, "0.0"), "-0.3");  // -0.34999999999999997780
    EXPECT_EQ(FormatNumberMask(1e17, "0.0"), "100000000000000000.0");
    // A long run of nines past the rounding place is not mistaken for a half.
    EXPECT_EQ(FormatNumberMask(0.4999999999999999, "0"), "0");
}

TEST(NumberMask, PadsTruncatesAndShowsSign) {
    EXPECT_EQ(FormatNumberMask(7, "00"), "07");
    EXPECT_EQ(FormatNumberMask(123, "00"), "123"); // a longer whole part shows in full
    EXPECT_EQ(FormatNumberMask(5.25, "000.0"), "005.3");
    EXPECT_EQ(FormatNumberMask(-5.3, "00.0"), "-05.3");
    EXPECT_EQ(FormatNumberMask(-0.04, "00.0"), "-00.0"); // negative values keep their minus
    EXPECT_EQ(FormatNumberMask(359.996, "000.00"), "360.00");
    EXPECT_EQ(FormatNumberMask(99.96, "00.0"), "100.0"); // carry through every digit
}

TEST(NumberMask, HashDigitsShowOnlyWhenNeeded) {
    EXPECT_EQ(FormatNumberMask(3, "##"), "3");
    EXPECT_EQ(FormatNumberMask(0, "##"), "");
    EXPECT_EQ(FormatNumberMask(0, "#0"), "0");
    EXPECT_EQ(FormatNumberMask(12, "#0"), "12");
    EXPECT_EQ(FormatNumberMask(0.5, "#.##"), ".5");
}

TEST(StrForm, LeadingBlankForNonNegative) {
    EXPECT_EQ(StrForm(7.0), " 7");
    EXPECT_EQ(StrForm(-7.0), "-7");
    EXPECT_EQ(StrForm(0.0), " 0");
    EXPECT_EQ(StrForm(-0.0), " 0");
    EXPECT_EQ(StrForm(0.1), " 0.1");
    EXPECT_EQ(StrForm(1.0 / 3.0), " 0.333333333333333");
}

TEST(StrForm, SingleShowsSevenSignificantDigits) {
    EXPECT_EQ(StrForm(123.45f), " 123.45"); // not 123.449997
    EXPECT_EQ(StrForm(360.0f), " 360");
    EXPECT_EQ(StrForm(0.01f), " 0.01");
    EXPECT_EQ(StrForm(-1.0f / 3.0f), "-0.3333333");
}

TEST(ValueOfText, ReadsTheLeadingNumber) {
    EXPECT_EQ(ValueOfText("  42abc"), 42.0);
    EXPECT_EQ(ValueOfText("-5"), -5.0);
    EXPECT_EQ(ValueOfText("+5.5"), 5.5);
    EXPECT_EQ(ValueOfText("1 2 3"), 123.0); // blanks are skipped
    EXPECT_EQ(ValueOfText("3.25.7"), 3.25);
    EXPECT_EQ(ValueOfText("1e3"), 1000.0);
    EXPECT_EQ(ValueOfText("2e"), 2.0); // an exponent without digits is not part of it
    EXPECT_EQ(ValueOfText(".5"), 0.5);
    EXPECT_EQ(ValueOfText("abc"), 0.0);
    EXPECT_EQ(ValueOfText(""), 0.0);
    EXPECT_EQ(ValueOfText("-"), 0.0);
}

TEST(ValueOfText, HexAndOctalPrefixes) {
    EXPECT_EQ(ValueOfText("&H1F"), 31.0);
    EXPECT_EQ(ValueOfText("&hff"), 255.0);
    EXPECT_EQ(ValueOfText("&O17"), 15.0);
    EXPECT_EQ(ValueOfText("&O19"), 1.0); // 9 is no octal digit
    EXPECT_EQ(ValueOfText("&X10"), 0.0);
}

TEST(PlainNumber, StrictWithFallback) {
    EXPECT_EQ(PlainNumber("-5.5"), -5.5);
    EXPECT_EQ(PlainNumber(" 3 "), 3.0);
    EXPECT_EQ(PlainNumber("3x", -1.0), -1.0);
    EXPECT_EQ(PlainNumber("0x10", -1.0), -1.0);
    EXPECT_EQ(PlainNumber("", 7.0), 7.0);
    EXPECT_TRUE(StoredBool("True"));
    EXPECT_TRUE(StoredBool("true"));
    EXPECT_FALSE(StoredBool("False"));
    EXPECT_TRUE(StoredBool(" 1"));
    EXPECT_FALSE(StoredBool("0"));
    EXPECT_FALSE(StoredBool("maybe"));
}

TEST(DateValue, FieldsRoundToTheSecondWithCarry) {
    const double d = DateSerial(2024, 2, 29);
    CalendarFields f = FieldsOf(d);
    EXPECT_EQ(f.year, 2024);
    EXPECT_EQ(f.month, 2);
    EXPECT_EQ(f.day, 29);
    // 23:59:59.6 rounds up into the next date.
    f = FieldsOf(d + (86399.6 / 86400.0));
    EXPECT_EQ(f.month, 3);
    EXPECT_EQ(f.day, 1);
    EXPECT_EQ(f.hour, 0);
    EXPECT_EQ(f.second, 0);
    f = FieldsOf(d + (3600.0 * 13 + 60 * 7 + 9.4) / 86400.0);
    EXPECT_EQ(f.hour, 13);
    EXPECT_EQ(f.minute, 7);
    EXPECT_EQ(f.second, 9);
}

TEST(DateValue, KnownEpochsAndCarryingArithmetic) {
    EXPECT_EQ(DateSerial(1899, 12, 30), 0.0);
    EXPECT_EQ(DateSerial(1900, 1, 1), 2.0);
    EXPECT_EQ(DateSerial(2000, 1, 1), 36526.0); // JD 2451544.5 less 2415018.5
    EXPECT_EQ(JulianDate(DateSerial(2000, 1, 1) + 0.5), 2451545.0);
    EXPECT_EQ(DateSerial(2025, 13, 1), DateSerial(2026, 1, 1));
    EXPECT_EQ(DateSerial(2026, 4, 31), DateSerial(2026, 5, 1));
    EXPECT_EQ(DateSerial(2026, 3, 0), DateSerial(2026, 2, 28));
    EXPECT_EQ(DateSerial(2026, 0, 15), DateSerial(2025, 12, 15));
    EXPECT_EQ(DateSerial(2100, 2, 29), DateSerial(2100, 3, 1)); // 2100 is no leap year
    EXPECT_DOUBLE_EQ(TimeSerial(25, 0, 0), 25.0 / 24.0);
}

TEST(DateValue, MasksAndMinuteAfterHour) {
    const double t = DateSerial(2026, 7, 4) + TimeSerial(9, 5, 3);
    EXPECT_EQ(FormatDateMask(t, "yyyy/mm/dd"), "2026/07/04");
    EXPECT_EQ(FormatDateMask(t, "dd/mm/yy"), "04/07/26");
    EXPECT_EQ(FormatDateMask(t, "HH:MM:SS"), "09:05:03"); // mm after an hour is the minute
    EXPECT_EQ(FormatDateMask(t, "hh:nn:ss"), "09:05:03");
    EXPECT_EQ(FormatDateMask(t, "mm"), "07");
}

TEST(DateValue, ParsesInstants) {
    EXPECT_EQ(ParseIsoDateTime("2000-01-01 12:00:00"), DateSerial(2000, 1, 1) + 0.5);
    EXPECT_EQ(ParseIsoDateTime("2000-01-01"), DateSerial(2000, 1, 1));
    EXPECT_FALSE(ParseIsoDateTime("2026-04-31"));
    EXPECT_FALSE(ParseIsoDateTime("2026-01-01 24:00:00"));
    EXPECT_FALSE(ParseIsoDateTime("yesterday"));
    EXPECT_FALSE(ParseIsoDateTime("2026-01-01 10:00:00x"));
}
