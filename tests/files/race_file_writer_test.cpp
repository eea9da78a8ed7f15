#include <gtest/gtest.h>

#include <algorithm>

#include "files/file_commands.h"
#include "files/race_file_io.h"
#include "files/race_file_samples.h"
#include "model/race_file.h"
#include "support/fakes.h"

namespace tt::test {
namespace {

Currency Money(std::int64_t tenThousandths) {
    return Currency::FromRaw(tenThousandths);
}

// A card with a race, two racer slots, two bettors and three tickets: a live Win bet, a bet of
// a ticket that no longer counts, and a deleted bet of a live ticket.
void MakeSmallCard() {
    ClearRaceFile();
    RF.FileId = 1234;
    RF.FileName = "Derby \"Day\"";
    RF.RaceType = "Horses";
    RF.SaveAfter = 5;
    RF.PrintBets = true;
    RF.UseBetNbr = true;
    RF.RacerSort = "Odds \"low\"";
    RF.MaxRaces = 20;
    RF.RecoveryFile = "C:\\x \"y\".tlr";
    RF.ClearDays = 7;

    RaceRec& race = RF.Race(1);
    race.RaceName = "The \"Mile\"";
    race.MinBet = Money(20000);
    race.BetIncr = Money(5000);
    race.RoundTo = 25;
    race.HoldbackAmt = Money(12500);
    race.HoldbackPct = 0.5f;
    race.BetType(4) = true;
    race.CorrectPaid(1) = 1;
    race.Result(1) = 2;
    race.Result(2) = 1;
    const std::int64_t quick[] = {10000, 25000, 50000, 100000, 1};
    for (int q = 1; q <= 5; ++q) race.QuickBet(q) = Money(quick[q - 1]);

    RF.MaxRacers = 2;
    RF.Racer.ReDim(3);
    RF.Racer(1, 1) = {"1", 7, "1A", "Red \"Rum\"", 2.5, false};
    RF.Racer(1, 2) = {"", 0, "", "Gh\"ost", 0, false};

    RF.BettorCount = 2;
    RF.Bettor.ReDim(3);
    RF.Bettor(1).BettorName = "Ann \"A\"";
    RF.Bettor(1).BettorInfo = "info";
    RF.Bettor(1).BettorPhone = "555";
    RF.Bettor(1).BettorEmail = "ann@x";
    RF.Bettor(2).BettorName = "Bob";

    RF.TicketCount = 3;
    RF.Ticket.ReDim(4);
    RF.Ticket(1) = {101, 1, 2, Money(20000), Money(20000), Money(0), Money(0), 1, 1};
    RF.Ticket(2) = {102, 1, 0, Money(50000), Money(0), Money(0), Money(0), 2, 2};
    RF.Ticket(3) = {103, 1, 1, Money(30000), Money(30000), Money(0), Money(5000), 3, 3};
    RF.MaxBets = 3;
    RF.Bet.ReDim(4);
    race.BetCount = 3;
    auto bet = [](int slot, std::int64_t amt, int type, int ticket) {
        BetRec& b = RF.Bet(1, slot);
        b.BetAmt = b.BetCost = Money(amt);
        b.BetType = type;
        b.Pick(1) = 7;
        b.TicketIdx = ticket;
        return &b;
    };
    bet(1, 20000, 1, 1);
    bet(2, 50000, 2, 2);
    bet(3, 30000, 0, 3)->BetWinnings = Money(5000);

    RF.Payout(1, 1, 1) = {0.5, Money(20000), Money(102500)};
    RF.Payout(2, 10, 6).PayRatio = -2;
}

std::string DefaultRace(int r) {
    return "\"%Race  `\"," + std::to_string(r) +
           ",\"\",1,1,0.1,-2,0,0,#TRUE#,0,#TRUE#,0,#TRUE#,0,#FALSE#,0,#FALSE#,0,#FALSE#,0,"
           "#FALSE#,0,#FALSE#,0,#FALSE#,0,#FALSE#,0,0,0,0,0,0,0,\r\n0,0,0,0,0,\r\n";
}

std::string Payouts(int r, const std::string& first, const std::string& last) {
    std::string s = "\"%Payout`\"," + std::to_string(r) + "," + first;
    for (int i = 1; i < 59; ++i) s += "0,0,0,";
    return s + last + "\r\n";
}

std::string ExpectedSmallCard() {
    std::string s =
        "\"%Header`\",\"Tamberlin Tally\",\"2.01\",#2026-05-02 14:30:00#\r\n"
        "\"%Parms `\",1234,\"Derby 'Day'\",\"Horses\",1,5,#TRUE#,1,#TRUE#,#FALSE#,#FALSE#,"
        "\"Odds \"low\"\",20,3,#FALSE#,\"C:\\x \"y\".tlr\",#FALSE#,#FALSE#,7,8,10,#FALSE#\r\n";
    s += DefaultRace(0);
    s += "\"%Race  `\",1,\"The 'Mile'\",2,1,0.5,25,1.25,0.5,#TRUE#,1,#TRUE#,0,#TRUE#,0,#TRUE#,0,"
         "#FALSE#,0,#FALSE#,0,#FALSE#,0,#FALSE#,0,#FALSE#,0,#FALSE#,0,0,2,1,0,0,0,\r\n"
         "1,2.5,5,10,0.0001,\r\n"
         "\"%Racer `\",7,\"1\",\"1A\",\"Red 'Rum'\",2.5,#FALSE#\r\n";
    for (int r = 2; r <= 20; ++r) s += DefaultRace(r);
    s += "\"%Bettor`\",\"Ann 'A'\",\"info\",\"ann@x\",\"555\"\r\n"
         "\"%Bet   `\",1,3,0,#FALSE#,3,0.5,0,0,0,0,0\r\n7,0,0,0,0,0,3,103,1,3,3,0,0.5\r\n"
         "\"%Bettor`\",\"Bob\",\"\",\"\",\"\"\r\n"
         "\"%Bet   `\",1,2,1,#FALSE#,2,0,0,0,0,0,0\r\n7,0,0,0,0,0,1,101,1,2,2,0,0\r\n";
    s += Payouts(1, "0.5,2,10.25,", "0,0,0,");
    s += Payouts(2, "0,0,0,", "-2,0,0,");
    for (int r = 3; r <= 20; ++r) s += Payouts(r, "0,0,0,", "0,0,0,");
    return s;
}

TEST(RaceFileWriter, WritesTheCardByteForByteAndCleansTheTextsInMemory) {
    FakeWorld world;
    MakeSmallCard();
    G.FilePath = kCardPath;
    G.FileChanged = true;
    G.TransSinceSave = 4;
    WriteRaceFile();

    EXPECT_EQ(G.CancelFlag, Flag(false));
    EXPECT_EQ(world.files.files[kCardPath], ExpectedSmallCard());
    EXPECT_TRUE(world.messages.shown.empty());
    // The cleaned texts are stored back; the sort and recovery texts, and a racer that was not
    // written, are not cleaned.
    EXPECT_EQ(RF.FileName, "Derby 'Day'");
    EXPECT_EQ(RF.Race(1).RaceName, "The 'Mile'");
    EXPECT_EQ(RF.Racer(1, 1).RacerName, "Red 'Rum'");
    EXPECT_EQ(RF.Bettor(1).BettorName, "Ann 'A'");
    EXPECT_EQ(RF.RacerSort, "Odds \"low\"");
    EXPECT_EQ(RF.RecoveryFile, "C:\\x \"y\".tlr");
    EXPECT_EQ(RF.Racer(1, 2).RacerName, "Gh\"ost");
    EXPECT_EQ(G.FileChanged, Flag(false));
    EXPECT_EQ(G.TransSinceSave, 0);
    EXPECT_EQ(G.Mru[0], kCardPath);
    EXPECT_EQ(world.settings.values["MRU0"], kCardPath);
}

TEST(RaceFileWriter, ReplaceAllOverwritesInPlace) {
    EXPECT_EQ(CleanText("a\"b\"\"c"), "a'b''c");
    EXPECT_EQ(ReplaceAll("abcabc", "", "x"), "abcabc");
    EXPECT_EQ(ReplaceAll("abcabc", "bc", "xyz"), "axyaxy");  // no more than the search text
    EXPECT_EQ(ReplaceAll("abcabc", "bc", "x"), "axcaxc");    // the rest stays
    EXPECT_EQ(ReplaceAll("aab", "ab", "b"), "bbb");          // a new occurrence is found too
    EXPECT_EQ(ReplaceAll("aaa", "a", "a"), "aaa");           // ends
}

TEST(RaceFileWriter, RoundTripKeepsBytesAndRenumbersSlotsByBettor) {
    FakeWorld world;
    MakeSmallCard();
    // Texts that are not cleaned would not come back whole.
    RF.RacerSort = "Odds";
    RF.RecoveryFile = "June.tlr";
    // A second ticket of Bob's: slots 4 and 5.
    RF.TicketCount = 4;
    RF.Ticket.ReDimPreserve(5);
    RF.Ticket(4) = {104, 1, 2, Money(40000), Money(0), Money(0), Money(0), 4, 5};
    RF.MaxBets = 5;
    RF.Bet.ReDimPreserve(6);
    RF.Race(1).BetCount = 5;
    for (int slot : {4, 5}) {
        RF.Bet(1, slot).BetType = 1;
        RF.Bet(1, slot).TicketIdx = 4;
        RF.Bet(1, slot).BetAmt = RF.Bet(1, slot).BetCost = Money(20000);
    }
    G.FilePath = kCardPath;
    WriteRaceFile();
    const std::string first = world.files.files[kCardPath];

    OpenRaceFile();
    ASSERT_TRUE(world.messages.shown.empty());
    // Ann's deleted bet comes first, then Bob's in race order; the dropped ticket's bet is gone.
    EXPECT_EQ(RF.Race(1).BetCount, 4);
    EXPECT_EQ(RF.MaxBets, 4);
    EXPECT_EQ(RF.MaxRacers, 1);
    const int tickets[] = {3, 1, 4, 4};
    for (int slot = 1; slot <= 4; ++slot) EXPECT_EQ(RF.Bet(1, slot).TicketIdx, tickets[slot - 1]);
    EXPECT_EQ(RF.Bet(1, 1).BetType, 0);
    EXPECT_EQ(RF.Ticket(4).FirstBet, 3);
    EXPECT_EQ(RF.Ticket(4).LastBet, 4);
    EXPECT_EQ(RF.Ticket(4).TicketNbr, 104);
    EXPECT_EQ(RF.Ticket(3).TicketBettor, 1);
    EXPECT_EQ(RF.Ticket(2).TicketBettor, 0);
    EXPECT_EQ(RF.TicketCount, 4);
    EXPECT_EQ(RF.FileId, 1234);

    world.clock.now = {2026, 5, 3, 8, 0, 5};
    WriteRaceFile();
    const std::string second = world.files.files[kCardPath];
    const auto header = first.find("\r\n");
    EXPECT_EQ(second.substr(0, header),
              "\"%Header`\",\"Tamberlin Tally\",\"2.01\",#2026-05-03 08:00:05#");
    EXPECT_EQ(second.substr(header), first.substr(header));
    EXPECT_EQ(world.files.files["/races/June.bkp"], first);
}

TEST(RaceFileWriter, BackupNames) {
    EXPECT_EQ(BackupName("/races/June.tly"), "/races/June.bkp");
    EXPECT_EQ(BackupName("/Race.Days/June.tly"), "/Race.bkp");
    EXPECT_EQ(BackupName("June"), "bkp");
}

TEST(RaceFileWriter, FirstSaveNeedsNoBackup) {
    FakeWorld world;
    MakeSmallCard();
    G.FilePath = kCardPath;
    WriteRaceFile();
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(G.CancelFlag, Flag(false));
    EXPECT_EQ(world.files.files.count("/races/June.bkp"), 0u);
    EXPECT_EQ(world.files.files.count(kCardPath), 1u);
}

TEST(RaceFileWriter, BackupErrorAnsweredCancelLeavesTheFile) {
    FakeWorld world;
    MakeSmallCard();
    world.files.files[kCardPath] = "old";
    world.files.failLink[kCardPath] = kErrRenameAcrossDrives;
    world.files.failCreate["/races/June.bkp"] = kErrPermissionDenied;
    G.FilePath = kCardPath;
    G.FileChanged = true;
    WriteRaceFile();

    ASSERT_EQ(world.messages.shown.size(), 1u);
    const MessageRequest& box = world.messages.shown[0];
    EXPECT_EQ(box.text,
              "Error in creating backup of current file.\n\r\n70  Permission denied\n\r\nSave file "
              "anyway?");
    EXPECT_EQ(box.buttons, Buttons::kOKCancel);
    EXPECT_EQ(box.icon, Icon::kExclamation);
    EXPECT_EQ(box.defaultButton, 1);
    EXPECT_EQ(G.CancelFlag, Flag(true));
    EXPECT_EQ(world.files.files[kCardPath], "old");
    EXPECT_TRUE(world.files.Temporaries().empty());
    EXPECT_EQ(G.FileChanged, Flag(true));

    world.messages.Answer(kOK);  // save anyway
    WriteRaceFile();
    EXPECT_EQ(G.CancelFlag, Flag(false));
    EXPECT_EQ(world.files.files[kCardPath], ExpectedSmallCard());
}

TEST(RaceFileWriter, FailedSaveLeavesTheFileAndTheBackupAsTheyWere) {
    FakeWorld world;
    MakeSmallCard();
    world.files.files[kCardPath] = "previous save";
    world.files.files["/races/June.bkp"] = "save before";
    world.files.writeLimit = 100;
    G.FilePath = kCardPath;
    G.FileChanged = true;
    WriteRaceFile();

    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Error saving file\n\r\nDisk full"});
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(G.CancelFlag, Flag(true));
    EXPECT_EQ(G.FileChanged, Flag(true));
    EXPECT_FALSE(world.shell.busy);
    EXPECT_EQ(world.files.files[kCardPath], "previous save");
    EXPECT_EQ(world.files.files["/races/June.bkp"], "save before");
    EXPECT_TRUE(world.files.Temporaries().empty());
    EXPECT_TRUE(G.Mru[0].empty());

    // A bet whose ticket lies beyond the table stops the save while the text is built: nothing
    // on the disk changes.
    world.files.writeLimit.reset();
    world.messages.Clear();
    world.files.log.clear();
    RF.Bet(1, 3).TicketIdx = 9;
    WriteRaceFile();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Error saving file\n\r\nSubscript out of range"});
    EXPECT_TRUE(world.files.log.empty());
    EXPECT_EQ(world.files.files[kCardPath], "previous save");
    EXPECT_EQ(world.files.files["/races/June.bkp"], "save before");
    EXPECT_EQ(G.FileChanged, Flag(true));
}

}  // namespace
}  // namespace tt::test
