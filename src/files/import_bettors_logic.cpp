#include "files/import_bettors_logic.h"

#include <unordered_map>
#include <unordered_set>

#include "files/import_bettors.h"
#include "model/number_text.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

namespace {

const char* const kAddAsNew = "Add as new";
const char* const kOverlay = "Overlay";
const char* const kNewData = "New Data";
const char* const kKeepCurrent = "Keep current";
const char* const kNoChange = "No change";

// The detail a flag column stands for.
std::string& Detail(BettorRec& b, int col) {
    switch (col) {
        case ImportBettorsLogic::kEmail:
            return b.BettorEmail;
        case ImportBettorsLogic::kPhone:
            return b.BettorPhone;
        default:
            return b.BettorInfo;
    }
}

bool Taken(const std::string& flag) {
    return flag == "Y" || flag == "ND";
}

std::int64_t IndexCell(const GridData& grid, int row, int col) {
    return static_cast<std::int64_t>(Val(grid.TextMatrix(row, col)));
}

}  // namespace

ImportBettorsLogic::ImportBettorsLogic() {
    caption = "Bring in Bettors from another File";
    cmdOK.text = "Process Bettors";
    cmdOK.toolTip = "Bring the displayed bettors into the open file.";
    cmdCancel.text = "Cancel";
    cmdCancel.toolTip = "Exit without performing import.";
    cmdHelp.text = "Help";
    lblBettorInfo.text = "Bettor info to be brought in:";
    lblInstructions.text = "Click on Action, E-mail, Phone, or Info flag to toggle those values.";
    lblInstructions2.text =
        "    'Y' indicates to overlay, 'N' do not overlay, 'ND' indicates that new data will "
        "replace an empty data field, and ' * ' indicates that the current data will not be "
        "affected.";
}

void ImportBettorsLogic::Form_Load() {
    static const char* const kHeaders[kColumns] = {"Bettor Name", "Action", "IBR", "E-m",
                                                   "Ph",          "Info",   "BR"};
    static const int kWidths[kColumns] = {1300, 1000, 0, 400, 400, 400, 0};
    GridData& g = flxBettor;
    g = GridData();
    g.SetCols(kColumns);
    g.SetRows(1);
    g.SetFixedRows(1);
    g.SetFixedCols(0);
    g.SetRowHeight(0, 450);
    for (int c = 0; c < kColumns; ++c) {
        g.SetTextMatrix(0, c, kHeaders[c]);
        g.SetColWidth(c, kWidths[c]);
    }
    for (int c = kEmail; c <= kInfo; ++c) g.SetColAlignment(c, CellAlign::kCenter);

    // The first bettor of each name, names compared exactly.
    std::unordered_map<std::string, std::int64_t> bettorByName;
    bettorByName.reserve(static_cast<std::size_t>(std::max<std::int64_t>(RF.BettorCount, 0)));
    for (std::int64_t j = 1; j <= RF.BettorCount; ++j)
        bettorByName.try_emplace(RF.Bettor(j).BettorName, j);

    for (std::int64_t i = 1; i <= ImportCount; ++i) {
        const BettorRec& in = ImportBettors(i);
        if (!in.ImportFlag) continue;
        g.SetRows(g.Rows() + 1);
        const int row = g.Rows() - 1;
        g.SetTextMatrix(row, kName, in.BettorName);
        auto found = bettorByName.find(in.BettorName);
        if (found != bettorByName.end()) {
            g.SetTextMatrix(row, kImportIndex, NumText(i));
            g.SetTextMatrix(row, kBettorIndex, NumText(found->second));
            SetFlags(row, i, found->second, 0);
            // A bettor with nothing new is not shown at all.
            if (g.TextMatrix(row, kAction) == kNoChange) g.RemoveRow(row);
        } else {
            g.SetTextMatrix(row, kAction, kAddAsNew);
            g.SetTextMatrix(row, kImportIndex, NumText(i));
            g.SetTextMatrix(row, kBettorIndex, "0");
        }
    }
    if (g.Rows() > 1) {
        g.SetRow(1);
        g.SetCol(0);
        g.SortAscending(1, g.Rows() - 1, 0, 0);
    }
}

void ImportBettorsLogic::SetFlags(int row, std::int64_t i, std::int64_t j, int col) {
    BettorRec& in = ImportBettors(i);
    BettorRec& current = RF.Bettor(j);
    bool overlay = false, newData = false;
    const int first = col == 0 ? kEmail : col;
    const int last = col == 0 ? kInfo : col;
    for (int c = first; c <= last; ++c) {
        const std::string& from = Detail(in, c);
        const std::string& now = Detail(current, c);
        const char* flag = "*";
        if (from != now && !from.empty()) {
            if (!now.empty()) {
                flag = "Y";
                overlay = true;
            } else {
                flag = "ND";
                newData = true;
            }
        }
        flxBettor.SetTextMatrix(row, c, flag);
    }
    flxBettor.SetTextMatrix(row, kAction, overlay ? kOverlay : newData ? kNewData : kNoChange);
}

void ImportBettorsLogic::flxBettor_Click() {
    GridData& g = flxBettor;
    const int row = g.Row();
    const int col = g.Col();
    if (row < g.FixedRows()) return;
    const std::int64_t i = IndexCell(g, row, kImportIndex);
    const std::int64_t j = IndexCell(g, row, kBettorIndex);
    const std::string cell = g.TextMatrix(row, col);
    if (col == kAction) {
        if (cell == kOverlay || cell == kNewData) {
            g.SetTextMatrix(row, kAction, kKeepCurrent);
            for (int c = kEmail; c <= kInfo; ++c)
                if (Taken(g.TextMatrix(row, c))) g.SetTextMatrix(row, c, "N");
        } else if (cell == kKeepCurrent) {
            g.SetTextMatrix(row, kAction, kAddAsNew);
            for (int c = kEmail; c <= kInfo; ++c) g.SetTextMatrix(row, c, "");
        } else if (cell == kAddAsNew && j != 0) {
            g.SetTextMatrix(row, kAction, kNewData);
            SetFlags(row, i, j, 0);
            for (int c = kEmail; c <= kInfo; ++c)
                if (g.TextMatrix(row, c) == "Y") g.SetTextMatrix(row, kAction, kOverlay);
        }
    } else if (col >= kEmail && col <= kInfo) {
        if (Taken(cell))
            g.SetTextMatrix(row, col, "N");
        else if (cell == "N")
            SetFlags(row, i, j, col);
    }
}

void ImportBettorsLogic::cmdOK_Click() {
    const GridData& g = flxBettor;
    if (g.Rows() <= 1) return;
    // The names on the card, with those added here, for the stars of a namesake; and for each
    // name the stars already found taken, which only grow.
    std::unordered_set<std::string> names;
    names.reserve(static_cast<std::size_t>(std::max<std::int64_t>(RF.BettorCount, 0)) * 2 +
                  static_cast<std::size_t>(g.Rows()));
    for (std::int64_t j = 1; j <= RF.BettorCount; ++j) names.insert(RF.Bettor(j).BettorName);
    std::unordered_map<std::string, std::size_t> stars;

    for (int row = 1; row < g.Rows(); ++row) {
        const std::int64_t i = IndexCell(g, row, kImportIndex);
        const std::int64_t j = IndexCell(g, row, kBettorIndex);
        if (i == 0) continue;
        const std::string& action = g.TextMatrix(row, kAction);
        if (action == kAddAsNew) {
            BettorRec& in = ImportBettors(i);
            std::size_t& k = stars[in.BettorName];
            std::string name = in.BettorName + std::string(k, '*');
            while (names.count(name) != 0) {
                name += '*';
                ++k;
            }
            RF.BettorCount += 1;
            RF.Bettor.ReDimPreserve(RF.BettorCount + 1);
            BettorRec& b = RF.Bettor(RF.BettorCount);
            b.BettorName = name;
            in.BettorName = name;
            b.BettorEmail = in.BettorEmail;
            b.BettorPhone = in.BettorPhone;
            b.BettorInfo = in.BettorInfo;
            names.insert(std::move(name));
        } else if (action == kOverlay || action == kNewData) {
            BettorRec& in = ImportBettors(i);
            BettorRec& b = RF.Bettor(j);
            for (int c = kEmail; c <= kInfo; ++c)
                if (Taken(g.TextMatrix(row, c))) Detail(b, c) = Detail(in, c);
        }
    }
    Beep();
    MsgBox("Bettors imported successfully.");
    G.FileChanged = true;
    Unload();
}

void ImportBettorsLogic::cmdCancel_Click() {
    G.CancelFlag = true;
    Unload();
}

}  // namespace tt
