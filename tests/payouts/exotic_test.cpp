// Exacta and Trifecta: positional credit, boxes with scratches, the most correct picks, and
// the answers of the Payout Handling dialog.

#include "payout_card.h"

namespace tt::test {
namespace {

using Exotic = PayoutCard;

TEST_F(Exotic, ExactaExactOrderThenMostCorrectThenANegativeRatio) {
    Race(1, {4}, {1, 2, 3, 4});
    Bet(1, 4, 2.00, {1, 2}), Bet(1, 4, 1.00, {1, 2}), Bet(1, 4, 2.00, {2, 1}),
        Bet(1, 4, 5.00, {1, 3});
    Settle(1, {1, 2, 3});
    EXPECT_TRUE(asked.empty());
    EXPECT_EQ(B(1, 3).CorrectPicks, 0);  // order counts
    EXPECT_EQ(B(1, 4).CorrectPicks, 1);
    EXPECT_EQ(RF.Payout(1, 4, 2).WinningAmt, C(3));
    EXPECT_EQ(RF.Payout(1, 4, 1).WinningAmt, C(5));
    EXPECT_DOUBLE_EQ(Ratio(1, 4), 7.0 / 3);
    EXPECT_EQ(Won(1), Cs({6.66, 3.33, 0, 0}));
    EXPECT_EQ(RF.Race(1).CorrectPaid(4), 2);

    // Nobody has the order: the dialog offers the most correct picks, selected.
    Race(2, {4}, {1, 2, 3, 4});
    Bet(2, 4, 4.00, {1, 3}), Bet(2, 4, 2.00, {4, 2}), Bet(2, 4, 4.00, {3, 4});
    Settle(2, {1, 2, 3});
    EXPECT_EQ(asked, std::vector<std::string>{"Exacta Bets most Most"});
    EXPECT_EQ(RF.Race(2).CorrectPaid(4), 1);
    EXPECT_EQ(Won(2), Cs({6.66, 3.33, 0}));

    // Half held back: net 5 for 6 partly right. The minimum payout does not help them.
    RF.Race(2).HoldbackPct = 50;
    RF.Race(2).MinPayout = C(3);
    Settle(2, {1, 2, 3});
    EXPECT_DOUBLE_EQ(Ratio(2, 4), -1.0 / 6);
    EXPECT_EQ(Won(2), Cs({0, 0, 0}));
}

TEST_F(Exotic, ExactaWithNoCorrectPickPaysBackOrNothing) {
    Race(1, {4}, {1, 2, 3, 4});
    Bet(1, 4, 2.00, {3, 4}), Bet(1, 4, 1.00, {4, 3}, true);
    Settle(1, {1, 2, 3});
    EXPECT_EQ(asked, std::vector<std::string>{"Exacta Bets Payback"});
    EXPECT_EQ(Ratio(1, 4), kPayback);
    EXPECT_EQ(Won(1), Cs({2, 2}));
    answers = {"NoPay"};
    Settle(1, {1, 2, 3});
    EXPECT_EQ(Ratio(1, 4), kNoPay);
    EXPECT_EQ(Won(1), Cs({0, 0}));
}

TEST_F(Exotic, BoxedExactaWithScratchesRunsOnAsASmallerBox) {
    Race(1, {4}, {1, 2, 3, 4, 5});
    RF.Racer(1, 5).Scratched = true;
    Bet(1, 4, 1.00, {1, 2, 5}, true);  // costs 6, 4.00 back, runs on as a box of 1 and 2
    Bet(1, 4, 1.00, {2, 5}, true);     // costs 2, a box of one: all back
    Bet(1, 4, 1.00, {1, 2});
    Bet(1, 4, 1.00, {1, 3, 4}, true);  // one correct: two combinations
    Settle(1, {1, 2, 3});
    EXPECT_EQ(RF.Payout(1, 4, 1).PoolAmt, C(9));
    EXPECT_EQ(RF.Payout(1, 4, 2).WinningAmt, C(2));
    EXPECT_EQ(RF.Payout(1, 4, 1).WinningAmt, C(2));
    EXPECT_EQ(B(1, 2).WinningCombos, 0);
    // Ratio (9 - 2) / 2: the box of three keeps its refund and adds 4.50.
    EXPECT_EQ(Won(1), Cs({8.50, 2, 4.50, 0}));
}

TEST_F(Exotic, TrifectaBoxOfThreeWithTwoCorrectHasNoCombinationAndNoPayTakesRefunds) {
    Race(1, {5}, {1, 2, 3, 4, 5, 6});
    Bet(1, 5, 1.00, {1, 2, 5}, true);  // (3 - 2) * (3 - 3) = 0 combinations
    Bet(1, 5, 2.00, {1, 2, 4});
    Bet(1, 5, 1.00, {1, 2, 4, 6}, true);  // (4 - 2) * (4 - 3) = 2 combinations
    Bet(1, 5, 1.00, {3, 2, 1});
    Settle(1, {1, 2, 3});
    EXPECT_EQ(asked, std::vector<std::string>{"Trifecta Bets most Most"});
    EXPECT_EQ(B(1, 1).CorrectPicks, 2);
    EXPECT_EQ(RF.Payout(1, 5, 2).WinningAmt, C(4));
    EXPECT_EQ(RF.Payout(1, 5, 1).WinningAmt, C(1));
    EXPECT_DOUBLE_EQ(Ratio(1, 5), 7.25);  // (33 - 4) / 4
    EXPECT_EQ(Won(1), Cs({0, 16.50, 16.50, 0}));

    // Number 6 scratched: the box of four gets 18.00 back in the pool pass, and No Pay takes
    // that back too.
    RF.Racer(1, 6).Scratched = true;
    answers = {"NoPay"};
    Settle(1, {1, 2, 3});
    EXPECT_EQ(RF.Payout(1, 5, 1).PoolAmt, C(15));
    EXPECT_EQ(Ratio(1, 5), kNoPay);
    EXPECT_EQ(Won(1), Cs({0, 0, 0, 0}));
}

}  // namespace
}  // namespace tt::test
