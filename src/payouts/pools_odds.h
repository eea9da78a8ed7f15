#pragma once
// Pools and odds before a race is run: how much is on each number in each pool, and what each
// number would pay at this moment. Nothing is stored: every figure is worked out afresh from the
// bet records of the race whenever a display or a report asks for it.
//
// These odds are estimates for display, not the payouts of the settlement, and they differ from
// them on purpose: the fixed holdback is taken from Win and Place/Show but not from Exacta or the
// Daily Double; Place and Show assume that the other paying positions hold an average share of
// the gross pool; a bet on a number that no racer bears falls out of every live pool.
//
// Odds are 64-bit floats, profit per unit staked (as a payout ratio). Two values are reserved:
//
//   -1.0, and any other negative value   no money on this pick: shown as "No Bets"
//   0.0 (Win, Exacta, Daily Double)       the racer is scratched: shown as " Scratched"
//   -2.0 (Place, Show)                    the racer is scratched, or its slot is empty
//
// A display tests Racer.Scratched itself before it looks at the value, so a scratched racer
// shows " Scratched" whatever the figure; a negative figure from a holdback larger than what is
// left of the pool shows "No Bets" like -1.0. In Place and Show a share that is not above 0
// gives kOddsTinyShare (0 to 1), so that the racer shows a number and not a scratch.
//
// Each calculation makes one pass over the race's bets (1 to MaxBets; a deleted bet matches
// nothing), buckets the money by betting number, and then fills the racers or the pairs of
// racers from the buckets. The figures are exactly those of a loop that rescans every bet for
// every racer or pair: the same sums in the same bet order, the same Currency and float steps.
// Every index is checked: a race outside 0 to 21 (or, for a double, a first leg of 21) raises
// the subscript error, and an amount past the range of Currency the overflow error.

#include <cstdint>
#include <vector>

#include "model/currency.h"

namespace tt {

inline constexpr double kOddsNoBets = -1.0;
inline constexpr double kOddsScratched = 0.0;            // Win, Exacta, Daily Double
inline constexpr double kOddsScratchedPlaceShow = -2.0;  // Place, Show
inline constexpr double kOddsTinyShare = 0.000001;       // Place, Show: a share not above 0

// What was taken in each pool of one race: PoolTotals(type, slot) with type 1 to 10 (Across the
// Board counts in 1, 2 and 3) and slot 0 to MaxRacers + 1.
//   slot 0              Win, Place and Show money on a number that no named racer bears
//   slot 1 .. MaxRacers Win, Place and Show money on the number of that slot; a field's money
//                       all stands on the first named slot of the number, the others hold 0
//   TotalSlot()         the total of the pool; types 4 to 10 have only this total (their
//                       BetCost), with the multi-race pools that start in this race
// Scratched racers stay in: this is what was taken, not what is live.
class PoolTotals {
  public:
    // Sized for slots 0 to maxRacers + 1, every amount 0.
    void Reset(int maxRacers);
    int MaxRacers() const { return maxRacers_; }
    int TotalSlot() const { return maxRacers_ + 1; }
    Currency& operator()(int type, int slot);
    const Currency& operator()(int type, int slot) const;

  private:
    std::size_t Index(int type, int slot) const;
    int maxRacers_ = 0;
    std::vector<Currency> cells_ = std::vector<Currency>(10 * 2);
};

// Odds of each racer slot 1 to MaxRacers of a race. Index 0 exists and holds 0.
class RacerOdds {
  public:
    // Sized for slots 0 to maxRacers, every value 0.
    void Reset(int maxRacers);
    int MaxRacers() const { return static_cast<int>(v_.size()) - 1; }
    double& operator()(int slot);
    double operator()(int slot) const;

  private:
    std::vector<double> v_ = std::vector<double>(1);
};

// Odds of each pair of racer slots (a, b), both 1 to MaxRacers: for the Exacta a finishes first
// and b second; for the Daily Double a is a slot of the first leg, b of the next race.
class PairOdds {
  public:
    // Sized for slots 1 to maxRacers each way, every value 0.
    void Reset(int maxRacers);
    int MaxRacers() const { return n_; }
    double& operator()(int a, int b);
    double operator()(int a, int b) const;

  private:
    std::size_t Index(int a, int b) const;
    int n_ = 0;
    std::vector<double> v_;
};

// Each of these sizes its table for the file's MaxRacers and fills it; whatever the table held
// before is replaced.

// The money taken in each pool of the race. Win, Place and Show bets add BetAmt to their pool on
// the slot of Pick(1) (slot 0 when no named racer bears it) and to the total; an Across the Board
// bet does so in all three pools; every other type adds its BetCost to its total only.
void CalcPoolTotals(int race, PoolTotals& totals);

// Win odds of each slot: (Net - S) / S, where S is the Win and Across the Board money on the
// slot's betting number and Net is the live pool (bets on numbers not scratched) less the race's
// HoldbackAmt and its percent holdback. Scratched: 0.0; no money: -1.0. A field's racers share
// the figure of their number.
void CalcWinOdds(int race, RacerOdds& odds);

// Place (betType 2) or Show (3) odds of each slot: the share the number would get if the other
// paying positions held an average share of the gross pool, (Pool - S) / CountRunners each,
// taken from the pool less HoldbackAmt and the percent holdback and divided by 2 or 3 ways.
// Scratched or betting number 0: -2.0; no money: -1.0; a share not above 0: kOddsTinyShare.
void CalcPlaceShowOdds(int race, RacerOdds& odds, int betType);

// Exacta odds of each ordered pair of slots: (Net - S) / S with S the money of the Exacta bets
// that hold the pair (a boxed bet holds every pair of its picks, a racer with itself too), and
// Net the pool less the percent holdback only. A bet with a scratched pick adds nothing to the
// pool unless it is boxed; then it adds BetAmt * (n - s) * (n - s - 1) for its n picks of which
// s are scratched. Either racer scratched: 0.0; no money: -1.0.
void CalcExactaOdds(int race, PairOdds& odds);

// Daily Double odds of the double that starts at `race`: odds(a, b) for slot a of race and slot
// b of race + 1, as for the Exacta on the Daily Double bets stored under `race`; the pool is the
// BetCost of the bets whose first pick is not 0 and whose picks are not scratched in their race,
// less the first leg's percent holdback.
void CalcDoubleOdds(int race, PairOdds& odds);

// The share of the live Win pool (as CalcWinOdds takes it) that is bet on each slot's number,
// 0 to 1; 0 for a scratched racer or when the pool is empty. For the Win pool bars of the board.
void CalcWinShares(int race, RacerOdds& shares);

// The first slot from 1 to MaxRacers with a name and this betting number; 0 if there is none.
int RacerSlotOfBetNbr(int race, std::int64_t betNbr);

// The count of runners the Place and Show estimate divides by, with its own rule: every slot
// from 1 to MaxRacers counts, empty and scratched ones too, except an unscratched slot after the
// first that bears the first slot's betting number. The file's MaxRacers sets it, whatever the
// size of the race.
int CountRunners(int race);

// Whether Exacta bet i of the race holds the pair of slots a, b: a boxed bet when both betting
// numbers occur among its six picks (an unused pick is 0, so an empty slot's number 0 occurs in
// most boxes), a plain bet when Pick(1) is a's number and Pick(2) b's.
bool IsExactaMatch(int race, std::int64_t i, int slotA, int slotB);

}  // namespace tt
