#pragma once
// "Payout Handling": asked once for each pool without winners; OK answers how it is paid.

#include <optional>

#include "model/form_state.h"
#include "payouts/settle_race.h"

namespace tt {

class PayoutHandlingLogic : public FormState {
  public:
    explicit PayoutHandlingLogic(const HandlingQuestion& question = {});

    // Names the bet type, enables and preselects the options, makes the race being settled
    // current, and beeps.
    void Form_Load();
    // Only OK answers; closing the window otherwise leaves the question without an answer.
    void cmdOK_Click();
    void optMost_Click() { Select(optMost); }
    void optPayback_Click() { Select(optPayback); }
    void optNoPay_Click() { Select(optNoPay); }

    // Clicks the option of a handling when it is enabled; false when it is disabled, and the
    // dialog's own choice stays.
    bool Choose(PoolHandling handling);
    // The handling as the options stand now.
    PoolHandling Selected() const;

    // The answer given by OK.
    std::optional<PoolHandling> answer;

    ControlState Label1, lblBetType, Label2, Frame1;
    ControlState optMost, optPayback, optNoPay;
    ControlState cmdOK, cmdHelp;

  private:
    void Select(ControlState& option);
    HandlingQuestion question_;
};

// The dialog answered by its logic alone with the handling it preselects, or with the given one
// where the dialog allows it: what the companion and the example card's maker answer.
HandlingPolicy DialogHandling(std::optional<PoolHandling> choice = std::nullopt);

}  // namespace tt
