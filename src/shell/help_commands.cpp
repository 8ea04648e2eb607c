#include "help_commands.h"
