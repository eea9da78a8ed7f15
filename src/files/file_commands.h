#pragma once
// The commands of the File menu and what surrounds them: the question about unsaved changes,
// the backup, the most recent files, the periodic save prompt, the title and which commands
// are available.

#include <string>

namespace tt {

inline constexpr const char* kRaceFileFilter = "Tamberlin Tally Files (*.tly)|*.tly|All (*.*)|*.*";

// Asks about unsaved changes and saves on Yes. Returns 6 Yes, 7 No, 2 Cancel, or 0 when
// nothing changed.
int SaveFileChanges(bool changed);
// Puts the path at the head of the recent files and writes "MRU0" to "MRU3".
void AddMRU(const std::string& path);
// The backup name of a path: everything up to and including its first ".", then "bkp".
std::string BackupName(const std::string& path);
// Renames the current file to its backup name. Sets CancelFlag to -1 when the user would
// rather not save after a failed backup.
void MakeBackup(const std::string& path);
// The three states of the commands.
void EnableFileCommands();
void DisableFileCommands();
void AdjustMenuForRaceCard();
// The main window's title for the open card.
std::string TitleText();
void UpdateTitle();
// FilePath := LastFile, then OpenRaceFile.
void InitialOpen();

// The File menu.
void mnuFileNew_Click();
void mnuFileOpen_Click();
void mnuFileClose_Click();
void mnuFileSave_Click();
void mnuFileSaveAs_Click();
void mnuFileMRU_Click(int index);

// Counts a closed transaction and asks to save after SaveAfter of them.
void CountTransactionForSave();

}  // namespace tt
