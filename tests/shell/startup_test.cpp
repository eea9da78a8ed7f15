#include <gtest/gtest.h>

#include "files/file_commands.h"
#include "model/race_file.h"
#include "shell/startup.h"
#include "support/fakes.h"

namespace tt {
namespace {

using test::FakeWorld;
using test::SavedCard;

TEST(StartUp, FirstStartUsesDefaultPlacementAndOffersOnlyMoreFilesAndNew) {
    FakeWorld w;
    Placement p = ReadMainPlacement();
    EXPECT_EQ(p.left, 1000);
    EXPECT_EQ(p.top, 1000);
    EXPECT_EQ(p.width, 4000);
    EXPECT_EQ(p.height, 4000);
    LoadRecentFiles();
    EXPECT_EQ(InitialOpenEntries(),
              (std::vector<std::string>{"More Files...", "Start a new file"}));
}

TEST(StartUp, PlacementThatIsNotANumberIsATypeMismatch) {
    FakeWorld w;
    w.settings.values["MainWidth"] = "wide";
    try {
        ReadMainPlacement();
        FAIL();
    } catch (const AppError& e) {
        EXPECT_EQ(e.Number(), kErrTypeMismatch);
    }
}

TEST(StartUp, RecentFilesComeFirstInTheChooserInOrder) {
    FakeWorld w;
    w.settings.values = {{"MRU0", "/a.tly"}, {"MRU1", ""}, {"MRU2", "/c.tly"}};
    LoadRecentFiles();
    EXPECT_EQ(InitialOpenEntries(),
              (std::vector<std::string>{"/a.tly", "/c.tly", "More Files...", "Start a new file"}));
    EXPECT_EQ(w.shell.mru[0], "/a.tly");
    EXPECT_EQ(w.shell.mru[1], "");
}

TEST(StartUp, ChooserWithoutSelectionWarnsAndStaysOpen) {
    FakeWorld w;
    EXPECT_FALSE(InitialOpenChoose("", false));
    ASSERT_EQ(w.messages.shown.size(), 1u);
    EXPECT_EQ(w.messages.shown[0].text, "Please make a selection.");
    EXPECT_EQ(w.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(w.messages.beeps, 1);
}

TEST(StartUp, PickingARecentFileOpensItAndEnablesTheCommands) {
    FakeWorld w;
    w.files.files["/cards/june.tly"] = SavedCard("June Races", true);
    ASSERT_TRUE(InitialOpenChoose("/cards/june.tly", true));
    EXPECT_EQ(G.LastFile, "/cards/june.tly");
    EXPECT_EQ(G.FilePath, "/cards/june.tly");
    EXPECT_EQ(w.shell.title, "Tamberlin Tally - June Races   (File ID = 77)");
    EXPECT_EQ(w.shell.fileGroup, true);
    EXPECT_EQ(w.shell.raceGroup, true);
    EXPECT_FALSE(G.FileChanged);
    EXPECT_TRUE(w.messages.shown.empty());
    EXPECT_EQ(w.settings.values["MRU0"], "/cards/june.tly");
}

TEST(StartUp, PickingAFileThatHasGoneReportsItAndKeepsTheEntry) {
    FakeWorld w;
    w.settings.values["MRU0"] = "/gone.tly";
    LoadRecentFiles();
    EXPECT_TRUE(InitialOpenChoose("/gone.tly", true));
    EXPECT_EQ(w.messages.Texts(),
              (std::vector<std::string>{"Unable to read file\n\r\nFile not found"}));
    EXPECT_EQ(w.shell.fileGroup, false);
    EXPECT_EQ(G.Mru[0], "/gone.tly");
}

TEST(StartUp, StartANewFileClosesChildrenAndShowsTheRaceCard) {
    FakeWorld w;
    EXPECT_TRUE(InitialOpenChoose("Start a new file", true));
    EXPECT_EQ(w.shell.closeChildren, 1);
    EXPECT_EQ(w.shell.formsShown, (std::vector<std::string>{"frmRaceCard (modal)"}));
    EXPECT_EQ(w.shell.fileGroup, true);
    EXPECT_EQ(w.shell.raceGroup, false);
}

TEST(Placement, ChildWindowsCentreInTheMainWindowAndTheLaunchPadStaysNearTheCorner) {
    FakeWorld w;
    StoreMainPlacement({1000, 1000, 12000, 9000});
    Placement p = CenterInMain({0, 0, 4000, 3000});
    EXPECT_EQ(p.left, 4000);
    EXPECT_EQ(p.top, 2250);
    Placement big = CenterInMain({0, 0, 20000, 20000});
    EXPECT_EQ(big.left, 0);
    EXPECT_EQ(big.top, 0);
    Placement logo = PlaceLogo({0, 0, 4000, 3000});
    EXPECT_EQ(logo.left, 1500);
    EXPECT_EQ(logo.top, 1000);
    Placement screen = CenterOnScreen({0, 0, 3000, 2000}, 19200, 10800);
    EXPECT_EQ(screen.left, 8100);
    EXPECT_EQ(screen.top, 4400);
}

TEST(Shutdown, UnchangedDocumentClosesWithoutAQuestionAndSavesThePlacement) {
    FakeWorld w;
    EXPECT_TRUE(MainUnload(true, {150, 300, 9000, 6000}));
    EXPECT_TRUE(w.messages.shown.empty());
    EXPECT_EQ(w.settings.values["MainLeft"], "150");
    EXPECT_EQ(w.settings.values["MainHeight"], "6000");
    EXPECT_EQ(w.shell.unloads, 1);
}

TEST(Shutdown, MaximisedWindowKeepsTheLastNormalPlacement) {
    FakeWorld w;
    w.settings.values["MainLeft"] = "10";
    EXPECT_TRUE(MainUnload(false, {150, 300, 9000, 6000}));
    EXPECT_EQ(w.settings.values["MainLeft"], "10");
    EXPECT_EQ(w.settings.values.count("MainTop"), 0u);
}

TEST(Shutdown, CancelInTheSaveQuestionKeepsTheProgramAndTheDocument) {
    FakeWorld w;
    RF.FileName = "Derby Day";
    RF.Race(1).RaceName = "Opener";
    G.FileChanged = true;
    w.messages.Answer(kCancel);
    EXPECT_FALSE(MainUnload(true, {}));
    ASSERT_EQ(w.messages.shown.size(), 1u);
    EXPECT_EQ(w.messages.shown[0].text, "Do you wish to save the changes to file:\r\nDerby Day");
    EXPECT_EQ(w.messages.shown[0].buttons, Buttons::kYesNoCancel);
    EXPECT_EQ(RF.Race(1).RaceName, "Opener");
    EXPECT_EQ(w.shell.logoShown, 1);
}

TEST(Shutdown, FailedSaveAfterYesKeepsTheProgramAlive) {
    FakeWorld w;
    RF.FileName = "Derby Day";
    G.FilePath = "/cards/derby.tly";
    G.FileChanged = true;
    w.files.failWrite["/cards/derby.tly"] = kErrDiskFull;
    w.messages.Answer(kYes);
    EXPECT_FALSE(MainUnload(true, {}));
    EXPECT_EQ(w.messages.Texts().back(), "Error saving file\n\r\nDisk full");
    EXPECT_EQ(RF.FileName, "Derby Day");
}

TEST(Shutdown, NoDiscardsTheChanges) {
    FakeWorld w;
    RF.FileName = "Derby Day";
    G.FileChanged = true;
    w.messages.Answer(kNo);
    EXPECT_TRUE(MainUnload(true, {}));
    EXPECT_EQ(RF.FileName, "");
    EXPECT_EQ(w.shell.title, "Tamberlin Tally - No file open");
}

}  // namespace
}  // namespace tt
