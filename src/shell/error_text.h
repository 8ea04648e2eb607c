// Error numbers of file and device failures as sentences.
#pragma once

#include <string>

namespace tarvelle {

std::string ErrorText(int n);

} // namespace tarvelle
