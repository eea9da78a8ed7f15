#pragma once
// "Betting Window Transaction": the counter at which betting is run. A transaction is
// everything that happens with one customer between two finishes: new tickets, edited tickets
// and tickets cashed or collected, summed to one amount of money. This window keeps the running
// summary; the tickets are composed in Ticket Header and Place Bets, and the money is taken in
// Finish Transaction. Nothing in the race file changes until the transaction is finished.

#include <functional>

#include "model/form_state.h"
#include "model/grid_data.h"

namespace tt {

class TransactionLogic : public FormState {
  public:
    TransactionLogic();

    // The window keeps its place, not its size, in "TranLeft" and "TranTop".
    static constexpr const char* kPlacementKeys = "Tran";

    // A new transaction: on opening and again after a finished one.
    void Form_Load();
    // The summary grid and the totals from the transaction's tickets.
    void BuildSummary();
    // The count of transactions waiting in the printer, and Release Print.
    void ShowPrintState();

    // A key let go anywhere in the window, by its letter ('S', 'E', ...); Shift and Ctrl are
    // not looked at. A button that is hidden or disabled does not answer its key.
    void Form_KeyUp(int key);
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdCash_Click();
    void cmdDelete_Click();
    void cmdCancel_Click();
    void cmdRelease_Click();
    void cmdOK_Click();
    void cmdClose_Click();
    // A double click on a summary row, or Enter in the grid.
    void flxTran_DblClick();
    // Backspace in the grid moves to the header row.
    void flxTran_Backspace();
    // The closing question of a window with work open.
    void Form_QueryUnload(bool& cancel);
    // The window goes: tickets waiting in the printer go out with it.
    void Form_Unload();

    ControlState cmdNew, cmdEdit, cmdCash, cmdDelete, cmdCancel, cmdRelease, cmdOK, cmdClose,
        cmdHelp;
    ControlState fraAmounts, lblBetAmt, lblCollected, lblCashed, lblNet, lblTransInPrinter;
    GridData flxTran;

    // Trash unloads the window and shows it anew; without a handler the new transaction
    // starts in place.
    std::function<void()> onReshow;
    // The Help key.
    std::function<void()> onHelp;

  private:
    // Shows a ticket window modally and then the summary again.
    void ShowTicketWindow(const char* mode);
};

}  // namespace tt
