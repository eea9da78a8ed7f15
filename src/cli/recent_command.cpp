// `tally recent`: a card put at the top of the program's recent files.

#include <QStringList>
#include <string>

#include "cli/command.h"
#include "cli/console_ports.h"
#include "files/file_commands.h"
#include "model/qt_settings.h"
#include "model/race_file.h"

namespace tt::cli {

namespace {

int Recent(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2) return -1;
    auto settings = MakeUserSettings();
    ConsoleWorld world(c.err, Policy::kCancel, settings.get());
    for (int i = 0; i < 4; ++i)
        G.Mru[static_cast<std::size_t>(i)] = settings->Get("MRU" + std::to_string(i)).value_or("");
    AddMRU(files[1].toStdString());
    return 0;
}

}  // namespace

Command RecentCommand() {
    return {
        .name = "recent",
        .summary = "Put a card at the top of the program's recent files.",
        .synopsis = "FILE",
        .arguments = {{"FILE", "The race card's path, listed as it is typed."}},
        .options = {},
        .details =
            "The card is not opened. The list is the four files at the foot of the "
            "program's File menu, kept in the user's settings.",
        .run = Recent,
    };
}

}  // namespace tt::cli
