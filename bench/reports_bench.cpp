// The bet listing and the race card report on the large card: the listing of every bet, one
// race of one bettor, and the twenty races of the card as printed lines.

#include <benchmark/benchmark.h>

#include "large_card.h"
#include "model/common.h"
#include "model/race_file.h"
#include "reports/list_bets_logic.h"

namespace {

using namespace tt;

void MakeCard() {
    ResetProcessState();
    bench::MakeLargeCard();
}

// Every bet of the card, sorted by ticket, with a separator between tickets.
void BM_ListAllBets(benchmark::State& state) {
    MakeCard();
    ListBetsLogic list;
    list.Form_Load();
    SelectByItemData(list.comRaceName, 0);
    list.comRaceName_Click();
    for (auto _ : state) {
        list.BuildBetList();
        benchmark::DoNotOptimize(list.flxBets.Rows());
    }
    state.counters["rows"] = list.flxBets.Rows() - 1;
}
BENCHMARK(BM_ListAllBets)->Unit(benchmark::kMillisecond);

// One race and one bettor.
void BM_ListRaceOfBettor(benchmark::State& state) {
    MakeCard();
    ListBetsLogic list;
    list.Form_Load();
    SelectByItemData(list.comRaceName, 7);
    list.comRaceName_Click();
    SelectByItemData(list.comBettor, 1234);
    list.comBettor_Click();
    for (auto _ : state) {
        list.BuildBetList();
        benchmark::DoNotOptimize(list.flxBets.Rows());
    }
    state.counters["rows"] = list.flxBets.Rows() - 1;
}
BENCHMARK(BM_ListRaceOfBettor)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
