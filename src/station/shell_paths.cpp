#include "station/shell_paths.h"

#include <algorithm>
#include <deque>
#include <filesystem>
#include <set>
#include <system_error>

namespace tarvelle {

namespace fs = std::filesystem;

std::string StripTrailingSlash(std::string_view path) {
    while (!path.empty() && path.back() == '/') path.remove_suffix(1);
    return std::string(path);
}

std::string LastPathPart(std::string_view path) {
    const size_t slash = path.rfind('/');
    return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

namespace {

struct Entry {
    std::string name;
    bool isFolder = false;
};

// The entries of one folder in name order; nothing if it cannot be read.
std::vector<Entry> FolderEntries(const std::string& folder) {
    std::vector<Entry> entries;
    std::error_code ec;
    fs::directory_iterator it(folder, ec);
    for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
        std::error_code typeError;
        const bool isFolder = it->is_directory(typeError); // follows links
        entries.push_back({it->path().filename().string(), isFolder && !typeError});
    }
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.name < b.name; });
    return entries;
}

// One key for every road to the same folder, so that a link back up is walked only once.
std::string FolderKey(const std::string& folder) {
    std::error_code ec;
    const fs::path canonical = fs::canonical(folder, ec);
    return ec ? folder : canonical.string();
}

} // namespace

void ListFiles(const std::string& root, std::vector<std::string>& files, int& folderCount, int& fileCount) {
    folderCount = 0;
    fileCount = 0;
    std::deque<std::string> queue{root};
    std::set<std::string> walked{FolderKey(root)};
    while (!queue.empty()) {
        const std::string folder = std::move(queue.front());
        queue.pop_front();
        for (const Entry& entry : FolderEntries(folder)) {
            std::string full = folder + "/" + entry.name;
            if (entry.isFolder) {
                if (!walked.insert(FolderKey(full)).second) continue;
                queue.push_back(std::move(full));
                ++folderCount;
            } else {
                files.push_back(std::move(full));
                ++fileCount;
            }
        }
    }
}

bool MakeFolder(const std::string& path, std::string& error) {
    if (path.empty()) {
        error = "no folder was given";
        return false;
    }
    std::error_code ec;
    fs::create_directories(path, ec);
    if (!ec && fs::is_directory(path, ec)) return true;
    error = "could not create folder " + path;
    if (ec) error += " (" + ec.message() + ")";
    return false;
}

} // namespace tarvelle
