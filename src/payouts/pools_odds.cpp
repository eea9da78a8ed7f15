#include "payouts/pools_odds.h"

#include <algorithm>
#include <array>

#include "model/app_error.h"
#include "model/race_file.h"

namespace tt {

// ---- The tables ---------------------------------------------------------------------------

void PoolTotals::Reset(int maxRacers) {
    if (maxRacers < 0) Raise(kErrSubscript);
    maxRacers_ = maxRacers;
    cells_.assign(static_cast<std::size_t>(kBetTypes) * static_cast<std::size_t>(maxRacers + 2),
                  Currency());
}

std::size_t PoolTotals::Index(int type, int slot) const {
    if (type < 1 || type > kBetTypes || slot < 0 || slot > maxRacers_ + 1) Raise(kErrSubscript);
    return static_cast<std::size_t>(type - 1) * static_cast<std::size_t>(maxRacers_ + 2) +
           static_cast<std::size_t>(slot);
}

Currency& PoolTotals::operator()(int type, int slot) {
    return cells_[Index(type, slot)];
}
const Currency& PoolTotals::operator()(int type, int slot) const {
    return cells_[Index(type, slot)];
}

void RacerOdds::Reset(int maxRacers) {
    if (maxRacers < 0) Raise(kErrSubscript);
    v_.assign(static_cast<std::size_t>(maxRacers) + 1, 0.0);
}

double& RacerOdds::operator()(int slot) {
    if (slot < 0 || slot > MaxRacers()) Raise(kErrSubscript);
    return v_[static_cast<std::size_t>(slot)];
}
double RacerOdds::operator()(int slot) const {
    if (slot < 0 || slot > MaxRacers()) Raise(kErrSubscript);
    return v_[static_cast<std::size_t>(slot)];
}

void PairOdds::Reset(int maxRacers) {
    if (maxRacers < 0) Raise(kErrSubscript);
    n_ = maxRacers;
    v_.assign(static_cast<std::size_t>(maxRacers) * static_cast<std::size_t>(maxRacers), 0.0);
}

std::size_t PairOdds::Index(int a, int b) const {
    if (a < 1 || a > n_ || b < 1 || b > n_) Raise(kErrSubscript);
    return static_cast<std::size_t>(a - 1) * static_cast<std::size_t>(n_) +
           static_cast<std::size_t>(b - 1);
}

double& PairOdds::operator()(int a, int b) {
    return v_[Index(a, b)];
}
double PairOdds::operator()(int a, int b) const {
    return v_[Index(a, b)];
}

// ---- The racers of a race by betting number -----------------------------------------------

namespace {

// The betting numbers borne by slots 1 to MaxRacers of a race, each with a small index, so that
// a bet's money goes straight into the bucket of its number: what a scan of the racers would
// answer for one number, answered for all of them at once.
class RaceNumbers {
  public:
    explicit RaceNumbers(int race) {
        RF.Race(race);  // a race outside the table is the subscript error
        const int n = RF.MaxRacers;
        slotIndex_.assign(static_cast<std::size_t>(std::max(n, 0)) + 1, -1);
        std::int64_t lo = 0, hi = -1;
        for (int s = 1; s <= n; ++s) {
            const std::int64_t nbr = RF.Racer(race, s).BetNbr;
            if (hi < lo) {
                lo = hi = nbr;
            } else {
                lo = std::min(lo, nbr);
                hi = std::max(hi, nbr);
            }
        }
        lo_ = lo;
        table_.assign(hi < lo ? 0 : static_cast<std::size_t>(hi - lo + 1), -1);
        for (int s = 1; s <= n; ++s) {
            const RacerRec& r = RF.Racer(race, s);
            int& idx = table_[static_cast<std::size_t>(std::int64_t{r.BetNbr.Value()} - lo_)];
            if (idx < 0) {
                idx = static_cast<int>(running_.size());
                running_.push_back(false);
                namedSlot_.push_back(0);
            }
            const auto i = static_cast<std::size_t>(idx);
            if (!r.Scratched) running_[i] = true;
            if (namedSlot_[i] == 0 && !r.RacerName.empty()) namedSlot_[i] = s;
            slotIndex_[static_cast<std::size_t>(s)] = idx;
        }
    }

    // The number's index, or -1 when no slot bears it.
    int IndexOf(std::int64_t nbr) const {
        const std::int64_t off = nbr - lo_;
        if (off < 0 || off >= static_cast<std::int64_t>(table_.size())) return -1;
        return table_[static_cast<std::size_t>(off)];
    }
    int Count() const { return static_cast<int>(running_.size()); }
    int IndexOfSlot(int slot) const { return slotIndex_[static_cast<std::size_t>(slot)]; }

    // Number 0 is never scratched; a number is scratched when no slot bears it unscratched.
    bool Scratched(std::int64_t nbr) const {
        if (nbr == 0) return false;
        const int idx = IndexOf(nbr);
        return idx < 0 || !running_[static_cast<std::size_t>(idx)];
    }
    // The first named slot of the number, 0 for none.
    int NamedSlot(std::int64_t nbr) const {
        const int idx = IndexOf(nbr);
        return idx < 0 ? 0 : namedSlot_[static_cast<std::size_t>(idx)];
    }

  private:
    std::int64_t lo_ = 0;
    std::vector<int> table_;      // number - lo_ -> index
    std::vector<int> slotIndex_;  // slot -> index of its number
    std::vector<bool> running_;   // index -> borne by an unscratched slot
    std::vector<int> namedSlot_;  // index -> first named slot
};

// Money bucketed by a pair of number indices.
class PairSums {
  public:
    PairSums(int rows, int cols)
        : cols_(static_cast<std::size_t>(cols)),
          v_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols)) {}
    Currency& operator()(int a, int b) {
        return v_[static_cast<std::size_t>(a) * cols_ + static_cast<std::size_t>(b)];
    }

  private:
    std::size_t cols_;
    std::vector<Currency> v_;
};

Currency PercentHoldback(Currency pool, int race) {
    const double pct = static_cast<double>(RF.Race(race).HoldbackPct);
    return Currency::FromDouble(pool.ToDouble() * pct / 100);
}

// Profit per unit staked on money s out of net, subtracted first and divided as floats.
double Ratio(Currency net, Currency s) {
    return (net - s).ToDouble() / s.ToDouble();
}

bool IsType(const BetRec& b, BetType t) {
    return b.BetType == Code(t);
}

}  // namespace

// ---- The calculations ---------------------------------------------------------------------

void CalcPoolTotals(int race, PoolTotals& totals) {
    const RaceNumbers numbers(race);
    totals.Reset(RF.MaxRacers);
    const int total = totals.TotalSlot();
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
        const BetRec& b = RF.Bet(race, i);
        const int type = b.BetType;
        if (type == kAcrossTheBoard) {
            const int s = numbers.NamedSlot(b.Pick(1));
            for (int t = 1; t <= 3; ++t) totals(t, s) += b.BetAmt;
            for (int t = 1; t <= 3; ++t) totals(t, total) += b.BetAmt;
        } else if (IsWinPlaceShow(BetTypeOf(type))) {
            const int s = numbers.NamedSlot(b.Pick(1));
            totals(type, s) += b.BetAmt;
            totals(type, total) += b.BetAmt;
        } else if (type >= 1 && type <= kBetTypes) {
            totals(type, total) += b.BetCost;
        }
        // A deleted bet, or a code that names no type, matches nothing.
    }
}

void CalcWinOdds(int race, RacerOdds& odds) {
    const RaceNumbers numbers(race);
    const RaceRec& rc = RF.Race(race);
    std::vector<Currency> sums(static_cast<std::size_t>(numbers.Count()));
    Currency pool;
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
        const BetRec& b = RF.Bet(race, i);
        if (!IsType(b, BetType::kWin) && !IsType(b, BetType::kAcrossTheBoard)) continue;
        const std::int64_t pick = b.Pick(1);
        if (pick != 0 && !numbers.Scratched(pick)) pool += b.BetAmt;
        if (const int idx = numbers.IndexOf(pick); idx >= 0)
            sums[static_cast<std::size_t>(idx)] += b.BetAmt;
    }
    const Currency net = pool - rc.HoldbackAmt - PercentHoldback(pool, race);
    odds.Reset(RF.MaxRacers);
    for (int n = 1; n <= RF.MaxRacers; ++n) {
        if (RF.Racer(race, n).Scratched) {
            odds(n) = kOddsScratched;
            continue;
        }
        const Currency s = sums[static_cast<std::size_t>(numbers.IndexOfSlot(n))];
        odds(n) = s.IsZero() ? kOddsNoBets : Ratio(net, s);
    }
}

void CalcPlaceShowOdds(int race, RacerOdds& odds, int betType) {
    const RaceNumbers numbers(race);
    const RaceRec& rc = RF.Race(race);
    const int t = betType;
    std::vector<Currency> sums(static_cast<std::size_t>(std::max<int>(RF.MaxRacers, 0)) + 1);
    Currency pool;
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
        const BetRec& b = RF.Bet(race, i);
        if (b.BetType != t && !IsType(b, BetType::kAcrossTheBoard)) continue;
        const std::int64_t pick = b.Pick(1);
        if (pick == 0 || numbers.Scratched(pick)) continue;
        pool += b.BetAmt;
        sums[static_cast<std::size_t>(numbers.NamedSlot(pick))] += b.BetAmt;
    }
    const Currency net = pool - rc.HoldbackAmt - PercentHoldback(pool, race);
    const int runners = CountRunners(race);
    odds.Reset(RF.MaxRacers);
    for (int n = 1; n <= RF.MaxRacers; ++n) {
        const RacerRec& r = RF.Racer(race, n);
        if (r.Scratched || r.BetNbr == 0) {
            odds(n) = kOddsScratchedPlaceShow;
            continue;
        }
        const Currency s = sums[static_cast<std::size_t>(numbers.NamedSlot(r.BetNbr))];
        if (s.IsZero()) {
            odds(n) = kOddsNoBets;
            continue;
        }
        // The average of the others is taken from the gross pool.
        const Currency avg = Currency::FromDouble((pool - s).ToDouble() / runners);
        const Currency share = Currency::FromDouble((net - avg * (t - 1) - s).ToDouble() / t);
        odds(n) = share > Currency() ? share.ToDouble() / s.ToDouble() : kOddsTinyShare;
    }
}

int CountRunners(int race) {
    int count = 0;
    std::int64_t first = 0;
    for (int n = 1; n <= RF.MaxRacers; ++n) {
        const RacerRec& r = RF.Racer(race, n);
        // Only the first number kept is ever compared.
        if (count > 0 && first == r.BetNbr && !r.Scratched) continue;
        if (count == 0) first = r.BetNbr;
        ++count;
    }
    return count;
}

void CalcExactaOdds(int race, PairOdds& odds) {
    const RaceNumbers numbers(race);
    const int k = numbers.Count();
    PairSums sums(k, k);
    Currency pool;
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
        const BetRec& b = RF.Bet(race, i);
        if (!IsType(b, BetType::kExacta)) continue;
        int picks = 0, scratched = 0;
        for (int j = 1; j <= 6; ++j) {
            if (b.Pick(j) == 0) continue;
            ++picks;
            if (numbers.Scratched(b.Pick(j))) ++scratched;
        }
        if (scratched == 0)
            pool += b.BetCost;
        else if (b.Boxed)
            pool += b.BetAmt * (picks - scratched) * (picks - scratched - 1);

        if (b.Boxed) {
            // Every pair of the numbers among the six picks, each number once.
            std::array<int, 6> held{};
            int count = 0;
            for (int j = 1; j <= 6; ++j) {
                const int idx = numbers.IndexOf(b.Pick(j));
                if (idx >= 0 &&
                    std::find(held.begin(), held.begin() + count, idx) == held.begin() + count)
                    held[static_cast<std::size_t>(count++)] = idx;
            }
            for (int x = 0; x < count; ++x)
                for (int y = 0; y < count; ++y)
                    sums(held[static_cast<std::size_t>(x)], held[static_cast<std::size_t>(y)]) +=
                        b.BetAmt;
        } else {
            const int a = numbers.IndexOf(b.Pick(1)), c = numbers.IndexOf(b.Pick(2));
            if (a >= 0 && c >= 0) sums(a, c) += b.BetAmt;
        }
    }
    const Currency net = pool - PercentHoldback(pool, race);
    odds.Reset(RF.MaxRacers);
    for (int a = 1; a <= RF.MaxRacers; ++a) {
        const bool scratchedA = bool(RF.Racer(race, a).Scratched);
        for (int b = 1; b <= RF.MaxRacers; ++b) {
            if (scratchedA || RF.Racer(race, b).Scratched) {
                odds(a, b) = kOddsScratched;
                continue;
            }
            const Currency s = sums(numbers.IndexOfSlot(a), numbers.IndexOfSlot(b));
            odds(a, b) = s.IsZero() ? kOddsNoBets : Ratio(net, s);
        }
    }
}

void CalcDoubleOdds(int race, PairOdds& odds) {
    const RaceNumbers first(race);
    const RaceNumbers second(race + 1);
    PairSums sums(first.Count(), second.Count());
    Currency pool;
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
        const BetRec& b = RF.Bet(race, i);
        if (!IsType(b, BetType::kDailyDouble)) continue;
        const std::int64_t p1 = b.Pick(1), p2 = b.Pick(2);
        if (p1 != 0 && !first.Scratched(p1) && !second.Scratched(p2)) pool += b.BetCost;
        const int a = first.IndexOf(p1), c = second.IndexOf(p2);
        if (a >= 0 && c >= 0) sums(a, c) += b.BetAmt;
    }
    const Currency net = pool - PercentHoldback(pool, race);
    odds.Reset(RF.MaxRacers);
    for (int a = 1; a <= RF.MaxRacers; ++a) {
        const bool scratchedA = bool(RF.Racer(race, a).Scratched);
        for (int b = 1; b <= RF.MaxRacers; ++b) {
            if (scratchedA || RF.Racer(race + 1, b).Scratched) {
                odds(a, b) = kOddsScratched;
                continue;
            }
            const Currency s = sums(first.IndexOfSlot(a), second.IndexOfSlot(b));
            odds(a, b) = s.IsZero() ? kOddsNoBets : Ratio(net, s);
        }
    }
}

void CalcWinShares(int race, RacerOdds& shares) {
    const RaceNumbers numbers(race);
    std::vector<Currency> sums(static_cast<std::size_t>(numbers.Count()));
    Currency pool;
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
        const BetRec& b = RF.Bet(race, i);
        if (!IsType(b, BetType::kWin) && !IsType(b, BetType::kAcrossTheBoard)) continue;
        const std::int64_t pick = b.Pick(1);
        if (pick == 0 || numbers.Scratched(pick)) continue;
        pool += b.BetAmt;
        sums[static_cast<std::size_t>(numbers.IndexOf(pick))] += b.BetAmt;
    }
    shares.Reset(RF.MaxRacers);
    if (pool <= Currency()) return;
    for (int n = 1; n <= RF.MaxRacers; ++n) {
        if (RF.Racer(race, n).Scratched) continue;
        const Currency s = sums[static_cast<std::size_t>(numbers.IndexOfSlot(n))];
        shares(n) = std::clamp(s.ToDouble() / pool.ToDouble(), 0.0, 1.0);
    }
}

int RacerSlotOfBetNbr(int race, std::int64_t betNbr) {
    for (int n = 1; n <= RF.MaxRacers; ++n) {
        const RacerRec& r = RF.Racer(race, n);
        if (!r.RacerName.empty() && r.BetNbr == betNbr) return n;
    }
    return 0;
}

bool IsExactaMatch(int race, std::int64_t i, int slotA, int slotB) {
    const BetRec& b = RF.Bet(race, i);
    const std::int64_t a = RF.Racer(race, slotA).BetNbr, c = RF.Racer(race, slotB).BetNbr;
    if (!b.Boxed) return b.Pick(1) == a && b.Pick(2) == c;
    bool hasA = false, hasC = false;
    for (int j = 1; j <= 6; ++j) {
        hasA = hasA || b.Pick(j) == a;
        hasC = hasC || b.Pick(j) == c;
    }
    return hasA && hasC;
}

}  // namespace tt
