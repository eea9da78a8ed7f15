// Pools and odds of a race, by rule: what goes into each pool, the holdbacks each pool takes,
// the Place and Show estimate, the Exacta's boxes and scratches, the runners counted, and the
// reserved values.

#include "payouts/pools_odds.h"
#include "payout_card.h"

namespace tt::test {
namespace {

using PoolsOdds = PayoutCard;

RacerOdds Win(int race) {
    RacerOdds o;
    CalcWinOdds(race, o);
    return o;
}
RacerOdds PlaceShow(int race, int type) {
    RacerOdds o;
    CalcPlaceShowOdds(race, o, type);
    return o;
}
PairOdds Exacta(int race) {
    PairOdds o;
    CalcExactaOdds(race, o);
    return o;
}

// ---- Pool totals ----------------------------------------------------------------------------

TEST_F(PoolsOdds, AcrossTheBoardCountsFullyInEachOfTheThreePools) {
    Race(1, {1, 2, 3, 4, 6}, {1, 2});
    Bet(1, 11, 2, {1});
    Bet(1, 1, 3, {2});
    Bet(1, 4, 1, {1, 2}, true);           // boxed: costs 2
    Bet(1, 6, 5, {1, 1});                 // the double starting here
    Bet(1, 2, 4, {9});                    // a number nobody bears
    Bet(1, 5, 7, {1, 2, 3});              // Trifecta, not offered: its total is kept all the same
    B(1, Bet(1, 1, 9, {1})).BetType = 0;  // deleted
    PoolTotals p;
    CalcPoolTotals(1, p);
    ASSERT_EQ(p.TotalSlot(), 3);
    EXPECT_EQ(p(1, 1), C(2));
    EXPECT_EQ(p(2, 1), C(2));
    EXPECT_EQ(p(3, 1), C(2));
    EXPECT_EQ(p(1, 2), C(3));
    EXPECT_EQ(p(1, 3), C(5));
    EXPECT_EQ(p(2, 3), C(6));
    EXPECT_EQ(p(3, 3), C(2));
    EXPECT_EQ(p(2, 0), C(4));  // the "Invalid bets"
    EXPECT_EQ(p(4, 3), C(2));
    EXPECT_EQ(p(6, 3), C(5));
    EXPECT_EQ(p(5, 3), C(7));
    EXPECT_EQ(p(4, 1), C(0));  // other pools have only their total

    // The Win odds count the Across the Board money too: pool 5, on #1 S = 2.
    EXPECT_DOUBLE_EQ(Win(1)(1), 1.5);
}

TEST_F(PoolsOdds, AFieldsMoneyStandsOnItsFirstNamedSlotAndScratchesStayIn) {
    Race(1, {1, 2, 3}, {1, 1, 2});
    RF.Racer(1, 1).RacerName.clear();  // slot 1 has no name: slot 2 is the first named
    RF.Racer(1, 3).Scratched = true;
    Bet(1, 1, 2, {1});
    Bet(1, 1, 3, {2});
    PoolTotals p;
    CalcPoolTotals(1, p);
    EXPECT_EQ(p(1, 1), C(0));
    EXPECT_EQ(p(1, 2), C(2));
    EXPECT_EQ(p(1, 3), C(3));
    EXPECT_EQ(p(1, 4), C(5));
}

// ---- Win ------------------------------------------------------------------------------------

TEST_F(PoolsOdds, ARaceWithNoBetsHasNoBetsOnEveryRunningRacer) {
    Race(1, {1, 2, 3, 4}, {1, 2, 3});
    RF.Racer(1, 3).Scratched = true;
    EXPECT_EQ(Win(1)(1), kOddsNoBets);
    EXPECT_EQ(Win(1)(3), kOddsScratched);
    EXPECT_EQ(PlaceShow(1, 2)(2), kOddsNoBets);
    EXPECT_EQ(PlaceShow(1, 3)(3), kOddsScratchedPlaceShow);
    EXPECT_EQ(Exacta(1)(1, 2), kOddsNoBets);
    EXPECT_EQ(Exacta(1)(1, 3), kOddsScratched);
}

TEST_F(PoolsOdds, AllTheMoneyOnOneNumberPaysNothing) {
    Race(1, {1}, {1, 2});
    Bet(1, 1, 2, {1});
    Bet(1, 1, 8, {1});
    EXPECT_EQ(Win(1)(1), 0.0);
    EXPECT_EQ(Win(1)(2), kOddsNoBets);
}

TEST_F(PoolsOdds, WinTakesBothHoldbacksFromTheLivePool) {
    Race(1, {1}, {1, 2, 3});
    RF.Race(1).HoldbackAmt = C(1);
    RF.Race(1).HoldbackPct = 10;
    Bet(1, 1, 2, {1});
    Bet(1, 1, 8, {2});
    Bet(1, 1, 50, {3});  // scratched below: out of the pool, its own S stays
    Bet(1, 1, 20, {7});  // nobody bears 7: counts as scratched
    RF.Racer(1, 3).Scratched = true;
    // Pool 10, net 10 - 1 - 1 = 8.
    EXPECT_DOUBLE_EQ(Win(1)(1), 3.0);
    EXPECT_DOUBLE_EQ(Win(1)(2), 0.0);
    EXPECT_EQ(Win(1)(3), kOddsScratched);
}

TEST_F(PoolsOdds, AHoldbackLargerThanThePoolGivesNegativeOdds) {
    Race(1, {1, 2}, {1, 2});
    RF.Race(1).HoldbackAmt = C(100);
    Bet(1, 1, 2, {1});
    Bet(1, 2, 2, {1});
    EXPECT_DOUBLE_EQ(Win(1)(1), -50.0);
    // In Place the share below 0 gives the tiny figure instead.
    EXPECT_EQ(PlaceShow(1, 2)(1), kOddsTinyShare);
}

TEST_F(PoolsOdds, AScratchedFieldMemberLeavesTheNumbersOddsToTheOthers) {
    Race(1, {1, 2}, {1, 1, 2});
    RF.Racer(1, 2).Scratched = true;
    Bet(1, 1, 4, {1});
    Bet(1, 1, 4, {2});
    Bet(1, 2, 4, {1});
    EXPECT_DOUBLE_EQ(Win(1)(1), 1.0);
    EXPECT_EQ(Win(1)(2), kOddsScratched);
    EXPECT_EQ(PlaceShow(1, 2)(2), kOddsScratchedPlaceShow);
    EXPECT_GT(PlaceShow(1, 2)(1), 0);
}

// ---- Place and Show -------------------------------------------------------------------------

TEST_F(PoolsOdds, PlaceAveragesTheOthersOverTheGrossPool) {
    Race(1, {1, 2, 3}, {1, 2, 3, 4});
    RF.Race(1).HoldbackAmt = C(1);
    RF.Race(1).HoldbackPct = 10;
    Bet(1, 2, 6, {1});
    Bet(1, 2, 2, {2});
    Bet(1, 2, 2, {3});
    // Pool 10, net 8, four runners. #1: avg (10 - 6) / 4 = 1, share (8 - 1 - 6) / 2 = 0.5.
    EXPECT_DOUBLE_EQ(PlaceShow(1, 2)(1), 0.5 / 6);
    // #2: avg 2, share (8 - 2 - 2) / 2 = 2; from the net pool it would be 2.25.
    EXPECT_DOUBLE_EQ(PlaceShow(1, 2)(2), 1.0);
    EXPECT_EQ(PlaceShow(1, 2)(4), kOddsNoBets);
}

TEST_F(PoolsOdds, ShowDividesTheShareThreeWaysInFloatsAndKeepsItAsMoney) {
    Race(1, {1, 2, 3}, {1, 2, 3});
    Bet(1, 3, 1, {1});
    Bet(1, 3, 1, {2});
    Bet(1, 11, 1, {3});  // Across the Board is in Show too
    // Pool 3, net 3, three runners. Avg (3 - 1) / 3 = 0.6667, share (3 - 1.3334 - 1) / 3 =
    // 0.222200 as money.
    EXPECT_DOUBLE_EQ(PlaceShow(1, 3)(1), 0.2222);
}

TEST_F(PoolsOdds, CountRunnersComparesOnlyWithTheFirstSlotsNumber) {
    // #1 again is passed over while it runs; scratched, empty (0) and #2 count.
    Race(1, {}, {1, 1, 1, 0, 2, 1});
    RF.Racer(1, 3).Scratched = true;
    EXPECT_EQ(CountRunners(1), 4);

    // An empty first slot drops every other running empty slot.
    Race(2, {}, {0, 5, 0, 0});
    EXPECT_EQ(CountRunners(2), 2);

    // The file's MaxRacers sets the count: a race of two racers on a card of six counts its four
    // empty slots too.
    Race(3, {}, {1, 2});
    EXPECT_EQ(RF.MaxRacers, 6);
    EXPECT_EQ(CountRunners(3), 6);
}

// ---- Exacta and Daily Double ----------------------------------------------------------------

TEST_F(PoolsOdds, ExactaAndDoubleKeepTheFixedHoldback) {
    Race(1, {1, 4, 6}, {1, 2});
    Race(2, {1}, {1, 2});
    for (int r : {1, 2}) RF.Race(r).HoldbackAmt = C(1);
    Bet(1, 1, 2, {1});
    Bet(1, 1, 8, {2});
    Bet(1, 4, 2, {1, 2});
    Bet(1, 4, 8, {2, 1});
    Bet(1, 6, 2, {1, 2});
    Bet(1, 6, 8, {2, 2});
    EXPECT_DOUBLE_EQ(Win(1)(1), 3.5);  // (10 - 1 - 2) / 2
    EXPECT_DOUBLE_EQ(Exacta(1)(1, 2), 4.0);
    PairOdds dd;
    CalcDoubleOdds(1, dd);
    EXPECT_DOUBLE_EQ(dd(1, 2), 4.0);
    EXPECT_DOUBLE_EQ(dd(2, 2), 0.25);
    EXPECT_EQ(dd(1, 1), kOddsNoBets);
}

TEST_F(PoolsOdds, ABoxedExactaWithAScratchedPickKeepsItsLivePairs) {
    Race(1, {4}, {1, 2, 3});
    RF.Racer(1, 3).Scratched = true;
    Bet(1, 4, 1, {1, 2, 3}, true);  // costs 6; in the pool as 1 * 2 * 1
    Bet(1, 4, 5, {1, 3});           // plain with a scratched pick: nothing in the pool
    Bet(1, 4, 1, {1, 2});           // costs 1
    // Pool 3. (1, 2): 1 + 1, (2, 1): 1.
    EXPECT_DOUBLE_EQ(Exacta(1)(1, 2), 0.5);
    EXPECT_DOUBLE_EQ(Exacta(1)(2, 1), 2.0);
    EXPECT_EQ(Exacta(1)(1, 3), kOddsScratched);
    // A racer with itself: a box holds it when the number is among its picks.
    EXPECT_DOUBLE_EQ(Exacta(1)(2, 2), 2.0);
    EXPECT_TRUE(IsExactaMatch(1, 1, 2, 2));
    EXPECT_FALSE(IsExactaMatch(1, 3, 2, 1));
}

TEST_F(PoolsOdds, TheDoublesPoolLeavesOutScratchedPicksOfEitherLeg) {
    Race(1, {6}, {1, 2});
    Race(2, {}, {1, 2});
    RF.Racer(2, 2).Scratched = true;
    Bet(1, 6, 2, {1, 1});
    Bet(1, 6, 2, {2, 2});  // scratched in race 2: its own pair still sums
    Bet(1, 6, 2, {0, 1});  // no first pick
    PairOdds dd;
    CalcDoubleOdds(1, dd);
    EXPECT_DOUBLE_EQ(dd(1, 1), 0.0);  // pool 2
    EXPECT_EQ(dd(2, 2), kOddsScratched);
    EXPECT_EQ(dd(2, 1), kOddsNoBets);
}

TEST_F(PoolsOdds, RacerSlotOfBetNbrNeedsANamedRacer) {
    Race(1, {}, {4, 4, 5});
    RF.Racer(1, 1).RacerName.clear();
    EXPECT_EQ(RacerSlotOfBetNbr(1, 4), 2);
    EXPECT_EQ(RacerSlotOfBetNbr(1, 5), 3);
    EXPECT_EQ(RacerSlotOfBetNbr(1, 6), 0);
}

}  // namespace
}  // namespace tt::test
