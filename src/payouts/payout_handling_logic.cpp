#include "payouts/payout_handling_logic.h"

#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

PayoutHandlingLogic::PayoutHandlingLogic(const HandlingQuestion& question) : question_(question) {
    caption = "Payout Handling";
    Label1.text = "There are no correct picks for:";
    Label2.text = "Please choose a method for handling the payouts:";
    optMost.text = "Pay on most correct picks";
    optPayback.text = "Pay all bettors back amount bet";
    optNoPay.text = "Don't pay anything to bettors";
    cmdOK.text = "OK";
    cmdHelp.text = "Help";
}

void PayoutHandlingLogic::Form_Load() {
    lblBetType.text = Name(question_.type) + " Bets";
    // Win, Place and Show have no partly correct bets to pay.
    const bool most = MostCorrectOffered(question_);
    optMost.enabled = most;
    optPayback.enabled = true;
    optNoPay.enabled = true;
    optMost.value = optPayback.value = optNoPay.value = 0;
    if (most)
        optMost.value = -1;
    else
        optPayback.value = -1;
    SetFocus("cmdOK");
    G.CurrentRace = question_.race;
    Beep();
}

void PayoutHandlingLogic::Select(ControlState& option) {
    if (!option.enabled) return;
    optMost.value = optPayback.value = optNoPay.value = 0;
    option.value = -1;
}

bool PayoutHandlingLogic::Choose(PoolHandling handling) {
    ControlState& option = handling == PoolHandling::kMost      ? optMost
                           : handling == PoolHandling::kPayback ? optPayback
                                                                : optNoPay;
    if (!option.enabled) return false;
    Select(option);
    return true;
}

PoolHandling PayoutHandlingLogic::Selected() const {
    if (optPayback.value) return PoolHandling::kPayback;
    if (optNoPay.value) return PoolHandling::kNoPay;
    return PoolHandling::kMost;
}

void PayoutHandlingLogic::cmdOK_Click() {
    answer = Selected();
    Unload();
}

HandlingPolicy DialogHandling(std::optional<PoolHandling> choice) {
    return [choice](const HandlingQuestion& question) {
        PayoutHandlingLogic dialog(question);
        dialog.Form_Load();
        if (choice) dialog.Choose(*choice);
        dialog.cmdOK_Click();
        return dialog.answer;
    };
}

}  // namespace tt
