// The bet listing and the race card report on the large card: the listing of every bet, one
// race of one bettor, and the twenty races of the card as printed lines.

#include <benchmark/benchmark.h>

#include <sstream>

#include "large_card.h"
#include "model/common.h"
#include "model/race_file.h"
#include "reports/list_bets_logic.h"
#include "reports/report_writer.h"
#include "reports/text_printer.h"

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

// The same into a grid of its own, as when the window opens: every cell newly made.
void BM_ListAllBetsNewGrid(benchmark::State& state) {
    MakeCard();
    ListBetsLogic list;
    list.Form_Load();
    SelectByItemData(list.comRaceName, 0);
    list.comRaceName_Click();
    for (auto _ : state) {
        state.PauseTiming();
        list.flxBets.SetRows(1);
        state.ResumeTiming();
        list.BuildBetList();
        benchmark::DoNotOptimize(list.flxBets.Rows());
    }
    state.counters["rows"] = list.flxBets.Rows() - 1;
}
BENCHMARK(BM_ListAllBetsNewGrid)->Unit(benchmark::kMillisecond);

// One race and one bettor: the bettor of a ticket of race 7.
void BM_ListRaceOfBettor(benchmark::State& state) {
    MakeCard();
    std::int64_t t = 1;
    while (RF.Ticket(t).TicketRace != 7) ++t;
    ListBetsLogic list;
    list.Form_Load();
    SelectByItemData(list.comRaceName, 7);
    list.comRaceName_Click();
    SelectByItemData(list.comBettor, RF.Ticket(t).TicketBettor);
    list.comBettor_Click();
    for (auto _ : state) {
        list.BuildBetList();
        benchmark::DoNotOptimize(list.flxBets.Rows());
    }
    state.counters["rows"] = list.flxBets.Rows() - 1;
}
BENCHMARK(BM_ListRaceOfBettor)->Unit(benchmark::kMillisecond);

// The race card with results of the twenty races, laid out line by line for the printer.
void BM_RaceCardReport(benchmark::State& state) {
    MakeCard();
    std::ostringstream text;
    TextPrinter printer(text);
    for (auto _ : state) {
        text.str({});
        PrintReport(printer, {.report = 1, .fontSize = 8});
        printer.EndDoc();
        benchmark::DoNotOptimize(text.tellp());
    }
    state.counters["bytes"] = static_cast<double>(text.tellp());
}
BENCHMARK(BM_RaceCardReport)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
