#include "model/common.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cmath>
#include <thread>

#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

std::string TrimBlanks(std::string_view text) {
    const std::size_t b = text.find_first_not_of(' ');
    if (b == std::string_view::npos) return {};
    return std::string(text.substr(b, text.find_last_not_of(' ') - b + 1));
}

namespace {
int Lower(char c) {
    return std::tolower(static_cast<unsigned char>(c));
}
}  // namespace

bool EqualNoCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return Lower(x) == Lower(y); });
}

bool LessNoCase(std::string_view a, std::string_view b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return Lower(x) < Lower(y); });
}

double RoundPlaces(double value, std::int16_t places) {
    if (places >= 0) {
        double p = std::pow(10.0, places);
        return std::floor(value / p + 0.5) * p;
    }
    double p = std::pow(10.0, -places);
    return std::floor(value * p + 0.5) / p;
}

int KeepChangesQuestion(bool changed, const std::string& formCaption, std::string message) {
    if (message.empty()) message = "Do you wish to keep your changes?";
    if (!changed) return 0;
    Beep();
    return MsgBox(message, Buttons::kYesNoCancel, Icon::kNone, formCaption);
}

void KeepChangesOnUnload(bool changed, const std::string& formCaption, bool& cancel,
                         const std::function<void()>& ok) {
    switch (KeepChangesQuestion(changed, formCaption)) {
        case kCancel:
            cancel = true;
            return;
        case kYes:
            ok();
            if (G.CancelFlag) cancel = true;
            return;
        default:
            return;
    }
}

int NumericKeyFilter(int key, bool allowMinus) {
    if (key < 33 || key == 46 || (key >= 48 && key <= 57) || key >= 128) return key;
    if (key == 45 && allowMinus) return key;
    Beep();
    return 0;
}

void WaitSeconds(double n) {
    if (n <= 0) return;
    std::int64_t start = Clock().MonotonicMs();
    std::int64_t wait = static_cast<std::int64_t>(n * 1000.0);
    while (Clock().MonotonicMs() - start < wait) {
        Shell().DoEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void SelectByItemData(ListData& list, std::int64_t value) {
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.ItemData(i) == value) {
            list.SetListIndex(i);
            return;
        }
    }
    list.SetListIndex(-1);
}

void BuildRaceCombo(ListData& list, bool withAll) {
    list.Clear();
    if (withAll) list.AddItem("All Races", 0);
    for (int r = 1; r <= kMaxRace; ++r) {
        if (RaceExists(r)) list.AddItem(PadNumber(Str(r), 5) + " - " + RF.Race(r).RaceName, r);
    }
    MakeDefaultRaceValid();
    G.CurrentRace = RF.DefaultRace;
    SelectByItemData(list, RF.DefaultRace);
}

void BuildBetTypeCombo(ListData& list, bool withAll, bool withPools, bool withAcrossTheBoard,
                       bool withPriorDouble, int race) {
    list.Clear();
    if (withAll) list.AddItem("All Bet Types", 0);
    if (withPools) list.AddItem("Betting Pools", 99);
    bool firstThree = true;
    for (int t = 1; t <= kBetTypes; ++t) {
        bool offered = race == 0 || bool(RF.Race(race).BetType(t));
        if (offered) list.AddItem(G.BetTypeName(t), t);
        if (IsWinPlaceShow(BetTypeOf(t)) && !offered) firstThree = false;
        // Across the Board stands behind Show, when Win, Place and Show are all offered.
        if (BetTypeOf(t) == BetType::kShow && withAcrossTheBoard && firstThree)
            list.AddItem("Across the Board", kAcrossTheBoard);
    }
    if (withPriorDouble &&
        (race == 0 || bool(RF.Race(race - 1).BetType(Code(BetType::kDailyDouble)))))
        list.AddItem("Daily Double (prior race)", 62);
    list.SetListIndex(list.ListCount() > 0 ? 0 : -1);
}

namespace {
void AlignBlock(GridData& grid, int row1, int row2, int col1, int col2, CellAlign a) {
    const int lastRow = grid.Rows() - 1, lastCol = grid.Cols() - 1;
    if (lastRow < 0 || lastCol < 0) return;
    if (row1 < 0) row1 = 0;
    if (col1 < 0) col1 = 0;
    if (row2 < 0 || row2 > lastRow) row2 = lastRow;
    if (col2 < 0 || col2 > lastCol) col2 = lastCol;
    // The block lies between the two corners, whichever comes first, as a grid selection
    // does; a first corner past the end reaches no further than the last cell.
    if (row1 > row2) std::swap(row1, row2);
    if (col1 > col2) std::swap(col1, col2);
    row2 = std::min(row2, lastRow);
    col2 = std::min(col2, lastCol);
    for (int r = row1; r <= row2; ++r)
        for (int c = col1; c <= col2; ++c) grid.SetCellAlignment(r, c, a);
}
}  // namespace

void CenterGridCells(GridData& grid, int row1, int row2, int col1, int col2) {
    AlignBlock(grid, row1, row2, col1, col2, CellAlign::kCenter);
}

void RightGridCells(GridData& grid, int row1, int row2, int col1, int col2) {
    AlignBlock(grid, row1, row2, col1, col2, CellAlign::kRight);
}

double FractionToOdds(const std::string& numerator, const std::string& denominator) {
    double n = Val(numerator), d = Val(denominator);
    if (n == 0 || d == 0) return 0;
    return n / d;
}

std::pair<std::string, std::string> OddsToFraction(double odds) {
    if (odds == 0) return {" 0", "0"};
    if (odds >= 5) return {Str(std::floor(odds + 0.5)), " 1"};
    std::int16_t t = RoundToInt16(std::floor(odds * 10 + 0.5));
    // The fraction is taken in single precision: for t = 29 it is not equal to 0.9.
    float q = static_cast<float>(t) / 10.0f;
    float f = q - std::floor(q);
    int d;
    if (f == 0.0f || f == 0.9f) {
        d = 1;
    } else if (odds >= 2) {
        d = (f >= 0.25f && f <= 0.75f) ? 2 : 1;
    } else {
        d = f == 0.5f ? 2 : 5;
    }
    return {Str(std::floor(d * static_cast<double>(t) / 10.0 + 0.5)),
            Str(static_cast<std::int64_t>(d))};
}

std::string PadNumber(const std::string& text, std::int16_t& width) {
    if (width > 12) width = 12;
    const std::string t = TrimBlanks(text);
    int i = 1;
    while (static_cast<std::size_t>(i) <= t.size() && t[static_cast<std::size_t>(i - 1)] >= '0' &&
           t[static_cast<std::size_t>(i - 1)] <= '9')
        ++i;
    if (i < width) return std::string(static_cast<std::size_t>(width - i), ' ') + t;
    return text + " ";
}

namespace {
enum class SortKind { kBetNbr, kProgram, kPost, kName, kOther };
SortKind CurrentSort() {
    const std::string& s = RF.RacerSort;
    if (s == "Betting Number") return SortKind::kBetNbr;
    if (s == "Program Number") return SortKind::kProgram;
    if (s == "Post Position") return SortKind::kPost;
    if (s == "Name") return SortKind::kName;
    return SortKind::kOther;
}
}  // namespace

std::string RacerShortLabel(int race, int slot) {
    const RacerRec& r = RF.Racer(race, slot);
    switch (CurrentSort()) {
        case SortKind::kBetNbr:
            if (RF.UseProgramNbr)
                return PadNumber(Str(r.BetNbr.Value()), 5) + PadNumber(r.ProgramNbr, 5);
            if (RF.UsePostPosition)
                return PadNumber(Str(r.BetNbr.Value()), 5) + PadNumber(r.PostPosition, 5);
            return PadNumber(Str(r.BetNbr.Value()), 5);
        case SortKind::kProgram:
            return PadNumber(r.ProgramNbr, 5);
        case SortKind::kPost:
            return PadNumber(r.PostPosition, 5);
        case SortKind::kName:
            return r.RacerName;
        case SortKind::kOther:
            break;
    }
    return std::string();
}

std::string RacerLongLabel(int race, int slot) {
    const RacerRec& r = RF.Racer(race, slot);
    switch (CurrentSort()) {
        case SortKind::kBetNbr:
            if (RF.UseProgramNbr) return PadNumber(r.ProgramNbr, 5) + " - " + r.RacerName;
            if (RF.UsePostPosition) return PadNumber(r.PostPosition, 5) + " - " + r.RacerName;
            return r.RacerName;
        case SortKind::kProgram:
            return PadNumber(r.ProgramNbr, 5) + " - " + r.RacerName;
        case SortKind::kPost:
            return PadNumber(r.PostPosition, 5) + " - " + r.RacerName;
        case SortKind::kName:
            return r.RacerName;
        case SortKind::kOther:
            break;
    }
    return std::string();
}

void MakeDefaultRaceValid() {
    if (RF.DefaultRace != 0 && RaceExists(RF.DefaultRace)) return;
    for (int r = RF.DefaultRace + 1; r <= kMaxRace; ++r) {
        if (RaceExists(r)) {
            RF.DefaultRace = r;
            return;
        }
    }
}

void SetCurrentRaceToDefault() {
    if (!(RF.DefaultRace != 0 && RaceExists(RF.DefaultRace))) MakeDefaultRaceValid();
    G.CurrentRace = RF.DefaultRace;
}

int LastFinishedRace() {
    for (int r = kMaxRace; r >= 1; --r)
        if (RaceFinished(r)) return r;
    return 0;
}

int RunnersInRace(int race) {
    if (race < 1 || race > kMaxRace) return 0;
    int count = 0;
    for (int n = 1; n <= RF.MaxRacers; ++n) {
        const RacerRec& r = RF.Racer(G.CurrentRace, n);
        if (!r.RacerName.empty() && !r.Scratched) ++count;
    }
    return count;
}

void ClearBet(int race, std::int64_t slot) {
    BetRec& b = RF.Bet(race, slot);
    b.BetAmt = Currency();
    b.BetCost = Currency();
    b.Boxed = false;
    for (int k = 1; k <= 6; ++k) b.Pick(k) = 0;
    b.BetType = 0;
}

void SumTickets(std::optional<int> race) {
    for (std::int64_t t = 1; t <= RF.TicketCount; ++t) {
        TicketRec& tk = RF.Ticket(t);
        if (race && (tk.TicketRace != *race || tk.TicketBettor == 0)) continue;
        tk.TicketCost = Currency();
        tk.Winnings = Currency();
        for (std::int64_t n = tk.FirstBet; n <= tk.LastBet; ++n) {
            const BetRec& b = RF.Bet(tk.TicketRace, n);
            if (b.TicketIdx == t && b.BetType != 0) {
                tk.TicketCost += b.BetCost;
                tk.Winnings += b.BetWinnings;
            }
        }
    }
}

}  // namespace tt
