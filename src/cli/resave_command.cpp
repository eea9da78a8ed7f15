// `tally resave`: a card read and saved again with the program's own writer.

#include <QStringList>

#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "files/race_file_io.h"
#include "model/race_file.h"

namespace tt::cli {

namespace {

int Resave(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2 || !c.parser.isSet("o")) return -1;
    ConsoleWorld world(c.err, c.parser.isSet("yes") ? Policy::kYes : Policy::kCancel);
    if (!Open(world, files[1].toStdString())) return 1;
    G.FilePath = c.parser.value("o").toStdString();
    WriteRaceFile();
    return G.CancelFlag ? 1 : 0;
}

}  // namespace

Command ResaveCommand() {
    return {
        .name = "resave",
        .summary = "Read a card and save it again with the program's writer.",
        .synopsis = "FILE -o OUT [--yes]",
        .arguments = {{"FILE", "The race card."}},
        .options = {{{"o", "output"}, "Where to save the card.", "OUT"},
                    {"yes", "Answer OK to every question."}},
        .details =
            "The questions are whether to open a card from an older or later version, "
            "and whether to save when the backup cannot be made. Without --yes they are "
            "answered Cancel, which stops the command.",
        .run = Resave,
    };
}

}  // namespace tt::cli
