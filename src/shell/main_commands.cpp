#include "shell/main_commands.h"

#include "files/file_commands.h"
#include "files/import_bettors.h"
#include "model/common.h"
#include "model/error_path.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "reports/list_bets_logic.h"
#include "reports/print_logic.h"

namespace tt {

void RunCommand(void (*command)()) {
    try {
        command();
    } catch (const std::exception& e) {
        AppError err = ToAppError(e);
        if (err.Number() != kErrCancel) ShowUnexpectedError(err);
    }
}

void mnuEditSetupRaceCard_Click() {
    Shell().ShowForm("frmRaceCard", true);
    UpdateTitle();
}

void mnuEditSetupBettors_Click() {
    Shell().ShowForm("frmSelectBettor", true);
}

void mnuEditPlaceBets_Click() {
    if (RF.MaxRacers == 0) {
        Beep();
        MsgBox(std::string("Race card must be set up before placing bets") + kCrLf +
               "Please set this parameter using Tools/Setup Race Card");
        return;
    }
    G.CurrentRace = 0;
    G.CurrentBettor = 0;
    G.CurrentBet = 0;
    Shell().ShowForm("frmTransaction", false);
}

void mnuEditResults_Click() {
    Shell().ShowForm("frmEditResults", true);
    if (Shell().IsFormLoaded("frmDisplayPayouts")) Shell().ShowForm("frmDisplayPayouts", false);
    G.CancelFlag = false;
}

void mnuViewListBets_Click() {
    WinnersOnly = false;
    Shell().ShowForm("frmListBets", false);
}

void mnuViewDisplayOdds_Click() {
    Shell().ShowForm("frmDisplayOdds", false);
}

void mnuViewDisplayPayouts_Click() {
    G.CurrentRace = 0;
    Shell().ShowForm("frmDisplayPayouts", false);
}

void mnuToolsRestore_Click() {
    Shell().ShowForm("frmRestore", true);
}

void mnuToolsImportBettors_Click() {
    FileDialogRequest req;
    req.title = "Bring in Bettors from another File";
    req.filter = kImportFilter;
    req.initialName = ImportPath;
    auto name = Dialogs().Open(req);
    if (!name) return;
    if (!name->empty()) ImportPath = *name;
    ReadImportFile();
}

void mnuFilePrint_Click() {
    Shell().ShowForm("frmPrint", true);
}

void mnuFilePrintToFile_Click() {
    // The Print window once more, its OK saving the report as a PDF file.
    PrintToFile = true;
    struct Reset {
        ~Reset() { PrintToFile = false; }
    } reset;
    Shell().ShowForm("frmPrint", true);
}

void mnuFilePageSetup_Click() {
    try {
        Printer().SetupDialog();
    } catch (const std::exception& e) {
        AppError err = ToAppError(e);
        if (err.Number() == kErrCancel) return;
        MsgBox(JoinParts({"Error in Page Setup.", err.Text()}));
    }
}

}  // namespace tt
