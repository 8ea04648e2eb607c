// Small path helpers of the shell, and the breadth-first walk of a folder.
#pragma once

#include <string>
#include <vector>

namespace tarvelle {} // namespace tarvelle
