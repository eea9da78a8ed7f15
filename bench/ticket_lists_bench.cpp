// Opening the ticket window on the large card: the list of tickets to edit, for one race and
// for every race without results, and the list of tickets with money due, for every race. Each
// is built once per opening and again whenever the race or bettor changes.
//
// And `tally sell` end to end on the same card saved to disk (read, one ticket of three bets
// sold, finished, saved) beside `tally resave` of it, which reads and saves alone.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "betting/betting_state.h"
#include "betting/ticket_header_logic.h"
#include "cli/companion.h"
#include "files/race_file_io.h"
#include "large_card.h"
#include "model/ports.h"
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

// The large card on disk, written once.
const std::string& CardOnDisk() {
    static const std::string path = [] {
        Card();
        const std::string p =
            (std::filesystem::temp_directory_path() / "tally-bench-betting.tly").string();
        std::ofstream(p, std::ios::binary) << BuildRaceFileText(DateTime{2026, 5, 2, 14, 30, 0});
        return p;
    }();
    return path;
}

void RunTally(benchmark::State& state, const std::vector<std::string>& args) {
    for (auto _ : state) {
        std::ostringstream out, err;
        const int rc = cli::RunTally(args, out, err);
        if (rc != 0) {
            state.SkipWithError(("tally " + args[0] + ": " + err.str()).c_str());
            break;
        }
    }
    std::error_code ec;
    state.counters["file_MB"] =
        static_cast<double>(std::filesystem::file_size(CardOnDisk(), ec)) / 1e6;
}

std::string OutPath() {
    return (std::filesystem::temp_directory_path() / "tally-bench-betting-out.tly").string();
}

void BM_TallyResave(benchmark::State& state) {
    RunTally(state, {"resave", CardOnDisk(), "-o", OutPath()});
}
BENCHMARK(BM_TallyResave)->Unit(benchmark::kMillisecond);

// A Win, an Exacta boxed on three and an Across the Board bet in race 11, which has no results.
void BM_TallySell(benchmark::State& state) {
    RunTally(state, {"sell", CardOnDisk(), "--race", "11", "--bettor", "Bettor 17", "--bet",
                     "2 W 3", "--bet", "2 E 1,4,7 box", "--bet", "4 A 9", "-o", OutPath()});
}
BENCHMARK(BM_TallySell)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    std::remove(CardOnDisk().c_str());
    std::remove(OutPath().c_str());
    std::remove((OutPath().substr(0, OutPath().size() - 3) + "bkp").c_str());
    return 0;
}
