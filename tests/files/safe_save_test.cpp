// Saves under faults of the disk, as a file layer that fails at a chosen step shows them: the
// exact message, and the card and its backup as they were, byte for byte, with no temporary
// left behind.

#include <gtest/gtest.h>

#include "files/file_commands.h"
#include "files/race_file_io.h"
#include "files/race_file_samples.h"
#include "files/safe_file.h"
#include "model/race_file.h"
#include "support/fakes.h"

namespace tt::test {
namespace {

const std::string kBackupPath = "/races/June.bkp";
const std::string kOld = "the card as last saved";
const std::string kOlder = "the card saved before";

class SafeSave : public ::testing::Test {
  protected:
    SafeSave() {
        world.files.files[kCardPath] = kOld;
        world.files.files[kBackupPath] = kOlder;
        world.files.permissions[kCardPath] = "0600";
        RF.FileId = 77;
        RF.FileName = "Derby Day";
        RF.Race(1).RaceName = "Opener";
        newCard = BuildRaceFileText(world.clock.now);
        G.FilePath = kCardPath;
        G.FileChanged = true;
    }

    // The save failed with this message and changed nothing on the disk.
    void ExpectFailedWith(const std::string& error) {
        EXPECT_EQ(world.messages.Texts(),
                  std::vector<std::string>{"Error saving file\n\r\n" + error});
        EXPECT_EQ(world.messages.beeps, 1);
        EXPECT_EQ(G.CancelFlag, Flag(true));
        EXPECT_EQ(G.FileChanged, Flag(true));
        EXPECT_FALSE(world.shell.busy);
        ExpectUntouched();
    }
    void ExpectUntouched() {
        EXPECT_EQ(world.files.files[kCardPath], kOld);
        EXPECT_EQ(world.files.files[kBackupPath], kOlder);
        EXPECT_EQ(world.files.permissions[kCardPath], "0600");
        EXPECT_TRUE(world.files.Temporaries().empty());
        EXPECT_EQ(world.files.files.size(), 2u);
    }
    void ExpectSaved() {
        EXPECT_TRUE(world.messages.shown.empty());
        EXPECT_EQ(G.CancelFlag, Flag(false));
        EXPECT_EQ(G.FileChanged, Flag(false));
        EXPECT_EQ(world.files.files[kCardPath], newCard);
        EXPECT_EQ(world.files.files[kBackupPath], kOld);
        EXPECT_EQ(world.files.permissions[kCardPath], "0600");
        EXPECT_TRUE(world.files.Temporaries().empty());
    }

    FakeWorld world;
    std::string newCard;
};

// ---- The steps of a save --------------------------------------------------------------------

TEST_F(SafeSave, TheOldCardStaysAtThePathUntilTheNewOneIsWhole) {
    WriteRaceFile();
    ExpectSaved();
    // Never a rename of the card away from its path: it gets a second name, and the new text
    // comes over it in one rename once flushed.
    EXPECT_EQ(world.files.log,
              (std::vector<std::string>{"create " + kCardPath, "write " + kCardPath,
                                        "link " + kCardPath + " " + kBackupPath + ".tmp2",
                                        "rename " + kCardPath + ".tmp1 " + kCardPath,
                                        "rename " + kBackupPath + ".tmp2 " + kBackupPath}));
    EXPECT_EQ(world.files.folderSyncs, 1);
}

TEST_F(SafeSave, WhereLinksCannotBeMadeTheBackupIsACopy) {
    for (int error : {kErrRenameAcrossDrives, kErrPermissionDenied}) {
        SCOPED_TRACE(error);
        world.files.files[kCardPath] = kOld;
        world.files.failLink[kCardPath] = error;
        G.FileChanged = true;
        WriteRaceFile();
        ExpectSaved();
    }
}

// ---- A fault at any step leaves everything as it was ---------------------------------------

TEST_F(SafeSave, DiskFullAfterAnyNumberOfBytes) {
    for (std::size_t n : {std::size_t{0}, std::size_t{1}, std::size_t{100}, newCard.size() - 1}) {
        SCOPED_TRACE(n);
        world.messages.Clear();
        world.files.writeLimit = n;
        WriteRaceFile();
        ExpectFailedWith("Disk full");
    }
}

TEST_F(SafeSave, FlushFails) {
    world.files.failSync[kCardPath] = kErrDeviceIO;
    WriteRaceFile();
    ExpectFailedWith("Device I/O error");
}

TEST_F(SafeSave, NoRoomForTheTemporary) {
    world.files.failCreate[kCardPath] = kErrDiskFull;
    WriteRaceFile();
    ExpectFailedWith("Disk full");
}

TEST_F(SafeSave, FolderNotWritable) {
    world.files.failCreate[kCardPath] = kErrPermissionDenied;
    WriteRaceFile();
    ExpectFailedWith("Permission denied");
}

TEST_F(SafeSave, RenameOverTheCardFails) {
    world.files.failRename[kCardPath] = kErrPermissionDenied;
    WriteRaceFile();
    ExpectFailedWith("Permission denied");
}

TEST_F(SafeSave, RenameAcrossDrivesFails) {
    world.files.failRename[kCardPath] = kErrRenameAcrossDrives;
    WriteRaceFile();
    ExpectFailedWith("Can't rename with different drive");
}

TEST_F(SafeSave, RenameOverTheBackupFailsAndTheOldCardGoesBack) {
    world.files.failRename[kBackupPath] = kErrPermissionDenied;
    WriteRaceFile();
    ExpectFailedWith("Permission denied");
}

TEST_F(SafeSave, FlushOfTheFolderFailsAfterTheRename) {
    // The names have changed by then: the card is new and the backup old, and the save is
    // reported as failed so that the card stays marked changed.
    world.files.failFolderSync = kErrDeviceIO;
    WriteRaceFile();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Error saving file\n\r\nDevice I/O error"});
    EXPECT_EQ(G.FileChanged, Flag(true));
    EXPECT_EQ(world.files.files[kCardPath], newCard);
    EXPECT_EQ(world.files.files[kBackupPath], kOld);
    EXPECT_TRUE(world.files.Temporaries().empty());
}

// ---- Only regular files --------------------------------------------------------------------

TEST_F(SafeSave, APathThatIsNoRegularFileIsNeverTouched) {
    world.files.files.erase(kCardPath);
    world.files.others.insert(kCardPath);
    WriteRaceFile();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Error saving file\n\r\nPath/File access error"});
    EXPECT_EQ(G.CancelFlag, Flag(true));
    EXPECT_EQ(world.files.files[kBackupPath], kOlder);
    EXPECT_TRUE(world.files.log.empty());
}

TEST_F(SafeSave, ABackupNameThatIsNoRegularFileAsksAndCancelKeepsAll) {
    world.files.files.erase(kBackupPath);
    world.files.others.insert(kBackupPath);
    world.messages.Answer(kCancel);
    WriteRaceFile();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Error in creating backup of current file.\n\r\n75  "
                                       "Path/File access error\n\r\nSave file anyway?"});
    EXPECT_EQ(G.CancelFlag, Flag(true));
    EXPECT_EQ(world.files.files[kCardPath], kOld);
    EXPECT_TRUE(world.files.Temporaries().empty());

    // OK saves without a backup, and the thing at the backup name stays.
    world.messages.Clear();
    world.messages.Answer(kOK);
    WriteRaceFile();
    EXPECT_EQ(G.CancelFlag, Flag(false));
    EXPECT_EQ(world.files.files[kCardPath], newCard);
    EXPECT_TRUE(world.files.others.count(kBackupPath));
    EXPECT_TRUE(world.files.Temporaries().empty());
}

TEST_F(SafeSave, ACardThatIsItsOwnBackupNameIsSavedWithoutOne) {
    world.files.files = {{"/races/June.bkp", kOld}};
    G.FilePath = "/races/June.bkp";
    WriteRaceFile();
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(world.files.files, (std::map<std::string, std::string>{{G.FilePath, newCard}}));
}

// ---- The file layer for other files ----------------------------------------------------------

TEST(ReplaceFileContents, ReplacesOrCreatesAndKeepsThePermissions) {
    FakeWorld world;
    world.files.files["/r/day.tlr"] = "old";
    world.files.permissions["/r/day.tlr"] = "0640";
    ReplaceFileContents("/r/day.tlr", "new");
    ReplaceFileContents("/r/other.tlr", "made");
    EXPECT_EQ(world.files.files, (std::map<std::string, std::string>{{"/r/day.tlr", "new"},
                                                                     {"/r/other.tlr", "made"}}));
    EXPECT_EQ(world.files.permissions["/r/day.tlr"], "0640");

    world.files.writeLimit = 1;
    EXPECT_THROW(ReplaceFileContents("/r/day.tlr", "newer"), AppError);
    EXPECT_EQ(world.files.files["/r/day.tlr"], "new");
    EXPECT_TRUE(world.files.Temporaries().empty());
}

}  // namespace
}  // namespace tt::test
