#include "betting/transaction_logic.h"

#include <cmath>

#include "betting/betting_state.h"
#include "betting/ticket_printing.h"
#include "model/common.h"
#include "model/number_text.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

namespace {

enum Col { kAction, kTicket, kBettor, kRace, kTransAmt, kCols };

bool IsNew(const std::string& action) {
    return action == kNewTicket || action == kNewAgain;
}

}  // namespace

TransactionLogic::TransactionLogic() {
    caption = "Betting Window Transaction";
    auto button = [](ControlState& c, const char* text, const char* tip) {
        c.text = text;
        c.toolTip = tip;
    };
    button(cmdNew, "Start New Ticket", "Add bets to a new ticket. (Press S)");
    button(cmdEdit, "Edit a Ticket", "Change the bets on an existing ticket. (Press E)");
    button(cmdCash, "Cash/Collect", "Collect or payout money for existing ticket. (Press C)");
    button(cmdDelete, "Remove Ticket...",
           "Remove a ticket from the transaction summary list (Press R)");
    button(cmdCancel, "Trash Transaction", "Do not save the current transaction.  (Press T)");
    button(cmdRelease, "Release Print",
           "Send the transactions waiting to print to the printer (Press P)");
    button(cmdOK, "Finish Transaction", "End the current transaction. (Press F)");
    button(cmdClose, "Quit", "Leave the betting window. (Press Q)");
    button(cmdHelp, "Help", "");
    fraAmounts.text = "Transaction Totals:";
    lblBetAmt.toolTip = "Total of bets placed.  (Net of original bet amounts.)";
    lblCollected.toolTip = "Amount that should be collected on tickets.";
    lblCashed.toolTip = "Amount that should be cashed in listed tickets.";
    lblNet.toolTip = "Net owed.  Positive is owed by bettor.  Negative owed to bettor.";

    flxTran.SetFixedCols(0);
    flxTran.SetCols(kCols);
    flxTran.SetRows(1);
}

void TransactionLogic::Form_Load() {
    Betting.TranTickets.ReDim(1);
    Betting.TranBets.ReDim(1);
    Betting.CurTranTicket = 0;
    Betting.LoadedTranBet = 0;
    Betting.TranBetCount = 0;
    Betting.TranTicketCount = 0;
    Betting.NewTicketCount = 0;
    SetCurrentRaceToDefault();

    const std::string zero = FormatMoney(Currency(), MoneyPattern::kDollarZero);
    for (ControlState* l : {&lblBetAmt, &lblCashed, &lblCollected, &lblNet}) l->text = zero;

    flxTran.SetRows(1);
    static const std::pair<const char*, int> kHeads[kCols] = {
        {"Action", 1200}, {"Ticket#", 700}, {"Bettor", 900}, {"Race", 900}, {"Trans Amt", 900}};
    for (int c = 0; c < kCols; ++c) {
        flxTran.SetTextMatrix(0, c, kHeads[c].first);
        flxTran.SetColWidth(c, kHeads[c].second);
        flxTran.SetCellAlignment(0, c, CellAlign::kCenter);
    }
    flxTran.SetColAlignment(kTicket, CellAlign::kCenter);
    flxTran.SetColAlignment(kTransAmt, CellAlign::kRight);
    ShowPrintState();
}

void TransactionLogic::BuildSummary() {
    flxTran.SetRows(1);
    Currency bet, cashed, collected;
    for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i) {
        const TranTicket& t = Betting.TranTickets(i);
        if (t.Action == kCancelled) continue;
        const Currency amt =
            (t.NewCollected - t.OldCollected) + t.OldDistributed - t.NewDistributed;
        std::string action;
        if (IsNew(t.Action)) {
            action = "New ticket";
            bet += t.NewAmtBet;
        } else if (t.Action == kEditTicket || t.Action == kEditAgain) {
            action = "Edit ticket";
            bet += amt;
        } else if (t.Action == kCashTicket && amt >= Currency()) {
            action = "Collect ticket";
            collected += amt;
        } else if (t.Action == kCashTicket) {
            action = "Cash ticket";
            cashed += Abs(amt);
        }
        std::string row = action + '\t';
        if (t.TicketNbr != 0) row += NumText(std::int64_t{t.TicketNbr});
        row += '\t' + RF.Bettor(t.Bettor).BettorName + '\t';
        if (t.Race != 0) row += Str(t.Race.Value()) + " - " + RF.Race(t.Race).RaceName;
        row += '\t' + DollarText(amt);
        flxTran.AddItem(row);
    }
    lblBetAmt.text = DollarText(bet);
    lblCashed.text = DollarText(cashed);
    lblCollected.text = DollarText(Abs(collected));
    lblNet.text = DollarText(bet - cashed + collected);
    flxTran.SetRow(flxTran.Rows() > 1 ? 1 : 0);
    ShowPrintState();
}

void TransactionLogic::ShowPrintState() {
    if (!RF.PrintBets) {
        lblTransInPrinter.visible = false;
        cmdRelease.visible = false;
        return;
    }
    lblTransInPrinter.visible = true;
    cmdRelease.visible = true;
    lblTransInPrinter.text =
        Str(Betting.TransInPrinter.Value()) + " transactions waiting to print.";
    cmdRelease.enabled = Betting.TransInPrinter != 0;
}

void TransactionLogic::Form_KeyUp(int key) {
    auto press = [](const ControlState& button, void (TransactionLogic::*click)(),
                    TransactionLogic* self) {
        if (button.visible && button.enabled) (self->*click)();
    };
    switch (key) {
        case 'S':
            press(cmdNew, &TransactionLogic::cmdNew_Click, this);
            break;
        case 'E':
            press(cmdEdit, &TransactionLogic::cmdEdit_Click, this);
            break;
        case 'C':
            press(cmdCash, &TransactionLogic::cmdCash_Click, this);
            break;
        case 'R':
            press(cmdDelete, &TransactionLogic::cmdDelete_Click, this);
            break;
        case 'T':
            press(cmdCancel, &TransactionLogic::cmdCancel_Click, this);
            break;
        case 'P':
            press(cmdRelease, &TransactionLogic::cmdRelease_Click, this);
            break;
        case 'F':
            press(cmdOK, &TransactionLogic::cmdOK_Click, this);
            break;
        case 'Q':
            press(cmdClose, &TransactionLogic::cmdClose_Click, this);
            break;
        case 'H':
            if (onHelp) onHelp();
            break;
        default:
            break;
    }
}

void TransactionLogic::ShowTicketWindow(const char* mode) {
    Betting.TicketMode = mode;
    Shell().ShowForm("frmTicketHeader", true);
    BuildSummary();
}

void TransactionLogic::cmdNew_Click() {
    ShowTicketWindow(kNewTicket);
}
void TransactionLogic::cmdEdit_Click() {
    ShowTicketWindow(kEditTicket);
}
void TransactionLogic::cmdCash_Click() {
    ShowTicketWindow(kCashTicket);
}

void TransactionLogic::flxTran_DblClick() {
    // The row is taken as the index of the transaction's ticket, although removed tickets have
    // no row: behind a removal a row opens the ticket before it. Remove goes by number instead.
    const int r = flxTran.Row();
    if (r == 0 || r > Betting.TranTicketCount) return;
    Betting.CurTranTicket = r;
    TranTicket& t = Betting.TranTickets(r);
    G.CurrentTicket = t.TicketNbr;
    if (IsNew(t.Action)) {
        Betting.TicketMode = kNewAgain;
        t.Action = kNewAgain;
        Shell().ShowForm("frmPlaceBets", true);
    } else if (t.Action == kEditTicket || t.Action == kEditAgain || t.Action == kCashTicket) {
        if (RaceFinished(t.Race)) {
            Beep();
            MsgBox("Race results are entered.  This bet cannot be edited!", Buttons::kOK,
                   Icon::kExclamation);
        } else {
            // A cashed ticket opened here becomes an edit.
            Betting.TicketMode = kEditAgain;
            t.Action = kEditAgain;
            Shell().ShowForm("frmPlaceBets", true);
        }
    }
    BuildSummary();
}

void TransactionLogic::flxTran_Backspace() {
    flxTran.SetRow(0);
}

void TransactionLogic::cmdDelete_Click() {
    const int r = flxTran.Row();
    const std::string cell = r >= 1 && r < flxTran.Rows() ? flxTran.TextMatrix(r, kTicket) : "";
    std::int64_t found = 0;
    for (std::int64_t i = 1; i <= Betting.TranTicketCount && found == 0 && !cell.empty(); ++i) {
        const TranTicket& t = Betting.TranTickets(i);
        if (t.Action != kCancelled && NumText(std::int64_t{t.TicketNbr}) == cell) found = i;
    }
    if (found == 0) {
        Beep();
        MsgBox(std::string("Select a row in the transaction summary to remove") + kCrLf +
                   "from the transaction.",
               Buttons::kOK, Icon::kExclamation);
        return;
    }
    Beep();
    if (MsgBox(std::string("Are you sure you want to remove the changes that you made to ") +
                   kCrLf + "ticket #" + cell + " from this transaction?",
               Buttons::kYesNo, Icon::kExclamation) != kYes)
        return;
    TranTicket& t = Betting.TranTickets(found);
    const std::int32_t number = t.TicketNbr;
    t.Action = kCancelled;
    t.TicketNbr = 0;
    for (std::int64_t j = 1; j <= Betting.TranBetCount; ++j) {
        TempBet& b = Betting.TranBets(j);
        if (b.TicketNbr != number) continue;
        b.BetAmt = Currency();
        b.BetType = 0;
        b.TicketNbr = 0;
        b.BetCost = Currency();
    }
    // NewTicketCount stays: the number is used for the rest of the transaction.
    BuildSummary();
}

void TransactionLogic::cmdCancel_Click() {
    if (Betting.TranTicketCount <= 0) return;
    if (MsgBox("Are you sure you want to trash this transaction?", Buttons::kYesNo,
               Icon::kExclamation) != kYes)
        return;
    Betting.TranTicketCount = 0;
    if (onReshow)
        onReshow();
    else
        Form_Load();
}

void TransactionLogic::cmdRelease_Click() {
    ReleaseTickets();
    ShowPrintState();
}

void TransactionLogic::cmdOK_Click() {
    if (Betting.TranTicketCount <= 0) return;
    // Only a finish that went through clears the flag.
    G.CancelFlag = true;
    Shell().ShowForm("frmCloseTransaction", true);
    if (!G.CancelFlag) Form_Load();
}

void TransactionLogic::cmdClose_Click() {
    bool cancel = false;
    Form_QueryUnload(cancel);
    if (!cancel) {
        Form_Unload();
        Unload();
    }
    // Also when the window stayed: what waits in the printer goes out.
    if (Betting.TransInPrinter > 0) ReleaseTickets();
    if (!unloaded) ShowPrintState();
}

void TransactionLogic::Form_QueryUnload(bool& cancel) {
    bool open = false;
    for (std::int64_t i = 1; i <= Betting.TranTicketCount && !open; ++i)
        open = Betting.TranTickets(i).Action != kCancelled;
    if (!open) return;
    switch (KeepChangesQuestion(true, caption)) {
        case kCancel:
            cancel = true;
            G.CancelFlag = true;
            return;
        case kYes:
            cmdOK_Click();
            if (G.CancelFlag) cancel = true;
            return;
        default:
            return;
    }
}

void TransactionLogic::Form_Unload() {
    if (Betting.TransInPrinter > 0) ReleaseTickets();
}

}  // namespace tt
