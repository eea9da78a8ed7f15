// `tally import-bettors`: the bettors of another race file brought into the card, which is then
// saved.

#include <QStringList>

#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "files/import_bettors.h"
#include "files/import_bettors_logic.h"
#include "files/race_file_io.h"
#include "model/error_path.h"
#include "model/race_file.h"

namespace tt::cli {

namespace {

int ImportBettorsRun(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    if (files.size() != 2 || !c.parser.isSet("from")) return -1;
    ConsoleWorld world(c.err, Policy::kYes);
    if (!Open(world, files[1].toStdString())) return 1;
    const std::string path = G.FilePath;

    // The window with its proposals untouched, processed at once.
    bool processed = false;
    world.shell.onShow = [&](const std::string& name) {
        if (name != "frmImportBettors") return;
        ImportBettorsLogic logic;
        logic.Form_Load();
        logic.cmdOK_Click();
        processed = logic.unloaded;
    };
    ImportPath = c.parser.value("from").toStdString();
    try {
        ReadImportFile();
    } catch (const std::exception& e) {
        ShowUnexpectedError(ToAppError(e));
        processed = false;
    }
    ImportPath.clear();
    if (!processed) return 1;
    G.FilePath = c.parser.isSet("o") ? c.parser.value("o").toStdString() : path;
    WriteRaceFile();
    return G.CancelFlag ? 1 : 0;
}

}  // namespace

Command ImportBettorsCommand() {
    return {
        .name = "import-bettors",
        .summary = "Bring the bettors of another race file into the card and save it.",
        .synopsis = "FILE --from OTHER [-o OUT]",
        .arguments = {{"FILE", "The race card."}},
        .options = {{"from", "The race file whose bettors are brought in.", "OTHER"},
                    {{"o", "output"}, "Save to OUT instead of over FILE.", "OUT"}},
        .details =
            "Works as Bring in Bettors from another File with its proposals as they stand: "
            "a new bettor is added, and a bettor of the same name takes the other file's "
            "e-mail, phone and information where they differ and are not empty. A bettor "
            "added beside a namesake gets a \"*\" after the name. Only the bettors come "
            "along, never bets.\n\n"
            "The question about the other file's version is answered Yes. With nothing to "
            "bring in, nothing is saved and the exit status is 1. The file a save replaces "
            "is kept as its backup.",
        .run = ImportBettorsRun,
    };
}

}  // namespace tt::cli
