#include "files/restore_logic.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>

#include "model/common.h"
#include "model/number_text.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

namespace {

const char* const kMarkYes = "Yes";
const char* const kMarkNo = "No";

struct VersionHash {
    std::size_t operator()(const std::pair<std::int32_t, std::int64_t>& v) const {
        return std::hash<std::int64_t>()(v.second * 1000003 + v.first);
    }
};

// The whole recovery file named by the card; only a regular file, and only up to the log's
// size limit, is read.
std::string ReadRecoveryLog() {
    return ReadRecoveryText();
}

// Busy pointer for as long as it lives.
class BusyPointer {
  public:
    BusyPointer() { Shell().SetBusy(true); }
    ~BusyPointer() { Shell().SetBusy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

}  // namespace

RestoreLogic::RestoreLogic() {
    caption = "Restore from Recovery File";
    cmdInclude.text = "Include";
    cmdDoNotInclude.text = "Do Not Include";
    cmdOK.text = "Restore";
    cmdClear.text = "Clear Recovery File";
    cmdCancel.text = "Close";
    cmdCancel.toolTip = "Exit this window.";
    cmdHelp.text = "Help";
    lblInclude.text = "Select rows and set the 'Include?' column using the buttons above.";
    lblRestore.text = "Restore all tickets marked as \"Yes\" to the open Tamberlin Tally file.";
    lblClear.text = "Delete all tickets marked with \"Yes\" from your recovery file.";
    lblLastSave.text = "Last save date and time for current file:";
    FillGrid();
}

void RestoreLogic::Form_Load() {
    // A card that has never been saved has no save time to show.
    lblSaved.text = G.FileSaved == DateTime{} ? std::string() : G.FileSaved.Text();
    {
        // A long day's log takes a moment to read.
        BusyPointer busy;
        LoadRecoveryGrid();
    }
    flxRecovery.SetRow(0);
}

bool RestoreLogic::LoadRecoveryGrid() {
    CloseRecoveryChannel();
    RecoveryRows.clear();
    try {
        const std::string data = ReadRecoveryLog();
        if (ReadRecoveryRows(data, RecoveryRows) == RecoveryReadStatus::kWrongVersion) {
            WrongRecoveryVersion();
            RecoveryRows.clear();
            FillGrid();
            return false;
        }
        FillGrid();
        return true;
    } catch (const std::exception& e) {
        RecoveryRows.clear();
        FillGrid();
        AppError err = ToAppError(e);
        RecoveryFailure("processing", err.Number(), err.Text(), err.Source());
        return false;
    }
}

void RestoreLogic::FillGrid() {
    static const char* const kHeaders[kColumns] = {
        "Include?",  "Ticket#", "Date/Time", "Race", "Bettor",    "Action", "Coll'd",
        "Distrib'd", "Bet Amt", "Bet Type",  "Box",  "Bet Total", "Picks",  ""};
    // Widths in twips; the row index is hidden.
    static const int kWidths[kColumns] = {800, 800, 1900, 500, 1800, 650,  900,
                                          900, 900, 1100, 450, 900,  1300, 0};
    const int n = static_cast<int>(RecoveryRows.size());
    GridData g;
    g.SetCols(kColumns);
    g.SetRows(n + 1);
    g.SetFixedRows(1);
    g.SetFixedCols(0);
    for (int c = 0; c < kColumns; ++c) {
        g.SetTextMatrix(0, c, kHeaders[c]);
        g.SetColWidth(c, kWidths[c]);
    }
    // A log holds few distinct amounts, and the lines of one transaction share their time:
    // each text is made once.
    std::unordered_map<std::int64_t, std::string> dollars;
    auto dollar = [&](Currency c) -> const std::string& {
        auto [it, fresh] = dollars.try_emplace(c.Raw());
        if (fresh) it->second = DollarText(c);
        return it->second;
    };
    DateTime lastWhen{};
    std::string lastWhenText = lastWhen.Text();
    // Newest first: the grid is in the descending order of the row index, which the rows are
    // put in directly.
    for (int r = 1; r <= n; ++r) {
        const int i = n - r;
        const RecoveryRow& row = RecoveryRows[static_cast<std::size_t>(i)];
        if (row.When != lastWhen) {
            lastWhen = row.When;
            lastWhenText = row.When.Text();
        }
        g.SetTextMatrix(r, kInclude, kMarkNo);
        g.SetTextMatrix(r, kTicket, NumText(std::int64_t{row.TicketNbr}));
        g.SetTextMatrix(r, kDateTime, lastWhenText);
        g.SetTextMatrix(r, kRace, NumText(std::int64_t{row.Race}));
        g.SetTextMatrix(r, kBettor,
                        row.Bettor > RF.BettorCount ? std::string("Unknown Bettor")
                                                    : RF.Bettor(row.Bettor).BettorName);
        g.SetTextMatrix(r, kAction, row.Action);
        g.SetTextMatrix(r, kCollected, dollar(row.Collected));
        g.SetTextMatrix(r, kDistributed, dollar(row.Distributed));
        g.SetTextMatrix(r, kBetAmt, dollar(row.BetAmt));
        g.SetTextMatrix(r, kBetType, G.BetTypeName(row.BetType));
        g.SetTextMatrix(r, kBox, row.Boxed ? "X" : "");
        g.SetTextMatrix(r, kBetTotal, dollar(row.BetCost));
        std::string picks;
        for (int k = 1; k <= 6; ++k)
            if (row.Pick(k) != 0) {
                picks += ' ';
                picks += NumText(std::int64_t{row.Pick(k)});
            }
        g.SetTextMatrix(r, kPicks, std::move(picks));
        g.SetTextMatrix(r, kRowIndex, NumText(std::int64_t{i + 1}));
    }
    // The header centred cell by cell, the money columns to the right below it.
    CenterGridCells(g, 0, 0, 0, -1);
    for (int c : {kCollected, kDistributed, kBetAmt, kBetTotal})
        g.SetColAlignment(c, CellAlign::kRight);
    // Picks read as a list, whether one or several.
    g.SetColAlignment(kPicks, CellAlign::kLeft);
    flxRecovery = std::move(g);
}

RecoveryRow& RestoreLogic::RowOf(int gridRow) {
    const std::string& cell = flxRecovery.TextMatrix(gridRow, kRowIndex);
    std::size_t index = 0;
    auto [end, ec] = std::from_chars(cell.data(), cell.data() + cell.size(), index);
    if (ec != std::errc() || index < 1 || index > RecoveryRows.size()) Raise(kErrSubscript);
    return RecoveryRows[index - 1];
}

void RestoreLogic::MarkRows(const std::string& what) {
    const int rows = flxRecovery.Rows();
    const int r1 = std::min(flxRecovery.Row(), flxRecovery.RowSel());
    const int r2 = std::max(flxRecovery.Row(), flxRecovery.RowSel());
    // How often each version is met in the selection, a run of its rows counting once.
    std::unordered_map<std::pair<std::int32_t, std::int64_t>, int, VersionHash> times;
    std::pair<std::int32_t, std::int64_t> before{};
    bool first = true;
    for (int r = std::max(r1, 1); r <= r2 && r < rows; ++r) {
        const RecoveryRow& row = RowOf(r);
        const std::pair<std::int32_t, std::int64_t> version{row.TicketNbr,
                                                            row.When.SecondsSinceEpoch()};
        if (!first && version == before) continue;
        first = false;
        before = version;
        ++times[version];
    }
    if (times.empty()) return;
    const bool toggle = what == "Toggle";
    for (int r = 1; r < rows; ++r) {
        const RecoveryRow& row = RowOf(r);
        auto it = times.find({row.TicketNbr, row.When.SecondsSinceEpoch()});
        if (it == times.end()) continue;
        if (!toggle) {
            flxRecovery.SetTextMatrix(r, kInclude, what);
        } else if (it->second % 2 == 1) {
            const bool no = flxRecovery.TextMatrix(r, kInclude) == kMarkNo;
            flxRecovery.SetTextMatrix(r, kInclude, no ? kMarkYes : kMarkNo);
        }
    }
}

void RestoreLogic::MarkTicket(std::int32_t ticket) {
    for (int r = 1; r < flxRecovery.Rows(); ++r)
        if (RowOf(r).TicketNbr == ticket) flxRecovery.SetTextMatrix(r, kInclude, kMarkYes);
}

void RestoreLogic::SyncInclude() {
    // The last run of a ticket in the grid decides for all its rows.
    std::unordered_map<std::int32_t, bool> include;
    const std::string* before = &flxRecovery.TextMatrix(0, kTicket);
    for (int r = 1; r < flxRecovery.Rows(); ++r) {
        const std::string& ticket = flxRecovery.TextMatrix(r, kTicket);
        if (ticket != *before)
            include[RowOf(r).TicketNbr] = flxRecovery.TextMatrix(r, kInclude) == kMarkYes;
        before = &ticket;
    }
    for (RecoveryRow& row : RecoveryRows) {
        auto it = include.find(row.TicketNbr);
        if (it != include.end()) row.Include = it->second;
    }
}

bool RestoreLogic::AnyMarked() const {
    for (int r = 1; r < flxRecovery.Rows(); ++r)
        if (flxRecovery.TextMatrix(r, kInclude) == kMarkYes) return true;
    return false;
}

void RestoreLogic::cmdOK_Click() {
    if (!AnyMarked()) {
        Beep();
        MsgBox(JoinParts({"No tickets selected to include in recovery.",
                          "Please change the desired records to be restored to",
                          "say 'Yes' in the Include column."}),
               Buttons::kOK, Icon::kExclamation);
        return;
    }
    SyncInclude();
    RestoreMarkedRows(RecoveryRows, confirm);
}

void RestoreLogic::cmdClear_Click() {
    if (!AnyMarked()) {
        Beep();
        MsgBox(JoinParts({"No tickets selected to include in clear process.",
                          "Please change the desired records to be restored to",
                          "say 'Yes' in the Include column."}),
               Buttons::kOK, Icon::kExclamation);
        return;
    }
    if (MsgBox(JoinParts({"All rows with marked with 'Yes' are about to be deleted from the "
                          "recovery file.",
                          "Do you want to continue?"}),
               Buttons::kOKCancel) != kOK)
        return;
    std::int64_t written = 0;
    {
        BusyPointer busy;
        SyncInclude();
        // Every record of another card goes too: only this card's records are kept in memory.
        std::string out;
        for (const RecoveryRow& row : RecoveryRows) {
            if (row.Include) continue;
            AppendRecoveryLine(out, row, RF.FileId);
            ++written;
        }
        if (!RewriteRecoveryLog(out)) return;
    }
    const std::int64_t before = flxRecovery.Rows() - 1;
    {
        BusyPointer busy;
        LoadRecoveryGrid();
    }
    Beep();
    MsgBox("Clear process has been completed." + std::string(kCrLf) + Str(before - written) +
           " were deleted.");
}

}  // namespace tt
