#include "mode_commands.h"
