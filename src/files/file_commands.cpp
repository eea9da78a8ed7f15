#include "files/file_commands.h"

#include "files/race_file_io.h"
#include "files/recovery_file.h"
#include "files/safe_file.h"
#include "model/common.h"
#include "model/error_path.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

int SaveFileChanges(bool changed) {
    if (!changed) return 0;
    Beep();
    int answer =
        MsgBox(std::string("Do you wish to save the changes to file:") + kCrLf + RF.FileName,
               Buttons::kYesNoCancel);
    if (answer == kYes) mnuFileSave_Click();
    return answer;
}

void AddMRU(const std::string& path) {
    // An empty path never enters the list: it would only show as a blank entry.
    if (path.empty()) return;
    std::array<std::string, 4> old = G.Mru;
    if (old[0] != path) {
        std::size_t j = 1;
        for (std::size_t i = 0; i < 4 && j < 4; ++i) {
            if (old[i] == path) continue;
            G.Mru[j++] = old[i];
        }
        G.Mru[0] = path;
    }
    Shell().ShowMru(G.Mru);
    for (int i = 0; i < 4; ++i)
        Settings().Set("MRU" + std::to_string(i), G.Mru[static_cast<std::size_t>(i)]);
}

std::string BackupName(const std::string& path) {
    std::size_t dot = path.find('.');
    return (dot == std::string::npos ? std::string() : path.substr(0, dot + 1)) + "bkp";
}

bool MakeBackup(FileReplacement& file, const std::string& path) {
    G.CancelFlag = false;
    const std::string backup = BackupName(path);
    // A first save has nothing to back up.
    if (!file.HasOld() || backup == path) return false;
    try {
        file.KeepOldAs(backup);
        return true;
    } catch (const std::exception& e) {
        AppError err = ToAppError(e);
        if (err.Number() == kErrFileNotFound) return false;
        int answer = MsgBox(
            JoinParts({"Error in creating backup of current file.",
                       std::to_string(err.Number()) + "  " + err.Text(), "Save file anyway?"}),
            Buttons::kOKCancel, Icon::kExclamation, {}, 1);
        if (answer == kCancel) G.CancelFlag = true;
        return false;
    }
}

void DropBackup(const std::string& path) {
    const std::string backup = BackupName(path);
    if (backup == path) return;
    try {
        Files().Remove(backup);
    } catch (const std::exception&) {
        // Nothing to delete, or it cannot be.
    }
}

void EnableFileCommands() {
    Shell().EnableFileGroup(true);
    AdjustMenuForRaceCard();
}

void DisableFileCommands() {
    Shell().EnableFileGroup(false);
    Shell().EnableRaceGroup(false);
}

void AdjustMenuForRaceCard() {
    bool anyRace = false;
    for (int r = 1; r <= kMaxRace && !anyRace; ++r) anyRace = RaceExists(r);
    Shell().EnableRaceGroup(anyRace);
}

std::string TitleText() {
    if (RF.FileName.empty()) return "Tamberlin Tally - No file open";
    return "Tamberlin Tally - " + RF.FileName + "   (File ID =" + Str(RF.FileId.Value()) + ")";
}

void UpdateTitle() {
    Shell().SetTitle(TitleText());
}

void InitialOpen() {
    G.FilePath = G.LastFile;
    OpenRaceFile();
}

namespace {

// The general failure of a file command: the standard error box, unless the user only
// cancelled a dialog.
void ReportFailure(const std::exception& e, const std::string& lead) {
    AppError err = ToAppError(e);
    if (err.Number() == kErrCancel) return;
    MsgBox(JoinParts({lead, err.Text()}));
}

void ReportUnexpected(const std::exception& e) {
    AppError err = ToAppError(e);
    if (err.Number() != kErrCancel) ShowUnexpectedError(err);
}

// Open and the recent files write the file once more after a Yes to the save question, so
// that the backup then holds the same text as the file. A new card whose Save As dialog was
// cancelled has no name to write to, and is not written a second time.
void WriteAgainAfterYes() {
    if (!G.FilePath.empty()) WriteRaceFile();
}

// Before Open and the recent files read another card: the child windows close, the changes are
// saved if wanted, and the document is cleared with its commands off. False when a window
// refused to close or the user cancelled; the card then stays as it is.
bool LeaveOpenFile() {
    Shell().CloseChildWindows();
    if (G.CancelFlag) return false;
    Shell().ShowLogo();
    int answer = SaveFileChanges(bool(G.FileChanged));
    if (answer == kYes) WriteAgainAfterYes();
    if (answer == kCancel) return false;
    ClearRaceFile();
    DisableFileCommands();
    return true;
}

}  // namespace

void mnuFileNew_Click() {
    try {
        Shell().CloseChildWindows();
        if (G.CancelFlag) return;
        Shell().ShowLogo();
        if (SaveFileChanges(bool(G.FileChanged)) == kCancel) return;
        G.FilePath.clear();
        ClearRaceFile();
        UpdateTitle();
        Shell().ShowForm("frmRaceCard", true);
        EnableFileCommands();
    } catch (const std::exception& e) {
        ReportUnexpected(e);
    }
}

void mnuFileOpen_Click() {
    try {
        if (!LeaveOpenFile()) return;
        FileDialogRequest req;
        req.title = "Open";
        req.filter = kRaceFileFilter;
        auto name = Dialogs().Open(req);
        if (name && !name->empty()) {
            G.FilePath = *name;
            OpenRaceFile();
        } else {
            G.FilePath.clear();
            UpdateTitle();
        }
    } catch (const std::exception& e) {
        ReportFailure(e, "Unable to open file");
    }
}

void mnuFileClose_Click() {
    try {
        // A child window that refuses to close keeps the document as it is.
        Shell().CloseChildWindows();
        Shell().ShowLogo();
        if (G.CancelFlag) return;
        if (SaveFileChanges(bool(G.FileChanged)) != kCancel) {
            G.FilePath.clear();
            G.FileChanged = false;
            ClearRaceFile();
            UpdateTitle();
            DisableFileCommands();
        }
        CloseRecoveryChannel();
        Shell().UnloadDisplays(false);
    } catch (const std::exception& e) {
        ReportUnexpected(e);
    }
}

void mnuFileSave_Click() {
    G.CancelFlag = false;
    if (!G.FilePath.empty()) {
        WriteRaceFile();
    } else {
        mnuFileSaveAs_Click();
    }
}

void mnuFileSaveAs_Click() {
    try {
        FileDialogRequest req;
        req.title = "Save As";
        req.filter = kRaceFileFilter;
        req.initialName = G.FilePath;
        req.defaultExt = "tly";
        req.overwritePrompt = true;
        auto name = Dialogs().Save(req);
        if (!name) {
            // A cancelled dialog saves nothing; the caller must not take the file as saved.
            G.CancelFlag = true;
            return;
        }
        if (!name->empty()) {
            G.FilePath = *name;
            WriteRaceFile();
        }
    } catch (const std::exception& e) {
        AppError err = ToAppError(e);
        if (err.Number() == kErrCancel) return;
        MsgBox("Error Writing File: " + err.Text());
    }
}

void mnuFileMRU_Click(int index) {
    try {
        const std::string caption = G.Mru.at(static_cast<std::size_t>(index));
        if (caption == G.FilePath) {
            Beep();
            if (MsgBox(JoinParts({"File already open.", "Do you wish to re-open?"}),
                       Buttons::kYesNo, Icon::kExclamation) == kNo)
                return;
        }
        if (!LeaveOpenFile()) return;
        G.FilePath = caption;
        if (!G.FilePath.empty()) OpenRaceFile();
    } catch (const std::exception& e) {
        ReportUnexpected(e);
    }
}

void CountTransactionForSave() {
    G.TransSinceSave = G.TransSinceSave + 1;
    if (G.TransSinceSave >= RF.SaveAfter && RF.SaveAfter > 0) {
        Beep();
        if (MsgBox(Str(G.TransSinceSave.Value()) + " transactions have been processed." + kCrLf +
                       "Do you wish to save your file to disk?",
                   Buttons::kOKCancel, Icon::kExclamation) == kOK)
            mnuFileSave_Click();
        G.TransSinceSave = 0;
    }
}

}  // namespace tt
