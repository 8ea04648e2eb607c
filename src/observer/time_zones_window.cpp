#include "time_zones_window.h"

namespace tarvelle {} // namespace tarvelle
