#pragma once
// The window between the transaction summary and the bets, in the mode TicketMode names: "New "
// chooses the race and bettor of a new ticket and gives it its number; "Edit" picks an existing
// ticket whose bets are to change; "Cash" picks one ticket or several whose balance is settled
// in this transaction. It appends the TranTickets and copies an existing ticket's bets into
// TranBets.

#include <cstdint>
#include <string>

#include "betting/combo_state.h"
#include "model/form_state.h"
#include "model/grid_data.h"

namespace tt {

class TicketHeaderLogic : public FormState {
  public:
    TicketHeaderLogic();

    // ---- Events ------------------------------------------------------------------------------
    void Form_Load();
    // The action button: Place Bets, Edit Ticket or Cash/Collect Ticket.
    void cmdEdit_Click();
    // "Close".
    void cmdCancel_Click();
    void cmdNewBettor_Click();
    void chkDefault_Click();  // after chkDefault.value changed
    void chkContinue_Click();

    // A choice from the race list (comRaceName.list already chosen).
    void comRaceName_Click();
    // Text typed into the race box (comRaceName.text already set).
    void comRaceName_Change();
    void comRaceName_LostFocus();
    void comBettor_Click();
    void comBettor_Change();  // comBettor.text already set
    void comBettor_GotFocus();
    // A new current row or range of the ticket list (flxBets Row and RowSel already set).
    void flxBets_Click();
    void flxBets_DblClick();

    // ---- Keys --------------------------------------------------------------------------------
    // Key presses take the character code and set it to 0 to swallow it; key ups take the key
    // code (13 Enter).
    void comRaceName_KeyPress(int& key);
    void comRaceName_KeyUp(int keyCode);
    void comBettor_KeyPress(int& key);
    void txtTicketNbr_KeyPress(int& key);
    void flxBets_KeyUp(int keyCode);
    // F2 and Ctrl+P, Ctrl+E, Ctrl+C run the action button (key codes 113 and the capitals; shift
    // 2 is Ctrl). `focused` names the control with the focus, whose typed text counts first.
    bool Form_KeyDown(int keyCode, int shift, const std::string& focused);

    // ---- Procedures --------------------------------------------------------------------------
    void BuildRaceList();
    void BuildBettorList();
    void BuildTicketList();
    void CheckTicketNbr();
    void AddTicketToTransaction();

    // ---- Controls ----------------------------------------------------------------------------
    ComboState comRaceName{false};
    ComboState comBettor{true};
    ControlState txtTicketNbr, cmdEdit, cmdCancel, cmdNewBettor, chkContinue, chkDefault, cmdHelp;
    ControlState lblRace, lblBettor, lblTicketNbr;
    GridData flxBets;
    ControlState flxBetsState;
    int flxBetsBuilds = 0;  // how often the list was built, so that a form redraws it only then
    // The list lets several rows be chosen at once ("Cash").
    bool multiSelect = false;
    // The text box whose text the form should select, "" for none; the form clears it.
    std::string selectText;
    bool FormChanged = false;

  private:
    // The race now chosen in comRaceName becomes current.
    void RaceChosen();
    // Cash/Collect of one ticket, typed or chosen, and of a range of rows of the list.
    void CashOneTicket();
    void CashSeveralTickets();
    // A path through the action button that got through ends here.
    void Done();
    void AddTicket(bool blankOldBets);
};

}  // namespace tt
