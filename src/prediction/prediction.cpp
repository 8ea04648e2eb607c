#include "prediction.h"
