// Takes the pictures of "Restore from Recovery File" and "Bring in Bettors from another File"
// over the example card: restore.png (the card's tickets logged as a race day would have logged
// them, a ticket version marked) and import-bettors.png (last season's bettors compared with the
// card's). Group "files" of make-screenshots.

#include <QApplication>
#include <QDir>
#include <QTableView>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "files/forms/frm_import_bettors.h"
#include "files/forms/frm_restore.h"
#include "files/import_bettors.h"
#include "files/race_file_io.h"
#include "files/recovery_file.h"
#include "files/safe_file.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "shots.h"

namespace {

using namespace tt;

// Each ticket of the card as a new ticket, a few minutes apart; the first ticket edited later
// and the second taken back.
std::string LogOfTheCard() {
    std::string out;
    const std::int64_t start = DateTime{2026, 4, 18, 12, 40, 0}.SecondsSinceEpoch();
    auto log = [&](std::int64_t t, const char* action, std::int64_t at, double factor) {
        const TicketRec& tk = RF.Ticket(t);
        RecoveryRow row;
        row.When = DateTime::FromSecondsSinceEpoch(at);
        row.Action = action;
        row.TicketNbr = tk.TicketNbr;
        row.Race = tk.TicketRace;
        row.Bettor = tk.TicketBettor;
        row.Collected = tk.Collected;
        row.Distributed = tk.Distributed;
        for (std::int64_t n = tk.FirstBet; n <= tk.LastBet; ++n) {
            const BetRec& b = RF.Bet(tk.TicketRace, n);
            if (b.TicketIdx != t) continue;
            row.BetAmt = Currency::FromDouble(b.BetAmt.ToDouble() * factor);
            row.BetType = b.BetType;
            row.Boxed = b.Boxed;
            row.BetCost = Currency::FromDouble(b.BetCost.ToDouble() * factor);
            row.OrigBetIdx = action[0] == 'N' ? 0 : static_cast<std::int32_t>(n);
            for (int k = 1; k <= 6; ++k) row.Pick(k) = b.Pick(k);
            AppendRecoveryLine(out, row, RF.FileId);
        }
    };
    for (std::int64_t t = 1; t <= RF.TicketCount; ++t) log(t, "New ", start + t * 170, 1);
    log(1, "Edit", start + 4300, 2);
    log(2, "Canc", start + 4420, 1);
    return out;
}

// Some of the card's bettors with other details, one just as on the card, and friends who
// are new to it.
void LastSeasonsBettors() {
    std::vector<BettorRec> list;
    for (std::int64_t b = 1; b <= std::min<std::int64_t>(RF.BettorCount, 5); ++b) {
        BettorRec in = RF.Bettor(b);
        if (b % 2 == 1) in.BettorEmail = "new.address" + std::to_string(b) + "@example.org";
        if (b == 2) in.BettorPhone = "555-0173";
        if (b == 3) in.BettorInfo = "Prefers exactas";
        list.push_back(in);
    }
    for (const char* name : {"Harriet Vane", "Peter Wimsey", "Mervyn Bunter"}) {
        BettorRec in;
        in.BettorName = name;
        in.BettorEmail = std::string(name, 1) + "@example.org";
        list.push_back(in);
    }
    ImportCount = static_cast<std::int16_t>(list.size());
    ImportBettors.ReDim(ImportCount + 1);
    for (std::int64_t i = 1; i <= ImportCount; ++i) {
        ImportBettors(i) = list[static_cast<std::size_t>(i - 1)];
        ImportBettors(i).ImportFlag = true;
    }
}

}  // namespace

int FileShots(const QString& card, const QString& out) {
    const QDir dir(out);
    ResetProcessState();
    G.FilePath = card.toStdString();
    OpenRaceFile();
    if (G.FilePath.empty()) return 1;

    QTemporaryDir temporary;
    RF.RecoveryFile = temporary.filePath("spring-meet.tlr").toStdString();
    ReplaceFileContents(RF.RecoveryFile, LogOfTheCard());
    G.FileSaved = DateTime{2026, 4, 18, 13, 30, 0};

    bool ok = true;
    {
        gui::frmRestore window;
        // One bet of the edited ticket 1 selected: Include marks the whole version.
        auto* grid = window.findChild<QTableView*>("flxRecovery");
        grid->selectRow(2);
        window.logic.flxRecovery.SetRow(3);
        window.logic.cmdInclude_Click();
        window.Refresh(false);
        window.show();
        ok &= shots::SaveFramed(&window, dir.filePath("restore.png"));
    }
    {
        ClearImportList();
        LastSeasonsBettors();
        gui::frmImportBettors window;
        window.show();
        ok &= shots::SaveFramed(&window, dir.filePath("import-bettors.png"));
        ClearImportList();
    }
    return ok ? 0 : 1;
}
