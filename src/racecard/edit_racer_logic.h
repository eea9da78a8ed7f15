#pragma once
// "Edit Racer": one racer of the race card's current race, new or existing, in the race card's
// copy of the racers. It hands back through CurrentRacer and CancelFlag.

#include <string>

#include "model/form_state.h"

namespace tt {

class RaceCardLogic;

class EditRacerLogic : public FormState {
  public:
    explicit EditRacerLogic(RaceCardLogic& card);

    void Form_Load();
    void Form_QueryUnload(bool& cancel);
    // Change of any of the six text boxes, by name; the form has put the typed text first.
    void Text_Change(const std::string& name);
    void txtBetNbr_KeyPress(int& key);
    void txtPostPos_GotFocus();
    void txtProgramNbr_GotFocus();
    void chkScratched_Click();
    void chkContinueToAdd_Click();
    void cmdOK_Click();
    void cmdDelete_Click();
    void cmdCancel_Click();

    ControlState lblRaceName, lblBetNbr, txtBetNbr, lblProgramNbr, txtProgramNbr, lblPostPosition,
        txtPostPos, txtRacerName, txtOdds1, txtOdds2, chkScratched, chkContinueToAdd, cmdOK,
        cmdCancel, cmdDelete, cmdHelp;
    bool FormChanged = false;
    bool BetsExist = false;
    // The text box whose text the form should select, "" for none; the form clears it.
    std::string selectText;

  private:
    // Assignments by the window's code: a changed text marks the window as changed.
    void SetText(ControlState& c, std::string text);
    // One more than the largest betting number of the race.
    int NextBetNbr() const;
    // The empty racer the window offers when it adds racers.
    void ClearForNewRacer();

    RaceCardLogic& card_;
};

}  // namespace tt
