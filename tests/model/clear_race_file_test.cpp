// Clearing the document, drawing the file identity, and the tables at start-up.

#include <gtest/gtest.h>

#include "model/race_file.h"
#include "support/fakes.h"

namespace tt {
namespace {

TEST(StartUp, TablesAndNamesBeforeAnyFile) {
    test::FakeWorld world;  // the document as a fresh process has it
    EXPECT_EQ(RF.Racer.UBound(), 1);
    EXPECT_EQ(RF.Bet.UBound(), 1);
    EXPECT_EQ(RF.Bettor.UBound(), 1);
    EXPECT_EQ(RF.Ticket.UBound(), 1);
    for (int r = 1; r <= 20; ++r) EXPECT_EQ(RF.Racer(r, 0).RacerName, "Not Available") << r;
    EXPECT_EQ(RF.Racer(0, 0).RacerName, "");
    EXPECT_EQ(RF.Racer(21, 0).RacerName, "");
    EXPECT_EQ(G.BetTypeName(0), "");
    EXPECT_EQ(G.BetTypeName(6), "Daily Double");
    EXPECT_EQ(G.BetTypeName(11), "Across the Board");
}

TEST(ClearRaceFile, ResetsTheCardAndKeepsTheRest) {
    test::FakeWorld world;
    RF.FileId = 123;
    RF.FileName = "Spring Meet";
    RF.RaceType = "Horse";
    RF.SaveAfter = 5;
    RF.PrintBets = true;
    RF.UseProgramNbr = true;
    RF.DefaultToDummy = true;
    RF.CollectZero = true;
    RF.RecoveryFile = "spring.tlr";
    RF.RecoveryFlag = true;
    RF.ClearDays = 3;
    RF.MaxRaces = 20;
    RF.TicketCount = 42;
    RF.RacerSort = "Name";
    RF.ReportFontSize = 12;
    RF.TicketFontSize = 14;
    RF.MaxTransInPrinter = 4;
    RF.DefaultRace = 5;
    RF.MaxBets = 9;
    RF.BettorCount = 4;
    RF.MaxRacers = 4;
    RF.Bettor.ReDim(5);
    RF.Bettor(1).BettorName = "Ann";
    RF.Ticket.ReDim(43);
    RF.Bet.ReDim(10);
    RF.Racer.ReDim(5);
    RF.Racer(3, 1).RacerName = "Blue Streak";
    for (int r : {0, 3, 20}) {
        RaceRec& race = RF.Race(r);
        race.RaceName = "Race";
        race.MinBet = Currency::FromInt(2);
        race.MinPayout = Currency::FromInt(3);
        race.BetIncr = Currency::FromInt(1);
        race.RoundTo = 25;
        race.HoldbackAmt = Currency::FromInt(7);
        race.HoldbackPct = 5;
        race.RacerCount = 4;
        race.BetType(2) = false;
        race.BetType(7) = true;
        race.CorrectPaid(4) = 2;
        race.Result(0) = 4;
        race.Result(1) = 2;
        race.Result(5) = 1;
        race.QuickBet(2) = Currency::FromInt(5);
        race.BetCount = 9;
    }
    RF.Race(21).RaceName = "Spare";
    RF.Race(21).Result(1) = 3;
    RF.Payout(3, 1, 1).PayRatio = 2.5;
    RF.Payout(3, 1, 1).PoolAmt = Currency::FromInt(100);
    G.FileChanged = true;

    ClearRaceFile();

    EXPECT_EQ(RF.FileId, 0);
    EXPECT_EQ(RF.FileName, "");
    EXPECT_EQ(RF.RacerSort, "Betting Number");
    EXPECT_EQ(RF.ReportFontSize, 8);
    EXPECT_EQ(RF.TicketFontSize, 10);
    EXPECT_EQ(RF.MaxTransInPrinter, 1);
    EXPECT_EQ(RF.DefaultRace, 1);
    EXPECT_EQ(RF.MaxBets, 0);
    EXPECT_EQ(RF.BettorCount, 0);
    EXPECT_EQ(RF.MaxRacers, 0);
    EXPECT_FALSE(bool(G.FileChanged));
    EXPECT_EQ(RF.Bettor.UBound(), 1);
    EXPECT_EQ(RF.Bettor(1).BettorName, "");
    EXPECT_EQ(RF.Ticket.UBound(), 1);
    EXPECT_EQ(RF.Bet.UBound(), 1);
    EXPECT_EQ(RF.Racer.UBound(), 1);
    EXPECT_EQ(RF.Racer(3, 1).RacerName, "");
    EXPECT_EQ(RF.Racer(1, 0).RacerName, "");  // "Not Available" is gone
    for (int r : {0, 3, 20}) {
        const RaceRec& race = RF.Race(r);
        EXPECT_EQ(race.RaceName, "");
        EXPECT_EQ(race.MinBet.Raw(), 10000);
        EXPECT_EQ(race.MinPayout.Raw(), 10000);
        EXPECT_EQ(race.BetIncr.Raw(), 1000);
        EXPECT_EQ(race.RoundTo, -2);
        EXPECT_EQ(race.HoldbackAmt.Raw(), 0);
        EXPECT_EQ(race.HoldbackPct, 0.0f);
        EXPECT_EQ(race.RacerCount, 0);
        for (int t = 1; t <= 10; ++t) EXPECT_EQ(bool(race.BetType(t)), t <= 3) << t;
        EXPECT_EQ(race.CorrectPaid(4), 0);
        EXPECT_EQ(race.Result(1), 0);
        EXPECT_EQ(race.Result(5), 0);
        EXPECT_EQ(race.BetCount, 0);
        // Kept:
        EXPECT_EQ(race.Result(0), 4);
        EXPECT_EQ(race.QuickBet(2).Raw(), 50000);
    }
    EXPECT_EQ(RF.Race(21).RaceName, "Spare");
    EXPECT_EQ(RF.Race(21).Result(1), 3);
    EXPECT_EQ(RF.RaceType, "Horse");
    EXPECT_EQ(RF.SaveAfter, 5);
    EXPECT_TRUE(bool(RF.PrintBets));
    EXPECT_TRUE(bool(RF.UseProgramNbr));
    EXPECT_TRUE(bool(RF.DefaultToDummy));
    EXPECT_TRUE(bool(RF.CollectZero));
    EXPECT_EQ(RF.RecoveryFile, "spring.tlr");
    EXPECT_TRUE(bool(RF.RecoveryFlag));
    EXPECT_EQ(RF.ClearDays, 3);
    EXPECT_EQ(RF.MaxRaces, 20);
    EXPECT_EQ(RF.TicketCount, 42);
    EXPECT_EQ(RF.Payout(3, 1, 1).PayRatio, 2.5);
    EXPECT_EQ(RF.Payout(3, 1, 1).PoolAmt.Raw(), 1000000);
}

TEST(DrawFileId, DrawsOnceFromASeededGenerator) {
    test::FakeWorld world;
    world.random.values = {0.5};
    DrawFileId();
    EXPECT_EQ(RF.FileId, 15001);
    EXPECT_EQ(world.random.randomized, 1);
    world.random.values = {0.0};
    DrawFileId();  // a file keeps its identity
    EXPECT_EQ(RF.FileId, 15001);
    EXPECT_EQ(world.random.randomized, 1);

    for (auto [r, id] : {std::pair{0.0, 1}, std::pair{0.99999999, 30000}, std::pair{1.0, 30000},
                         std::pair{0.123456, 3704}}) {
        RF.FileId = 0;
        world.random.values = {r};
        DrawFileId();
        EXPECT_EQ(RF.FileId, id) << r;
    }
}

}  // namespace
}  // namespace tt
