#include "betting/close_transaction_logic.h"

#include "betting/betting_state.h"
#include "betting/finish_transaction.h"
#include "model/common.h"
#include "model/race_file.h"

namespace tt {

CloseTransactionLogic::CloseTransactionLogic() {
    caption = "Finish Transaction";
    lblCollect.toolTip = "Total that should be collected or paid out for transaction.";
    lblCollDist.toolTip = "Total collected or paid out.";
    cmdOK.text = "OK";
    cmdOK.toolTip = "Save transaction and allocate money collected/paid-out to bets.";
    cmdCancel.text = "Cancel";
    cmdCancel.toolTip = "Go back and continue work on current transaction.";
    cmdPrintTickets.text = "Print Tickets for Transaction";
    cmdPrintTickets.toolTip = "Send the tickets to the printer.";
    cmdHelp.text = "Help";
}

void CloseTransactionLogic::Form_Load() {
    G.CancelFlag = true;
    cmdPrintTickets.enabled = !RF.PrintBets;
    TicketAmt.assign(static_cast<std::size_t>(Betting.TranTicketCount) + 1, Currency());
    TransTotal = Currency();
    for (std::int64_t i = 1; i <= Betting.TranTicketCount; ++i) {
        TicketAmt[static_cast<std::size_t>(i)] = tt::TicketAmt(static_cast<int>(i));
        TransTotal += TicketAmt[static_cast<std::size_t>(i)];
    }
    if (TransTotal > Currency()) {
        lblCollDist.text = "Collected:";
        lblCollect.text = "Collect " + DollarText(TransTotal);
    } else if (TransTotal < Currency()) {
        lblCollDist.text = "Payout:";
        lblCollect.text = "Payout " + DollarText(Abs(TransTotal));
    } else {
        lblCollDist.text = "Collected:";
        lblCollect.text = "Nothing to Collect/Cash";
    }
    // With CollectZero the operator types the amount.
    txtCollDist.text = RF.CollectZero ? "" : MoneyText(Abs(TransTotal));
    SetFocus("txtCollDist");
}

void CloseTransactionLogic::txtCollDist_KeyPress(int& key) {
    key = NumericKeyFilter(key, false);
}

void CloseTransactionLogic::txtCollDist_KeyUp(int key) {
    if (key == '\r') cmdOK_Click();
}

void CloseTransactionLogic::cmdOK_Click() {
    FinishChoices choices;
    choices.resetCopies = resetCopies;
    choices.page = &page;
    if (FinishTransaction(txtCollDist.text, TransTotal, choices).Finished()) Unload();
}

void CloseTransactionLogic::cmdCancel_Click() {
    Unload();
}

void CloseTransactionLogic::cmdPrintTickets_Click() {
    PrintTransaction(page, resetCopies);
}

}  // namespace tt
