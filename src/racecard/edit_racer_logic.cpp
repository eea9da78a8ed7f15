#include "racecard/edit_racer_logic.h"

#include <algorithm>

#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "racecard/race_card_logic.h"

namespace tt {

EditRacerLogic::EditRacerLogic(RaceCardLogic& card) : card_(card) {
    caption = "Edit Racer";
    lblBetNbr.text = "Bet Nbr:";
    lblBetNbr.toolTip =
        "Identifies racer for betting.  (Use same number to create \"field\".)  Required.";
    lblProgramNbr.text = "Program Nbr:";
    lblPostPosition.text = "Post Pos:";
    chkScratched.text = "Scratched:";
    chkScratched.toolTip = "If checked, racer will not run in race.  All bets returned.";
    chkContinueToAdd.text = "Continue to add racers";
    cmdOK.text = "OK";
    cmdCancel.text = "Cancel";
    cmdDelete.text = "Delete";
    cmdHelp.text = "Help";
}

void EditRacerLogic::SetText(ControlState& c, std::string text) {
    if (c.text == text) return;
    c.text = std::move(text);
    FormChanged = true;
}

int EditRacerLogic::NextBetNbr() const {
    int top = 0;
    for (std::int64_t n = 1; n <= RF.MaxRacers; ++n)
        top = std::max<int>(top, card_.WorkRacer(G.CurrentRace, n).BetNbr);
    return top + 1;
}

void EditRacerLogic::Form_Load() {
    const int race = G.CurrentRace;
    lblRaceName.text = "Race" + Str(race) + " - " + card_.WorkRace(race).RaceName;
    lblBetNbr.enabled = txtBetNbr.enabled = card_.chkUseBetNbr.value != 0;
    lblProgramNbr.enabled = txtProgramNbr.enabled = card_.chkUseProgramNbr.value != 0;
    lblPostPosition.enabled = txtPostPos.enabled = card_.chkUsePostPosition.value != 0;
    if (G.CurrentRacer != 0) {
        const RacerRec& r = card_.WorkRacer(race, G.CurrentRacer);
        txtBetNbr.text = NumText(r.BetNbr.Value());
        txtProgramNbr.text = r.ProgramNbr;
        txtPostPos.text = r.PostPosition;
        txtRacerName.text = r.RacerName;
        auto [num, den] = OddsToFraction(r.Odds);
        txtOdds1.text = num;
        txtOdds2.text = den;
        chkScratched.value = r.Scratched ? 1 : 0;
        BetsExist = false;
        for (std::int64_t n = 1; n <= RF.MaxBets && !BetsExist; ++n)
            for (int k = 1; k <= 6 && !BetsExist; ++k)
                BetsExist = RF.Bet(race, n).Pick(k) == r.BetNbr;
    } else {
        txtBetNbr.text = NumText(NextBetNbr());
        chkScratched.value = 0;
        txtOdds1.text = "1";
        txtOdds2.text = "1";
    }
    FormChanged = false;
    G.CancelFlag = true;
}

void EditRacerLogic::Text_Change(const std::string&) {
    FormChanged = true;
}

void EditRacerLogic::txtBetNbr_KeyPress(int& key) {
    key = NumericKeyFilter(key, false);
}

void EditRacerLogic::txtPostPos_GotFocus() {
    if (txtPostPos.text.empty()) SetText(txtPostPos, txtBetNbr.text);
    selectText = "txtPostPos";
}

void EditRacerLogic::txtProgramNbr_GotFocus() {
    if (txtProgramNbr.text.empty()) SetText(txtProgramNbr, txtBetNbr.text);
    selectText = "txtProgramNbr";
}

void EditRacerLogic::chkScratched_Click() {
    FormChanged = true;
}

void EditRacerLogic::chkContinueToAdd_Click() {
    cmdCancel.text = chkContinueToAdd.value ? "Close" : "Cancel";
}

void EditRacerLogic::ClearForNewRacer() {
    G.CurrentRacer = 0;
    SetText(txtBetNbr, NumText(NextBetNbr()));
    SetText(txtRacerName, {});
    SetText(txtProgramNbr, {});
    SetText(txtPostPos, {});
    if (chkScratched.value != 0) {
        chkScratched.value = 0;
        chkScratched_Click();
    }
    SetText(txtOdds1, "1");
    SetText(txtOdds2, "1");
    SetFocus("txtRacerName");
}

void EditRacerLogic::cmdOK_Click() {
    const int race = G.CurrentRace;
    if (FormChanged) G.CancelFlag = true;
    if (G.CurrentRacer != 0 && BetsExist) {
        const Int16 stored = card_.WorkRacer(race, G.CurrentRacer).BetNbr;
        if (Val(txtBetNbr.text) != stored) {
            Beep();
            if (MsgBox(std::string("Bets exist for original Bet Number!") + kCrLf +
                           "Are you sure you want to change it?",
                       Buttons::kYesNo, Icon::kExclamation) == kNo) {
                SetText(txtBetNbr, NumText(stored.Value()));
                return;
            }
            BetsExist = false;
        }
    }
    if (G.CurrentRacer == 0) {
        for (std::int64_t n = 1; n <= RF.MaxRacers; ++n)
            if (card_.WorkRacer(race, n).BetNbr == 0) {
                G.CurrentRacer = static_cast<std::int16_t>(n);
                break;
            }
        if (G.CurrentRacer == 0) {
            // A slot more for every race; it stays even if the race card is cancelled.
            RF.MaxRacers = RF.MaxRacers + 1;
            G.CurrentRacer = RF.MaxRacers;
            card_.GrowRacers();
        }
    }
    if (txtRacerName.text.empty()) {
        Beep();
        MsgBox(RF.RaceType + " name must not be blank!", Buttons::kOK, Icon::kExclamation);
        SetFocus("txtRacerName");
        return;
    }
    if (Val(txtBetNbr.text) == 0) {
        Beep();
        MsgBox("Bet Number must be a non-zero number!", Buttons::kOK, Icon::kExclamation);
        SetFocus("txtBetNbr");
        return;
    }
    const Int16 betNbr = RoundToInt16(Val(txtBetNbr.text));
    RacerRec& r = card_.WorkRacer(race, G.CurrentRacer);
    r.BetNbr = betNbr;
    r.ProgramNbr = txtProgramNbr.text;
    r.PostPosition = txtPostPos.text;
    r.RacerName = txtRacerName.text;
    r.Odds = FractionToOdds(txtOdds1.text, txtOdds2.text);
    r.Scratched = chkScratched.value != 0;
    // OK without any edit counts as cancelled for the caller.
    if (FormChanged) G.CancelFlag = false;
    FormChanged = false;
    if (chkContinueToAdd.value == 0) {
        Unload();
        return;
    }
    ClearForNewRacer();
}

void EditRacerLogic::cmdDelete_Click() {
    const int race = G.CurrentRace;
    const Int16 betNbr = card_.WorkRacer(race, G.CurrentRacer).BetNbr;
    for (std::int64_t n = 1; n <= RF.MaxBets; ++n)
        for (int k = 1; k <= 6; ++k) {
            if (RF.Bet(race, n).Pick(k) != betNbr) continue;
            Beep(2);
            if (MsgBox(std::string("Bets exist for this bet number!") + kCrLf +
                           "Are you sure you want to delete this racer?",
                       Buttons::kOKCancel, Icon::kExclamation) == kCancel)
                return;
        }
    FreeRacerSlot(card_.WorkRacer(race, G.CurrentRacer));
    card_.MoveRacerToWindow(race);
    G.CancelFlag = false;
    Unload();
}

void EditRacerLogic::cmdCancel_Click() {
    if (chkContinueToAdd.value != 0) FormChanged = false;
    bool cancel = false;
    Form_QueryUnload(cancel);
    if (!cancel) Unload();
}

void EditRacerLogic::Form_QueryUnload(bool& cancel) {
    KeepChangesOnUnload(FormChanged, caption, cancel, [this] { cmdOK_Click(); });
}

}  // namespace tt
