// The Daily Double and the Picks over consecutive races: incomplete groups, scratches in later
// legs, the test under the calculated race that pays an older group again, No Pay returning
// the stakes, and groups at the end of the card.

#include "payout_card.h"
#include "payouts/display_payouts_logic.h"

namespace tt::test {
namespace {

using MultiRace = PayoutCard;

// The rows of flxPayouts for a race, as "name|wins".
std::vector<std::string> PayoutRows(int race) {
    G.CurrentRace = race;
    DisplayPayoutsLogic view;
    view.Form_Load();
    std::vector<std::string> rows;
    for (int r = 1; r < view.flxPayouts.Rows(); ++r)
        rows.push_back(view.flxPayouts.TextMatrix(r, 0) + "|" + view.flxPayouts.TextMatrix(r, 1));
    return rows;
}

TEST_F(MultiRace, DailyDoubleAndPick3AcrossTheOrderOfResults) {
    Race(1, {6, 7}, {1, 2, 3, 4});
    Race(2, {}, {1, 2, 3, 4});
    Race(3, {}, {1, 2, 3, 4});
    RF.Racer(3, 4).Scratched = true;
    // Doubles in bets 1 to 4, Pick 3s in 5 to 7; number 4 of race 3 is scratched.
    Bet(1, 6, 2.00, {1, 2}), Bet(1, 6, 2.00, {1, 3}), Bet(1, 6, 2.00, {2, 2}),
        Bet(1, 6, 4.00, {3, 3});
    Bet(1, 7, 1.00, {1, 2, 3}), Bet(1, 7, 1.00, {1, 2, 4}), Bet(1, 7, 1.00, {2, 2, 3});

    // First leg only: both groups are incomplete, and the scratch in the last leg waits.
    Settle(1, {1, 2, 3});
    EXPECT_EQ(Ratio(2, 6), kIncomplete);
    EXPECT_EQ(Ratio(3, 7), kIncomplete);
    EXPECT_EQ(Won(1), Cs({0, 0, 0, 0, 0, 0, 0}));

    // The last leg before the middle one: the Pick 3 shows as incomplete under race 3.
    Settle(3, {3, 2, 1});
    EXPECT_EQ(PayoutRows(3), std::vector<std::string>{"Pick 3 - 1, 0, 3 ( 0 correct )|Incomplt"});

    // The middle leg completes both. The Pick 3 ends at race 3, so its winners are looked for
    // under race 2 in vain and the dialog asks.
    Settle(2, {2, 1, 3});
    EXPECT_EQ(asked, std::vector<std::string>{"Pick 3 Bets most Most"});
    EXPECT_EQ(RF.Payout(2, 6, 1).PoolAmt, C(10));
    EXPECT_EQ(RF.Payout(2, 6, 1).WinningAmt, C(4));
    EXPECT_EQ(RF.Race(2).CorrectPaid(6), 2);
    EXPECT_DOUBLE_EQ(Ratio(2, 6), 4);
    EXPECT_EQ(Won(1), Cs({10, 0, 0, 0, 2, 1, 0}));  // the scratch returns the stake
    EXPECT_EQ(PayoutRows(2), std::vector<std::string>{"Daily Double - 1, 2|10.00"});

    // Race 3 again: the Daily Double ended before it, is not cleared, and is paid once more.
    asked.clear();
    Settle(3, {3, 2, 1});
    EXPECT_EQ(asked, std::vector<std::string>{"Daily Double Bets most Most"});
    EXPECT_EQ(Won(1), Cs({20, 0, 0, 0, 2, 1, 0}));
    EXPECT_EQ(PayoutRows(3), std::vector<std::string>{"Pick 3 - 1, 2, 3|4.00"});

    // No Pay on a multi-race pool returns every stake.
    answers = {"NoPay"};
    Settle(3, {3, 2, 1});
    EXPECT_EQ(Ratio(2, 6), kNoPay);
    EXPECT_EQ(Won(1), Cs({2, 2, 2, 4, 2, 1, 0}));
    EXPECT_EQ(PayoutRows(2), std::vector<std::string>{"Daily Double - 1, 2|No Pay"});
}

TEST_F(MultiRace, TypeNotOfferedTakesTheCostFromTheCalculatedRace) {
    Race(1, {}, {1, 2});
    Race(2, {1}, {1, 2});
    auto dd = Bet(1, 6, 2.00, {1, 2});
    Bet(2, 1, 7.00, {1});
    Settle(1, {1, 2});
    EXPECT_EQ(B(1, dd).BetWinnings, C(2));
    Settle(2, {1, 2});
    EXPECT_EQ(B(1, dd).BetWinnings, C(7));  // slot 1 of race 2
}

TEST_F(MultiRace, GroupsThatWouldRunPastRace20DoNotExist) {
    Race(16, {10}, {1, 2});
    Race(18, {10, 7}, {1, 2});
    Race(20, {6}, {1, 2});
    auto p6 = Bet(16, 10, 1.00, {1, 1, 1, 1, 1, 1});
    auto dd = Bet(20, 6, 1.00, {1, 1});
    B(16, p6).BetWinnings = C(9);
    EXPECT_NO_THROW(Settle(16, {1, 2}));
    EXPECT_NO_THROW(Settle(18, {1, 2}));
    EXPECT_NO_THROW(Settle(20, {1, 2}));
    EXPECT_EQ(B(16, p6).BetWinnings, C(0));
    EXPECT_EQ(B(20, dd).BetWinnings, C(0));
}

}  // namespace
}  // namespace tt::test
