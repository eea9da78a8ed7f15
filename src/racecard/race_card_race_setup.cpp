// The Race Setup tab of "Race Card Setup": moving between races, naming, resetting and
// deleting a race, and the default race.

#include "model/common.h"
#include "model/ports.h"
#include "racecard/race_card_logic.h"

namespace tt {

void RaceCardLogic::BuildRaceLists() {
    comRaceName.Clear();
    comRRRaceName.Clear();
    for (int i = 1; i <= kMaxRace; ++i) {
        const std::string& name = WorkRace(i).RaceName;
        std::string text = name.empty() ? "(" + Str(i) + " )" : name;
        comRaceName.AddItem(text, i);
        comRRRaceName.AddItem(text, i);
    }
    SelectRaceInLists(G.CurrentRace);
}

void RaceCardLogic::SelectRaceInLists(int race) {
    SelectByItemData(comRaceName, race);
    if (comRaceName.HasSelection()) comRaceName_Click();
    SelectByItemData(comRRRaceName, race);
    if (comRRRaceName.HasSelection()) comRRRaceName_Click();
}

void RaceCardLogic::GoToRace(int race) {
    if (race < 1 || race > kMaxRace) {
        MsgBox("Unexpected Error - Invalid Race Id");
        return;
    }
    BuildRaceLists();
    G.CurrentRace = race;
    MoveRaceToWindow(race);
    MoveRacerToWindow(race);
    SelectRaceInLists(race);
}

void RaceCardLogic::RefreshDefaultChecks() {
    if (!comRaceName.HasSelection()) return;
    const int on = comRaceName.SelectedData() == RF.DefaultRace ? 1 : 0;
    SetValue(chkDefault, on);
    SetValue(chkRRDefault, on);
}

void RaceCardLogic::comRaceName_Click() {
    RefreshDefaultChecks();
    if (comRaceName.HasSelection() && comRaceName.SelectedData() != G.CurrentRace)
        GoToRace(static_cast<int>(comRaceName.SelectedData()));
}

void RaceCardLogic::comRRRaceName_Click() {
    RefreshDefaultChecks();
    if (comRRRaceName.HasSelection() && comRRRaceName.SelectedData() != G.CurrentRace)
        GoToRace(static_cast<int>(comRRRaceName.SelectedData()));
}

void RaceCardLogic::comRaceName_DropDown() {
    BuildRaceLists();
}
void RaceCardLogic::comRRRaceName_DropDown() {
    BuildRaceLists();
}

void RaceCardLogic::chkDefault_Click() {
    // The default race is set in the document at once: Cancel does not take it back.
    if (IsChecked(chkDefault) && comRaceName.HasSelection())
        RF.DefaultRace = static_cast<std::int16_t>(comRaceName.SelectedData());
}

void RaceCardLogic::chkRRDefault_Click() {
    if (IsChecked(chkRRDefault) && comRaceName.HasSelection())
        RF.DefaultRace = static_cast<std::int16_t>(comRaceName.SelectedData());
}

void RaceCardLogic::Step(int delta) {
    if (!ValidateWindow()) return;
    const bool changed = FormChanged;
    StoreRaceFromWindow(Window(), Copies(), G.CurrentRace);
    const int target = G.CurrentRace + delta;
    if (target < 1 || target > kMaxRace) {
        Beep();
        RefreshDefaultChecks();
        return;
    }
    G.CurrentRace = target;
    SelectRaceInLists(target);
    MoveRaceToWindow(target);
    MoveRacerToWindow(target);
    RefreshDefaultChecks();
    // Moving between races is not an edit.
    FormChanged = changed;
}

void RaceCardLogic::cmdNext_Click() {
    Step(1);
}
void RaceCardLogic::cmdPrev_Click() {
    Step(-1);
}

void RaceCardLogic::MoveRaceToWindow(int race) {
    lblRace.text = RaceOrdinalCaption(race);
    const RaceRec w = WorkRace(race);
    if (!w.RaceName.empty()) {
        SetText(txtRaceName, w.RaceName);
        fraRace.visible = true;
        SetText(txtRMinBet, MoneyText(w.MinBet));
        SetText(txtRMinPayout, MoneyText(w.MinPayout));
        SetText(txtRBetIncr, MoneyText(w.BetIncr));
        SetText(txtRHoldbackAmt, MoneyText(w.HoldbackAmt));
        SetText(txtRHoldbackPct, SingleText(w.HoldbackPct));
        for (int t = 1; t <= kBetTypes; ++t) SetValue(chkRBetType[t], w.BetType(t) ? 1 : 0);
        for (int q = 1; q <= 5; ++q) SetText(txtRQuickBet[q], MoneyText(w.QuickBet(q)));
        SetRoundTo(optRRoundTo, w.RoundTo);
    } else {
        for (ControlState* c :
             {&txtRMinBet, &txtRMinPayout, &txtRBetIncr, &txtRHoldbackPct, &txtRHoldbackAmt})
            SetText(*c, {});
        for (int q = 1; q <= 5; ++q) SetText(txtRQuickBet[q], {});
        SetText(txtRaceName, {});
        for (int t = 1; t <= kBetTypes; ++t) SetValue(chkRBetType[t], 0);
        SetRoundTo(optRRoundTo, 0);
        fraRace.visible = false;
    }
    ApplyRaceProtection(*this, race);
}

void RaceCardLogic::txtRaceName_Change() {
    if (!txtRaceName.text.empty()) fraRace.visible = true;
    WorkRace(G.CurrentRace).RaceName = txtRaceName.text;
}

void RaceCardLogic::txtRaceName_GotFocus() {
    if (!txtRaceName.text.empty()) {
        selectText = "txtRaceName";
        return;
    }
    const std::string& label = lblRace.text;
    SetText(txtRaceName, label.empty() ? std::string() : label.substr(0, label.size() - 1));
    ResetRaceToDefaults();
    WorkRace(G.CurrentRace).RaceName = txtRaceName.text;
}

void RaceCardLogic::txtRRRaceName_GotFocus() {
    if (!txtRRRaceName.text.empty()) {
        selectText = "txtRRRaceName";
        return;
    }
    const std::string& label = lblRRRace.text;
    std::string name = label.empty() ? std::string() : label.substr(0, label.size() - 1);
    SetText(txtRRRaceName, name);
    SetText(txtRaceName, name);
    ResetRaceToDefaults();
    WorkRace(G.CurrentRace).RaceName = name;
}

void RaceCardLogic::ResetRaceToDefaults() {
    const RaceRec d = WorkRace(0);
    SetText(txtRMinBet, MoneyText(d.MinBet));
    SetText(txtRMinPayout, MoneyText(d.MinPayout));
    SetText(txtRBetIncr, MoneyText(d.BetIncr));
    SetText(txtRHoldbackAmt, MoneyText(d.HoldbackAmt));
    SetText(txtRHoldbackPct, SingleText(d.HoldbackPct));
    for (int t = 1; t <= kBetTypes; ++t) SetValue(chkRBetType[t], d.BetType(t) ? 1 : 0);
    SetRoundTo(optRRoundTo, d.RoundTo);
    for (int q = 1; q <= 5; ++q) SetText(txtRQuickBet[q], txtQuickBet[q].text);
}

void RaceCardLogic::cmdReset_Click() {
    ResetRaceToDefaults();
}

void RaceCardLogic::cmdDelete_Click() {
    FormChanged = true;
    const int race = G.CurrentRace;
    const std::string prefix = DataOnFile(race);
    if (!prefix.empty()) {
        Beep(2);
        if (MsgBox(prefix + "for this race exist on file!" + kCrLf + "This data will be lost!" +
                       kCrLf + "Are you sure you want to delete this race?",
                   Buttons::kOKCancel, Icon::kExclamation, {}, 1) == kCancel)
            return;
    }
    DeleteRaceInWork(Copies(), race);
    MoveRaceToWindow(race);
    MoveRacerToWindow(race);
}

}  // namespace tt
