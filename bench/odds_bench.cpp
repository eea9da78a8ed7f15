// Pools and odds on the large card: every grid of a race worked out as Display Odds shows it,
// each odds table on its own, and a refresh of the board on screen: the figures worked out
// afresh, the window and its board brought up to date, and the board painted.
//
// The board needs a display: unless QT_QPA_PLATFORM names one, it runs offscreen on one screen
// of 1920 x 1080, the board full screen on it.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QScreen>

#include "large_card.h"
#include "model/grid_data.h"
#include "model/race_file.h"
#include "payouts/forms/frm_display_odds.h"
#include "payouts/forms/odds_board.h"
#include "payouts/odds_grids.h"
#include "payouts/pools_odds.h"

namespace {

using namespace tt;

// A race in the middle: both of its doubles exist, and it has no result yet.
constexpr int kRace = 15;
constexpr int kItems[] = {kOddsPools, 1, 2, 3, 4, kOddsDoubleFromHere, kOddsDoubleIntoHere};

void LargeCard() {
    static bool made = false;
    if (made) return;
    ResetProcessState();
    bench::MakeLargeCard();
    made = true;
}

std::int64_t RaceBets(int race) {
    std::int64_t n = 0;
    for (std::int64_t i = 1; i <= RF.MaxBets; ++i) n += RF.Bet(race, i).BetType != 0 ? 1 : 0;
    return n;
}

// Pools, Win, Place, Show, Exacta and both doubles of one race, each grid built and sorted.
void BM_EveryGridOfARace(benchmark::State& state) {
    LargeCard();
    GridData grid;
    for (auto _ : state) {
        for (int item : kItems) {
            FillOddsGrid(kRace, item, grid);
            benchmark::DoNotOptimize(grid.TextMatrix(1, 0));
        }
    }
    state.counters["race_bets"] = static_cast<double>(RaceBets(kRace));
    state.counters["max_bets"] = static_cast<double>(RF.MaxBets);
}
BENCHMARK(BM_EveryGridOfARace)->Unit(benchmark::kMillisecond);

// The arithmetic alone, one table at a time.
void BM_OddsTable(benchmark::State& state) {
    LargeCard();
    PoolTotals totals;
    RacerOdds racers;
    PairOdds pairs;
    for (auto _ : state) {
        switch (state.range(0)) {
            case 0:
                CalcPoolTotals(kRace, totals);
                break;
            case 1:
                CalcWinOdds(kRace, racers);
                break;
            case 2:
                CalcPlaceShowOdds(kRace, racers, 2);
                break;
            case 4:
                CalcExactaOdds(kRace, pairs);
                break;
            case 6:
                CalcDoubleOdds(kRace, pairs);
                break;
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_OddsTable)
    ->ArgName("table")
    ->Arg(0)
    ->Arg(1)
    ->Arg(2)
    ->Arg(4)
    ->Arg(6)
    ->Unit(benchmark::kMicrosecond);

// One refresh of the board on a 1920 x 1080 screen, for each grid: what a tick of Auto Run does
// on the GUI thread when it moves on to a grid.
void BM_BoardRefresh(benchmark::State& state) {
    LargeCard();
    RF.DefaultRace = kRace;
    gui::frmDisplayOdds window;
    window.show();
    window.SetBoard(true);
    gui::OddsBoard* board = window.Board();
    window.logic.comBetType.SetListIndex(static_cast<int>(
        std::find(std::begin(kItems), std::end(kItems), state.range(0)) - std::begin(kItems)));
    QApplication::processEvents();
    for (auto _ : state) {
        window.RefreshContents();
        board->repaint();
    }
    state.counters["rows"] = window.logic.flxOdds.Rows() - 1;
    state.counters["rows_per_page"] = board->RowsPerPage();
    state.counters["board_height"] = board->height();
    window.SetBoard(false);
}
BENCHMARK(BM_BoardRefresh)
    ->ArgName("item")
    ->Arg(kOddsPools)
    ->Arg(1)
    ->Arg(2)
    ->Arg(3)
    ->Arg(4)
    ->Arg(kOddsDoubleFromHere)
    ->Arg(kOddsDoubleIntoHere)
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    const QString config = QDir::temp().filePath(
        QString("tally-bench-screen-%1.json").arg(QCoreApplication::applicationPid()));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        QFile f(config);
        if (f.open(QIODevice::WriteOnly))
            f.write(R"({"screens": [{"name": "Board", "x": 0, "y": 0, "width": 1920,)"
                    R"( "height": 1080, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
        qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + config).toLocal8Bit());
    }
    QApplication app(argc, argv);
    QFile::remove(config);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
