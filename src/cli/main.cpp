// tarvelle-cli: the headless companion of the station, for observatory scripts and checks.
#include "cli/cli_commands.h"

#include <QCoreApplication>

#include <iostream>

int main(int argc, char** argv) {
    QCoreApplication::setOrganizationName("Tarvelle");
    QCoreApplication::setApplicationName("Tarvelle");
    QCoreApplication app(argc, argv);
    std::vector<std::string> args(argv + 1, argv + argc);
    return tarvelle::RunCli(args, std::cout, std::cerr);
}
