#pragma once
// "Place Bet": the bets of one ticket, for one race and one bettor. The bet area holds the bet
// being composed; Accept Bet checks it and keeps it in TicketBets; Accept Ticket moves the
// ticket's bets into TranBets and sets the TranTicket's action and amounts. Nothing in the race
// file changes here.

#include <array>
#include <cstdint>
#include <string>

#include "betting/combo_state.h"
#include "model/checked_int.h"
#include "model/currency.h"
#include "model/form_state.h"
#include "model/grid_data.h"

namespace tt {

class PlaceBetsLogic : public FormState {
  public:
    PlaceBetsLogic();

    // ---- Events ------------------------------------------------------------------------------
    void Form_Load();
    // Closing without Accept Ticket: asks when something changed, and takes an unchanged ticket
    // out of the transaction again.
    void Form_QueryUnload(bool& cancel);

    void cmdAcceptBet_Click();
    void cmdCancelBet_Click();
    void cmdDelete_Click();
    void cmdAcceptTicket_Click();
    void cmdCancel_Click();
    void cmdBetAmt_Click(int i);   // quick bet 1 to 5
    void cmdBetType_Click(int i);  // bet type button 1 to 11

    void txtBetAmt_Change();  // after txtBetAmt.text was typed
    void txtBetAmt_GotFocus();
    void txtBetAmt_LostFocus();
    void comBetType_Click();  // after a choice in comBetType.list
    void chkBoxed_Click();    // after chkBoxed.value changed
    void comPick_Click(int i);
    void comPick_Change(int i);  // after comPick[i].text was typed
    // The search of a pick list for its typed text; false when nothing matched (after a beep).
    bool comPick_LostFocus(int i);
    void flxBets_Click(int row);
    void flxBets_DblClick(int row);

    // ---- Keys --------------------------------------------------------------------------------
    // Key presses take the character code and set it to 0 to swallow it; key ups take the key
    // code. Key codes: 13 Enter, 113 F2, 114 F3, letters in capitals; shift: 1 Shift, 2 Ctrl,
    // 4 Alt.
    void txtBetAmt_KeyPress(int& key);
    void comBetType_KeyPress(int& key);
    void comBetType_KeyUp(int keyCode);
    void chkBoxed_KeyPress(int& key);
    void comPick_KeyPress(int i, int& key);
    void comPick_KeyUp(int i, int keyCode);
    // The window's own keys, seen before the control's. `focused` names the control with the
    // focus, whose typed text counts as a mouse click on the button would count it. True when
    // the key was the window's.
    bool Form_KeyDown(int keyCode, int shift, const std::string& focused);

    // ---- Procedures --------------------------------------------------------------------------
    void CheckBetAmt();
    void SetBetType(bool validate);
    void CalcBetTotal();
    int CountPicks() const;
    void BuildBetTypeList();
    void BuildPickLists(bool& rebuild);
    void BuildBetGrid();
    void ClearBetArea();
    void LoadTicketBets();
    void SaveTicketBets();
    static void DeleteTempBet(std::int64_t index);
    int ConfirmCancelTicket();
    void RollBackTicket();

    // ---- Controls ----------------------------------------------------------------------------
    ControlState txtBetAmt, chkBoxed, lblExtendedBetAmt, lblBetTotal;
    ComboState comBetType{false};
    std::array<ComboState, 7> comPick;  // 1 to 6; [0] unused
    std::array<ControlState, 7> lblPick;
    std::array<ControlState, 6> cmdBetAmt;    // 1 to 5
    std::array<ControlState, 12> cmdBetType;  // 1 to 11
    ControlState cmdAcceptBet, cmdCancelBet, cmdDelete, cmdAcceptTicket, cmdCancel, cmdHelp;
    ControlState fraTicket, lblRaceName, lblBettorName, lblAmtBet, lblNewAmtBet, lblOriginalAmtBet,
        lblOriginal, fraBet;
    GridData flxBets;
    ControlState flxBetsState;  // enabled doubles as the grid's place in the tab order
    int flxBetsBuilds = 0;      // how often the grid was built, so that a form redraws it only then
    // The text box whose text the form should select, "" for none; the form clears it.
    std::string selectText;

    // ---- State of the window -----------------------------------------------------------------
    Int16 BetType;  // of the displayed bet, 0 none
    bool TicketDirty = false;
    bool BetDirty = false;
    Currency ShownBetTotal;
    Currency FormAmtBet;
    bool TicketAccepted = false;
    bool AcceptedChanged = false;
    // Kept from one building of the pick lists to the next, for as long as the program runs.
    static Int16 LastPickType, LastPickRace, LastPickCount;

  private:
    // The name of pick list i, as focus and the window know it: "comPick(i)".
    static std::string PickControl(int i);
    // The amount box's text set by the window; a change runs txtBetAmt_Change.
    void SetAmountText(const std::string& text);
    void SetBoxed(int value);
    void SelectBetType(std::int64_t code);
    void SelectPick(int i, std::int64_t betNbr);
    // The pick lists a bet of the displayed type shows.
    int PickListCount() const;
    void FillPickList(int i);
    // An Enter on an empty pick list moves on to Accept Bet once the needed picks are behind.
    bool BeyondNeededPicks(int i) const;
    // The typed amount, read by the leading-number rule.
    double Amount() const;
};

}  // namespace tt
