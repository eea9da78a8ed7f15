// Win, Place, Show and Across the Board: pools, refunds, holdbacks, the minimum ratio and
// rounding, the handling of a pool nobody won, and the ticket totals.

#include "payout_card.h"
#include "payouts/display_payouts_logic.h"

namespace tt::test {
namespace {

TEST(RoundDownTo, StepsAndBinaryFractions) {
    EXPECT_EQ(RoundDownTo(4.99, 0), 4.0);
    EXPECT_EQ(RoundDownTo(2.37, 25), 2.25);
    EXPECT_EQ(RoundDownTo(2.37, 50), 2.0);
    EXPECT_EQ(RoundDownTo(2.37, -1), 2.3);
    EXPECT_EQ(RoundDownTo(17.0, 1), 10.0);
    EXPECT_EQ(RoundDownTo(-0.5, 0), -1.0);
    // The product with 100 falls just below the whole cent, or not.
    EXPECT_EQ(RoundDownTo(4.2, -2), 4.2);
    EXPECT_EQ(RoundDownTo(4.35, -2), 4.34);
    EXPECT_EQ(RoundDownTo(2 * (3.3 / 3) + 2, -2), 4.19);
}

using Settlement = PayoutCard;

TEST_F(Settlement, FinishersScratchesAndLimits) {
    // Number 1 is a field of two; number 4 has one of two racers scratched; 5 is all scratched.
    Race(1, {1, 2}, {1, 1, 2, 3, 4, 4, 5, 5});
    for (int s : {6, 7, 8}) RF.Racer(1, s).Scratched = true;
    FixedArray<Int16, 1, 3> f;
    RF.Race(1).Result(1) = 2, RF.Race(1).Result(2) = 1, RF.Race(1).Result(3) = 3;
    GetFinishers(1, f);
    EXPECT_EQ(f(1) * 100 + f(2) * 10 + f(3), 120);
    RF.Race(1).Result(2) = 0;  // a gap stops the search for the second with 0
    GetFinishers(1, f);
    EXPECT_EQ(f(1) * 100 + f(2) * 10 + f(3), 102);
    EXPECT_FALSE(IsScratched(1, 0));
    EXPECT_FALSE(IsScratched(1, 4));
    EXPECT_TRUE(IsScratched(1, 5));
    EXPECT_TRUE(IsScratched(1, 9));

    RF.Race(1).MinBet = Currency(), RF.Race(1).MinPayout = Currency();
    NormaliseRaceLimits(1);
    EXPECT_EQ(RF.Race(1).MinBet, C(0.01));
    EXPECT_EQ(RF.Race(1).MinPayout, C(0.01));
    RF.Race(1).MinBet = C(2);
    NormaliseRaceLimits(1);
    EXPECT_EQ(RF.Race(1).MinPayout, C(2));
}

TEST_F(Settlement, WinPoolHoldbacksRoundingTicketsAndReentry) {
    Race(1, {1}, {1, 2, 3, 4});
    RF.Race(1).HoldbackAmt = C(1);
    RF.Race(1).HoldbackPct = 10;
    Bet(1, 1, 2.00, {1}), Bet(1, 1, 3.00, {1}), Bet(1, 1, 5.00, {2}), Bet(1, 1, 10.00, {3});
    RF.TicketCount = 1;
    RF.Ticket.ReDimPreserve(2);
    RF.Ticket(1).TicketRace = 1, RF.Ticket(1).TicketBettor = 1;
    RF.Ticket(1).FirstBet = 1, RF.Ticket(1).LastBet = 2;
    B(1, 1).TicketIdx = 1, B(1, 2).TicketIdx = 1;

    // Pool 20, less 1.00 and 10 %: net 17 over 5 staked on the winner, ratio 2.4. The 10.20
    // of the second bet is just below 10.20 as a float.
    Settle(1, {1, 2, 3});
    EXPECT_EQ(RF.Payout(1, 1, 1).PoolAmt, C(20));
    EXPECT_EQ(RF.Payout(1, 1, 1).WinningAmt, C(5));
    EXPECT_DOUBLE_EQ(Ratio(1, 1), 2.4);
    EXPECT_EQ(Won(1), Cs({6.80, 10.19, 0, 0}));
    EXPECT_EQ(B(1, 1).WinPart, C(6.80));
    EXPECT_EQ(RF.Ticket(1).Winnings, C(16.99));
    EXPECT_EQ(RF.Ticket(1).TicketCost, C(5));
    EXPECT_TRUE(bool(G.FileChanged));
    EXPECT_TRUE(asked.empty());

    // Settling again starts from zero: no double payment, whatever the rounding code.
    const std::pair<int, std::vector<Currency>> codes[] = {{25, Cs({6.75, 10, 0, 0})},
                                                           {50, Cs({6.50, 10, 0, 0})},
                                                           {0, Cs({6, 10, 0, 0})},
                                                           {-1, Cs({6.80, 10.20, 0, 0})}};
    for (const auto& [code, paid] : codes) {
        RF.Race(1).RoundTo = code;
        Settle(1, {1, 2, 3});
        EXPECT_EQ(Won(1), paid) << code;
    }
    RF.Race(1).RoundTo = -2;
    Settle(1, {2, 1, 3});  // a new winner moves the money
    EXPECT_EQ(Won(1), Cs({0, 0, 17, 0}));

    // The figure shown is rounded from the ratio: 3.3 / 3 shows 4.19, while 2.00 receives 4.20.
    Race(2, {1}, {1, 2});
    Bet(2, 1, 2.00, {1}), Bet(2, 1, 1.00, {1}), Bet(2, 1, 3.30, {2});
    Settle(2, {1, 2});
    EXPECT_EQ(Won(2), Cs({4.20, 2.10, 0}));
    EXPECT_EQ(DisplayPayoutsLogic::PayoutCellText(Ratio(2, 1), 2), "4.19");
}

TEST_F(Settlement, MinimumRatioSmallPoolNegativeNetAndRoundingToNothing) {
    Race(1, {1}, {1, 2});
    RF.Race(1).HoldbackPct = 20;
    RF.Race(1).MinBet = Currency(), RF.Race(1).MinPayout = Currency();
    Bet(1, 1, 10.00, {1}), Bet(1, 1, 0.99, {1}), Bet(1, 1, 2.00, {2});

    // Net 10.392 is less than the 10.99 on the winner: the ratio rises to the minimum, 0.
    Settle(1, {1, 2});
    EXPECT_EQ(RF.Race(1).MinBet, C(0.01));
    EXPECT_EQ(RF.Race(1).MinPayout, C(0.01));
    EXPECT_EQ(Ratio(1, 1), 0.0);
    EXPECT_EQ(Won(1), Cs({10, 0.99, 0}));

    RF.Race(1).RoundTo = 0;  // 0.99 rounds down to nothing, and is still a win
    Settle(1, {1, 2});
    EXPECT_EQ(Won(1), Cs({10, 0, 0}));
    EXPECT_EQ(B(1, 2).WinPart, C(0));

    // A flat holdback larger than the pool: the minimum holds here too.
    RF.Race(1).RoundTo = -2;
    RF.Race(1).HoldbackAmt = C(50);
    RF.Race(1).MinBet = C(1), RF.Race(1).MinPayout = C(1.50);
    Settle(1, {1, 2});
    EXPECT_EQ(Ratio(1, 1), 0.5);
    EXPECT_EQ(Won(1), Cs({15, 1.48, 0}));
}

TEST_F(Settlement, NobodyOnTheWinnerWithEachAnswer) {
    Race(1, {1}, {1, 2, 3, 4});
    RF.Racer(1, 4).Scratched = true;
    Bet(1, 1, 5.00, {2}), Bet(1, 1, 3.00, {4});  // the second is refunded for the scratch
    struct Case {
        const char* answer;
        double ratio;
        std::vector<Currency> won;
        const char* shown;
    } cases[] = {{"", -1, Cs({5, 3}), "Payback"},
                 {"Most", -1, Cs({5, 3}), "Payback"},  // not offered for Win
                 {"NoPay", -2, Cs({0, 3}), "No Pay"},
                 {"Payback", -1, Cs({5, 3}), "Payback"}};
    for (const Case& c : cases) {
        asked.clear();
        if (*c.answer) answers.push_back(c.answer);
        Settle(1, {1, 2, 3});
        EXPECT_EQ(asked, std::vector<std::string>{"Win Bets Payback"}) << c.answer;
        EXPECT_EQ(Ratio(1, 1), c.ratio) << c.answer;
        EXPECT_EQ(Won(1), c.won) << c.answer;
        EXPECT_EQ(DisplayPayoutsLogic::PayoutCellText(Ratio(1, 1), 1), c.shown);
    }
    EXPECT_EQ(RF.Payout(1, 1, 1).PoolAmt, C(5));  // the refunded bet adds nothing
}

TEST_F(Settlement, PlaceWithOnePayingPositionAndShowSplitByWays) {
    Race(1, {1, 2, 3}, {1, 2, 3, 4});
    RF.Race(1).HoldbackPct = 10;
    Bet(1, 1, 2.00, {1});
    Bet(1, 2, 4.00, {1}), Bet(1, 2, 1.00, {1}), Bet(1, 2, 5.00, {3});
    Bet(1, 3, 2.00, {1}), Bet(1, 3, 3.00, {2}), Bet(1, 3, 1.00, {3}), Bet(1, 3, 4.00, {4});
    Settle(1, {1, 2, 3});
    EXPECT_TRUE(asked.empty());
    // Win: net 1.80 on 2.00, so the minimum ratio 0. Place: net 9, nobody on the second, so
    // the first takes all: (9 - 5) / 5. Show: profit 9 - 6 in three equal ways, each shared
    // by its own stake.
    EXPECT_DOUBLE_EQ(Ratio(1, 2, 1), 0.8);
    EXPECT_EQ(Ratio(1, 2, 2), kNoPay);
    EXPECT_DOUBLE_EQ(Ratio(1, 3, 1), 0.5);
    EXPECT_DOUBLE_EQ(Ratio(1, 3, 2), 1.0 / 3);
    EXPECT_DOUBLE_EQ(Ratio(1, 3, 3), 1.0);
    EXPECT_EQ(Won(1), Cs({2, 7.20, 1.80, 0, 3, 4, 2, 0}));
    EXPECT_EQ(B(1, 2).PlacePart, C(7.20));
    EXPECT_EQ(B(1, 5).ShowPart, C(3));
}

TEST_F(Settlement, AcrossTheBoardRefundsComeOffEveryPoolWhole) {
    Race(1, {1, 2, 3}, {1, 2, 3, 4, 5});
    RF.Racer(1, 5).Scratched = true;
    Bet(1, 11, 2.00, {1}), Bet(1, 11, 2.00, {5});
    Bet(1, 1, 10.00, {2}), Bet(1, 2, 10.00, {3}), Bet(1, 3, 10.00, {4}), Bet(1, 3, 4.00, {1});
    Settle(1, {1, 2, 3});
    // The scratched bet returns its 6.00 cost, lowering each pool by 4.00: each pool is 8
    // (Show 12), and the first finisher alone has money in each.
    EXPECT_EQ(RF.Payout(1, 1, 1).PoolAmt, C(8));
    EXPECT_EQ(RF.Payout(1, 3, 1).PoolAmt, C(12));
    EXPECT_EQ(Won(1), Cs({20, 6, 0, 0, 0, 8}));
    EXPECT_EQ(B(1, 1).WinPart, C(8));
    EXPECT_EQ(B(1, 1).PlacePart, C(8));
    EXPECT_EQ(B(1, 1).ShowPart, C(4));
    EXPECT_EQ(B(1, 2).PlacePart, C(2));

    // Place not offered: the bet gets its place side back, and so adds nothing to Win or Show.
    RF.Race(1).BetType(2) = false;
    Settle(1, {1, 2, 3});
    EXPECT_EQ(RF.Payout(1, 1, 1).PoolAmt, C(6));
    EXPECT_EQ(RF.Payout(1, 1, 1).WinningAmt, C(2));
    EXPECT_EQ(RF.Payout(1, 3, 1).PoolAmt, C(10));
    EXPECT_EQ(B(1, 1).WinPart, C(6));
    EXPECT_EQ(B(1, 1).ShowPart, C(3.33));
    EXPECT_EQ(Won(1), Cs({11.33, 6, 0, 10, 0, 6.66}));  // 2.00 back + 6.00 + 3.33
}

TEST_F(Settlement, FieldsScratchedFieldsAndTypesNotOffered) {
    // 1 and 1A finish first and second: number 2 is second for all betting.
    Race(1, {1, 2}, {1, 1, 2, 3, 4, 4, 5, 5});
    for (int s : {6, 7, 8}) RF.Racer(1, s).Scratched = true;
    Bet(1, 2, 3.00, {2}), Bet(1, 2, 1.00, {1}), Bet(1, 2, 6.00, {3});
    Bet(1, 1, 2.00, {4});  // one of the field still ran
    Bet(1, 1, 2.00, {5});  // the whole field is scratched
    Bet(1, 1, 1.00, {1});
    Bet(1, 3, 2.50, {2});  // Show is not offered
    Settle(1, {1, 2, 3});
    // Place: profit 6 in two ways, 3 / 3 and 3 / 1.
    EXPECT_EQ(Won(1), Cs({6, 4, 0, 0, 2, 3, 2.50}));
    EXPECT_EQ(RF.Payout(1, 3, 1).PoolAmt, C(0));
}

}  // namespace
}  // namespace tt::test
