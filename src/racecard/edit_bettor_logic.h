#pragma once
// "Edit Bettor": one bettor, new (CurrentBettor 0) or existing. Hands back the slot stored in
// CurrentBettor, and CancelFlag false when something was stored.

#include <string>

#include "model/form_state.h"

namespace tt {

class EditBettorLogic : public FormState {
  public:
    EditBettorLogic();

    void Form_Load();
    void Form_QueryUnload(bool& cancel);
    // Change of any of the four text boxes, by name.
    void Text_Change(const std::string& name);
    // GotFocus of a text box: the name, phone and e-mail boxes select their text.
    void Text_GotFocus(const std::string& name);
    void cmdOK_Click();
    void cmdCancel_Click();

    ControlState txtBettorName, txtBettorPhone, txtBettorEmail, txtBettorInfo, lblBetAmt, lblWonAmt,
        cmdOK, cmdCancel, cmdHelp;
    bool FormChanged = false;
    // Set by the load: the form centres itself in the main window and clears it.
    bool centerInMain = false;
    // The text box whose text the form should select, "" for none; the form clears it.
    std::string selectText;
};

}  // namespace tt
