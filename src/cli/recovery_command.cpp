// `tally recovery`: the open card's records in the recovery file, as Restore from Recovery File
// lists them.

#include <QStringList>

#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "files/restore_logic.h"

namespace tt::cli {

namespace {

int Recovery(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2) return -1;
    ConsoleWorld world(c.err, Policy::kYes);
    if (!Open(world, files[1].toStdString())) return 1;
    RestoreLogic logic;
    if (!logic.LoadRecoveryGrid()) return 1;
    PrintGrid(c.out, logic.flxRecovery);
    return 0;
}

}  // namespace

Command RecoveryCommand() {
    return {
        .name = "recovery",
        .summary = "List the card's records in its recovery file, newest first.",
        .synopsis = "FILE",
        .arguments = {{"FILE", "The race card; its recovery file is the one the card names."}},
        .options = {},
        .details =
            "Prints the grid of Restore from Recovery File: a header row, then one row a "
            "record of this card, tab-separated. Records of other cards in the same file are "
            "left out. The list is printed whether or not the card's log is turned on.\n\n"
            "A record of another version, or a file that cannot be read, turns the card's "
            "log off with its warning; nothing is printed then and the exit status is 1.",
        .run = Recovery,
    };
}

}  // namespace tt::cli
