#include "payouts/odds_grids.h"

#include <array>
#include <vector>

#include "model/common.h"
#include "model/number_text.h"
#include "model/race_file.h"
#include "payouts/pools_odds.h"

namespace tt {

namespace {

struct Column {
    std::string head;
    int width;
    CellAlign align = CellAlign::kGeneral;
};

// The grid set to its header and n data rows, at least one: the grid must keep a row below the
// fixed one.
void Shape(GridData& grid, const std::vector<Column>& cols, int n) {
    grid.SetRows(1);
    grid.SetCols(static_cast<int>(cols.size()));
    grid.Clear();
    grid.SetFixedRows(1);
    grid.SetFixedCols(1);
    grid.SetRows(1 + std::max(n, 1));
    for (int c = 0; c < static_cast<int>(cols.size()); ++c) {
        const Column& col = cols[static_cast<std::size_t>(c)];
        grid.SetTextMatrix(0, c, col.head);
        grid.SetColWidth(c, col.width);
        grid.SetColAlignment(c, col.align);
    }
    grid.SetTopRow(1);
}

// Rows first to last on the hidden last column, by the grid's generic sort.
void SortOnKey(GridData& grid, int first, int last) {
    if (last > first) grid.SortAscending(first, last, grid.Cols() - 1, grid.Cols() - 1);
}

std::string BetNbrCell(const RacerRec& r) {
    return PadNumber(NumText(r.BetNbr.Value()), 5);
}

// A racer of a pair: its number, " - ", its name.
std::string PairRacerCell(const RacerRec& r) {
    return BetNbrCell(r) + " - " + r.RacerName;
}

std::string OddsOrMark(bool scratched, double odds) {
    if (scratched) return " Scratched";
    if (odds < 0) return "No Bets";
    return OddsCellText(odds);
}

// The named slots of a race, with their sort labels.
struct Named {
    int slot;
    std::string key;
};
std::vector<Named> NamedRacers(int race) {
    std::vector<Named> v;
    for (int n = 1; n <= RF.MaxRacers; ++n)
        if (!RF.Racer(race, n).RacerName.empty()) v.push_back({n, RacerShortLabel(race, n)});
    return v;
}

bool Offered(int race, int type) {
    return bool(RF.Race(race).BetType(type));
}

}  // namespace

std::string OddsCellText(double odds) {
    auto [num, den] = OddsToFraction(odds);
    return " " + num + " - " + den;
}

void FillPoolsGrid(int race, GridData& grid) {
    PoolTotals totals;
    CalcPoolTotals(race, totals);
    const int total = totals.TotalSlot();
    const std::vector<Named> racers = NamedRacers(race);

    bool invalid = false;
    for (int t = 1; t <= 3; ++t) invalid = invalid || !totals(t, 0).IsZero();
    int others = 0;
    for (int t = Code(BetType::kExacta); t <= kBetTypes; ++t) others += Offered(race, t) ? 1 : 0;
    const int n = (invalid ? 1 : 0) + static_cast<int>(racers.size()) + 1 + others;

    Shape(grid,
          {{"Bet#", 450},
           {RF.RaceType + " Name", 1600},
           {"Win", 800, CellAlign::kRight},
           {"Place", 800, CellAlign::kRight},
           {"Show", 800, CellAlign::kRight},
           {"", 0}},
          n);
    auto money = [&](int row, int slot) {
        for (int t = 1; t <= 3; ++t)
            if (Offered(race, t)) grid.SetTextMatrix(row, 1 + t, MoneyText(totals(t, slot)));
    };

    int row = 1;
    if (invalid) {
        grid.SetTextMatrix(row, 1, "Invalid bets");
        money(row++, 0);
    }
    const int firstRacer = row;
    for (const Named& r : racers) {
        grid.SetTextMatrix(row, 0, BetNbrCell(RF.Racer(race, r.slot)));
        grid.SetTextMatrix(row, 1, RacerLongLabel(race, r.slot));
        money(row, r.slot);
        grid.SetTextMatrix(row, 5, r.key);
        grid.SetRowData(row++, r.slot);
    }
    const int lastRacer = row - 1;
    SortOnKey(grid, firstRacer, lastRacer);

    // A field shows its money once.
    if (RF.RacerSort == "Betting Number") {
        for (int r = lastRacer; r > firstRacer; --r)
            if (grid.TextMatrix(r, 0) == grid.TextMatrix(r - 1, 0))
                for (int c = 2; c <= 4; ++c) grid.SetTextMatrix(r, c, "");
    }

    grid.SetTextMatrix(row, 1, "Totals:");
    money(row++, total);
    for (int t = Code(BetType::kExacta); t <= kBetTypes; ++t) {
        if (!Offered(race, t)) continue;
        grid.SetTextMatrix(row, 1, G.BetTypeName(t) + " Totals:");
        grid.SetTextMatrix(row++, 2, MoneyText(totals(t, total)));
    }
}

void FillRacerOddsGrid(int race, int betType, GridData& grid) {
    RacerOdds odds;
    if (betType == Code(BetType::kWin))
        CalcWinOdds(race, odds);
    else
        CalcPlaceShowOdds(race, odds, betType);
    const std::vector<Named> racers = NamedRacers(race);
    Shape(grid,
          {{"Bet#", 450},
           {RF.RaceType + " Name", 2000},
           {betType == Code(BetType::kWin) ? "Cur Odds" : "Avg Odds", 1000, CellAlign::kCenter},
           {"Hcap Odds", 1000, CellAlign::kCenter},
           {"", 0}},
          static_cast<int>(racers.size()));
    int row = 1;
    for (const Named& r : racers) {
        const RacerRec& rec = RF.Racer(race, r.slot);
        grid.SetTextMatrix(row, 0, BetNbrCell(rec));
        grid.SetTextMatrix(row, 1, RacerLongLabel(race, r.slot));
        grid.SetTextMatrix(row, 2, OddsOrMark(bool(rec.Scratched), odds(r.slot)));
        grid.SetTextMatrix(row, 3, OddsCellText(rec.Odds));
        grid.SetTextMatrix(row, 4, r.key);
        grid.SetRowData(row++, r.slot);
    }
    SortOnKey(grid, 1, row - 1);
}

namespace {

// The pair grids: racers of raceA down the first column, of raceB the second.
void FillPairGrid(int raceA, int raceB, bool sameRace, const PairOdds& odds, GridData& grid,
                  std::vector<Column> cols, const std::string& joint) {
    const std::vector<Named> as = NamedRacers(raceA);
    const std::vector<Named> bs = sameRace ? as : NamedRacers(raceB);
    std::vector<std::array<std::string, 4>> rows;
    rows.reserve(as.size() * bs.size());
    std::vector<std::string> cellsB;
    for (const Named& b : bs) cellsB.push_back(PairRacerCell(RF.Racer(raceB, b.slot)));
    for (const Named& a : as) {
        const RacerRec& ra = RF.Racer(raceA, a.slot);
        const std::string cellA = PairRacerCell(ra);
        for (std::size_t j = 0; j < bs.size(); ++j) {
            const RacerRec& rb = RF.Racer(raceB, bs[j].slot);
            // Two racers of one number are one pick: no pair of a number with itself.
            if (sameRace && ra.BetNbr == rb.BetNbr) continue;
            rows.push_back({cellA, cellsB[j],
                            OddsOrMark(ra.Scratched || rb.Scratched, odds(a.slot, bs[j].slot)),
                            a.key + joint + bs[j].key});
        }
    }
    Shape(grid, cols, static_cast<int>(rows.size()));
    int row = 1;
    for (auto& cells : rows) {
        for (int c = 0; c < 4; ++c)
            grid.SetTextMatrix(row, c, std::move(cells[static_cast<std::size_t>(c)]));
        ++row;
    }
    SortOnKey(grid, 1, row - 1);
}

}  // namespace

void FillExactaGrid(int race, GridData& grid) {
    PairOdds odds;
    CalcExactaOdds(race, odds);
    FillPairGrid(race, race, true, odds, grid,
                 {{"Win " + RF.RaceType, 1800},
                  {"Place " + RF.RaceType, 1800},
                  {"Cur Odds", 1000, CellAlign::kCenter},
                  {"", 0}},
                 std::string(9, ' '));
}

void FillDoubleGrid(int firstLeg, GridData& grid) {
    PairOdds odds;
    CalcDoubleOdds(firstLeg, odds);
    FillPairGrid(firstLeg, firstLeg + 1, false, odds, grid,
                 {{"Winner of Race" + Str(firstLeg), 1800},
                  {"Winner or Race " + Str(firstLeg + 1), 1800},
                  {"Cur Odds", 1000, CellAlign::kCenter},
                  {"", 0}},
                 std::string(10, ' '));
}

void FillOddsGrid(int race, int item, GridData& grid) {
    switch (item) {
        case kOddsPools:
            FillPoolsGrid(race, grid);
            return;
        case kOddsDoubleFromHere:
            FillDoubleGrid(race, grid);
            return;
        case kOddsDoubleIntoHere:
            FillDoubleGrid(race - 1, grid);
            return;
        case 4:
            FillExactaGrid(race, grid);
            return;
        default:
            FillRacerOddsGrid(race, item, grid);
            return;
    }
}

}  // namespace tt
