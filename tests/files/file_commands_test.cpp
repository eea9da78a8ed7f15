#include <gtest/gtest.h>

#include <algorithm>

#include "files/file_commands.h"
#include "files/race_file_io.h"
#include "model/race_file.h"
#include "support/fakes.h"

namespace tt {
namespace {

using test::FakeWorld;
using test::SavedCard;

constexpr const char* kFilter = "Tamberlin Tally Files (*.tly)|*.tly|All (*.*)|*.*";
constexpr const char* kSaveQuestion = "Do you wish to save the changes to file:\r\nDerby Day";

// Opens a card the way the chooser does.
void OpenCard(FakeWorld& w, const std::string& path, const std::string& name, bool withRace) {
    w.files.files[path] = SavedCard(name, withRace);
    G.LastFile = path;
    InitialOpen();
}

int Count(const std::vector<std::string>& log, const std::string& entry) {
    return static_cast<int>(std::count(log.begin(), log.end(), entry));
}

TEST(FileCommandStates, EachCommandLeavesTheCommandsOfItsState) {
    FakeWorld w;
    auto state = [&] {
        return std::pair(w.shell.fileGroup.value_or(false), w.shell.raceGroup.value_or(false));
    };

    OpenCard(w, "/c/derby.tly", "Derby Day", true);
    EXPECT_EQ(state(), std::pair(true, true));
    EXPECT_EQ(w.shell.title, "Tamberlin Tally - Derby Day   (File ID = 77)");

    mnuFileClose_Click();
    EXPECT_EQ(state(), std::pair(false, false));
    EXPECT_EQ(w.shell.title, "Tamberlin Tally - No file open");
    EXPECT_EQ(w.shell.unloads, 1);

    w.files.files["/c/empty.tly"] = SavedCard("No Races Yet", false);
    w.dialogs.Next("/c/empty.tly");
    mnuFileOpen_Click();
    EXPECT_EQ(state(), std::pair(true, false));

    // Save and Save As leave the state as it is.
    mnuFileSave_Click();
    EXPECT_EQ(state(), std::pair(true, false));

    // A failed open: the file has gone.
    w.dialogs.Next("/c/gone.tly");
    mnuFileOpen_Click();
    EXPECT_EQ(state(), std::pair(false, false));
    EXPECT_EQ(w.messages.Texts().back(), "Unable to read file\n\r\nFile not found");

    // New: the file commands, and the race commands once the race card names a race.
    w.shell.onShow["frmRaceCard"] = [] {
        RF.Race(3).RaceName = "Third";
        AdjustMenuForRaceCard();
    };
    mnuFileNew_Click();
    EXPECT_EQ(state(), std::pair(true, true));
    EXPECT_EQ(w.shell.formsShown.back(), "frmRaceCard (modal)");

    w.shell.onShow.clear();
    G.FileChanged = false;
    mnuFileNew_Click();
    EXPECT_EQ(state(), std::pair(true, false));
    EXPECT_EQ(w.shell.title, "Tamberlin Tally - No file open");

    G.Mru[2] = "/c/derby.tly";
    mnuFileMRU_Click(2);
    EXPECT_EQ(state(), std::pair(true, true));
}

TEST(FileCommandStates, CancelledOpenDialogLeavesNoFileOpen) {
    FakeWorld w;
    OpenCard(w, "/c/derby.tly", "Derby Day", true);
    w.dialogs.Next(std::nullopt);
    mnuFileOpen_Click();
    ASSERT_EQ(w.dialogs.requests.size(), 1u);
    EXPECT_EQ(w.dialogs.requests[0].filter, kFilter);
    EXPECT_EQ(G.FilePath, "");
    EXPECT_EQ(RF.FileName, "");
    EXPECT_EQ(RF.Race(1).RaceName, "");
    EXPECT_EQ(w.shell.fileGroup, false);
    EXPECT_EQ(w.shell.raceGroup, false);
    EXPECT_EQ(w.shell.title, "Tamberlin Tally - No file open");
    EXPECT_TRUE(w.messages.shown.empty());
}

TEST(FileCommandStates, AChildWindowThatRefusesStopsEveryCommand) {
    FakeWorld w;
    OpenCard(w, "/c/derby.tly", "Derby Day", true);
    G.FileChanged = true;
    w.shell.childRefuses = true;
    G.Mru[1] = "/c/other.tly";
    mnuFileNew_Click();
    mnuFileOpen_Click();
    mnuFileClose_Click();
    mnuFileMRU_Click(1);
    EXPECT_TRUE(w.messages.shown.empty());
    EXPECT_TRUE(w.dialogs.requests.empty());
    EXPECT_EQ(RF.FileName, "Derby Day");
    EXPECT_EQ(G.FilePath, "/c/derby.tly");
    EXPECT_EQ(w.shell.unloads, 0);
}

TEST(SaveQuestion, AsksOnlyAboutChangesAndYesOnOpenWritesTheFileTwice) {
    FakeWorld w;
    OpenCard(w, "/c/derby.tly", "Derby Day", true);
    // Nothing changed: no question anywhere.
    w.dialogs.Next(std::nullopt);
    mnuFileOpen_Click();
    OpenCard(w, "/c/derby.tly", "Derby Day", true);
    mnuFileClose_Click();
    EXPECT_TRUE(w.messages.shown.empty());

    OpenCard(w, "/c/derby.tly", "Derby Day", true);
    G.FileChanged = true;
    w.dialogs.requests.clear();
    w.messages.Answer(kCancel);
    mnuFileOpen_Click();
    ASSERT_EQ(w.messages.shown.size(), 1u);
    EXPECT_EQ(w.messages.shown[0].text, kSaveQuestion);
    EXPECT_EQ(w.messages.shown[0].buttons, Buttons::kYesNoCancel);
    EXPECT_EQ(w.messages.shown[0].icon, Icon::kNone);
    EXPECT_EQ(w.messages.beeps, 1);
    EXPECT_TRUE(w.dialogs.requests.empty());
    EXPECT_EQ(RF.FileName, "Derby Day");

    w.files.log.clear();
    w.messages.Answer(kYes);
    w.dialogs.Next(std::nullopt);
    mnuFileOpen_Click();
    EXPECT_EQ(Count(w.files.log, "write /c/derby.tly"), 2);
    // The second write moved the first one to the backup.
    EXPECT_EQ(w.files.files["/c/derby.bkp"], w.files.files["/c/derby.tly"]);

    OpenCard(w, "/c/derby.tly", "Derby Day", true);
    G.FileChanged = true;
    w.files.log.clear();
    w.messages.Answer(kNo);
    w.dialogs.Next(std::nullopt);
    mnuFileOpen_Click();
    EXPECT_EQ(Count(w.files.log, "write /c/derby.tly"), 0);
}

TEST(SaveQuestion, YesOnANewCardWhoseSaveAsIsCancelledWritesNothing) {
    FakeWorld w;
    mnuFileNew_Click();
    RF.FileName = "Derby Day";
    G.FileChanged = true;
    w.messages.Answer(kYes);
    w.dialogs.Next(std::nullopt);  // Save As
    w.dialogs.Next(std::nullopt);  // Open
    mnuFileOpen_Click();
    ASSERT_EQ(w.dialogs.requests.size(), 2u);
    EXPECT_EQ(w.dialogs.requests[0].title, "Save As");
    EXPECT_EQ(w.dialogs.requests[0].filter, kFilter);
    EXPECT_TRUE(w.dialogs.requests[0].overwritePrompt);
    EXPECT_TRUE(w.files.log.empty());
    EXPECT_EQ(w.messages.Texts(), (std::vector<std::string>{kSaveQuestion}));
    // A cancelled Save As counts as a failed save: Exit would keep the card.
    EXPECT_TRUE(G.CancelFlag);
}

TEST(RecentFiles, NeverADuplicateNeverMoreThanFourAndWrittenOnEveryChange) {
    FakeWorld w;
    for (const char* p : {"/a.tly", "/b.tly", "/c.tly", "/d.tly", "/e.tly"}) AddMRU(p);
    EXPECT_EQ(G.Mru, (std::array<std::string, 4>{"/e.tly", "/d.tly", "/c.tly", "/b.tly"}));
    AddMRU("/c.tly");
    EXPECT_EQ(G.Mru, (std::array<std::string, 4>{"/c.tly", "/e.tly", "/d.tly", "/b.tly"}));
    AddMRU("/c.tly");
    EXPECT_EQ(G.Mru, (std::array<std::string, 4>{"/c.tly", "/e.tly", "/d.tly", "/b.tly"}));
    EXPECT_EQ(w.shell.mru, G.Mru);
    EXPECT_EQ(w.settings.writes.size(), 7u * 4u);
    EXPECT_EQ(w.settings.values["MRU0"], "/c.tly");
    EXPECT_EQ(w.settings.values["MRU3"], "/b.tly");

    // A short list keeps its empty places empty.
    FakeWorld fresh;
    AddMRU("/x.tly");
    AddMRU("/y.tly");
    AddMRU("/x.tly");
    EXPECT_EQ(G.Mru, (std::array<std::string, 4>{"/x.tly", "/y.tly", "", ""}));
    EXPECT_EQ(fresh.settings.values["MRU2"], "");
}

TEST(RecentFiles, ReopeningTheOpenFileAsksFirstAndNoLeavesEverything) {
    FakeWorld w;
    OpenCard(w, "/c/derby.tly", "Derby Day", true);
    G.FileChanged = true;
    w.files.log.clear();
    w.messages.Answer(kNo);
    mnuFileMRU_Click(0);
    ASSERT_EQ(w.messages.shown.size(), 1u);
    EXPECT_EQ(w.messages.shown[0].text, "File already open.\n\r\nDo you wish to re-open?");
    EXPECT_EQ(w.messages.shown[0].buttons, Buttons::kYesNo);
    EXPECT_EQ(w.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(w.shell.closeChildren, 0);
    EXPECT_TRUE(w.files.log.empty());
    EXPECT_TRUE(G.FileChanged);

    // Yes, then Yes to the save question: written twice, then read again.
    w.messages.Answer(kYes);
    w.messages.Answer(kYes);
    mnuFileMRU_Click(0);
    EXPECT_EQ(Count(w.files.log, "write /c/derby.tly"), 2);
    EXPECT_EQ(w.files.log.back(), "read /c/derby.tly");
    EXPECT_FALSE(G.FileChanged);
    EXPECT_EQ(RF.FileName, "Derby Day");
}

TEST(Backup, NamedAtTheFirstDotOfTheWholePath) {
    EXPECT_EQ(BackupName("/cards/June.tly"), "/cards/June.bkp");
    EXPECT_EQ(BackupName("/home/Race.Days/June.tly"), "/home/Race.bkp");
    EXPECT_EQ(BackupName("/cards/June"), "bkp");
    EXPECT_EQ(BackupName("June.spring.tly"), "June.bkp");

    FakeWorld w;
    w.files.files["/home/Race.Days/June.tly"] = "old";
    G.FilePath = "/home/Race.Days/June.tly";
    WriteRaceFile();
    EXPECT_EQ(w.files.files["/home/Race.bkp"], "old");
    EXPECT_NE(w.files.files["/home/Race.Days/June.tly"], "old");

    // No dot at all: the backup is "bkp" in the current directory.
    w.files.files["/cards/June"] = "older";
    G.FilePath = "/cards/June";
    WriteRaceFile();
    EXPECT_EQ(w.files.files["bkp"], "older");
}

TEST(Backup, AFirstSaveHasNothingToBackUpAndSaysNothing) {
    FakeWorld w;
    RF.FileName = "Derby Day";
    G.FilePath = "/c/new.tly";
    G.FileChanged = true;
    mnuFileSave_Click();
    EXPECT_TRUE(w.messages.shown.empty());
    EXPECT_EQ(w.files.log,
              (std::vector<std::string>{"create /c/new.tly", "write /c/new.tly",
                                        "rename /c/new.tly.tmp1 /c/new.tly", "remove /c/new.bkp"}));
    EXPECT_EQ(w.files.files.count("/c/new.bkp"), 0u);
    EXPECT_FALSE(G.FileChanged);
    EXPECT_EQ(w.settings.values["MRU0"], "/c/new.tly");
}

TEST(Backup, AFailedBackupAnsweredCancelLeavesTheFileUntouched) {
    FakeWorld w;
    w.files.files["/c/derby.tly"] = "as saved";
    // Neither a link nor a copy can be made beside the backup.
    w.files.failLink["/c/derby.tly"] = kErrRenameAcrossDrives;
    w.files.failCreate["/c/derby.bkp"] = kErrPermissionDenied;
    RF.FileName = "Derby Day";
    G.FilePath = "/c/derby.tly";
    G.FileChanged = true;
    w.messages.Answer(kCancel);
    mnuFileSave_Click();
    ASSERT_EQ(w.messages.shown.size(), 1u);
    const MessageRequest& box = w.messages.shown[0];
    EXPECT_EQ(box.text, "Error in creating backup of current file.\n\r\n70  " +
                            ErrorText(kErrPermissionDenied) + "\n\r\nSave file anyway?");
    EXPECT_EQ(box.buttons, Buttons::kOKCancel);
    EXPECT_EQ(box.icon, Icon::kExclamation);
    EXPECT_EQ(box.defaultButton, 1);
    EXPECT_EQ(w.files.files["/c/derby.tly"], "as saved");
    EXPECT_TRUE(w.files.Temporaries().empty());
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_TRUE(G.FileChanged);

    w.messages.Answer(kOK);
    mnuFileSave_Click();
    EXPECT_NE(w.files.files["/c/derby.tly"], "as saved");
    EXPECT_FALSE(G.FileChanged);
}

TEST(Close, CancelKeepsTheCardAndTheDisplaysCloseEitherWay) {
    FakeWorld w;
    OpenCard(w, "/c/derby.tly", "Derby Day", true);
    G.FileChanged = true;
    w.dialogs.requests.clear();
    w.messages.Answer(kCancel);
    mnuFileClose_Click();
    EXPECT_EQ(RF.FileName, "Derby Day");
    EXPECT_EQ(G.FilePath, "/c/derby.tly");
    EXPECT_EQ(w.shell.unloads, 1);

    w.messages.Answer(kNo);
    mnuFileClose_Click();
    EXPECT_EQ(RF.FileName, "");
    EXPECT_EQ(G.FilePath, "");
    EXPECT_FALSE(G.FileChanged);
    EXPECT_EQ(w.shell.unloads, 2);
    EXPECT_EQ(G.LastFile, "/c/derby.tly");
}

TEST(PeriodicPrompt, SaveAfterOneAsksEveryTimeAndZeroNever) {
    FakeWorld w;
    OpenCard(w, "/c/derby.tly", "Derby Day", true);
    RF.SaveAfter = 0;
    for (int i = 0; i < 5; ++i) CountTransactionForSave();
    EXPECT_TRUE(w.messages.shown.empty());
    EXPECT_EQ(G.TransSinceSave, 5);

    G.TransSinceSave = 0;
    RF.SaveAfter = 1;
    w.files.log.clear();
    w.messages.Answer(kOK);
    w.messages.Answer(kCancel);
    CountTransactionForSave();
    CountTransactionForSave();
    ASSERT_EQ(w.messages.shown.size(), 2u);
    EXPECT_EQ(w.messages.shown[1].text,
              " 1 transactions have been processed.\r\nDo you wish to save your file to disk?");
    EXPECT_EQ(w.messages.shown[1].buttons, Buttons::kOKCancel);
    EXPECT_EQ(w.messages.shown[1].icon, Icon::kExclamation);
    EXPECT_EQ(Count(w.files.log, "write /c/derby.tly"), 1);
    EXPECT_EQ(G.TransSinceSave, 0);

    RF.SaveAfter = 3;
    w.messages.Clear();
    w.messages.Answer(kCancel);
    for (int i = 0; i < 3; ++i) CountTransactionForSave();
    EXPECT_EQ(
        w.messages.Texts(),
        (std::vector<std::string>{
            " 3 transactions have been processed.\r\nDo you wish to save your file to disk?"}));
    EXPECT_EQ(G.TransSinceSave, 0);
}

}  // namespace
}  // namespace tt
