#include "formats/mode_file.h"

#include "formats/error_text.h"
#include "formats/file_io.h"

#include "core/numeric.h"
#include "core/text_forms.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

namespace tarvelle {

namespace {

constexpr int kWrittenModes = 6;
constexpr const char* kLineEnd = "\r\n";

bool IsSpace(char c) {
    return c == ' ' || c == '\t';
}

// Comma-and-line-delimited fields over the whole file, in the manner of a text input:
// a field ends at a comma or at a line end (CR LF, LF or a lone CR), which it consumes.
class FieldReader {
public:
    explicit FieldReader(const std::string& text) : text_(text) {}

    bool AtEnd() const { return pos_ >= text_.size(); }

    // The next field, or nothing when the file has ended.
    std::optional<std::string> Next() {
        if (AtEnd()) return std::nullopt;
        fieldLine_ = line_;
        const size_t start = pos_;
        while (pos_ < text_.size() && text_[pos_] != ',' && text_[pos_] != '\r' && text_[pos_] != '\n')
            ++pos_;
        std::string field = text_.substr(start, pos_ - start);
        if (pos_ < text_.size()) {
            const char end = text_[pos_++];
            if (end == '\r' && pos_ < text_.size() && text_[pos_] == '\n') ++pos_;
            if (end != ',') ++line_;
        }
        return field;
    }

    // The line, from 1, of the field Next gave last; and of the end of the text.
    int FieldLine() const { return fieldLine_; }
    int Line() const { return line_; }

private:
    const std::string& text_;
    size_t pos_ = 0;
    int line_ = 1, fieldLine_ = 1;
};

// A number field: blanks around it are ignored and an empty field is 0. A decimal fraction is
// taken and rounded like any store into a whole number. Returns 0 or the error number.
int NumberOfField(const std::string& field, int16_t& value) {
    size_t b = 0, e = field.size();
    while (b < e && IsSpace(field[b])) ++b;
    while (e > b && IsSpace(field[e - 1])) --e;
    if (b == e) {
        value = 0;
        return 0;
    }
    // Sign, digits, an optional fraction and exponent, and nothing else.
    size_t i = b;
    if (field[i] == '+' || field[i] == '-') ++i;
    size_t digits = 0;
    while (i < e && std::isdigit(static_cast<unsigned char>(field[i]))) ++i, ++digits;
    if (i < e && field[i] == '.') {
        ++i;
        while (i < e && std::isdigit(static_cast<unsigned char>(field[i]))) ++i, ++digits;
    }
    if (digits == 0) return kTypeMismatch;
    if (i < e && (field[i] == 'e' || field[i] == 'E')) {
        ++i;
        if (i < e && (field[i] == '+' || field[i] == '-')) ++i;
        size_t exponentDigits = 0;
        while (i < e && std::isdigit(static_cast<unsigned char>(field[i]))) ++i, ++exponentDigits;
        if (exponentDigits == 0) return kTypeMismatch;
    }
    if (i != e) return kTypeMismatch;
    const std::string number = field.substr(b, e - b);
    const double rounded = RoundHalfEven(std::strtod(number.c_str(), nullptr));
    if (!(rounded >= INT16_MIN && rounded <= INT16_MAX)) return kOverflow;
    value = static_cast<int16_t>(rounded);
    return 0;
}

// Records into the table as far as they go; 0 or the error number.
int ReadRecords(const std::string& text, ModeTableState& modes, int& failedLine) {
    FieldReader reader(text);
    modes.NumModes = kMaxModes;
    for (int i = 1; i <= kMaxModes; ++i) {
        std::optional<std::string> name = reader.Next();
        if (!name) {
            failedLine = reader.Line();
            return kPastEndOfFile;
        }
        modes.ModeName[i] = std::move(*name);
        for (int column = CML1; column <= IoP2; ++column) {
            const std::optional<std::string> field = reader.Next();
            if (!field) {
                failedLine = reader.Line();
                return kPastEndOfFile;
            }
            const int error = NumberOfField(*field, modes.ModeTable[i][column]);
            if (error != 0) {
                failedLine = reader.FieldLine();
                return error;
            }
        }
        // Only the end of the file ends the count, so records with empty names still count.
        if (reader.AtEnd()) {
            modes.NumModes = static_cast<int16_t>(i);
            break;
        }
    }
    return 0;
}

} // namespace

int ReadModeFile(ModeTableState& modes, int* failedLine) {
    std::string text;
    if (const int error = ReadSmallFile(modes.ModeFileName, kMaxStationFileBytes, text); error != 0) return error;
    // The file is read into a copy: a file that fails leaves the table the station had whole.
    ModeTableState read = modes;
    for (int i = 1; i <= kMaxModes; ++i) read.ModeName[i].clear();
    int line = 0;
    if (const int error = ReadRecords(text, read, line); error != 0) {
        if (failedLine) *failedLine = line;
        return error;
    }
    // Rows a shorter file leaves unfilled are cleared, so that no nameless mode lingers.
    for (int i = read.NumModes + 1; i <= kMaxModes; ++i) read.ModeTable[i] = {};
    read.ModesLoaded = true;
    modes = read;
    return 0;
}

std::string ModeFileText(const ModeTableState& modes) {
    std::string text;
    // Six records at least, as the station always wrote; every mode beyond the sixth as well.
    const int records = modes.NumModes > kWrittenModes ? std::min<int>(modes.NumModes, kMaxModes) : kWrittenModes;
    for (int i = 1; i <= records; ++i) {
        text += modes.ModeName[i];
        text += kLineEnd;
        for (int column = CML1; column <= IoP2; ++column) {
            const int16_t v = modes.ModeTable[i][column];
            text += (v >= 0 ? " " : "") + std::to_string(v) + " " + kLineEnd;
        }
    }
    return text;
}

FileFailure WriteModeFile(const ModeTableState& modes, const std::string& path) {
    return WriteFileAtomically(path, ModeFileText(modes));
}

ModeEditRows ModeEditRowsOf(const ModeTableState& modes) {
    ModeEditRows rows{};
    const int count = modes.NumModes < kMaxModes ? modes.NumModes : kMaxModes;
    for (int i = 1; i <= count; ++i) {
        rows[i - 1].name = modes.ModeName[i];
        for (int column = CML1; column <= IoP2; ++column)
            rows[i - 1].numbers[column - 1] = std::to_string(modes.ModeTable[i][column]);
    }
    return rows;
}

void ApplyModeEdits(ModeTableState& modes, const ModeEditRows& rows) {
    // The tenth row is shown but its name is never read back.
    for (int i = 1; i <= kMaxModes - 1; ++i) {
        modes.ModeName[i] = Trim(rows[i - 1].name);
        if (modes.ModeName[i].empty()) {
            modes.NumModes = static_cast<int16_t>(i - 1);
            break;
        }
    }
    const int count = modes.NumModes < kMaxModes ? modes.NumModes : kMaxModes;
    for (int i = 1; i <= count; ++i) {
        for (int column = CML1; column <= IoP2; ++column) {
            const double v = RoundHalfEven(ValueOfText(rows[i - 1].numbers[column - 1]));
            if (v >= INT16_MIN && v <= INT16_MAX) modes.ModeTable[i][column] = static_cast<int16_t>(v);
        }
    }
}

} // namespace tarvelle
