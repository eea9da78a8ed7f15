#pragma once
// "Payout Handling": asked once for each pool without winners, it sets ChosenHandling.

#include <string>

#include "model/form_state.h"

namespace tt {

class PayoutHandlingLogic : public FormState {
  public:
    PayoutHandlingLogic();

    // Names the bet type, enables and preselects the options, makes the race under
    // calculation current, and beeps.
    void Form_Load();
    // Only OK sets ChosenHandling; closing the window otherwise leaves it as it was.
    void cmdOK_Click();
    void optMost_Click() { Select(optMost); }
    void optPayback_Click() { Select(optPayback); }
    void optNoPay_Click() { Select(optNoPay); }

    // Clicks the option for "Most", "Payback" or "NoPay" when it is enabled; false when the
    // option is disabled or unknown, and the dialog's own choice stays.
    bool Choose(const std::string& handling);
    // "Most", "Payback" or "NoPay" as the options stand now.
    std::string Selected() const;

    ControlState Label1, lblBetType, Label2, Frame1;
    ControlState optMost, optPayback, optNoPay;
    ControlState cmdOK, cmdHelp;

  private:
    void Select(ControlState& option);
};

}  // namespace tt
