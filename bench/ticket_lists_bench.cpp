// Opening the ticket window on the large card: the list of tickets to edit, for one race and
// for every race without results, and the list of tickets with money due, for every race. Each
// is built once per opening and again whenever the race or bettor changes.

#include <benchmark/benchmark.h>

#include "betting/betting_state.h"
#include "betting/ticket_header_logic.h"
#include "large_card.h"
#include "model/race_file.h"

namespace {

using namespace tt;

void Card() {
    static bool made = false;
    if (made) return;
    ResetProcessState();
    ResetBettingState();
    bench::MakeLargeCard();
    made = true;
}

void Rows(benchmark::State& state, const TicketHeaderLogic& h) {
    state.counters["rows"] = h.flxBets.Rows() - 1;
    state.counters["tickets"] = static_cast<double>(RF.TicketCount.Value());
}

// The window opened on the first race without results.
void BM_OpenEditList_OneRace(benchmark::State& state) {
    Card();
    Betting.TicketMode = kEditTicket;
    for (auto _ : state) {
        G.CurrentRace = 11;
        G.CurrentBettor = 0;
        TicketHeaderLogic h;
        h.Form_Load();
        benchmark::DoNotOptimize(h.flxBets.Rows());
        state.PauseTiming();
        Rows(state, h);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenEditList_OneRace)->Unit(benchmark::kMillisecond);

// Opened, then " All w/out Results" chosen: both lists are built.
void BM_OpenEditList_AllRaces(benchmark::State& state) {
    Card();
    Betting.TicketMode = kEditTicket;
    for (auto _ : state) {
        G.CurrentRace = 11;
        G.CurrentBettor = 0;
        TicketHeaderLogic h;
        h.Form_Load();
        h.comRaceName.Select(0);
        h.comRaceName_Click();
        benchmark::DoNotOptimize(h.flxBets.Rows());
        state.PauseTiming();
        Rows(state, h);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenEditList_AllRaces)->Unit(benchmark::kMillisecond);

// Cash/Collect opened with no race chosen: every ticket with money due.
void BM_OpenCashList_AllRaces(benchmark::State& state) {
    Card();
    Betting.TicketMode = kCashTicket;
    for (auto _ : state) {
        G.CurrentRace = 0;
        G.CurrentBettor = 0;
        TicketHeaderLogic h;
        h.Form_Load();
        benchmark::DoNotOptimize(h.flxBets.Rows());
        state.PauseTiming();
        Rows(state, h);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenCashList_AllRaces)->Unit(benchmark::kMillisecond);

// One bettor chosen in the open Cash window: the list is built again.
void BM_CashList_OneBettor(benchmark::State& state) {
    Card();
    Betting.TicketMode = kCashTicket;
    G.CurrentRace = 0;
    G.CurrentBettor = 0;
    TicketHeaderLogic h;
    h.Form_Load();
    for (auto _ : state) {
        h.comBettor.Select(1);
        h.comBettor_Click();
        benchmark::DoNotOptimize(h.flxBets.Rows());
    }
    Rows(state, h);
}
BENCHMARK(BM_CashList_OneBettor)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
