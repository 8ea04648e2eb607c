#include "mode_file.h"
