// The List Bets window over every bet of the large card: the listing rebuilt and shown through
// its table model, as the window does each time it comes to the front.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>

#include "large_card.h"
#include "model/common.h"
#include "model/race_file.h"
#include "reports/forms/frm_list_bets.h"

namespace {

using namespace tt;

void BM_ListBetsWindowAllBets(benchmark::State& state) {
    ResetProcessState();
    bench::MakeLargeCard();
    gui::frmListBets window;
    window.resize(1200, 800);
    window.show();
    SelectByItemData(window.logic.comRaceName, 0);
    window.logic.comRaceName_Click();
    for (auto _ : state) {
        window.logic.Form_Activate();
        window.Refresh();
        QApplication::processEvents();
    }
    state.counters["rows"] = window.logic.flxBets.Rows() - 1;
}
BENCHMARK(BM_ListBetsWindowAllBets)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
