#include "observer_window.h"
