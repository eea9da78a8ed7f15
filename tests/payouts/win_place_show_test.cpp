// Win, Place, Show and Across the Board: pools, refunds, holdbacks, the minimum ratio and
// rounding, the handling of a pool nobody won, and the ticket totals.

#include "payouts/display_payouts_logic.h"
#include "payout_card.h"

namespace tt::test {
namespace {

TEST(RoundDownTo, StepsAndBinaryFractions) {
    EXPECT_EQ(RoundDownTo(4.99, 0), 4.0);
    EXPECT_EQ(RoundDownTo(2.37, 25), 2.25);
    EXPECT_EQ(RoundDownTo(2.37, 50), 2.0);
    EXPECT_EQ(RoundDownTo(2.37, -1), 2.3);
    EXPECT_EQ(RoundDownTo(17.0, 1), 10.0);
    EXPECT_EQ(RoundDownTo(-0.5, 0), -1.0);
    // The product with 100 falls just below the whole cent.
    EXPECT_EQ(RoundDownTo(4.2, -2), 4.2);
    EXPECT_EQ(RoundDownTo(4.35, -2), 4.34);
    EXPECT_EQ(RoundDownTo(10.2, -2), 10.19);
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

TEST_F(Settlement, WinPoolHoldbacksRoundingAndReentry) {
    Race(1, {1}, {1, 2, 3, 4});
    RF.Race(1).HoldbackAmt = C(1);
    RF.Race(1).HoldbackPct = 10;
    auto s1 = Bet(1, 1, 2.00, {1}), s2 = Bet(1, 1, 3.00, {1}), s3 = Bet(1, 1, 5.00, {2});
    Bet(1, 1, 10.00, {3});
    RF.TicketCount = 1;
    RF.Ticket.ReDimPreserve(2);
    RF.Ticket(1).TicketRace = 1, RF.Ticket(1).TicketBettor = 1;
    RF.Ticket(1).FirstBet = 1, RF.Ticket(1).LastBet = 2;
    B(1, s1).TicketIdx = 1, B(1, s2).TicketIdx = 1;

    // Pool 20, less 1.00 and 10 %: net 17 over 5 staked on the winner, ratio 2.4.
    Settle(1, {1, 2, 3});
    EXPECT_EQ(RF.Payout(1, 1, 1).PoolAmt, C(20));
    EXPECT_EQ(RF.Payout(1, 1, 1).WinningAmt, C(5));
    EXPECT_DOUBLE_EQ(Ratio(1, 1), 2.4);
    EXPECT_EQ(B(1, s1).BetWinnings, C(6.80));
    EXPECT_EQ(B(1, s1).WinPart, C(6.80));
    EXPECT_EQ(B(1, s2).BetWinnings, C(10.19));  // 10.20 as a float is just below
    EXPECT_EQ(B(1, s3).BetWinnings, C(0));
    EXPECT_EQ(RF.Ticket(1).Winnings, C(16.99));
    EXPECT_EQ(RF.Ticket(1).TicketCost, C(5));
    EXPECT_TRUE(bool(G.FileChanged));
    EXPECT_TRUE(asked.empty());

    // Settling again starts from zero: no double payment, whatever the rounding code.
    const std::pair<int, double> codes[] = {{25, 6.75}, {50, 6.50}, {0, 6}, {-1, 6.80}};
    for (auto [code, paid] : codes) {
        RF.Race(1).RoundTo = code;
        Settle(1, {1, 2, 3});
        EXPECT_EQ(B(1, s1).BetWinnings, C(paid)) << code;
        EXPECT_EQ(B(1, s2).BetWinnings, C(code == -1 ? 10.20 : 10)) << code;
    }
    // A new winner moves the money.
    RF.Race(1).RoundTo = -2;
    Settle(1, {2, 1, 3});
    EXPECT_EQ(B(1, s1).BetWinnings, C(0));
    EXPECT_EQ(B(1, s3).BetWinnings, C(17));  // 5.00 at the same ratio 2.4

    // The figure shown is rounded from the ratio: 3.3 / 3 shows 4.19, while 2.00 receives 4.20.
    Race(2, {1}, {1, 2});
    auto t1 = Bet(2, 1, 2.00, {1}), t2 = Bet(2, 1, 1.00, {1});
    Bet(2, 1, 3.30, {2});
    Settle(2, {1, 2});
    EXPECT_EQ(B(2, t1).BetWinnings, C(4.20));
    EXPECT_EQ(B(2, t2).BetWinnings, C(2.10));
    EXPECT_EQ(DisplayPayoutsLogic::PayoutCellText(Ratio(2, 1), 2), "4.19");
}

TEST_F(Settlement, MinimumRatioSmallPoolNegativeNetAndRoundingToNothing) {
    Race(1, {1}, {1, 2});
    RF.Race(1).HoldbackPct = 20;
    RF.Race(1).MinBet = Currency(), RF.Race(1).MinPayout = Currency();
    auto big = Bet(1, 1, 10.00, {1}), small = Bet(1, 1, 0.99, {1});
    Bet(1, 1, 2.00, {2});

    // Net 10.392 is less than the 10.99 on the winner: the ratio rises to the minimum, 0.
    Settle(1, {1, 2});
    EXPECT_EQ(RF.Race(1).MinBet, C(0.01));
    EXPECT_EQ(RF.Race(1).MinPayout, C(0.01));
    EXPECT_EQ(Ratio(1, 1), 0.0);
    EXPECT_EQ(B(1, big).BetWinnings, C(10));
    EXPECT_EQ(B(1, small).BetWinnings, C(0.99));

    RF.Race(1).RoundTo = 0;  // 0.99 rounds down to nothing, and is still a win
    Settle(1, {1, 2});
    EXPECT_EQ(B(1, small).BetWinnings, C(0));
    EXPECT_EQ(B(1, small).WinPart, C(0));

    // A flat holdback larger than the pool: the minimum holds here too.
    RF.Race(1).RoundTo = -2;
    RF.Race(1).HoldbackAmt = C(50);
    RF.Race(1).MinBet = C(1), RF.Race(1).MinPayout = C(1.50);
    Settle(1, {1, 2});
    EXPECT_EQ(Ratio(1, 1), 0.5);
    EXPECT_EQ(B(1, big).BetWinnings, C(15));
    EXPECT_EQ(B(1, small).BetWinnings, C(1.48));
}

TEST_F(Settlement, NobodyOnTheWinnerWithEachAnswer) {
    Race(1, {1}, {1, 2, 3, 4});
    RF.Racer(1, 4).Scratched = true;
    auto live = Bet(1, 1, 5.00, {2}), gone = Bet(1, 1, 3.00, {4});
    struct Case {
        const char* answer;
        double ratio, live, gone;
        const char* shown;
    } cases[] = {{"", -1, 5, 3, "Payback"},
                 {"Most", -1, 5, 3, "Payback"},  // not offered for Win
                 {"NoPay", -2, 0, 3, "No Pay"},
                 {"Payback", -1, 5, 3, "Payback"}};
    for (const Case& c : cases) {
        asked.clear();
        if (*c.answer) answers.push_back(c.answer);
        Settle(1, {1, 2, 3});
        EXPECT_EQ(asked, std::vector<std::string>{"Win Bets Payback"}) << c.answer;
        EXPECT_EQ(Ratio(1, 1), c.ratio) << c.answer;
        EXPECT_EQ(B(1, live).BetWinnings, C(c.live)) << c.answer;
        EXPECT_EQ(B(1, gone).BetWinnings, C(c.gone)) << c.answer;
        EXPECT_EQ(DisplayPayoutsLogic::PayoutCellText(Ratio(1, 1), 1), c.shown);
        EXPECT_EQ(G.CurrentRace, 1);
    }
    EXPECT_EQ(RF.Payout(1, 1, 1).PoolAmt, C(5));  // the refunded bet adds nothing
}

TEST_F(Settlement, PlaceWithOnePayingPositionAndShowSplitByWays) {
    Race(1, {1, 2, 3}, {1, 2, 3, 4});
    RF.Race(1).HoldbackPct = 10;
    auto win = Bet(1, 1, 2.00, {1});
    auto p1 = Bet(1, 2, 4.00, {1}), p2 = Bet(1, 2, 1.00, {1});
    Bet(1, 2, 5.00, {3});
    auto s1 = Bet(1, 3, 2.00, {1}), s2 = Bet(1, 3, 3.00, {2}), s3 = Bet(1, 3, 1.00, {3});
    Bet(1, 3, 4.00, {4});
    Settle(1, {1, 2, 3});
    EXPECT_TRUE(asked.empty());
    EXPECT_EQ(B(1, win).BetWinnings, C(2));  // net 1.80 on 2.00: the minimum ratio 0
    // Place: net 9, nobody on the second, so the first takes all: (9 - 5) / 5.
    EXPECT_DOUBLE_EQ(Ratio(1, 2, 1), 0.8);
    EXPECT_EQ(Ratio(1, 2, 2), kNoPay);
    EXPECT_EQ(B(1, p1).PlacePart, C(7.20));
    EXPECT_EQ(B(1, p2).BetWinnings, C(1.80));
    // Show: profit 9 - 6 in three equal ways, each shared by its own stake.
    EXPECT_DOUBLE_EQ(Ratio(1, 3, 1), 0.5);
    EXPECT_DOUBLE_EQ(Ratio(1, 3, 2), 1.0 / 3);
    EXPECT_DOUBLE_EQ(Ratio(1, 3, 3), 1.0);
    EXPECT_EQ(B(1, s1).ShowPart, C(3));
    EXPECT_EQ(B(1, s2).BetWinnings, C(4));
    EXPECT_EQ(B(1, s3).BetWinnings, C(2));
}

TEST_F(Settlement, AcrossTheBoardRefundsComeOffEveryPoolWhole) {
    Race(1, {1, 2, 3}, {1, 2, 3, 4, 5});
    RF.Racer(1, 5).Scratched = true;
    auto atb = Bet(1, 11, 2.00, {1}), scr = Bet(1, 11, 2.00, {5});
    Bet(1, 1, 10.00, {2}), Bet(1, 2, 10.00, {3}), Bet(1, 3, 10.00, {4});
    auto show = Bet(1, 3, 4.00, {1});
    Settle(1, {1, 2, 3});
    // The scratched bet returns its 6.00 cost, lowering each pool by 4.00: each pool is 8
    // (Show 12), and the first finisher alone has money in each.
    EXPECT_EQ(RF.Payout(1, 1, 1).PoolAmt, C(8));
    EXPECT_EQ(RF.Payout(1, 3, 1).PoolAmt, C(12));
    EXPECT_EQ(B(1, scr).BetWinnings, C(6));
    EXPECT_EQ(B(1, scr).PlacePart, C(2));
    EXPECT_EQ(B(1, atb).WinPart, C(8));
    EXPECT_EQ(B(1, atb).PlacePart, C(8));
    EXPECT_EQ(B(1, atb).ShowPart, C(4));
    EXPECT_EQ(B(1, atb).BetWinnings, C(20));
    EXPECT_EQ(B(1, show).BetWinnings, C(8));

    // Place not offered: the bet gets its place side back, and so adds nothing to Win or Show.
    RF.Race(1).BetType(2) = false;
    Settle(1, {1, 2, 3});
    EXPECT_EQ(RF.Payout(1, 1, 1).PoolAmt, C(6));
    EXPECT_EQ(RF.Payout(1, 1, 1).WinningAmt, C(2));
    EXPECT_EQ(RF.Payout(1, 3, 1).PoolAmt, C(10));
    EXPECT_EQ(B(1, atb).WinPart, C(6));
    EXPECT_EQ(B(1, atb).ShowPart, C(3.33));
    EXPECT_EQ(B(1, atb).BetWinnings, C(11.33));  // 2.00 back + 6.00 + 3.33
    EXPECT_EQ(B(1, show).BetWinnings, C(6.66));
}

TEST_F(Settlement, FieldsScratchedFieldsAndTypesNotOffered) {
    // 1 and 1A finish first and second: number 2 is second for all betting.
    Race(1, {1, 2}, {1, 1, 2, 3, 4, 4, 5, 5});
    for (int s : {6, 7, 8}) RF.Racer(1, s).Scratched = true;
    auto placed2 = Bet(1, 2, 3.00, {2}), placed1 = Bet(1, 2, 1.00, {1});
    Bet(1, 2, 6.00, {3});
    auto four = Bet(1, 1, 2.00, {4}), five = Bet(1, 1, 2.00, {5}), one = Bet(1, 1, 1.00, {1});
    auto show = Bet(1, 3, 2.50, {2});  // Show is not offered
    Settle(1, {1, 2, 3});
    EXPECT_EQ(B(1, placed2).BetWinnings, C(6));  // profit 6 in two ways: 3 / 3
    EXPECT_EQ(B(1, placed1).BetWinnings, C(4));  // and 3 / 1
    EXPECT_EQ(B(1, four).BetWinnings, C(0));     // one of the field still ran
    EXPECT_EQ(B(1, five).BetWinnings, C(2));     // the whole field is scratched
    EXPECT_EQ(B(1, one).BetWinnings, C(3));
    EXPECT_EQ(B(1, show).BetWinnings, C(2.50));
    EXPECT_EQ(RF.Payout(1, 3, 1).PoolAmt, C(0));
}

}  // namespace
}  // namespace tt::test
