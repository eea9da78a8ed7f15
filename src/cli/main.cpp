// tally: the companion of Tamberlin Tally for the shell.

#include <QCoreApplication>
#include <QGuiApplication>
#include <cstring>
#include <iostream>
#include <memory>

#include "cli/companion.h"

int main(int argc, char** argv) {
    // A report saved as PDF is painted in the desktop's fonts: that takes the application of a
    // desktop program, started here without a screen. Every other command needs none.
    bool pdf = false;
    for (int i = 1; i < argc; ++i)
        pdf = pdf || std::strcmp(argv[i], "--pdf") == 0 || std::strncmp(argv[i], "--pdf=", 6) == 0;
    std::unique_ptr<QCoreApplication> app;
    if (pdf) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    std::vector<std::string> args(argv + 1, argv + argc);
    return tt::cli::RunTally(args, std::cout, std::cerr);
}
