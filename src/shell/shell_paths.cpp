#include "shell_paths.h"

namespace tarvelle {} // namespace tarvelle
