// Script files (.scp): plain text, one command a line. The interpreter keeps only the lines
// that can hold a command; the Script Builder keeps every line as written.
#pragma once

#include "core/text_forms.h" // SplitTextLines

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvelle {

inline constexpr size_t kScriptStoredLines = 1001; // indices 0 to 1000

// True for a line the interpreter drops: 2 bytes or fewer, or a comment ("\\" first).
bool IsDroppedScriptLine(std::string_view line);

// The interpreter's array: the kept lines (at most 1,001, the surplus lost), then two empty
// entries. nullopt when the file cannot be read; the caller then holds 1,001 empty entries.
std::optional<std::vector<std::string>> ReadScriptLines(const std::string& path);

// Every line of the file as written, for editing; nullopt when it cannot be read.
std::optional<std::vector<std::string>> ReadScriptText(const std::string& path);

// Replaces the file in one step with each entry as one line ended by CR LF; false when it
// cannot be written (the old file then stays whole).
bool WriteScriptText(const std::string& path, const std::vector<std::string>& lines);

// The path of an existing file that matches path whatever the case of each name along it, or
// path itself when none does. Scripts written for a case-blind file system name files in any
// case.
std::string FindFileAnyCase(const std::string& path);

// Upper case of the letters a to z only; every other byte stays.
std::string UpperAscii(std::string_view text);

} // namespace tarvelle
