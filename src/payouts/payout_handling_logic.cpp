#include "payouts/payout_handling_logic.h"

#include "model/ports.h"
#include "model/race_file.h"
#include "payouts/settlement.h"

namespace tt {

PayoutHandlingLogic::PayoutHandlingLogic() {
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
    const int type = HandlingBetType;
    lblBetType.text = G.BetTypeName(type) + " Bets";
    // Win, Place and Show have no partly correct bets to pay.
    const bool most = type >= 4 && HandlingBestCorrect != 0;
    optMost.enabled = most;
    optPayback.enabled = true;
    optNoPay.enabled = true;
    optMost.value = optPayback.value = optNoPay.value = 0;
    if (most)
        optMost.value = -1;
    else
        optPayback.value = -1;
    SetFocus("cmdOK");
    if (const PayoutCalc* calc = RunningPayoutCalc()) G.CurrentRace = calc->CurRace;
    Beep();
}

void PayoutHandlingLogic::Select(ControlState& option) {
    if (!option.enabled) return;
    optMost.value = optPayback.value = optNoPay.value = 0;
    option.value = -1;
}

bool PayoutHandlingLogic::Choose(const std::string& handling) {
    ControlState* option = handling == "Most"      ? &optMost
                           : handling == "Payback" ? &optPayback
                           : handling == "NoPay"   ? &optNoPay
                                                   : nullptr;
    if (option == nullptr || !option->enabled) return false;
    Select(*option);
    return true;
}

std::string PayoutHandlingLogic::Selected() const {
    if (optMost.value) return "Most";
    if (optPayback.value) return "Payback";
    if (optNoPay.value) return "NoPay";
    return std::string();
}

void PayoutHandlingLogic::cmdOK_Click() {
    std::string chosen = Selected();
    if (!chosen.empty()) ChosenHandling = chosen;
    Unload();
}

}  // namespace tt
