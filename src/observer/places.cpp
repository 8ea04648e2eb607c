#include "places.h"

namespace tarvelle {} // namespace tarvelle
