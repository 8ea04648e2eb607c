#include "formats/antenna_file.h"

#include "core/numeric.h"
#include "core/text_forms.h"
#include "formats/entries.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <optional>

namespace tarvelle {

namespace {

constexpr const char* kBreak = "\r\n";

std::string Upper(std::string s) {
    std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return s;
}

// A decimal number and nothing else: optional sign, digits with an optional point, optional
// exponent. Empty text is not a number.
std::optional<double> StrictNumber(const std::string& text) {
    size_t i = 0;
    const size_t n = text.size();
    if (i < n && (text[i] == '+' || text[i] == '-')) ++i;
    size_t digits = 0;
    while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, ++digits;
    if (i < n && text[i] == '.') {
        ++i;
        while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, ++digits;
    }
    if (digits == 0) return std::nullopt;
    if (i < n && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < n && (text[i] == '+' || text[i] == '-')) ++i;
        size_t expDigits = 0;
        while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, ++expDigits;
        if (expDigits == 0) return std::nullopt;
    }
    if (i != n) return std::nullopt;
    const double v = std::strtod(text.c_str(), nullptr);
    if (!std::isfinite(v)) return std::nullopt;
    return v;
}

// A value that is not a number ends the load; it carries the system's words for it.
struct NotANumber {
    std::string description;
};

double Number(const std::string& entry) {
    const std::string text = iVal(entry);
    if (const auto v = StrictNumber(text)) return *v;
    throw NotANumber{"Type mismatch: \"" + text + "\" is not a number."};
}

// The last entry that holds key (in capitals), or nothing.
std::optional<std::string> LastWithKey(const std::vector<std::string>& entries,
                                       const std::vector<std::string>& upper, const char* key) {
    std::optional<std::string> found;
    for (size_t i = 0; i < entries.size(); ++i)
        if (upper[i].find(key) != std::string::npos) found = entries[i];
    return found;
}

// Index of the first entry that holds marker followed by text whose value is lobe k.
std::optional<size_t> FindMarker(const std::vector<std::string>& entries, const char* marker, int k) {
    const size_t length = std::strlen(marker);
    for (size_t i = 0; i < entries.size(); ++i) {
        const size_t at = entries[i].find(marker);
        if (at == std::string::npos) continue;
        if (RoundHalfEven(ValueOfText(std::string_view(entries[i]).substr(at + length))) == k) return i;
    }
    return std::nullopt;
}

void ReadLobeKeys(const std::vector<std::string>& entries, const std::vector<std::string>& upper, size_t from,
                  size_t to, AntennaLobe& lobe) {
    const std::pair<const char*, double AntennaLobe::*> keys[] = {
        {"ALT =", &AntennaLobe::ALT},   {"AZ =", &AntennaLobe::AZ},     {"DEC =", &AntennaLobe::DEC},
        {"RA =", &AntennaLobe::RA},     {"EWBW =", &AntennaLobe::EWBW}, {"NSBW =", &AntennaLobe::NSBW},
        {"GAIN =", &AntennaLobe::GAIN}};
    for (size_t i = from + 1; i < to; ++i)
        for (const auto& [key, field] : keys)
            if (upper[i].find(key) != std::string::npos) lobe.*field = Number(entries[i]);
}

AntennaLoad Failure(AntennaStatus status, std::string message) { return {status, std::move(message), {}}; }

AntennaLoad LoadFailure(const std::string& path, const std::string& description) {
    return {AntennaStatus::LoadError,
            std::string("There was and an error loading:") + kBreak + kBreak + path + kBreak + kBreak + description,
            "Antenna File Load Error"};
}

} // namespace

std::string iVal(const std::string& line) {
    const size_t eq = line.find('=');
    if (eq == std::string::npos) return {};
    const std::string rest = line.substr(eq + 1);
    const size_t first = rest.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return rest.substr(first, rest.find_last_not_of(' ') - first + 1);
}

AntennaLoad ReadAntennaFile(const std::string& path, Antenna& antenna) {
    std::string text, failure;
    if (!ReadWholeFile(path, text, &failure)) return LoadFailure(path, failure);
    const std::vector<std::string> entries = SplitEntries(text, kAntennaEntries);
    if (entries.empty()) return Failure(AntennaStatus::Empty, "Empty Antenna File: " + path);
    std::vector<std::string> upper;
    upper.reserve(entries.size());
    for (const std::string& e : entries) upper.push_back(Upper(e));
    if (std::none_of(entries.begin(), entries.end(),
                     [](const std::string& e) { return e.find("ANTENNA FILE") != std::string::npos; }))
        return Failure(AntennaStatus::NotAntenna, path + kBreak + kBreak + "Not recognized as an antenna file!");

    const std::string lobesEntry = LastWithKey(entries, upper, "LOBES =").value_or("");
    if (ValueOfText(iVal(lobesEntry)) == 0.0)
        return Failure(AntennaStatus::NoLobes, std::string("No Lobes defined in antenna file:") + kBreak + kBreak + path);
    try {
        const double count = RoundHalfEven(Number(lobesEntry));
        if (count < 0.0 || count > 32767.0) return LoadFailure(path, "Subscript out of range.");
        const int n = static_cast<int>(count);
        // No file of 1001 entries holds more lobes than that; the markers end the load earlier.
        antenna.Lobes.assign(static_cast<size_t>(std::min<int>(n, static_cast<int>(kAntennaEntries))) + 1, {});
        for (int k = 1; k <= n; ++k) {
            const auto start = FindMarker(entries, "START LOBE ", k);
            const auto end = FindMarker(entries, "END LOBE ", k);
            if (!start || !end || static_cast<long>(*end) - static_cast<long>(*start) < 4)
                return Failure(AntennaStatus::LobeError, "There was an error in the lobe definition " +
                                                             StrForm(static_cast<double>(k)) + "  in:" + kBreak + path);
            ReadLobeKeys(entries, upper, *start, *end, antenna.Lobes[static_cast<size_t>(k)]);
        }
    } catch (const NotANumber& e) {
        return LoadFailure(path, e.description);
    }
    antenna.AntPic = iVal(LastWithKey(entries, upper, "PIC =").value_or(""));
    antenna.AntHeight = iVal(LastWithKey(entries, upper, "HEIGHT =").value_or(""));
    antenna.AntName = iVal(LastWithKey(entries, upper, "NAME =").value_or(""));
    return {};
}

AntennaNameRead ReadAntennaName(const std::string& path) {
    AntennaNameRead result;
    std::string text;
    if (!ReadWholeFile(path, text, &result.failure)) return result;
    const std::vector<std::string> entries = SplitEntries(text, kAntennaEntries);
    if (entries.empty()) {
        result.status = "Empty Antenna File.";
        return result;
    }
    bool magic = false;
    for (const std::string& e : entries) {
        if (e.find("ANTENNA FILE") != std::string::npos) magic = true;
        if (Upper(e).find("NAME =") != std::string::npos) result.name = iVal(e);
    }
    if (!magic) result.status = "Not recognized as an antenna file!";
    return result;
}

std::string AntennaNumberText(double x) { return Trim(StrForm(x)); }

std::string WriteAntennaFile(const std::string& path, const Antenna& antenna, int lobeCount) {
    errno = 0;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) return errno != 0 ? std::strerror(errno) : "The file could not be written.";
    const auto line = [&out](const std::string& s) { out << s << kBreak; };
    line("ANTENNA FILE");
    line("NAME = " + antenna.AntName);
    line("PIC = " + antenna.AntPic);
    line("HEIGHT = " + antenna.AntHeight);
    line("LOBES = " + std::to_string(lobeCount));
    for (int k = 1; k <= lobeCount && k < static_cast<int>(antenna.Lobes.size()); ++k) {
        const AntennaLobe& lobe = antenna.Lobes[static_cast<size_t>(k)];
        line("START LOBE " + std::to_string(k));
        line("ALT = " + AntennaNumberText(lobe.ALT));
        line("AZ = " + AntennaNumberText(lobe.AZ));
        line("NSBW = " + AntennaNumberText(lobe.NSBW));
        line("EWBW = " + AntennaNumberText(lobe.EWBW));
        line("GAIN = " + AntennaNumberText(lobe.GAIN));
        line("END LOBE " + std::to_string(k));
    }
    out.flush();
    if (!out) return "The file could not be written.";
    return {};
}

} // namespace tarvelle
