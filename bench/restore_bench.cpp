// Restore from the recovery file on the large card: its log of 200,000 records (every bet of
// the card's 60,000 tickets, logged as the betting window logs a new ticket) loaded into the
// restore grid, every row marked, and every row restored, over the card itself and into the
// card as it stood before its first ticket; and 5,000 bettors brought in from another file.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "files/import_bettors.h"
#include "files/import_bettors_logic.h"
#include "files/race_file_io.h"
#include "files/restore_logic.h"
#include "large_card.h"
#include "memory_files.h"
#include "model/race_file.h"

namespace {

using namespace tt;

constexpr const char* kLog = "/mem/day.tlr";
constexpr const char* kOther = "/mem/last-season.tly";
constexpr const char* kOtherLarge = "/mem/last-season-large.tly";

// Every question answered Yes, nothing shown.
class Answers : public MessagePort {
  public:
    int Show(const MessageRequest& r) override {
        return r.buttons == Buttons::kYesNo || r.buttons == Buttons::kYesNoCancel ? kYes : kOK;
    }
    void Beep() override {}
};

// The import window run as the companion runs it: its proposals processed at once.
class ImportShell : public ShellPort {
  public:
    void SetBusy(bool) override {}
    void DoEvents() override {}
    void SetTitle(const std::string&) override {}
    void ShowMru(const std::array<std::string, 4>&) override {}
    void EnableFileGroup(bool) override {}
    void EnableRaceGroup(bool) override {}
    void CloseChildWindows() override {}
    void ShowLogo() override {}
    void ShowForm(const std::string& name, bool) override {
        if (name != "frmImportBettors") return;
        ImportBettorsLogic logic;
        logic.Form_Load();
        rows = logic.flxBettor.Rows() - 1;
        logic.cmdOK_Click();
    }
    void UnloadForm(const std::string&) override {}
    bool IsFormLoaded(const std::string&) override { return false; }
    std::string StatusText() override { return {}; }
    void UnloadDisplays(bool) override {}
    int rows = 0;
};

struct World {
    bench::MemoryFileSystem files;
    Answers answers;
    ImportShell shell;
    std::unique_ptr<PortsScope> scope;
    RaceFile card;
    std::size_t logRows = 0;

    World() {
        Ports p;
        p.files = &files;
        p.message = &answers;
        p.shell = &shell;
        scope = std::make_unique<PortsScope>(p);
        ResetProcessState();

        // Last season: the same 5,000 bettors, every other one under a new name, the rest with
        // a new e-mail; once with no bets, once on the whole large card.
        bench::MakeLargeCard();
        for (std::int64_t b = 1; b <= RF.BettorCount; ++b) {
            BettorRec& bettor = RF.Bettor(b);
            if (b % 2 == 0)
                bettor.BettorName += " Jr";
            else
                bettor.BettorEmail = "new" + std::to_string(b) + "@mail";
        }
        files.Put(kOtherLarge, BuildRaceFileText(DateTime{2025, 9, 1, 18, 0, 0}));
        RF.Bet.ReDim(1);
        RF.MaxBets = 0;
        files.Put(kOther, BuildRaceFileText(DateTime{2025, 9, 1, 18, 0, 0}));

        bench::MakeLargeCard();
        RF.RecoveryFile = kLog;
        RF.RecoveryFlag = true;
        files.Put(kLog, LogOfTheCard());
        card = RF;
    }

    // Each ticket in turn, a second apart, its bets as new bets.
    std::string LogOfTheCard() {
        std::string out;
        const std::int64_t base = DateTime{2026, 5, 2, 12, 0, 0}.SecondsSinceEpoch();
        for (std::int64_t t = 1; t <= RF.TicketCount; ++t) {
            const TicketRec& tk = RF.Ticket(t);
            RecoveryRow row;
            row.When = DateTime::FromSecondsSinceEpoch(base + t);
            row.Action = "New ";
            row.TicketNbr = static_cast<std::int32_t>(t);
            row.Race = tk.TicketRace;
            row.Bettor = tk.TicketBettor;
            row.Collected = tk.Collected;
            row.Distributed = tk.Distributed;
            for (std::int64_t n = tk.FirstBet; n <= tk.LastBet; ++n) {
                const BetRec& b = RF.Bet(tk.TicketRace, n);
                if (b.TicketIdx != t) continue;
                row.BetAmt = b.BetAmt;
                row.BetType = b.BetType;
                row.Boxed = b.Boxed;
                row.BetCost = b.BetCost;
                for (int k = 1; k <= 6; ++k) row.Pick(k) = b.Pick(k);
                AppendRecoveryLine(out, row, RF.FileId);
                ++logRows;
            }
        }
        return out;
    }
};

World& TheWorld() {
    static World w;
    return w;
}

void BM_LoadRecoveryGrid(benchmark::State& state) {
    World& w = TheWorld();
    RF = w.card;
    for (auto _ : state) {
        RestoreLogic logic;
        if (!logic.LoadRecoveryGrid()) state.SkipWithError("the log could not be read");
        benchmark::DoNotOptimize(logic.flxRecovery.Rows());
    }
    state.counters["rows"] = static_cast<double>(w.logRows);
    state.counters["log_MB"] = static_cast<double>(w.files.Get(kLog).size()) / 1e6;
}
BENCHMARK(BM_LoadRecoveryGrid)->Unit(benchmark::kMillisecond);

// The records alone, read from the text of the log.
void BM_ReadRecoveryRows(benchmark::State& state) {
    World& w = TheWorld();
    RF = w.card;
    std::vector<RecoveryRow> rows;
    for (auto _ : state) {
        ReadRecoveryRows(w.files.Get(kLog), rows);
        benchmark::DoNotOptimize(rows.data());
    }
}
BENCHMARK(BM_ReadRecoveryRows)->Unit(benchmark::kMillisecond);

// Every row selected, Include, and the marks copied into the records, as Restore starts.
void BM_MarkEveryRow(benchmark::State& state) {
    World& w = TheWorld();
    RF = w.card;
    RestoreLogic logic;
    logic.LoadRecoveryGrid();
    for (auto _ : state) {
        logic.flxRecovery.SetRow(1);
        logic.flxRecovery.SetRowSel(logic.flxRecovery.Rows() - 1);
        logic.MarkRows("Yes");
        logic.SyncInclude();
    }
    state.counters["rows"] = static_cast<double>(logic.RecoveryRows.size());
}
BENCHMARK(BM_MarkEveryRow)->Unit(benchmark::kMillisecond);

// Every row put back into the large card: each ticket's version wipes its bets and each bet
// takes the first free slot of its race; then every ticket is summed again.
void BM_RestoreEveryRow(benchmark::State& state) {
    World& w = TheWorld();
    RF = w.card;
    RestoreLogic logic;
    logic.LoadRecoveryGrid();
    for (RecoveryRow& row : logic.RecoveryRows) row.Include = true;
    for (auto _ : state) {
        state.PauseTiming();
        RF = w.card;
        state.ResumeTiming();
        RestoreTickets(logic.RecoveryRows);
    }
    state.counters["rows"] = static_cast<double>(logic.RecoveryRows.size());
    state.counters["bet_slots"] = static_cast<double>(RF.MaxBets) * 20;
}
BENCHMARK(BM_RestoreEveryRow)->Unit(benchmark::kMillisecond);

// Every row put back into the card as it was before the race day, with its races and bettors
// but no tickets: each bet takes the first free slot of its race, and the slots grow one at a
// time, as after a crash with no save since the card was set up.
void BM_RestoreEveryRowIntoAnEmptyCard(benchmark::State& state) {
    World& w = TheWorld();
    RF = w.card;
    RestoreLogic logic;
    logic.LoadRecoveryGrid();
    for (RecoveryRow& row : logic.RecoveryRows) row.Include = true;
    RaceFile empty = w.card;
    empty.Bet.ReDim(1);
    empty.MaxBets = 0;
    empty.Ticket.ReDim(1);
    empty.TicketCount = 0;
    for (auto _ : state) {
        state.PauseTiming();
        RF = empty;
        state.ResumeTiming();
        RestoreTickets(logic.RecoveryRows);
    }
    state.counters["rows"] = static_cast<double>(logic.RecoveryRows.size());
    state.counters["MaxBets"] = static_cast<double>(RF.MaxBets);
}
BENCHMARK(BM_RestoreEveryRowIntoAnEmptyCard)->Unit(benchmark::kMillisecond);

// 5,000 bettors read from another file and processed with the window's proposals: half new,
// half with a new e-mail.
void Import(benchmark::State& state, const char* path) {
    World& w = TheWorld();
    RF = w.card;
    const Table1<BettorRec> bettors = RF.Bettor;
    const Int16 count = RF.BettorCount;
    ImportPath = path;
    for (auto _ : state) {
        state.PauseTiming();
        RF.Bettor = bettors;
        RF.BettorCount = count;
        state.ResumeTiming();
        ReadImportFile();
        if (RF.BettorCount != 7500) state.SkipWithError("the bettors were not brought in");
    }
    state.counters["grid_rows"] = w.shell.rows;
    state.counters["file_MB"] = static_cast<double>(w.files.Get(path).size()) / 1e6;
}

void BM_ImportBettors(benchmark::State& state) {
    Import(state, kOther);
}
BENCHMARK(BM_ImportBettors)->Unit(benchmark::kMillisecond);

// The same bettors from a file that also holds the 200,000 bets of a large card.
void BM_ImportBettorsFromLargeCard(benchmark::State& state) {
    Import(state, kOtherLarge);
}
BENCHMARK(BM_ImportBettorsFromLargeCard)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
