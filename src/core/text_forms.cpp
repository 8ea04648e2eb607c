#include "core/text_forms.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <vector>

namespace tarvelle {

namespace {

std::string GeneralText(double x, int significant) {
    if (x == 0.0) x = 0.0; // no "-0"
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*G", significant, x);
    std::string text(buf);
    return x < 0.0 ? text : " " + text;
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

double ReadDigits(const std::string& s, size_t& i, int base) {
    double value = 0.0;
    while (i < s.size()) {
        const char c = static_cast<char>(std::tolower(static_cast<unsigned char>(s[i])));
        int digit = -1;
        if (c >= '0' && c <= '9')
            digit = c - '0';
        else if (c >= 'a' && c <= 'f')
            digit = 10 + (c - 'a');
        if (digit < 0 || digit >= base) break;
        value = value * base + digit;
        ++i;
    }
    return value;
}

constexpr long long kPow10[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

// |x| scaled by 10^decimals and rounded, halves away from zero, where the scaled value is far
// enough from a half that the rounding of the multiplication cannot change the decision.
std::optional<long long> FastRounded(double a, int decimals) {
    if (decimals < 0 || decimals > 8) return std::nullopt;
    const double scaled = a * static_cast<double>(kPow10[decimals]);
    if (!(scaled < 4e15)) return std::nullopt;
    const double whole = std::floor(scaled);
    const double frac = scaled - whole;
    // With no decimals the value is exact and so is the tie; otherwise keep clear of it.
    const double margin = decimals == 0 ? 0.0 : 8.0 * scaled * 0x1p-52 + 0x1p-60;
    if (decimals == 0 && frac == 0.5) return static_cast<long long>(whole) + 1;
    if (std::fabs(frac - 0.5) <= margin) return std::nullopt;
    return static_cast<long long>(whole) + (frac > 0.5 ? 1 : 0);
}

void AppendPadded(std::string& out, long long v, int width) {
    char buf[24];
    const auto [end, ec] = std::to_chars(buf, buf + sizeof buf, v);
    (void)ec;
    for (int n = static_cast<int>(end - buf); n < width; ++n) out += '0';
    out.append(buf, end);
}

// The decimal digits of |x| rounded to `decimals` places, halves away from zero, decided on
// the exact binary value. Returns the digits with the decimal point removed.
std::string RoundedDigits(double a, int decimals) {
    // Enough places that any digit past the rounding position shows, unless a run of nines
    // was rounded up into what looks like a tie; only then print the exact expansion.
    auto print = [a](int precision) {
        std::vector<char> buf(static_cast<size_t>(precision) + 400);
        std::snprintf(buf.data(), buf.size(), "%.*f", precision, a);
        return std::string(buf.data());
    };
    std::string text = print(decimals + 25);
    auto looksLikeTie = [decimals](const std::string& t) {
        const size_t point = t.find('.');
        const size_t at = point + 1 + static_cast<size_t>(decimals);
        if (t[at] != '5') return false;
        for (size_t i = at + 1; i < t.size(); ++i)
            if (t[i] != '0') return false;
        return true;
    };
    if (looksLikeTie(text)) text = print(1100);

    const size_t point = text.find('.');
    std::string digits = text.substr(0, point) + text.substr(point + 1, static_cast<size_t>(decimals));
    const char next = text[point + 1 + static_cast<size_t>(decimals)];
    if (next >= '5') { // the rest beyond is at least a half: away from zero
        size_t i = digits.size();
        while (i > 0) {
            --i;
            if (digits[i] == '9') {
                digits[i] = '0';
            } else {
                ++digits[i];
                break;
            }
            if (i == 0) digits.insert(digits.begin(), '1');
        }
    }
    return digits;
}

} // namespace

std::string StrForm(double x) {
    return GeneralText(x, 15);
}
std::string StrForm(float x) {
    return GeneralText(static_cast<double>(x), 7);
}

double ValueOfText(std::string_view text) {
    std::string s;
    for (char c : text)
        if (!IsBlank(c)) s += c;
    size_t i = 0;
    if (s.size() >= 2 && s[0] == '&') {
        const char kind = static_cast<char>(std::tolower(static_cast<unsigned char>(s[1])));
        i = 2;
        if (kind == 'h') return ReadDigits(s, i, 16);
        if (kind == 'o') return ReadDigits(s, i, 8);
        return 0.0;
    }
    // Find the longest prefix of the form [sign] digits [. digits] [exponent].
    size_t end = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    size_t mantissaDigits = 0;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) ++i, ++mantissaDigits;
    if (i < s.size() && s[i] == '.') {
        ++i;
        while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) ++i, ++mantissaDigits;
    }
    if (mantissaDigits == 0) return 0.0;
    end = i;
    if (i < s.size() && std::strchr("eEdD", s[i]) != nullptr) {
        size_t j = i + 1;
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
        const size_t firstExpDigit = j;
        while (j < s.size() && std::isdigit(static_cast<unsigned char>(s[j]))) ++j;
        if (j > firstExpDigit) end = j;
    }
    std::string number = s.substr(0, end);
    for (char& c : number)
        if (c == 'd' || c == 'D') c = 'e';
    const double value = std::strtod(number.c_str(), nullptr);
    return std::isfinite(value) ? value : 0.0;
}

std::string FormatNumberMask(double x, std::string_view mask) {
    const size_t point = mask.find('.');
    const std::string_view whole = mask.substr(0, point);
    const std::string_view fraction =
        point == std::string_view::npos ? std::string_view{} : mask.substr(point + 1);
    int wholeZeros = 0;
    for (char c : whole)
        if (c == '0') ++wholeZeros;
    const int decimals = static_cast<int>(fraction.size());

    if (const auto r = FastRounded(std::fabs(x), decimals)) {
        const long long wholeValue = *r / kPow10[decimals];
        long long part = *r % kPow10[decimals];
        int shown = decimals; // trailing fraction digits under a # show only when not zero
        while (shown > 0 && fraction[static_cast<size_t>(shown) - 1] == '#' && part % 10 == 0) {
            part /= 10;
            --shown;
        }
        std::string text = x < 0.0 ? "-" : "";
        if (wholeValue != 0 || wholeZeros > 0) AppendPadded(text, wholeValue, wholeZeros);
        if (point != std::string_view::npos) {
            text += '.';
            if (shown > 0) AppendPadded(text, part, shown);
        }
        return text;
    }

    const std::string digits = RoundedDigits(std::fabs(x), decimals);
    std::string wholeDigits = digits.substr(0, digits.size() - static_cast<size_t>(decimals));
    std::string fractionDigits = digits.substr(digits.size() - static_cast<size_t>(decimals));

    // Leading zeros of the whole part show only where the mask has a 0 for them.
    size_t firstSignificant = wholeDigits.find_first_not_of('0');
    if (firstSignificant == std::string::npos) firstSignificant = wholeDigits.size();
    wholeDigits.erase(0, firstSignificant);
    while (static_cast<int>(wholeDigits.size()) < wholeZeros) wholeDigits.insert(wholeDigits.begin(), '0');

    // Trailing fraction digits under a # show only when they are not zero.
    size_t keep = fractionDigits.size();
    while (keep > 0 && fraction[keep - 1] == '#' && fractionDigits[keep - 1] == '0') --keep;
    fractionDigits.resize(keep);

    std::string text = x < 0.0 ? "-" : "";
    text += wholeDigits;
    if (point != std::string_view::npos) text += "." + fractionDigits;
    return text;
}

double PlainNumber(std::string_view text, double fallback) {
    const std::string t = Trim(text);
    if (t.empty() || t.find_first_not_of("+-.0123456789eE") != std::string::npos) return fallback;
    char* end = nullptr;
    const double value = std::strtod(t.c_str(), &end);
    if (end == t.c_str() || *end != '\0' || !std::isfinite(value)) return fallback;
    return value;
}

std::optional<bool> ReadStoredBool(std::string_view text) {
    const std::string t = ToLower(Trim(text));
    if (t == "true") return true;
    if (t == "false") return false;
    const double v = PlainNumber(t, std::nan(""));
    if (std::isnan(v)) return std::nullopt;
    return v != 0.0;
}

bool StoredBool(std::string_view text) {
    return ReadStoredBool(text).value_or(false);
}

std::string Trim(std::string_view text) {
    size_t b = 0, e = text.size();
    while (b < e && IsBlank(text[b])) ++b;
    while (e > b && IsBlank(text[e - 1])) --e;
    return std::string(text.substr(b, e - b));
}

std::string TrimSpaces(std::string_view text) {
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::vector<std::string> SplitTextLines(std::string_view text) {
    std::vector<std::string> lines;
    size_t start = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' && text[i] != '\n') continue;
        lines.emplace_back(text.substr(start, i - start));
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        start = i + 1;
    }
    if (start < text.size()) lines.emplace_back(text.substr(start));
    return lines;
}

std::string ToLower(std::string_view text) {
    std::string s(text);
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

} // namespace tarvelle
