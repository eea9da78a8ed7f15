// Takes the screenshots of docs/screenshots/ on a card, a group of windows at a time:
//
//   make-screenshots GROUP CARD OUTDIR
//
// GROUP is shell (the main window, its dialogs, the race card, results and payouts, the help, a
// message box, a tiled layout), betting, tickets, odds, reports or files (restore and import).
// scripts/screenshots.sh runs every group under Xvfb with a window manager, each in a process of
// its own.

#include <QApplication>
#include <QDir>
#include <cstdio>
#include <functional>
#include <map>

#include "shell/forms/gui_support.h"
#include "shots.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("TamberlinTally");
    QApplication::setDesktopFileName(tt::gui::kDesktopId);
    QApplication::setWindowIcon(tt::gui::AppIcon());
    const std::map<std::string, std::function<int(const QString&, const QString&)>> groups = {
        {"shell", ShellShots}, {"betting", BettingShots}, {"tickets", TicketShots},
        {"odds", OddsShots},   {"reports", ReportShots},  {"files", FileShots},
    };
    if (argc != 4 || !groups.count(argv[1])) {
        std::fprintf(
            stderr,
            "usage: make-screenshots shell|betting|tickets|odds|reports|files CARD OUTDIR\n");
        return 2;
    }
    const QString out = QDir(QString::fromLocal8Bit(argv[3])).absolutePath();
    QDir().mkpath(out);
    return groups.at(argv[1])(QDir(QString::fromLocal8Bit(argv[2])).absolutePath(), out);
}
