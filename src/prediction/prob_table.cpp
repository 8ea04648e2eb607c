#include "prediction/prob_table.h"

#include "core/numeric.h"
#include "core/text_forms.h"

#include <exception>
#include <string_view>

namespace tarvelle {

namespace {

#include "prediction/prob_table_rows.inc"

constexpr size_t kSide = 361;

// Runs in the order they are replaced: a token must not be found inside an earlier one's run.
struct Run {
    char token;
    const char* text;
};
constexpr Run kRuns[] = {
    {'u', "8_8_8_8_8_8_8_8"},
    {'y', "12_12_12_12_12"},
    {'z', "20_20_20_20"},
    {'w', "11_11_11_11"},
};

void ReplaceAll(std::string& text, char token, std::string_view run) {
    std::string out;
    out.reserve(text.size() + run.size() * 8);
    for (char ch : text) {
        if (ch == token)
            out += run;
        else
            out += ch;
    }
    text.swap(out);
}

} // namespace

void ExpandProbRows(const std::vector<std::string>& rows, ProbabilityTable& table) {
    table.assign(kSide, {});
    std::string pool;
    for (const auto& row : rows) pool += row;

    std::string_view rest(pool);
    for (size_t r = 1; r < kSide; ++r) {
        const size_t end = rest.find('X');
        std::string row(rest.substr(0, end));
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
        for (const Run& run : kRuns) ReplaceAll(row, run.token, run.text);

        std::string_view fields(row);
        for (size_t c = 1; c < kSide - 1; ++c) {
            const size_t bar = fields.find('_');
            if (bar == std::string_view::npos) continue; // the cell keeps its 0
            table[r][c] = ValueOfText(fields.substr(0, bar + 1));
            fields.remove_prefix(bar + 1);
        }
        table[r][kSide - 1] = ValueOfText(fields);
    }
}

bool LoadProbTable(ProbabilityTable& table, std::string& failure) {
    try {
        ExpandProbRows(std::vector<std::string>(std::begin(kProbTableRows), std::end(kProbTableRows)), table);
        return true;
    } catch (const std::exception& e) {
        failure = e.what();
        return false;
    }
}

double ProbabilityAt(const ProbabilityTable& table, double io, double cml) {
    const double r = RoundHalfEven(io), c = RoundHalfEven(cml);
    if (!(r >= 0.0 && r <= 360.0 && c >= 0.0 && c <= 360.0)) return 0.0;
    const auto row = static_cast<size_t>(r), column = static_cast<size_t>(c);
    if (row >= table.size()) return 0.0;
    return table[row][column];
}

} // namespace tarvelle
