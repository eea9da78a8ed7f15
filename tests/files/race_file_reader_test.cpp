#include <gtest/gtest.h>

#include "files/race_file_io.h"
#include "files/race_file_samples.h"
#include "model/race_file.h"
#include "support/fakes.h"

namespace tt::test {
namespace {

const std::string kOutOfOrderRacer =
    "Racer info found out of order in file!\n\r\nSome data will be lost when file is loaded!";
const std::string kOutOfOrderBet =
    "Bet info found out of order in file!\n\r\nSome data will be lost when file is loaded!";
const std::string kLaterVersion =
    "Tamberlin Tally file is from a later version of the software!\n\r\n"
    "You could experience problems loading the file!  Continue?";

std::string Replace(std::string s, const std::string& from, const std::string& to) {
    for (std::size_t p = 0; (p = s.find(from, p)) != std::string::npos; p += to.size())
        s.replace(p, from.size(), to);
    return s;
}

std::string Card(const std::string& version = "2.01") {
    return HeaderLine(version) + ParmsLine() + RaceLines("1", "Mile, Long") + RacerLine(3, "Rex") +
           BettorLine("Ann, B") + BetLines("1", 2) + PayoutLine("1");
}

TEST(RaceFileReader, ReadsFieldsWhateverTheLineEnds) {
    for (const char* end : {"\r\n", "\n", "\r"}) {
        SCOPED_TRACE(end[1] ? "CR LF" : end[0] == '\n' ? "LF" : "CR");
        FakeWorld world;
        LoadBytes(world, Replace(Card(), "\r\n", end));
        EXPECT_TRUE(world.messages.shown.empty());
        EXPECT_EQ(RF.FileName, "Card");
        EXPECT_EQ(RF.Race(1).RaceName, "Mile, Long");
        EXPECT_EQ(RF.Race(1).BetIncr, Currency::FromRaw(1000));
        // The empty field after Result(5) is discarded before the quick bets.
        EXPECT_EQ(RF.Race(1).QuickBet(1), Currency::FromInt(1));
        EXPECT_EQ(RF.Race(1).QuickBet(5), Currency::FromInt(20));
        EXPECT_EQ(RF.Racer(1, 1).BetNbr, 3);
        EXPECT_EQ(RF.Racer(1, 1).Odds, 2.5);
        EXPECT_EQ(RF.Bettor(1).BettorName, "Ann, B");
        EXPECT_EQ(RF.Bet(1, 1).TicketIdx, 2);
        EXPECT_EQ(RF.Ticket(2).TicketNbr, 102);
        EXPECT_EQ(RF.Ticket(2).TicketBettor, 1);
        EXPECT_EQ(RF.Payout(1, 10, 6).PayRatio, 1.5);
        EXPECT_EQ(RF.Payout(1, 10, 6).PoolAmt, Currency::FromInt(10));
        EXPECT_EQ(G.FileSaved, (DateTime{2026, 5, 1, 9, 15, 0}));
        EXPECT_EQ(G.LastFile, kCardPath);
        EXPECT_EQ(world.shell.title, "Tamberlin Tally - Card   (File ID = 77)");
        EXPECT_EQ(world.shell.fileGroup, true);
        EXPECT_EQ(world.shell.raceGroup, true);
        EXPECT_EQ(G.CurrentRace, 1);
        EXPECT_FALSE(world.shell.busy);
    }
}

TEST(RaceFileReader, BlanksAroundFieldsAndShortNumbers) {
    FakeWorld world;
    std::string race = RaceLines("1", "Mile");
    race.replace(race.find(",1,1,0.1,"), 9, ", 1 ,\t1,.1  ,");
    LoadBytes(world, HeaderLine() + ParmsLine() + race +
                         "\"%Racer `\",3 ,  \"1\"junk,\"1\",\"Rex\",.25,#TRUE#\r\n");
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(RF.Race(1).MinBet, Currency::FromInt(1));
    EXPECT_EQ(RF.Race(1).BetIncr, Currency::FromRaw(1000));
    EXPECT_EQ(RF.Racer(1, 1).PostPosition, "1");
    EXPECT_EQ(RF.Racer(1, 1).Odds, 0.25);
    EXPECT_EQ(RF.Racer(1, 1).Scratched, Flag(true));
}

TEST(RaceFileReader, VersionQuestions) {
    {
        FakeWorld world;
        LoadBytes(world, Card("2.7"));
        EXPECT_TRUE(world.messages.shown.empty());
        EXPECT_EQ(RF.Race(1).RaceName, "Mile, Long");
    }
    for (const char* version : {"3.0", "1.00"}) {
        SCOPED_TRACE(version);
        FakeWorld world;
        LoadBytes(world, Card(version));
        ASSERT_EQ(world.messages.Texts(), std::vector<std::string>{kLaterVersion});
        EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kOKCancel);
        EXPECT_EQ(world.messages.shown[0].icon, Icon::kNone);
        EXPECT_EQ(world.messages.beeps, 1);
        EXPECT_EQ(RF.Race(1).RaceName, "Mile, Long");

        world.messages.Clear();
        world.messages.Answer(kCancel);
        G.Mru = {};
        LoadBytes(world, Card(version));
        EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{kLaterVersion});
        EXPECT_EQ(RF.Race(1).RaceName, "");
        EXPECT_EQ(G.FilePath, kCardPath);
        EXPECT_EQ(G.Mru[0], "");
        EXPECT_FALSE(world.shell.busy);
    }
}

TEST(RaceFileReader, RefusesAnotherProductAndReadsNoHeaderAsEmpty) {
    FakeWorld world;
    LoadBytes(world,
              HeaderLine("2.01", "Tamberlin Tallies") + ParmsLine() + RaceLines("1", "Mile"));
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{
                  "Not a Tamberlin Tally file!\n\r\nFile cannot be used with this program!"});
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(G.FilePath, "");
    EXPECT_EQ(RF.Race(1).RaceName, "");
    EXPECT_EQ(G.Mru[0], "");

    world.messages.Clear();
    LoadBytes(world, ParmsLine() + RaceLines("1", "Mile"));
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(RF.FileName, "");
    EXPECT_EQ(RF.Race(1).RaceName, "");
    EXPECT_EQ(G.Mru[0], kCardPath);
    EXPECT_EQ(world.shell.raceGroup, false);
}

TEST(RaceFileReader, NoFileAndUnreadableFile) {
    FakeWorld world;
    G.FilePath = "";
    OpenRaceFile();
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"No file selected"});
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(world.shell.fileGroup, false);

    world.messages.Clear();
    G.FilePath = "/races/none.tly";
    OpenRaceFile();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Unable to read file\n\r\nFile not found"});
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(G.FilePath, "");
    EXPECT_FALSE(world.shell.busy);

    // The number of a cancelled dialog is never reported.
    world.messages.Clear();
    world.files.failRead[kCardPath] = kErrCancel;
    LoadBytes(world, Card());
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(G.FilePath, kCardPath);
    EXPECT_FALSE(world.shell.busy);
}

TEST(RaceFileReader, RacersAndBetsOutOfOrder) {
    for (const char* race : {"0", "21", "-1"}) {
        SCOPED_TRACE(race);
        FakeWorld world;
        LoadBytes(world,
                  HeaderLine() + ParmsLine() + RaceLines(race, "Spare") + RacerLine(1, "Rex"));
        EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{kOutOfOrderRacer});
        EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
        EXPECT_EQ(world.messages.beeps, 2);
        EXPECT_EQ(RF.MaxRacers, 0);
        EXPECT_EQ(RF.Race(0).RaceName, race == std::string("0") ? "Spare" : "");
    }
    FakeWorld world;
    LoadBytes(world, HeaderLine() + ParmsLine() + RaceLines("1", "Mile") + BetLines("1", 1) +
                         BetLines("1", 2) + BettorLine("Ann") + BetLines("1", 3));
    EXPECT_EQ(world.messages.Texts(), (std::vector<std::string>{kOutOfOrderBet, kOutOfOrderBet}));
    EXPECT_EQ(world.messages.beeps, 4);
    EXPECT_EQ(RF.Race(1).BetCount, 1);
    EXPECT_EQ(RF.Bet(1, 1).TicketIdx, 3);

    // The bettor of the last file is still current: the next file's stray bet is taken.
    world.messages.Clear();
    LoadBytes(world, HeaderLine() + ParmsLine() + RaceLines("1", "Mile") + BetLines("1", 4));
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(RF.BettorCount, 0);
    EXPECT_EQ(RF.Race(1).BetCount, 1);
    EXPECT_EQ(RF.Ticket(4).TicketBettor, 1);
}

TEST(RaceFileReader, FailureMessages) {
    FakeWorld world;
    // While looking for the header.
    LoadBytes(world, "junk,\"%Header`\",\"Tamberlin Tally\"");
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{
                  "Error in processing the %Header` record.\n\r\nInput past end of file"});
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(G.FilePath, "");

    world.messages.Clear();
    LoadBytes(world, "\"%Header`\",\"Tamberlin Tally\",\"2.01\",#2026-13-01 00:00:00#\r\n");
    EXPECT_EQ(
        world.messages.Texts(),
        std::vector<std::string>{"Error in processing the %Header` record.\n\r\nType mismatch"});

    // Inside the record loop: the count, and the load stops with the commands disabled, though
    // the file enters the recent files and what was read stays.
    world.messages.Clear();
    world.shell.title = "before";
    LoadBytes(world, HeaderLine() + ParmsLine() + RaceLines("1", "Mile") + RacerLine(3, "Rex") +
                         BettorLine("Ann") + BetLines("22", 1) + BettorLine("Bob"));
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{
                  "Error in processing the %Bet   ` record.  Count =  5\n\r\n"
                  "Subscript out of range\n\r\n"
                  "File cannot be opened.  See the Help system for Tech Support information."});
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(G.CancelFlag, Flag(true));
    EXPECT_EQ(G.FilePath, kCardPath);
    EXPECT_EQ(G.LastFile, kCardPath);
    EXPECT_EQ(G.Mru[0], kCardPath);
    EXPECT_EQ(world.shell.fileGroup, false);
    EXPECT_EQ(world.shell.title, "before");
    EXPECT_EQ(RF.Race(1).RaceName, "Mile");
    EXPECT_EQ(RF.BettorCount, 1);
    EXPECT_FALSE(world.shell.busy);

    // After the reading.
    world.messages.Clear();
    LoadBytes(world, HeaderLine() + ParmsLine("4", "99") + RaceLines("1", "Mile"));
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{
                  "Unexpected error processing file!\n\r\nFile has been closed!\n\r\n"
                  "Error: 9 - Subscript out of range"});
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(world.messages.beeps, 0);
    EXPECT_EQ(G.FilePath, "");

    // Inside the reader of version 1.0 files.
    world.messages.Clear();
    world.messages.Answer(kOK);
    LoadBytes(world, HeaderLine("1.0") + BettorLine("Ann") + "\"%Bet   `\",1,x\r\n");
    EXPECT_EQ(world.messages.Texts()[1],
              "Error in processing the %Bet   ` record.\n\r\nType mismatch");
    EXPECT_EQ(world.messages.beeps, 2);
    EXPECT_EQ(G.FilePath, "");
}

TEST(RaceFileReader, TranslatesVersion10) {
    const std::string bets =
        "\"%Bet   `\",1,2,1,#FALSE#,2,#TRUE#,4,#FALSE#,3,0,0,0,0,0\r\n"
        "\"%Bet   `\",1,5,2,#FALSE#,5,#FALSE#,7,#TRUE#,3,0,0,0,0,0\r\n";
    const std::string file = HeaderLine("1.0") + "\"%Parms `\",55,\"Old Card\",\"Dogs\",1,3\r\n" +
                             RaceLines("1", "First", true) + RacerLine(3, "Rex") +
                             BettorLine("Ann") + bets;
    FakeWorld world;
    RF.Race(1).QuickBet(1) = Currency::FromInt(9);
    G.CurrentTicket = 0;
    LoadBytes(world, file);
    ASSERT_EQ(world.messages.Texts(),
              std::vector<std::string>{
                  "Tamberlin Tally file is from a previous version of the software!\n\r\n"
                  "The file will be translated to version 2.0 format."});
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kOKCancel);
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kNone);

    EXPECT_EQ(RF.FileId, 55);
    EXPECT_EQ(RF.RaceType, "Dogs");
    EXPECT_EQ(RF.SaveAfter, 3);
    EXPECT_EQ(RF.Race(1).QuickBet(1), Currency::FromInt(9));
    EXPECT_EQ(RF.Race(1).BetCount, 2);
    EXPECT_EQ(RF.TicketCount, 2);  // nothing follows the last bet
    for (int t = 1; t <= 2; ++t) {
        EXPECT_EQ(RF.Bet(1, t).TicketIdx, t);
        EXPECT_EQ(RF.Ticket(t).TicketNbr, t);
        EXPECT_EQ(RF.Ticket(t).TicketRace, 1);
        EXPECT_EQ(RF.Ticket(t).TicketBettor, 1);
        EXPECT_EQ(RF.Ticket(t).FirstBet, t);
        EXPECT_EQ(RF.Ticket(t).LastBet, t);
    }
    EXPECT_EQ(RF.Ticket(1).TicketCost, Currency::FromInt(2));
    EXPECT_EQ(RF.Ticket(1).Collected, Currency::FromInt(2));
    EXPECT_EQ(RF.Ticket(1).Distributed, Currency());
    EXPECT_EQ(RF.Ticket(1).Winnings, Currency::FromInt(4));
    EXPECT_EQ(RF.Ticket(2).Collected, Currency());
    EXPECT_EQ(RF.Ticket(2).Distributed, Currency::FromInt(7));
    EXPECT_EQ(RF.Bet(1, 2).BetWinnings, Currency::FromInt(7));
    EXPECT_EQ(RF.Bet(1, 2).Pick(1), 3);
    // The settings 1.0 did not have: the last pass decides, except for these three.
    EXPECT_EQ(RF.MaxRaces, 20);
    EXPECT_EQ(RF.ReportFontSize, 8);
    EXPECT_EQ(RF.TicketFontSize, 10);
    EXPECT_EQ(RF.MaxTransInPrinter, 3);
    EXPECT_EQ(RF.RecoveryFile, " ");
    EXPECT_EQ(RF.UseProgramNbr, Flag(true));
    EXPECT_EQ(G.FileChanged, Flag(false));

    // A field after the last bet resets the ticket count; tickets go on from the last number.
    LoadBytes(world, file + "\"stray\"\r\n");
    EXPECT_EQ(RF.TicketCount, 0);
    EXPECT_EQ(RF.Bet(1, 1).TicketIdx, 3);

    world.messages.Clear();
    world.messages.Answer(kCancel);
    LoadBytes(world, file);
    EXPECT_EQ(RF.FileName, "");
    EXPECT_EQ(world.messages.shown.size(), 1u);
}

}  // namespace
}  // namespace tt::test
