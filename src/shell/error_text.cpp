#include "error_text.h"

namespace tarvelle {} // namespace tarvelle
