#include "payouts/edit_results_logic.h"

#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "payouts/settlement.h"

namespace tt {

namespace {
const char* const kNotAvailable = "     Not Available";

// The four lines that tell the operator which finisher is missing.
std::string MissingFinisher(const std::string& bets, const std::string& finisher) {
    return bets + kLfCr + finisher + kLfCr + "or those bets disallowed in the Race Card." + kLfCr +
           "(Remember that a bet number will only be used for one position.)";
}
}  // namespace

EditResultsLogic::EditResultsLogic() {
    caption = "Edit Results";
    lblClear.text = "Reset all to \"Not Available\":";
    cmdClear.text = "Reset";
    cmdClear.toolTip = "Clear out all result information.";
    cmdOK.text = "OK";
    cmdOK.toolTip = "Save results and recalculate payouts.";
    cmdCancel.text = "Cancel";
    cmdCancel.toolTip = "Exit without saving.";
    cmdHelp.text = "Help";
}

void EditResultsLogic::Form_Load() {
    if (G.CurrentRace == 0) SetCurrentRaceToDefault();
    G.CancelFlag = true;  // so that the list events do nothing
    ListRaces();
    SelectRace(G.CurrentRace);
    ListRacers();
    G.CancelFlag = false;
    ResultsChanged = false;
}

void EditResultsLogic::ListRaces() {
    comRaceName.Clear();
    for (int r = 1; r <= kMaxRace; ++r)
        if (RaceExists(r))
            comRaceName.AddItem(PadNumber(Str(r), 5) + " - " + RF.Race(r).RaceName, r);
}

void EditResultsLogic::ListRacers() {
    const int race = G.CurrentRace;
    const std::string& sort = RF.RacerSort;
    for (int k = 1; k <= 5; ++k) {
        comRacerName[k].list.Clear();
        comRacerName[k].list.AddItem(kNotAvailable, 0);
    }
    for (std::int64_t n = 1; n <= RF.MaxRacers; ++n) {
        const RacerRec& r = RF.Racer(race, n);
        if (r.RacerName.empty() || r.Scratched) continue;
        const std::string nbr = " (" + NumText(r.BetNbr.Value()) + ")";
        std::string text;
        if (sort == "Name")
            text = r.RacerName + nbr;
        else if (sort == "Post Position")
            text = PadNumber(r.PostPosition) + " - " + r.RacerName + nbr;
        else if (sort == "Betting Number" && RF.UseProgramNbr)
            text = PadNumber(r.ProgramNbr) + " - " + r.RacerName + nbr;
        else if (sort == "Program Number")
            text = PadNumber(r.ProgramNbr) + " - " + r.RacerName + nbr;
        else
            text = PadNumber(NumText(r.BetNbr.Value())) + " - " + r.RacerName;
        for (int k = 1; k <= 5; ++k) comRacerName[k].list.AddItem(text, n);
    }
    // Filling a race is a load, not a change by the user.
    for (int k = 1; k <= 5; ++k) SelectByItemData(comRacerName[k].list, RF.Race(race).Result(k));
}

void EditResultsLogic::SelectRace(int race) {
    int before = comRaceName.ListIndex();
    SelectByItemData(comRaceName, race);
    if (comRaceName.ListIndex() != before) comRaceName_Click();
}

void EditResultsLogic::SelectFinisher(int k, std::int64_t slot) {
    int before = comRacerName[k].list.ListIndex();
    SelectByItemData(comRacerName[k].list, slot);
    if (comRacerName[k].list.ListIndex() != before) comRacerName_Click(k);
}

std::int64_t EditResultsLogic::ChosenSlot(int k) const {
    return comRacerName[k].list.SelectedData();
}

void EditResultsLogic::comRacerName_Click(int k) {
    ResultsChanged = true;
    comRacerName[k].backColor = kColorWhite;
}

void EditResultsLogic::comRaceName_Click() {
    if (ResultsChanged) {
        if (G.CancelFlag) {
            G.CancelFlag = false;
            return;
        }
        Beep();
        if (MsgBox(std::string("You will lose the changes made to current race!") + kLfCr +
                       "Continue?",
                   Buttons::kOKCancel, Icon::kExclamation) == kCancel) {
            G.CancelFlag = true;
            SelectRace(G.CurrentRace);
            return;
        }
    }
    if (G.CancelFlag) {
        G.CancelFlag = false;
        return;
    }
    ResultsChanged = false;
    G.CurrentRace = static_cast<std::int16_t>(comRaceName.SelectedData());
    ListRacers();
}

void EditResultsLogic::cmdOK_Click() {
    const int race = G.CurrentRace;
    G.CancelFlag = true;
    SelectRace(race);
    for (int k = 1; k <= 5; ++k) comRacerName[k].backColor = kColorWhite;

    std::array<std::int64_t, 6> slot{};
    std::array<std::int64_t, 6> nbr{};
    bool differs = false;
    for (int k = 1; k <= 5; ++k) {
        slot[k] = ChosenSlot(k);
        nbr[k] = RF.Racer(race, slot[k]).BetNbr;
        if (slot[k] != RF.Race(race).Result(k)) differs = true;
    }

    if (!differs) {
        G.CancelFlag = false;
        if (ResultsChanged) G.FileChanged = true;
        Unload();
        return;
    }

    // Only this race's bets are looked at, not multi-race bets of its neighbours.
    bool distributed = false;
    for (std::int64_t i = 1; i <= RF.MaxBets && !distributed; ++i) {
        const BetRec& b = RF.Bet(race, i);
        if (b.BetType != 0 && RF.Ticket(b.TicketIdx).Distributed > Currency()) distributed = true;
    }
    if (distributed) {
        Beep();
        if (MsgBox(std::string("Bets have already been distributed!") + kLfCr +
                       "Are you sure you want to change the results?",
                   Buttons::kOKCancel, Icon::kExclamation) == kCancel)
            return;
    }

    if (slot[1] == 0) {
        if (slot[2] != 0 || slot[3] != 0 || slot[4] != 0 || slot[5] != 0) {
            Beep();
            if (MsgBox("Winning " + RF.RaceType + " not entered!" + kLfCr +
                           "All other positions will be set to 'Not Available'",
                       Buttons::kOKCancel, Icon::kExclamation) == kCancel)
                return;
            for (int k = 1; k <= 5; ++k) {
                RF.Race(race).Result(k) = 0;
                comRacerName[k].list.SetListIndex(0);
            }
        }
        // An empty result can always be saved.
    } else {
        for (int a = 1; a <= 4; ++a) {
            for (int b = a + 1; b <= 5; ++b) {
                if (comRacerName[a].list.HasSelection() && comRacerName[b].list.HasSelection() &&
                    slot[a] == slot[b] && slot[a] != 0) {
                    Beep();
                    MsgBox("Same Racer cannot finish in two positions!");
                    comRacerName[a].backColor = kColorRed;
                    comRacerName[b].backColor = kColorRed;
                    return;
                }
            }
        }

        // Judged by bet numbers: a field counts for one position only.
        std::int64_t second = 0, third = 0;
        for (int k = 2; k <= 5; ++k) {
            if (nbr[k] != nbr[1]) {
                second = nbr[k];
                break;
            }
        }
        for (int k = 3; k <= 5; ++k) {
            if (nbr[k] != nbr[1] && nbr[k] != second) {
                third = nbr[k];
                break;
            }
        }
        const RaceRec& rc = RF.Race(race);
        if (second == 0 && (rc.BetType(2) || rc.BetType(3) || rc.BetType(4) || rc.BetType(5))) {
            Beep();
            MsgBox(MissingFinisher("Place, Show, Exacta, and/or Trifecta bets allowed.",
                                   "2nd place finisher must be entered"),
                   Buttons::kOK, Icon::kExclamation);
            return;
        }
        if (third == 0 && (rc.BetType(3) || rc.BetType(5))) {
            Beep();
            MsgBox(MissingFinisher("Show and/or Trifecta bets allowed.",
                                   "3rd place finisher must be entered"),
                   Buttons::kOK, Icon::kExclamation);
            return;
        }
    }

    for (int k = 1; k <= 5; ++k) RF.Race(race).Result(k) = ChosenSlot(k);
    ResultsChanged = false;
    G.CancelFlag = false;
    G.FileChanged = true;
    Unload();
    if (onHide) onHide();

    CalcPayouts();
    if (RF.Race(G.CurrentRace).Result(1) != 0) Shell().ShowForm("frmDisplayPayouts", false);
}

void EditResultsLogic::cmdClear_Click() {
    for (int k = 1; k <= 5; ++k) SelectFinisher(k, 0);
}

void EditResultsLogic::cmdCancel_Click() {
    ResultsChanged = false;
    G.CancelFlag = true;
    Unload();
}

void EditResultsLogic::Form_QueryUnload(bool& cancel) {
    switch (KeepChangesQuestion(ResultsChanged, caption)) {
        case kCancel:
            cancel = true;
            break;
        case kYes:
            cmdOK_Click();
            if (G.CancelFlag) cancel = true;
            break;
        case kNo:
            G.CancelFlag = true;
            break;
        default:
            break;
    }
}

}  // namespace tt
