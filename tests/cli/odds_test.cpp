// `tally odds`: each grid of the odds display as text, byte for byte, and the races and grids
// it refuses.

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "files/race_file_io.h"
#include "model/race_file.h"
#include "support/companion_run.h"
#include "support/fakes.h"

namespace tt::cli {
namespace {

using namespace test;

// Race 1 offers every single-race pool and a Daily Double into race 2, with the field 1 / 1A
// and a scratched Charlie; race 2 offers Win, Place and Show. Races are shown by program number.
std::string OddsCard() {
    test::FakeWorld world;
    ClearRaceFile();
    RF.FileId = 78;
    RF.FileName = "Odds Test";
    RF.RaceType = "Horse";
    RF.UseProgramNbr = true;
    auto race = [](int r, const char* name, std::initializer_list<int> types,
                   std::vector<std::tuple<int, const char*, const char*>> racers) {
        RaceRec& rc = RF.Race(r);
        rc.RaceName = name;
        rc.HoldbackPct = 10;
        for (int t = 1; t <= kBetTypes; ++t) rc.BetType(t) = false;
        for (int t : types) rc.BetType(t) = true;
        int slot = 0;
        for (auto& [nbr, program, racerName] : racers) {
            if (++slot > RF.MaxRacers) {
                RF.MaxRacers = slot;
                RF.Racer.ReDimPreserve(slot + 1);
            }
            RacerRec& rr = RF.Racer(r, slot);
            rr.BetNbr = nbr;
            rr.ProgramNbr = program;
            rr.PostPosition = std::to_string(slot);
            rr.RacerName = racerName;
            rr.Odds = 2.5 * slot;
        }
    };
    race(1, "Opener", {1, 2, 3, 4, 6},
         {{1, "1", "Alpha"}, {1, "1A", "Alpha Too"}, {2, "2", "Bravo"}, {3, "3", "Charlie"}});
    RF.Racer(1, 4).Scratched = true;
    race(2, "Closer", {1, 2, 3}, {{1, "1", "Delta"}, {2, "2", "Echo"}});
    // The bets stand on one ticket of one bettor, as the file keeps them.
    RF.BettorCount = 1;
    RF.Bettor.ReDim(2);
    RF.Bettor(1).BettorName = "Ann";
    RF.TicketCount = 1;
    RF.Ticket.ReDim(2);
    TicketRec& tk = RF.Ticket(1);
    tk.TicketNbr = 101;
    tk.TicketRace = 1;
    tk.TicketBettor = 1;
    tk.FirstBet = 1;
    struct B {
        int type;
        double amt;
        std::vector<int> picks;
    };
    for (const B& b : std::vector<B>{{1, 4, {1}},
                                     {1, 2, {2}},
                                     {2, 2, {2}},
                                     {3, 2, {3}},
                                     {11, 2, {1}},
                                     {4, 2, {1, 2}},
                                     {4, 2, {2, 1}},
                                     {6, 2, {1, 2}},
                                     {6, 2, {2, 1}},
                                     {1, 2, {7}}}) {
        const std::int64_t slot = ++RF.Race(1).BetCount;
        RF.MaxBets = static_cast<std::int32_t>(slot);
        RF.Bet.ReDimPreserve(slot + 1);
        BetRec& bet = RF.Bet(1, slot);
        bet.BetType = b.type;
        bet.BetAmt = Currency::FromDouble(b.amt);
        int j = 0;
        for (int p : b.picks) bet.Pick(++j) = p;
        bet.BetCost = bet.BetAmt * (b.type == 11 ? 3 : 1);
        bet.TicketIdx = 1;
        tk.TicketCost += bet.BetCost;
        tk.LastBet = static_cast<std::int32_t>(slot);
    }
    tk.Collected = tk.TicketCost;
    return BuildRaceFileText({2026, 5, 2, 14, 30, 0});
}

class Odds : public ::testing::Test {
  protected:
    void SetUp() override {
        card = dir.filePath("card.tly").toStdString();
        WriteFile(card, OddsCard());
    }
    TallyRun Grid(const std::string& race, const std::string& grid) {
        return Tally({"odds", card, "--race", race, "--grid", grid});
    }
    QTemporaryDir dir;
    std::string card;
};

TEST_F(Odds, EachGridAsTheWindowShowsItAfterItsSort) {
    TallyRun r = Grid("1", "pools");
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.err, "");
    // The money of #1 stands on Alpha and shows once; #7 is no racer's.
    EXPECT_EQ(r.out,
              "Bet#\tHorse Name\tWin\tPlace\tShow\n"
              "\tInvalid bets\t2.00\t.00\t.00\n"
              "   1\t   1 - Alpha\t6.00\t2.00\t2.00\n"
              "   1\t   1A - Alpha Too\t\t\t\n"
              "   2\t   2 - Bravo\t2.00\t2.00\t.00\n"
              "   3\t   3 - Charlie\t.00\t.00\t2.00\n"
              "\tTotals:\t10.00\t4.00\t4.00\n"
              "\tExacta Totals:\t4.00\t\t\n"
              "\tDaily Double Totals:\t4.00\t\t\n");

    // Win: the live pool is 8.00 less 10%: 7.20. #1 (7.20 - 6) / 6 = 0.2, #2 2.6.
    r = Grid("1", "win");
    ASSERT_EQ(r.rc, 0) << r.err;
    EXPECT_EQ(r.out,
              "Bet#\tHorse Name\tCur Odds\tHcap Odds\n"
              "   1\t   1 - Alpha\t  1 -  5\t  5 -  2\n"
              "   1\t   1A - Alpha Too\t  1 -  5\t  5 -  1\n"
              "   2\t   2 - Bravo\t  5 -  2\t  8 -  1\n"
              "   3\t   3 - Charlie\t Scratched\t  10 -  1\n");

    // Place: pool 4.00, net 3.60, three runners (Alpha Too shares the first number): each
    // number's avg (4 - 2) / 3, share (3.60 - 0.6667 - 2) / 2 on 2.00.
    r = Grid("1", "place");
    EXPECT_EQ(r.out,
              "Bet#\tHorse Name\tAvg Odds\tHcap Odds\n"
              "   1\t   1 - Alpha\t  1 -  5\t  5 -  2\n"
              "   1\t   1A - Alpha Too\t  1 -  5\t  5 -  1\n"
              "   2\t   2 - Bravo\t  1 -  5\t  8 -  1\n"
              "   3\t   3 - Charlie\t Scratched\t  10 -  1\n");

    // Exacta: pool 4.00 less 10%, 2.00 on each way of 1 and 2.
    r = Grid("1", "exacta");
    EXPECT_EQ(r.out,
              "Win Horse\tPlace Horse\tCur Odds\n"
              "   1 - Alpha\t   2 - Bravo\t  4 -  5\n"
              "   1 - Alpha\t   3 - Charlie\t Scratched\n"
              "   1 - Alpha Too\t   2 - Bravo\t  4 -  5\n"
              "   1 - Alpha Too\t   3 - Charlie\t Scratched\n"
              "   2 - Bravo\t   1 - Alpha\t  4 -  5\n"
              "   2 - Bravo\t   1 - Alpha Too\t  4 -  5\n"
              "   2 - Bravo\t   3 - Charlie\t Scratched\n"
              "   3 - Charlie\t   1 - Alpha\t Scratched\n"
              "   3 - Charlie\t   1 - Alpha Too\t Scratched\n"
              "   3 - Charlie\t   2 - Bravo\t Scratched\n");

    // The double into race 2, from either end, with its header as it always was.
    const std::string dd =
        "Winner of Race 1\tWinner or Race  2\tCur Odds\n"
        "   1 - Alpha\t   1 - Delta\tNo Bets\n"
        "   1 - Alpha\t   2 - Echo\t  4 -  5\n"
        "   1 - Alpha Too\t   1 - Delta\tNo Bets\n"
        "   1 - Alpha Too\t   2 - Echo\t  4 -  5\n"
        "   2 - Bravo\t   1 - Delta\t  4 -  5\n"
        "   2 - Bravo\t   2 - Echo\tNo Bets\n"
        "   3 - Charlie\t   1 - Delta\t Scratched\n"
        "   3 - Charlie\t   2 - Echo\t Scratched\n";
    EXPECT_EQ(Grid("1", "dd").out, dd);
    EXPECT_EQ(Grid("2", "dd-prior").out, dd);
}

TEST_F(Odds, ARaceWithoutANameOrAGridItDoesNotOfferIsRefused) {
    TallyRun r = Grid("3", "win");
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "tally: no race 3 on this card\n");

    r = Grid("2", "exacta");
    EXPECT_EQ(r.rc, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "tally: race 2 does not offer Exacta\n");
    EXPECT_EQ(Grid("2", "dd").err,
              "tally: race 2 does not offer a Daily Double into the next race\n");
    EXPECT_EQ(Grid("1", "dd-prior").err,
              "tally: race 1 does not offer a Daily Double from the race before\n");

    r = Grid("1", "trifecta");
    EXPECT_EQ(r.rc, 2);
    EXPECT_EQ(r.err.rfind("usage: tally odds FILE --race N --grid ", 0), 0u) << r.err;
    EXPECT_EQ(Tally({"odds", card, "--grid", "win"}).rc, 2);
}

}  // namespace
}  // namespace tt::cli
