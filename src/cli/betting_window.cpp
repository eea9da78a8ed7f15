#include "cli/betting_window.h"

#include "betting/betting_state.h"
#include "betting/finish_transaction.h"
#include "model/number_text.h"
#include "model/race_file.h"
#include "shell/main_commands.h"

namespace tt::cli {

BettingWindow::BettingWindow(ConsoleWorld& world) : world_(world) {
    ResetBettingState();
    world_.shell.onShow = [this](const std::string& name) {
        if (name == "frmTransaction") {
            transaction.Form_Load();
        } else if (name == "frmTicketHeader") {
            TicketHeaderLogic header;
            header.Form_Load();
            if (!header.unloaded && header_) header_(header);
        } else if (name == "frmPlaceBets") {
            PlaceBetsLogic bets;
            bets.Form_Load();
            if (bets_) bets_(bets);
        } else if (name == "frmCloseTransaction") {
            // As the window opens: what is due, then the amount typed into it. No printer.
            const Currency due = TransactionTotal();
            const std::string typed = paid_ ? *paid_ : PlainDecimal(Abs(due));
            FinishChoices choices;
            choices.print = false;
            FinishTransaction(typed, due, choices);
        }
    };
}

BettingWindow::~BettingWindow() {
    world_.shell.onShow = nullptr;
}

bool BettingWindow::Open() {
    G.CancelFlag = false;
    mnuEditPlaceBets_Click();
    return RF.MaxRacers != 0;
}

void BettingWindow::Ticket(const char* mode, HeaderScript header, BetsScript bets) {
    header_ = std::move(header);
    bets_ = std::move(bets);
    if (std::string(mode) == kNewTicket)
        transaction.cmdNew_Click();
    else
        transaction.cmdCash_Click();
    header_ = nullptr;
    bets_ = nullptr;
}

bool BettingWindow::Finish(const std::string* paid, const std::string& out) {
    paid_ = paid;
    // The periodic save question, answered OK, saves where the command saves.
    G.FilePath = out;
    transaction.cmdOK_Click();
    paid_ = nullptr;
    return !G.CancelFlag;
}

}  // namespace tt::cli
