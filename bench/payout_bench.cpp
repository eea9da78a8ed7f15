// The settlement of one race in the middle of a large card, at three sizes of the card, to
// show that the work grows with the number of bets and no faster.

#include <benchmark/benchmark.h>

#include "large_card.h"
#include "model/race_file.h"
#include "payouts/payout_handling_logic.h"
#include "payouts/settle_race.h"

namespace {

using namespace tt;

constexpr int kRace = 10;

void BM_SettleRace(benchmark::State& state) {
    ResetProcessState();
    bench::CardShape shape;
    shape.bets = static_cast<int>(state.range(0));
    // Tickets in the same proportion to bets as on the large day.
    shape.tickets = shape.bets * 3 / 10;
    bench::MakeLargeCard(shape);
    for (auto _ : state) {
        SettleRace(kRace, DialogHandling());
        benchmark::DoNotOptimize(RF.Payout(kRace, 1, 1).PayRatio);
    }
    std::int64_t raceBets = 0;
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i)
        if (RF.Bet(kRace, i).BetType != 0) ++raceBets;
    state.counters["race_bets"] = static_cast<double>(raceBets);
    state.SetComplexityN(state.range(0));
}

BENCHMARK(BM_SettleRace)
    ->Arg(50000)
    ->Arg(100000)
    ->Arg(200000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

}  // namespace

BENCHMARK_MAIN();
