// Error numbers of file and device failures as sentences. The mode file loader shows them
// under its own message; failures the platform reports in other ways are mapped to these
// numbers before they get here.
#pragma once

#include <string>

namespace tarvelle {

// The error numbers the readers and writers return.
enum ErrorNumber : int {
    kOverflow = 6,
    kOutOfMemory = 7,
    kTypeMismatch = 13,
    kFileNotFound = 53,
    kDeviceIO = 57,
    kDiskFull = 61,
    kPastEndOfFile = 62,
    kPathFileAccess = 75,
    kPathNotFound = 76,
};

// The sentence for an error number; a number without one reads "Error #" and the number in
// its Str form ("Error # 999"). Never fails.
std::string ErrorText(int n);

} // namespace tarvelle
