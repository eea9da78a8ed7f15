// The pools and odds of random races, worked out in one pass over the bets, against the plain
// loops that rescan every bet for every racer and pair: the same figures to the last bit, and
// the same error where there is one.

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <functional>
#include <random>
#include <string>

#include "model/race_file.h"
#include "odds_literal.h"
#include "payouts/pools_odds.h"
#include "support/fakes.h"

namespace tt::test {
namespace {

// Races full of what a damaged or hurried card holds: fields, empty and nameless slots,
// scratches, picks of numbers nobody bears, deleted bets and odd type codes, holdbacks larger
// than the pool.
class RandomRaces {
  public:
    explicit RandomRaces(std::uint64_t seed) : rng_(seed) {}

    // Fills races race and race + 1 and returns race.
    int Make() {
        ClearRaceFile();
        const int race = Pick(1, 19);
        const int racers = Pick(0, 9);
        RF.MaxRacers = racers;
        RF.Racer.ReDim(racers + 1);
        const int bets = Pick(0, 60);
        RF.MaxBets = bets;
        RF.Bet.ReDim(bets + 1);
        for (int r : {race, race + 1}) {
            RaceRec& rc = RF.Race(r);
            rc.RaceName = "R";
            static const std::int64_t kAmt[] = {0, 0, 10000, 50000, 1000000};
            rc.HoldbackAmt = Currency::FromRaw(kAmt[Pick(0, 4)]);
            static const float kPct[] = {0, 10, 15.5f, 33.3f, 120};
            rc.HoldbackPct = kPct[Pick(0, 4)];
            for (int n = 1; n <= racers; ++n) {
                RacerRec& rr = RF.Racer(r, n);
                if (Chance(15)) continue;  // an empty slot
                rr.BetNbr = Chance(3) ? (Chance(50) ? 32767 : -32768) : Pick(1, 6);
                if (!Chance(5)) rr.RacerName = "N" + std::to_string(n);
                rr.Scratched = Chance(20);
            }
            for (int i = 1; i <= bets; ++i) {
                BetRec& b = RF.Bet(r, i);
                static const int kTypes[] = {0, 1, 1, 2, 3, 4, 4, 4, 5, 6, 6, 6, 7, 11, 11, 12};
                b.BetType = kTypes[Pick(0, 15)];
                b.Boxed = Chance(40);
                const int picks = Pick(1, 6);
                for (int j = 1; j <= picks; ++j)
                    b.Pick(j) = Chance(3) ? 32767 : Pick(-1, 8) * (Chance(90) ? 1 : 0);
                b.BetAmt = Currency::FromRaw(Pick(0, 40) * 5000);
                b.BetCost = b.BetAmt * Pick(1, 30);
            }
        }
        return race;
    }

  private:
    int Pick(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng_); }
    bool Chance(int percent) { return Pick(1, 100) <= percent; }
    std::mt19937_64 rng_;
};

// The error number a calculation raised, 0 for none.
int ErrorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const AppError& e) {
        return e.Number();
    }
    return 0;
}

bool Same(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

class FastVsLiteral : public ::testing::Test {
  protected:
    FakeWorld world;
};

TEST_F(FastVsLiteral, EveryFigureOfRandomRacesIsTheLiteralOne) {
    RandomRaces make(20260502);
    int compared = 0;
    for (int round = 0; round < 400; ++round) {
        const int race = make.Make();
        SCOPED_TRACE("round " + std::to_string(round) + ", race " + std::to_string(race));

        PoolTotals fastTotals, slowTotals;
        ASSERT_EQ(ErrorOf([&] { CalcPoolTotals(race, fastTotals); }),
                  ErrorOf([&] { literal::CalcPoolTotals(race, slowTotals); }));
        for (int t = 1; t <= 10; ++t)
            for (int s = 0; s <= RF.MaxRacers + 1; ++s)
                ASSERT_EQ(fastTotals(t, s), slowTotals(t, s)) << "type " << t << " slot " << s;

        ASSERT_EQ(CountRunners(race), literal::CountRunners(race));

        auto compareRacers = [&](const std::function<void(RacerOdds&)>& fast,
                                 const std::function<void(RacerOdds&)>& slow) {
            RacerOdds f, s;
            const int ef = ErrorOf([&] { fast(f); }), es = ErrorOf([&] { slow(s); });
            ASSERT_EQ(ef, es);
            if (ef != 0) return;
            for (int n = 1; n <= RF.MaxRacers; ++n) {
                ASSERT_TRUE(Same(f(n), s(n))) << "slot " << n << ": " << f(n) << " " << s(n);
                ++compared;
            }
        };
        compareRacers([&](RacerOdds& o) { CalcWinOdds(race, o); },
                      [&](RacerOdds& o) { literal::CalcWinOdds(race, o); });
        for (int t : {2, 3})
            compareRacers([&](RacerOdds& o) { CalcPlaceShowOdds(race, o, t); },
                          [&](RacerOdds& o) { literal::CalcPlaceShowOdds(race, o, t); });

        auto comparePairs = [&](const std::function<void(PairOdds&)>& fast,
                                const std::function<void(PairOdds&)>& slow) {
            PairOdds f, s;
            const int ef = ErrorOf([&] { fast(f); }), es = ErrorOf([&] { slow(s); });
            ASSERT_EQ(ef, es);
            if (ef != 0) return;
            for (int a = 1; a <= RF.MaxRacers; ++a)
                for (int b = 1; b <= RF.MaxRacers; ++b) {
                    ASSERT_TRUE(Same(f(a, b), s(a, b)))
                        << "pair " << a << "," << b << ": " << f(a, b) << " " << s(a, b);
                    ++compared;
                }
        };
        comparePairs([&](PairOdds& o) { CalcExactaOdds(race, o); },
                     [&](PairOdds& o) { literal::CalcExactaOdds(race, o); });
        comparePairs([&](PairOdds& o) { CalcDoubleOdds(race, o); },
                     [&](PairOdds& o) { literal::CalcDoubleOdds(race, o); });
    }
    // The rounds reach real figures, not only errors.
    EXPECT_GT(compared, 20000);
}

TEST_F(FastVsLiteral, AnOverflowIsAnErrorOnBothPaths) {
    ClearRaceFile();
    RF.MaxRacers = 2;
    RF.Racer.ReDim(3);
    RF.MaxBets = 2;
    RF.Bet.ReDim(3);
    RF.Racer(1, 1).BetNbr = 1, RF.Racer(1, 1).RacerName = "A";
    RF.Racer(1, 2).BetNbr = 2, RF.Racer(1, 2).RacerName = "B";
    for (int i = 1; i <= 2; ++i) {
        BetRec& b = RF.Bet(1, i);
        b.BetType = 4;
        b.Pick(1) = 1, b.Pick(2) = 2;
        b.BetAmt = Currency::FromRaw(INT64_MAX / 2 + 1);
        b.BetCost = b.BetAmt;
    }
    PairOdds fast, slow;
    EXPECT_EQ(ErrorOf([&] { CalcExactaOdds(1, fast); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([&] { literal::CalcExactaOdds(1, slow); }), kErrOverflow);
    EXPECT_EQ(ErrorOf([&] { CalcDoubleOdds(21, fast); }), kErrSubscript);
}

}  // namespace
}  // namespace tt::test
