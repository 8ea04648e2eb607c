#include "prediction_window.h"
