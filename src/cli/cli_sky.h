// tarvelle-cli commands of the sky displays: antenna FILE, horizon FILE.
#pragma once

#include "cli/cli_support.h"

#include <vector>

namespace tarvelle {

std::vector<CliCommand> SkyCommands();

} // namespace tarvelle
