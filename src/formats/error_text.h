// Error numbers of file and device failures as sentences. The mode file loader shows them
// under its own message; failures the platform reports in other ways are mapped to these
// numbers before they get here.
#pragma once

#include <string>

namespace tarvelle {

// The sentence for an error number; a number without one reads "Error #" and the number in
// its Str form ("Error # 999"). Never fails.
std::string ErrorText(int n);

} // namespace tarvelle
