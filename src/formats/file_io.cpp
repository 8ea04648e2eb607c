#include "formats/file_io.h"

#include "formats/error_text.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tarvelle {

namespace {

FileFailure FailureOfErrno(int error, bool opening) {
    const std::string words = std::strerror(error);
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return {kPathNotFound, "Path not found (" + words + ")"};
    case ENOSPC:
        return {kDiskFull, "Disk full (" + words + ")"};
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return {kPathFileAccess, "Path/File access error (" + words + ")"};
    default:
        return opening ? FileFailure{kPathFileAccess, "Path/File access error (" + words + ")"}
                       : FileFailure{kDeviceIO, "Device I/O error (" + words + ")"};
    }
}

} // namespace

int ReadSmallFile(const std::string& path, size_t maxBytes, std::string& text) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path p(path);
    const fs::file_status status = fs::status(p, ec);
    if (!fs::exists(status)) {
        const bool folderMissing = p.has_parent_path() && !fs::exists(p.parent_path(), ec);
        return folderMissing ? kPathNotFound : kFileNotFound;
    }
    // A folder, a FIFO or a device is refused before it is opened: reading a FIFO would wait.
    if (!fs::is_regular_file(status)) return kPathFileAccess;
    const auto size = fs::file_size(p, ec);
    if (ec) return kPathFileAccess;
    if (size > maxBytes) return kOutOfMemory;
    std::ifstream in(p, std::ios::binary);
    if (!in) return kPathFileAccess;
    std::ostringstream buffer;
    buffer << in.rdbuf();
    if (in.bad()) return kDeviceIO;
    text = buffer.str();
    return 0;
}

FileFailure WriteFileAtomically(const std::string& path, const std::string& bytes) {
    const std::string temporary = path + ".saving~";
    errno = 0;
    std::FILE* out = std::fopen(temporary.c_str(), "wb");
    if (!out) return FailureOfErrno(errno, true);
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size() && std::fflush(out) == 0;
    const int writeError = errno;
    const bool closed = std::fclose(out) == 0;
    if (!written || !closed) {
        const int error = written ? errno : writeError;
        std::remove(temporary.c_str());
        return FailureOfErrno(error, false);
    }
    if (std::rename(temporary.c_str(), path.c_str()) != 0) {
        const int error = errno;
        std::remove(temporary.c_str());
        return FailureOfErrno(error, true);
    }
    return {};
}

} // namespace tarvelle
