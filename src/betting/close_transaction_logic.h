#pragma once
// "Finish Transaction": what should change hands for the transaction, the amount that really
// did, and the finish itself. Reports through CancelFlag: set while the window is open, cleared
// only when the transaction was written.

#include <vector>

#include "betting/ticket_printing.h"
#include "model/currency.h"
#include "model/form_state.h"

namespace tt {

class CloseTransactionLogic : public FormState {
  public:
    CloseTransactionLogic();

    void Form_Load();
    // The amount box takes digits, the point and control keys; 0 means the key was refused.
    void txtCollDist_KeyPress(int& key);
    // Enter let go in the amount box finishes.
    void txtCollDist_KeyUp(int key);
    void cmdOK_Click();
    // Back to the transaction with the same tickets.
    void cmdCancel_Click();
    // The tickets as they stand, before anything is written.
    void cmdPrintTickets_Click();

    ControlState lblCollect, lblCollDist, txtCollDist, cmdOK, cmdCancel, cmdPrintTickets, cmdHelp;
    // Each ticket's Trans Amt at opening (index 0 unused), and their sum.
    std::vector<Currency> TicketAmt;
    Currency TransTotal;
    // The page shared by Print Tickets and the finish of this window.
    TicketPage page;
    // Asked when the printer is set to several copies.
    CopiesPolicy resetCopies = AskResetCopies;
};

}  // namespace tt
