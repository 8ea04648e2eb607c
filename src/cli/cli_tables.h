// tarvelle-cli's commands of the ephemeris tables and graphs: ephemeris, visibility, de and
// altaz-table.
#pragma once

#include "cli/cli_support.h"

#include <vector>

namespace tarvelle {

std::vector<CliCommand> TablesCommands();

} // namespace tarvelle
