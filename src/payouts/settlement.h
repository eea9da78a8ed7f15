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

namespace tt {

// PayRatio sentinels.
inline constexpr double kPayback = -1.0;     // every bet of the pool is paid back
inline constexpr double kNoPay = -2.0;       // nothing is paid, or nobody is on this finisher
inline constexpr double kIncomplete = -3.0;  // a leg of a multi-race bet has no result yet

// What to do with a pool without winners, as the Payout Handling dialog sets it: "Most",
// "Payback" or "NoPay"; empty until first set. Keeps its last value between pools.
extern std::string ChosenHandling;
// The bet type the dialog names, and the most correct picks of its pool.
extern Int16 HandlingBetType;
extern Int16 HandlingBestCorrect;
// Back to the state of a fresh process.
void ResetPayoutHandling();

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

// Sums the tickets of one race again from their bets; tickets that no longer count are left.
void RecalcRaceTickets(int race);

// Takes back every amount of a race that has no result, and of the multi-race bets that
// cover CurrentRace.
void ClearRaceWinnings(int race);

// The calculation of one race: the working fields the payout display keeps for it, and the
// passes in their order. Opens the Payout Handling dialog through the shell, once for each
// pool that has no winner.
class PayoutCalc {
  public:
    PayoutCalc();
    ~PayoutCalc();
    PayoutCalc(const PayoutCalc&) = delete;
    PayoutCalc& operator=(const PayoutCalc&) = delete;

    // Settles CurrentRace: Bet, Payout, Ticket, Race.CorrectPaid; sets FileChanged.
    void CalcPayouts();

    // Exacta and Trifecta: CorrectPicks and WinningCombos from Finishers.
    void CountCorrectPicks(int race, std::int64_t i);
    // Daily Double and Picks stored under first race k: the legs won, by bet number.
    void CountLegsCorrect(int k, std::int64_t i);
    // The picks of a bet above 0.
    static int CountPicks(int race, std::int64_t i);
    // Divides the Exacta (4) or Trifecta (5) pool of CurRace.
    void CalcExotic(int t);
    // Divides the pool of the group of type t that starts at race k.
    void CalcMultiRace(int k, int t);

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
    void DividePlaceOrShowPool(int type);
    // The payment of a bet of stake a at a ratio, rounded down by the race's code.
    Currency Payment(Currency a, double ratio, int race) const;
    // A pool less its percent holdback.
    Currency LessPercentHoldback(Currency pool, int race) const;
    void AskHandling(int type);

    bool Scratched(int race, std::int64_t betNbr);
    // Slots 1..MaxBets of a race holding bets of a type, in slot order.
    const std::vector<std::int32_t>& Slots(int race, int type);

    // Per race, filled on first use: bet numbers borne by a running racer, and slots by type.
    std::array<std::vector<std::uint8_t>, 22> running_;
    std::array<std::array<std::vector<std::int32_t>, 12>, 22> slots_;
    std::array<bool, 22> slotsBuilt_{};
    PayoutCalc* outer_ = nullptr;
};

// The calculation under way, if any: the Payout Handling dialog reads its CurRace.
const PayoutCalc* RunningPayoutCalc();

// Settles CurrentRace with a fresh calculation object.
void CalcPayouts();

}  // namespace tt
