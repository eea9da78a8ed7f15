// `tally restore`: tickets brought back from the recovery file into the card, which is then
// saved.

#include <QStringList>

#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "files/race_file_io.h"
#include "files/restore_logic.h"
#include "model/error_path.h"
#include "model/race_file.h"

namespace tt::cli {

namespace {

int Restore(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2) return -1;
    std::vector<std::int32_t> tickets;
    for (const QString& value : c.parser.values("ticket")) {
        bool ok = false;
        const int ticket = value.toInt(&ok);
        if (!ok) return -1;
        tickets.push_back(ticket);
    }

    ConsoleWorld world(c.err, Policy::kYes);
    if (!Open(world, files[1].toStdString())) return 1;
    const std::string path = G.FilePath;
    RestoreLogic logic;
    if (!logic.LoadRecoveryGrid()) return 1;
    try {
        if (c.parser.isSet("all")) {
            logic.flxRecovery.SetRow(1 < logic.flxRecovery.Rows() ? 1 : 0);
            logic.flxRecovery.SetRowSel(logic.flxRecovery.Rows() - 1);
            logic.MarkRows("Yes");
        }
        for (std::int32_t ticket : tickets) logic.MarkTicket(ticket);
        // Nothing marked: the window's warning; the question is answered OK.
        logic.cmdOK_Click();
    } catch (const std::exception& e) {
        ShowUnexpectedError(ToAppError(e));
        return 1;
    }
    if (!G.FileChanged) return 1;
    G.FilePath = c.parser.isSet("o") ? c.parser.value("o").toStdString() : path;
    WriteRaceFile();
    return G.CancelFlag ? 1 : 0;
}

}  // namespace

Command RestoreCommand() {
    return {
        .name = "restore",
        .summary = "Bring tickets back from the recovery file into the card and save it.",
        .synopsis = "FILE [--ticket N]... [--all] [-o OUT]",
        .arguments = {{"FILE", "The race card; its recovery file is the one the card names."}},
        .options = {{"ticket", "Restore ticket N: every record of it is marked.", "N"},
                    {"all", "Mark every record of the card."},
                    {{"o", "output"}, "Save to OUT instead of over FILE.", "OUT"}},
        .details =
            "Works as Restore in Restore from Recovery File: a ticket logged several times "
            "comes back in its latest form, a cancelled one in the form before the "
            "cancellation, and a bettor the card does not have as \"Restore Bettor\" and "
            "its number. The question before the restore is answered OK. The recovery file "
            "itself is not changed.\n\n"
            "With nothing marked the window's warning is printed, nothing is saved and the "
            "exit status is 1. The file a save replaces is kept as its backup.",
        .run = Restore,
    };
}

}  // namespace tt::cli
