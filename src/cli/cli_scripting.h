// tarvelle-cli's script command: run-script FILE, headless, with real or simulated devices.
#pragma once

#include "cli/cli_support.h"

#include <vector>

namespace tarvelle {

std::vector<CliCommand> ScriptingCommands();

} // namespace tarvelle
