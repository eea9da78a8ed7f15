#pragma once
// The commands of the main window's Edit, View, Tools and Help menus: each opens a window or
// calls a file command. The launch pad and the toolbar run the same functions.

namespace tt {

void mnuEditSetupRaceCard_Click();
void mnuEditSetupBettors_Click();
void mnuEditPlaceBets_Click();
void mnuEditResults_Click();
void mnuViewListBets_Click();
void mnuViewDisplayOdds_Click();
void mnuViewDisplayPayouts_Click();
void mnuToolsRestore_Click();
// The file dialog at the last path of the session, then the bettors of the chosen file.
void mnuToolsImportBettors_Click();
void mnuFilePrint_Click();
void mnuFilePrintToFile_Click();
void mnuFilePageSetup_Click();

// Runs with the main window's general error path around it.
void RunCommand(void (*command)());

}  // namespace tt
