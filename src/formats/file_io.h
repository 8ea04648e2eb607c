// Reading and replacing the station's small files, for every reader and writer of formats/.
#pragma once

#include <cstddef>
#include <string>

namespace tarvelle {

// A failed write: the error number and the system's words for it.
struct FileFailure {
    int number = 0;
    std::string description;
};

inline constexpr size_t kMaxStationFileBytes = 1 << 20; // no observer or mode file comes near

// The whole of a regular file no larger than maxBytes, or the error number of the refusal:
// 53 no such file, 76 no such folder, 75 no access or not a regular file (a folder, a FIFO, a
// device), 7 larger than any real file of its kind, 57 a read fault. Never blocks on a FIFO.
int ReadSmallFile(const std::string& path, size_t maxBytes, std::string& text);

// Replaces path with bytes in one step: they go to a temporary file beside it, renamed over the
// old one only once all were written, so that a full disk, a crash or a kill in the middle
// leaves the old file whole. number 0 when it was written.
FileFailure WriteFileAtomically(const std::string& path, const std::string& bytes);

} // namespace tarvelle
