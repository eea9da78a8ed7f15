#pragma once
// The commands of the File menu and what surrounds them: the question about unsaved changes,
// the backup, the most recent files, the periodic save prompt, the title and which commands
// are available.

#include <string>

namespace tt {

class FileReplacement;

inline constexpr const char* kRaceFileFilter = "Tamberlin Tally Files (*.tly)|*.tly|All (*.*)|*.*";

// Asks about unsaved changes and saves on Yes. Returns 6 Yes, 7 No, 2 Cancel, or 0 when
// nothing changed.
int SaveFileChanges(bool changed);
// Puts the path at the head of the recent files and writes "MRU0" to "MRU3".
void AddMRU(const std::string& path);
// The backup name of a path: everything up to and including its first ".", then "bkp".
std::string BackupName(const std::string& path);
// Keeps the file being replaced under its backup name once the new text is in place. True
// when it will; false for a first save, or after a failed backup, when CancelFlag is -1 if the
// user would rather not save.
bool MakeBackup(FileReplacement& file, const std::string& path);
// After a save that kept no backup, deletes whatever regular file had the backup name, as a
// first save always has; errors are ignored.
void DropBackup(const std::string& path);
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
