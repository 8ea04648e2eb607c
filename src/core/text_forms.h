// The text forms every part of the program shares: the Str form of a number, the value of a
// text, and number masks. They are part of what the user reads, so they are exact.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvelle {

// Str form: decimal text with one leading blank when not negative, a minus sign otherwise.
// A double shows up to 15 significant digits, a single up to 7, trailing zeros dropped.
std::string StrForm(double x);
std::string StrForm(float x);

// Value of a text: its leading number. Blanks are skipped, "&H" and "&O" read hexadecimal
// and octal, reading stops at the first character that cannot belong to the number, and a
// text without a number is 0.
double ValueOfText(std::string_view text);

// A number as a mask pictures it: 0 a digit that always shows, # a digit that shows when
// needed, . the decimal point. An exact half rounds away from zero; a negative value takes a
// leading minus; a whole part longer than the mask shows in full.
std::string FormatNumberMask(double x, std::string_view mask);

// Plain number rule of the settings store: a decimal point and a leading sign. A text that is
// not a number gives the fallback.
double PlainNumber(std::string_view text, double fallback = 0.0);

// A stored boolean: "True"/"False" in any case, or a number (non-zero is true); blanks around
// allowed. ReadStoredBool gives nothing for any other text, StoredBool false.
std::optional<bool> ReadStoredBool(std::string_view text);
bool StoredBool(std::string_view text);

std::string Trim(std::string_view text);
// Trim of blanks (spaces) only: tabs and line ends stay.
std::string TrimSpaces(std::string_view text);

// The lines of a text in bytes: ends are CR LF, LF or a lone CR; a last line without an end
// counts.
std::vector<std::string> SplitTextLines(std::string_view text);
std::string ToLower(std::string_view text);

} // namespace tarvelle
