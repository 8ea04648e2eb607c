// The subcommands of tarvelle-cli, apart from main() so that tests can run them.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tarvelle {

// Runs one command line (without the program name); writes results to out and a one-line
// message to err. Returns the exit status: 0 done, 2 bad arguments or files.
int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace tarvelle
