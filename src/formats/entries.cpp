#include "formats/entries.h"

#include "core/text_forms.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>

namespace tarvelle {

namespace {

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

// Past the line end at i (CR LF counts as one).
size_t SkipLineEnd(const std::string& text, size_t i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') return i + 2;
    return i + 1;
}

} // namespace

std::vector<std::string> SplitEntries(const std::string& text, size_t maxEntries) {
    std::vector<std::string> entries;
    size_t i = 0;
    const size_t n = text.size();
    while (i < n && entries.size() < maxEntries) {
        size_t start = i;
        while (start < n && text[start] == ' ') ++start;
        std::string entry;
        size_t end = start;
        if (start < n && text[start] == '"') {
            const size_t close = text.find('"', start + 1);
            entry = text.substr(start + 1, (close == std::string::npos ? n : close) - start - 1);
            end = close == std::string::npos ? n : close + 1;
            while (end < n && text[end] != ',' && !IsLineEnd(text[end])) ++end;
        } else {
            while (end < n && text[end] != ',' && !IsLineEnd(text[end])) ++end;
            entry = TrimSpaces(text.substr(start, end - start));
        }
        entries.push_back(std::move(entry));
        if (end >= n) break;
        if (text[end] == ',') {
            i = end + 1;
            // A comma just before the end of the text still ends one entry and opens another.
            if (i == n && entries.size() < maxEntries) entries.emplace_back();
        } else {
            i = SkipLineEnd(text, end);
        }
    }
    return entries;
}

bool ReadWholeFile(const std::string& path, std::string& text, std::string* error) {
    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        if (error) *error = errno != 0 ? std::strerror(errno) : "The file could not be opened.";
        return false;
    }
    std::ostringstream buffer;
    buffer << in.rdbuf();
    if (in.bad()) {
        if (error) *error = "The file could not be read.";
        return false;
    }
    text = buffer.str();
    return true;
}

} // namespace tarvelle
