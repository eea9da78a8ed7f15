// The file layer on a real disk, through the companion: permissions kept, folders, pipes and
// devices never opened or replaced, a stranger's file never emptied.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <filesystem>

#include "files/race_file_io.h"
#include "model/race_file.h"
#include "support/companion_run.h"
#include "support/fakes.h"

namespace tt::test {
namespace {

namespace fs = std::filesystem;

// A card with a race, logging to the given recovery file, if any, and clearing it at every
// save.
std::string CardLoggingTo(const std::string& recovery) {
    ResetProcessState();
    RF.FileId = 77;
    RF.FileName = "Derby Day";
    RF.Race(1).RaceName = "Opener";
    RF.RecoveryFile = recovery;
    RF.RecoveryFlag = !recovery.empty();
    RF.ClearRecovery = true;
    RF.ClearDays = 1;
    std::string text = BuildRaceFileText(DateTime{2026, 3, 1, 12, 0, 0});
    ResetProcessState();
    return text;
}

const std::string kWarning =
    "The system has detected an unexpected error\r\nopening the Recovery File!";

class RealDisk : public ::testing::Test {
  protected:
    std::string Path(const std::string& name) const {
        return dir.filePath(name.c_str()).toStdString();
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& e : fs::directory_iterator(dir.path().toStdString()))
            names.push_back(e.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    QTemporaryDir dir;
};

TEST_F(RealDisk, ASaveKeepsThePermissionsAndLeavesNoTemporary) {
    const std::string card = Path("June.tly");
    WriteFile(card, CardLoggingTo(""));
    ::chmod(card.c_str(), 0600);
    const std::string old = ReadFile(card);
    TallyRun r = Tally({"resave", card, "-o", card});
    EXPECT_EQ(r.rc, 0) << r.err;
    struct stat st {};
    ASSERT_EQ(::stat(card.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0600u);
    EXPECT_EQ(ReadFile(Path("June.bkp")), old);
    EXPECT_EQ(Names(), (std::vector<std::string>{"June.bkp", "June.tly"}));
}

TEST_F(RealDisk, ASaveToAFolderFailsAndLeavesTheFolder) {
    const std::string card = Path("June.tly");
    WriteFile(card, CardLoggingTo(""));
    fs::create_directory(Path("Documents"));
    WriteFile(Path("Documents/letter.txt"), "Dear Ann");
    TallyRun r = Tally({"resave", card, "-o", Path("Documents")});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.err, "Error saving file\n\r\nPath/File access error\n");
    EXPECT_TRUE(fs::is_directory(Path("Documents")));
    EXPECT_EQ(ReadFile(Path("Documents/letter.txt")), "Dear Ann");
    EXPECT_EQ(Names(), (std::vector<std::string>{"Documents", "June.tly"}));
}

TEST_F(RealDisk, AStrangersFileNamedAsTheRecoveryFileIsNeverEmptied) {
    const std::string notes = Path("notes.txt");
    WriteFile(notes, "Shopping list\r\n");
    const std::string card = Path("June.tly");
    WriteFile(card, CardLoggingTo(notes));
    TallyRun r = Tally({"resave", card, "-o", card});
    EXPECT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.err.rfind(kWarning, 0), 0u) << r.err;
    EXPECT_EQ(ReadFile(notes), "Shopping list\r\n");
}

TEST_F(RealDisk, APipeOrADeviceAsTheRecoveryFileOpensAtOnce) {
    const std::string fifo = Path("pipe.tlr");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    for (const std::string& recovery : {fifo, std::string("/dev/zero")}) {
        SCOPED_TRACE(recovery);
        const std::string card = Path("June.tly");
        WriteFile(card, CardLoggingTo(recovery));
        const auto start = std::chrono::steady_clock::now();
        TallyRun r = Tally({"info", card});
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
        EXPECT_EQ(r.rc, 0);  // the card opens, with the log turned off
        EXPECT_EQ(r.err.rfind(kWarning, 0), 0u) << r.err;
        EXPECT_NE(r.err.find("Error #75:  Path/File access error"), std::string::npos) << r.err;
    }
    struct stat st {};
    ASSERT_EQ(::stat(fifo.c_str(), &st), 0);
    EXPECT_TRUE(S_ISFIFO(st.st_mode));
}

TEST_F(RealDisk, ARecoveryFileBeyondTheLimitIsNotRead) {
    const std::string big = Path("big.tlr");
    WriteFile(big, "\"%TTRecv`\",\"2.0\"\r\n");
    fs::resize_file(big, (256u << 20) + 1);  // sparse: no room taken on the disk
    const std::string card = Path("June.tly");
    WriteFile(card, CardLoggingTo(big));
    TallyRun r = Tally({"info", card});
    EXPECT_NE(r.err.find("Error #7:  Out of memory"), std::string::npos) << r.err;
    EXPECT_EQ(fs::file_size(big), (256u << 20) + 1);
}

}  // namespace
}  // namespace tt::test
