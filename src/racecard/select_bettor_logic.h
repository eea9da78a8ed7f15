#pragma once
// "Select a Participant": the list of the card's bettors, from which they are added, edited
// and deleted. A deleted bettor leaves an empty slot that the next new bettor takes over,
// together with the tickets that still point at it.

#include "model/checked_int.h"
#include "model/form_state.h"
#include "model/list_data.h"

namespace tt {

// Bettors deleted in this run of the program.
extern Int16 DeletedBettors;

class SelectBettorLogic : public FormState {
  public:
    SelectBettorLogic();

    // Also run again after each edit.
    void Form_Load();
    void cmdNew_Click();
    void cmdEdit_Click();
    void lstBettors_DblClick() { cmdEdit_Click(); }
    void cmdDelete_Click();
    void cmdCancel_Click() { Unload(); }

    ListData lstBettors{true};
    // The entry to scroll to before the selection, so that the selection stands well in view.
    int lstBettorsScrollTo = -1;
    // Set by each load: the form centres itself on the screen and clears it.
    bool centerOnScreen = false;
    ControlState cmdNew, cmdEdit, cmdDelete, cmdCancel, cmdHelp;
};

}  // namespace tt
