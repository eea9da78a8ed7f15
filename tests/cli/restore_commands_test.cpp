// `tally recovery`, `tally restore` and `tally import-bettors` on files on disk: the grid as
// printed, the boxes on stderr, what is saved and what is never written.

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "../files/restore_log.h"
#include "files/race_file_io.h"
#include "model/race_file.h"
#include "support/companion_run.h"
#include "support/fakes.h"

namespace tt::cli {
namespace {

using namespace test;

const DateTime kAt1400{2026, 5, 2, 14, 0, 0};
const DateTime kAt1405{2026, 5, 2, 14, 5, 0};
const DateTime kSaved{2026, 5, 2, 13, 0, 0};

const char* const kQuestion =
    "All rows marked with a 'Yes' in the Include column, are about to be restored.\n\r\n"
    "Do you want to continue?\n";
const char* const kVersionQuestion =
    "Software does not support the version specified in the file!\n\r\n"
    "You could experience problems loading the file!\n\r\n"
    "If it is a file from an earlier version of Ridgeway Ladder, \n\r\n"
    "try opening it as the main pool file then saving it.\n\r\n"
    "Do you wish to continue?\n";

class RestoreCommands : public ::testing::Test {
  protected:
    void SetUp() override {
        card = Path("card.tly");
        out = Path("out.tly");
        log = Path("day.tlr");
        FakeWorld world;
        RestoreCard();
        RF.RecoveryFile = log;
        original = BuildRaceFileText(kSaved);
        WriteFile(card, original);
        logText =
            LogText({Version("New ", 1, kAt1400, 1, 1, {{1, 2, {3}}, {4, 1, {2, 5}, 0, true}}),
                     Version("New ", 2, kAt1400, 2, 7, {{}}, 88),
                     Version("Edit", 2, kAt1405, 2, 2, {{3, 5, {1}}}, 77, 5)});
        WriteFile(log, logText);
    }
    std::string Path(const char* name) const { return dir.filePath(name).toStdString(); }
    // The card saved at a path, read back into the document.
    void Load(const std::string& path) {
        loaded.files.files["x.tly"] = ReadFile(path);
        G.FilePath = "x.tly";
        OpenRaceFile();
    }

    QTemporaryDir dir;
    std::string card, out, log, original, logText;
    FakeWorld loaded;
};

TEST_F(RestoreCommands, RecoveryPrintsTheGridAsTheWindowShowsIt) {
    TallyRun r = Tally({"recovery", card});
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(r.out,
              "Include?\tTicket#\tDate/Time\tRace\tBettor\tAction\tColl'd\tDistrib'd\tBet Amt\t"
              "Bet Type\tBox\tBet Total\tPicks\n"
              "No\t2\t2026-05-02 14:05:00\t2\tBen\tEdit\t$5.00\t$.00\t$5.00\tShow\t\t$5.00\t 1\n"
              "No\t1\t2026-05-02 14:00:00\t1\tAnn\tNew \t$.00\t$.00\t$1.00\tExacta\tX\t$2.00\t"
              " 2 5\n"
              "No\t1\t2026-05-02 14:00:00\t1\tAnn\tNew \t$.00\t$.00\t$2.00\tWin\t\t$2.00\t 3\n");
    EXPECT_EQ(ReadFile(log), logText);
}

TEST_F(RestoreCommands, RecoveryOfAnotherVersionTurnsTheLogOffAndPrintsNothing) {
    std::string old = logText;
    old.replace(old.find("\"2.0\""), 5, "\"1.5\"");
    WriteFile(log, old);
    TallyRun r = Tally({"recovery", card});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err,
              "Recovery File is not for this version of the software!\n\r\n"
              "Recovery will be turned off!\n");
}

TEST_F(RestoreCommands, RestoreOfOneTicketSavesTheCardAndLeavesTheLog) {
    TallyRun r = Tally({"restore", card, "--ticket", "1", "-o", out});
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, std::string(kQuestion) + "\nRestore process completed successfully.\n");
    EXPECT_EQ(ReadFile(card), original);
    EXPECT_EQ(ReadFile(log), logText);

    Load(out);
    EXPECT_EQ(RF.TicketCount, 1);
    EXPECT_EQ(RF.Race(1).BetCount, 2);
    EXPECT_EQ(RF.Bet(1, 1).BetType, 1);
    EXPECT_EQ(RF.Bet(1, 2).BetType, 4);
    EXPECT_EQ(RF.Ticket(1).TicketCost, Currency::FromInt(4));
    EXPECT_EQ(RF.Ticket(1).TicketBettor, 1);
}

TEST_F(RestoreCommands, RestoreOfEveryRowOverTheCardItself) {
    TallyRun r = Tally({"restore", card, "--all"});
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(ReadFile(Path("card.bkp")), original);
    Load(card);
    EXPECT_EQ(RF.TicketCount, 2);
    EXPECT_EQ(RF.Ticket(2).TicketRace, 2);
    EXPECT_EQ(RF.Ticket(2).Collected, Currency::FromInt(5));
    EXPECT_EQ(RF.Bet(2, 1).BetType, 3);
}

TEST_F(RestoreCommands, NothingMarkedIsRefusedAndNothingIsWritten) {
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{"restore", card, "--ticket", "9", "-o", out},
          std::vector<std::string>{"restore", card, "-o", out}}) {
        TallyRun r = Tally(args);
        EXPECT_EQ(r.rc, 1);
        EXPECT_EQ(r.err,
                  "No tickets selected to include in recovery.\n\r\n"
                  "Please change the desired records to be restored to\n\r\n"
                  "say 'Yes' in the Include column.\n");
        EXPECT_FALSE(QFile::exists(QString::fromStdString(out)));
    }
    EXPECT_EQ(Tally({"restore", card, "--ticket", "one"}).rc, 2);
}

TEST_F(RestoreCommands, TheSaveClearsOldRecordsAsEverySaveDoes) {
    {
        FakeWorld world;
        RestoreCard();
        RF.RecoveryFile = log;
        RF.ClearRecovery = true;
        RF.ClearDays = 1;
        WriteFile(card, BuildRaceFileText(kSaved));
    }
    TallyRun r = Tally({"restore", card, "--ticket", "2", "-o", out});
    ASSERT_EQ(r.rc, 0) << r.err;
    // This card's records are months old; the other card's stay, stamped with this card.
    EXPECT_EQ(ReadFile(log), LogText({Version("New ", 2, kAt1400, 2, 7, {{}}, 77)}));
}

// ---- import-bettors -----------------------------------------------------------------------

TEST_F(RestoreCommands, ImportBettorsTakesTheWindowsProposalsAndSaves) {
    const std::string other = Path("last.tly");
    {
        FakeWorld world;
        ClearRaceFile();
        RF.FileId = 99;
        RF.BettorCount = 3;
        RF.Bettor.ReDim(4);
        RF.Bettor(1).BettorName = "Cy";
        RF.Bettor(2).BettorName = "Ann";
        RF.Bettor(2).BettorEmail = "ann@mail";
        RF.Bettor(3).BettorName = "Ben";
        WriteFile(other, BuildRaceFileText(kSaved));
    }
    TallyRun r = Tally({"import-bettors", card, "--from", other, "-o", out});
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.err, std::string(kVersionQuestion) + "\nBettors imported successfully.\n");
    Load(out);
    ASSERT_EQ(RF.BettorCount, 3);
    EXPECT_EQ(RF.Bettor(1).BettorEmail, "ann@mail");
    EXPECT_EQ(RF.Bettor(3).BettorName, "Cy");

    // Now nothing is new: refused, nothing written.
    const std::string again = ReadFile(out);
    r = Tally({"import-bettors", out, "--from", other});
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.err, kVersionQuestion);
    EXPECT_EQ(ReadFile(out), again);
    EXPECT_EQ(Tally({"import-bettors", card}).rc, 2);
}

}  // namespace
}  // namespace tt::cli
