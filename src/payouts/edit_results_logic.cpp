#include "payouts/edit_results_logic.h"

#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "payouts/record_result.h"

namespace tt {

namespace {
const char* const kNotAvailable = "     Not Available";
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
        if (!CanFinish(race, n)) continue;
        const RacerRec& r = RF.Racer(race, n);
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

    std::array<std::int64_t, 6> slots{};
    for (int k = 1; k <= 5; ++k) slots[k] = ChosenSlot(k);
    const ResultOutcome outcome = RecordResult(race, slots, AskResultQuestion);
    switch (outcome.status) {
        case ResultStatus::kUnchanged:
            G.CancelFlag = false;
            if (ResultsChanged) G.FileChanged = true;
            Unload();
            return;
        case ResultStatus::kStored:
            break;
        case ResultStatus::kSameRacer:
            ShowResultRefusal(outcome);
            comRacerName[outcome.first].backColor = kColorRed;
            comRacerName[outcome.second].backColor = kColorRed;
            return;
        default:
            ShowResultRefusal(outcome);
            return;
    }
    if (outcome.cleared)
        for (int k = 1; k <= 5; ++k) comRacerName[k].list.SetListIndex(0);

    ResultsChanged = false;
    G.CancelFlag = false;
    G.FileChanged = true;
    Unload();
    if (onHide) onHide();

    SettleRace(race, handling);
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
