#pragma once
// Settlement of a race: the pools built from the bets, the refunds of bets that cannot stand,
// the division of each pool among the winning bets, and the answer written into Bet, Payout
// and Ticket. Win, Place, Show and Across the Board are divided in settlement.cpp; Exacta,
// Trifecta, the Daily Double and the Picks in exotic_payouts.cpp.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/checked_int.h"
#include "model/currency.h"
#include "model/tables.h"
#include "payouts/settle_race.h"

namespace tt {

// PayRatio sentinels.
inline constexpr double kPayback = -1.0;     // every bet of the pool is paid back
inline constexpr double kNoPay = -2.0;       // nothing is paid, or nobody is on this finisher
inline constexpr double kIncomplete = -3.0;  // a leg of a multi-race bet has no result yet

// Rounds a payout down to the step of a race's rounding code (-2, -1, 0, 25, 50), in 64-bit
// floating point, so that binary fractions show through exactly as they always have.
double RoundDownTo(double value, std::int16_t code);

// A bet number is scratched when every racer bearing it is scratched, or when no racer of the
// race bears it. Number 0 is never scratched.
bool IsScratched(int race, std::int64_t betNbr);

// The bet numbers that finished first, second and third: a field finishing twice counts once,
// so a later finisher moves up.
void GetFinishers(int race, FixedArray<Int16, 1, 3>& finishers);

// Raises a MinBet of 0 to 0.01 and a MinPayout below MinBet to MinBet, in the race itself.
void NormaliseRaceLimits(int race);
// The least ratio a pool of the race may pay: (MinPayout - MinBet) / MinBet.
double MinimumRatio(int race);

// Takes back every amount of a race that has no result, and of the multi-race bets whose span
// covers the current race.
void ClearRaceWinnings(int race, int currentRace);

// The calculation of one race: the working fields it keeps, and the passes in their order. A
// pool that nobody won is put to the handling policy.
class PayoutCalc {
  public:
    PayoutCalc(int race, const HandlingPolicy& policy);

    // Settles CurRace: Bet, Payout, Ticket, Race.CorrectPaid; sets FileChanged.
    void CalcPayouts();

    // Exacta and Trifecta: CorrectPicks and WinningCombos from Finishers.
    void CountCorrectPicks(int race, std::int64_t i);
    // Daily Double and Picks stored under first race k: the legs won, by bet number.
    void CountLegsCorrect(int k, std::int64_t i);
    // The picks of a bet above 0.
    static int CountPicks(int race, std::int64_t i);
    // Divides the Exacta or Trifecta pool of CurRace.
    void CalcExotic(BetType t);
    // Divides the pool of the group of type t that starts at race k.
    void CalcMultiRace(int k, BetType t);

    Int16 CurRace;
    FixedArray<Int16, 1, 3> Finishers;
    Int16 CurBetType;
    Int16 MostCorrect;

  private:
    void BuildPools();
    void AddToSingleRacePools(std::int64_t i);
    void BuildMultiRacePools();
    void DivideWinPool();
    // Place (2 ways) and Show (3 ways) share one rule.
    void DividePlaceOrShowPool(BetType type);
    // The payment of a bet of stake a at a ratio, rounded down by the race's code.
    Currency Payment(Currency a, double ratio, int race) const;
    // A pool less its percent holdback.
    Currency LessPercentHoldback(Currency pool, int race) const;
    // Puts a pool without winners to the policy; an answer becomes the handling in force.
    void AskHandling(BetType type, int bestCorrect = 0);

    bool Scratched(int race, std::int64_t betNbr);
    // Slots 1..MaxBets of a race holding bets of a type, in slot order.
    const std::vector<std::int32_t>& Slots(int race, BetType type);

    const HandlingPolicy& policy_;
    // The handling in force: each pool either has winners, and is paid on the most correct, or
    // is put to the policy.
    PoolHandling handling_ = PoolHandling::kMost;
    // Per race, filled on first use: bet numbers borne by a running racer, and slots by type.
    std::array<std::vector<std::uint8_t>, 22> running_;
    std::array<std::array<std::vector<std::int32_t>, 12>, 22> slots_;
    std::array<bool, 22> slotsBuilt_{};
};

}  // namespace tt
