// The recovery file is the log's own: a file that holds something else is never added to or
// rewritten, whatever the card names; the log is turned off with its warning instead.

#include <gtest/gtest.h>

#include "files/recovery_file.h"
#include "model/race_file.h"
#include "support/fakes.h"

namespace tt::test {
namespace {

const std::string kLog = "/races/day.tlr";
const std::string kNotes = "Shopping list\r\nbread, milk\r\n";

std::string Warning(const std::string& stage, const std::string& error) {
    return "The system has detected an unexpected error\r\n" + stage +
           " the Recovery File!\n\r\nUse of Recovery File has been turned off!\n\r\nUse "
           "Edit/RaceCard to reset it!\n\r\nError #" +
           error + ", Source:  TamberlinTally";
}

RecoveryRow Row(DateTime when) {
    RecoveryRow row;
    row.When = when;
    row.Action = "New ";
    row.TicketNbr = 5;
    row.Race = 1;
    row.Bettor = 2;
    row.BetAmt = Currency::FromInt(2);
    row.BetType = 1;
    return row;
}

class RecoveryGuard : public ::testing::Test {
  protected:
    RecoveryGuard() {
        RF.FileId = 77;
        RF.RecoveryFile = kLog;
        RF.RecoveryFlag = true;
        RF.ClearRecovery = true;
    }
    void ExpectTurnedOff(const std::string& stage, const std::string& error) {
        EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{Warning(stage, error)});
        EXPECT_FALSE(bool(RF.RecoveryFlag));
    }
    FakeWorld world;
};

TEST_F(RecoveryGuard, AForeignFileIsLeftAsItWas) {
    world.files.files[kLog] = kNotes;
    TestRecoveryFile();
    ExpectTurnedOff("opening", "75:  Path/File access error");

    for (auto step : {+[] {
                          LogTransaction({Row({2026, 5, 2, 14, 0, 0})});
                      },
                      +[] { ClearOldRecovery(0); }}) {
        world.messages.Clear();
        RF.RecoveryFlag = true;
        step();
        EXPECT_FALSE(bool(RF.RecoveryFlag));
        EXPECT_EQ(world.messages.shown.size(), 1u);
    }
    EXPECT_EQ(world.messages.Texts().back(), Warning("processing", "75:  Path/File access error"));
    EXPECT_EQ(world.files.files, (std::map<std::string, std::string>{{kLog, kNotes}}));
}

TEST_F(RecoveryGuard, TheOpenCardIsNeverItsOwnLog) {
    // A card naming itself, with a stray log record among its lines that would pass for the log.
    const std::string card = "\"%Header`\",\"Tamberlin Tally\",\"2.0\"\r\n%TTRecv`,\r\n";
    G.FilePath = kLog;
    world.files.files[kLog] = card;
    TestRecoveryFile();
    ExpectTurnedOff("opening", "75:  Path/File access error");
    RF.RecoveryFlag = true;
    LogTransaction({Row({2026, 5, 2, 14, 0, 0})});
    EXPECT_FALSE(bool(RF.RecoveryFlag));
    RF.RecoveryFlag = true;
    ClearOldRecovery(0);
    EXPECT_FALSE(bool(RF.RecoveryFlag));
    EXPECT_EQ(world.files.files, (std::map<std::string, std::string>{{kLog, card}}));
    G.FilePath.clear();
}

TEST_F(RecoveryGuard, SomethingThatIsNoRegularFileIsNeverOpened) {
    world.files.others.insert(kLog);
    TestRecoveryFile();
    ExpectTurnedOff("opening", "75:  Path/File access error");
    RF.RecoveryFlag = true;
    world.messages.Clear();
    ClearOldRecovery(0);
    ExpectTurnedOff("processing", "75:  Path/File access error");
    EXPECT_TRUE(world.files.files.empty());
    for (const std::string& step : world.files.log)
        EXPECT_TRUE(step.rfind("append", 0) != 0 && step.rfind("write", 0) != 0) << step;
}

TEST_F(RecoveryGuard, AMissingFileIsMadeAndAnEmptyOneUsed) {
    TestRecoveryFile();
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(world.files.files[kLog], "");

    LogTransaction({Row({2026, 5, 2, 14, 0, 0})});
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(world.files.files[kLog].rfind("\"%TTRecv`\",\"2.0\",#2026-05-02 14:00:00#,77,", 0),
              0u);

    world.files.files[kLog] = "";
    ClearOldRecovery(0);
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(world.files.files[kLog], "");
    EXPECT_TRUE(bool(RF.RecoveryFlag));
}

TEST_F(RecoveryGuard, ClearingARealLogRewritesItAtomically) {
    std::string log;
    AppendRecoveryLine(log, Row({2026, 4, 1, 9, 0, 0}), 77);  // old, this card: dropped
    AppendRecoveryLine(log, Row({2026, 4, 1, 9, 0, 0}), 12);  // another card's: kept, as 77
    world.files.files[kLog] = "a stray line\r\n" + log;
    world.files.permissions[kLog] = "0600";
    world.files.failWrite[kLog] = kErrDiskFull;
    ClearOldRecovery(3);
    ExpectTurnedOff("processing", "61:  Disk full");
    EXPECT_EQ(world.files.files[kLog], "a stray line\r\n" + log);
    EXPECT_TRUE(world.files.Temporaries().empty());

    world.files.failWrite.clear();
    world.messages.Clear();
    RF.RecoveryFlag = true;
    ClearOldRecovery(3);
    EXPECT_TRUE(world.messages.shown.empty());
    std::string kept;
    AppendRecoveryLine(kept, Row({2026, 4, 1, 9, 0, 0}), 77);
    EXPECT_EQ(world.files.files[kLog], kept);
    EXPECT_EQ(world.files.permissions[kLog], "0600");
}

TEST_F(RecoveryGuard, AFileTooLargeToReadTurnsTheLogOff) {
    world.files.files[kLog] = std::string(kRecoveryReadLimit + 1, 'x');
    ClearOldRecovery(0);
    ExpectTurnedOff("processing", "7:  Out of memory");
    EXPECT_EQ(world.files.files[kLog].size(), kRecoveryReadLimit + 1);
}

}  // namespace
}  // namespace tt::test
