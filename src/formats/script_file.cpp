#include "formats/script_file.h"

#include "formats/file_io.h"

#include <filesystem>
#include <system_error>

namespace tarvelle {

namespace {

std::optional<std::string> ReadWhole(const std::string& path) {
    std::string text;
    if (ReadSmallFile(path, kMaxStationFileBytes, text) != 0) return std::nullopt;
    return text;
}

bool SameIgnoringCase(const std::string& a, const std::string& b) {
    return UpperAscii(a) == UpperAscii(b);
}

} // namespace

std::string UpperAscii(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return out;
}

bool IsDroppedScriptLine(std::string_view line) {
    return line.size() <= 2 || line.substr(0, 2) == "\\\\";
}

std::optional<std::vector<std::string>> ReadScriptLines(const std::string& path) {
    const auto text = ReadWhole(path);
    if (!text) return std::nullopt;
    std::vector<std::string> kept;
    for (std::string& line : SplitTextLines(*text)) {
        if (IsDroppedScriptLine(line)) continue;
        if (kept.size() < kScriptStoredLines) kept.push_back(std::move(line));
    }
    kept.resize(kept.size() + 2); // two empty entries close every script
    return kept;
}

std::optional<std::vector<std::string>> ReadScriptText(const std::string& path) {
    const auto text = ReadWhole(path);
    if (!text) return std::nullopt;
    return SplitTextLines(*text);
}

bool WriteScriptText(const std::string& path, const std::vector<std::string>& lines) {
    std::string bytes;
    for (const std::string& line : lines) bytes += line + "\r\n";
    return WriteFileAtomically(path, bytes).number == 0;
}

std::string FindFileAnyCase(const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path wanted(path);
    if (fs::exists(wanted, ec)) return path;
    fs::path found = wanted.is_absolute() ? wanted.root_path() : fs::path();
    for (const fs::path& part : wanted.relative_path()) {
        const fs::path exact = found / part;
        if (fs::exists(exact, ec)) {
            found = exact;
            continue;
        }
        bool matched = false;
        const fs::path dir = found.empty() ? fs::path(".") : found;
        for (const auto& entry : fs::directory_iterator(dir, ec)) {
            if (SameIgnoringCase(entry.path().filename().string(), part.string())) {
                found = found / entry.path().filename();
                matched = true;
                break;
            }
        }
        if (!matched) return path;
    }
    return found.string();
}

} // namespace tarvelle
