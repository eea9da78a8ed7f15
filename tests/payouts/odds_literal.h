#pragma once
// Pools and odds worked out the plain way: every bet rescanned for every racer and every pair,
// the racers scanned for every bet number, step by step as the rules of the odds are written.
// Slow on a large card; the fast calculations must give exactly these figures.

#include "model/race_file.h"
#include "payouts/pools_odds.h"
#include "payouts/settlement.h"

namespace tt::test::literal {

inline Currency Holdback(Currency pool, int race) {
    return Currency::FromDouble(pool.ToDouble() * static_cast<double>(RF.Race(race).HoldbackPct) /
                                100);
}

inline bool Scratched(int race, std::int64_t betNbr) {
    return IsScratched(race, betNbr);
}

inline void CalcPoolTotals(int race, PoolTotals& totals) {
    totals.Reset(RF.MaxRacers);
    const int t = RF.MaxRacers + 1;
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
        const BetRec& b = RF.Bet(race, i);
        const int s = RacerSlotOfBetNbr(race, b.Pick(1));
        if (b.BetType == 11) {
            totals(1, s) += b.BetAmt;
            totals(2, s) += b.BetAmt;
            totals(3, s) += b.BetAmt;
            totals(1, t) += b.BetAmt;
            totals(2, t) += b.BetAmt;
            totals(3, t) += b.BetAmt;
        } else if (b.BetType >= 1 && b.BetType <= 3) {
            totals(b.BetType, s) += b.BetAmt;
            totals(b.BetType, t) += b.BetAmt;
        } else if (b.BetType >= 4 && b.BetType <= 10) {
            totals(b.BetType, t) += b.BetCost;
        }
    }
}

inline void CalcWinOdds(int race, RacerOdds& odds) {
    odds.Reset(RF.MaxRacers);
    Currency pool;
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
        const BetRec& b = RF.Bet(race, i);
        if ((b.BetType == 1 || b.BetType == 11) && b.Pick(1) != 0 && !Scratched(race, b.Pick(1)))
            pool += b.BetAmt;
    }
    const Currency net = pool - RF.Race(race).HoldbackAmt - Holdback(pool, race);
    for (int n = 1; n <= RF.MaxRacers; ++n) {
        if (RF.Racer(race, n).Scratched) {
            odds(n) = 0.0;
            continue;
        }
        Currency s;
        for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
            const BetRec& b = RF.Bet(race, i);
            if ((b.BetType == 1 || b.BetType == 11) && b.Pick(1) == RF.Racer(race, n).BetNbr)
                s += b.BetAmt;
        }
        odds(n) = s.IsZero() ? -1.0 : (net - s).ToDouble() / s.ToDouble();
    }
}

inline int CountRunners(int race) {
    std::vector<std::int64_t> list;
    int count = 0;
    for (int n = 1; n <= RF.MaxRacers; ++n) {
        const RacerRec& r = RF.Racer(race, n);
        if (!list.empty() && list[0] == r.BetNbr && !r.Scratched) continue;
        list.push_back(r.BetNbr);
        ++count;
    }
    return count;
}

inline void CalcPlaceShowOdds(int race, RacerOdds& odds, int t) {
    odds.Reset(RF.MaxRacers);
    Currency pool;
    std::vector<Currency> sums(static_cast<std::size_t>(RF.MaxRacers) + 1);
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
        const BetRec& b = RF.Bet(race, i);
        if ((b.BetType == t || b.BetType == 11) && b.Pick(1) != 0 && !Scratched(race, b.Pick(1))) {
            pool += b.BetAmt;
            sums[static_cast<std::size_t>(RacerSlotOfBetNbr(race, b.Pick(1)))] += b.BetAmt;
        }
    }
    const Currency net = pool - RF.Race(race).HoldbackAmt - Holdback(pool, race);
    const int c = CountRunners(race);
    for (int n = 1; n <= RF.MaxRacers; ++n) {
        const RacerRec& r = RF.Racer(race, n);
        if (r.Scratched || r.BetNbr == 0) {
            odds(n) = -2.0;
            continue;
        }
        const Currency s = sums[static_cast<std::size_t>(RacerSlotOfBetNbr(race, r.BetNbr))];
        if (s.IsZero()) {
            odds(n) = -1.0;
            continue;
        }
        const Currency avg = Currency::FromDouble((pool - s).ToDouble() / c);
        const Currency share = Currency::FromDouble((net - avg * (t - 1) - s).ToDouble() / t);
        odds(n) = share > Currency() ? share.ToDouble() / s.ToDouble() : 0.000001;
    }
}

inline void CalcExactaOdds(int race, PairOdds& odds) {
    odds.Reset(RF.MaxRacers);
    Currency pool;
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
        const BetRec& b = RF.Bet(race, i);
        if (b.BetType != 4) continue;
        int s = 0, n = 0;
        for (int j = 1; j <= 6; ++j) {
            if (b.Pick(j) != 0) ++n;
            if (b.Pick(j) != 0 && Scratched(race, b.Pick(j))) ++s;
        }
        if (s == 0)
            pool += b.BetCost;
        else if (b.Boxed)
            pool += b.BetAmt * (n - s) * (n - s - 1);
    }
    const Currency net = pool - Holdback(pool, race);
    for (int a = 1; a <= RF.MaxRacers; ++a)
        for (int c = 1; c <= RF.MaxRacers; ++c) {
            if (RF.Racer(race, a).Scratched || RF.Racer(race, c).Scratched) {
                odds(a, c) = 0.0;
                continue;
            }
            Currency s;
            for (std::int64_t i = 1; i <= RF.MaxBets; ++i)
                if (RF.Bet(race, i).BetType == 4 && IsExactaMatch(race, i, a, c))
                    s += RF.Bet(race, i).BetAmt;
            odds(a, c) = s.IsZero() ? -1.0 : (net - s).ToDouble() / s.ToDouble();
        }
}

inline void CalcDoubleOdds(int race, PairOdds& odds) {
    odds.Reset(RF.MaxRacers);
    Currency pool;
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
        const BetRec& b = RF.Bet(race, i);
        if (b.BetType == 6 && b.Pick(1) != 0 && !Scratched(race, b.Pick(1)) &&
            !Scratched(race + 1, b.Pick(2)))
            pool += b.BetCost;
    }
    const Currency net = pool - Holdback(pool, race);
    for (int a = 1; a <= RF.MaxRacers; ++a)
        for (int c = 1; c <= RF.MaxRacers; ++c) {
            if (RF.Racer(race, a).Scratched || RF.Racer(race + 1, c).Scratched) {
                odds(a, c) = 0.0;
                continue;
            }
            Currency s;
            for (std::int64_t i = 1; i <= RF.MaxBets; ++i) {
                const BetRec& b = RF.Bet(race, i);
                if (b.BetType == 6 && b.Pick(1) == RF.Racer(race, a).BetNbr &&
                    b.Pick(2) == RF.Racer(race + 1, c).BetNbr)
                    s += b.BetAmt;
            }
            odds(a, c) = s.IsZero() ? -1.0 : (net - s).ToDouble() / s.ToDouble();
        }
}

}  // namespace tt::test::literal
