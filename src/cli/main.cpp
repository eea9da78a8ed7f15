// tally: the companion of Tamberlin Tally for the shell.

#include <QCoreApplication>
#include <iostream>

#include "cli/companion.h"

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    std::vector<std::string> args(argv + 1, argv + argc);
    return tt::cli::RunTally(args, std::cout, std::cerr);
}
