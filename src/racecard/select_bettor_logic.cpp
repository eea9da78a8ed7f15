#include "racecard/select_bettor_logic.h"

#include <algorithm>

#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

Int16 DeletedBettors;

namespace {
// The hourglass while an action runs; back to normal at the end and before any box.
struct Hourglass {
    Hourglass() { Shell().SetBusy(true); }
    ~Hourglass() { Shell().SetBusy(false); }
    static void Off() { Shell().SetBusy(false); }
};
}  // namespace

SelectBettorLogic::SelectBettorLogic() {
    caption = "Select a Participant";
    cmdNew.text = "New";
    cmdEdit.text = "Edit";
    cmdDelete.text = "Delete";
    cmdCancel.text = "Close";
    cmdHelp.text = "Help";
}

void SelectBettorLogic::Form_Load() {
    centerOnScreen = true;
    lstBettors.Clear();
    for (std::int64_t i = 1; i <= RF.BettorCount; ++i)
        if (!RF.Bettor(i).BettorName.empty()) lstBettors.AddItem(RF.Bettor(i).BettorName, i);
    lstBettorsScrollTo = -1;
    for (int i = 0; i < lstBettors.ListCount(); ++i) {
        if (lstBettors.ItemData(i) != G.CurrentBettor) continue;
        // The entry 15 further on first, so that the list scrolls the selection well into view.
        lstBettorsScrollTo = std::min(i + 15, lstBettors.ListCount() - 1);
        lstBettors.SetListIndex(lstBettorsScrollTo);
        lstBettors.SetListIndex(i);
        break;
    }
}

void SelectBettorLogic::cmdNew_Click() {
    Hourglass busy;
    G.CurrentBettor = 0;
    Hourglass::Off();
    Shell().ShowForm("frmEditBettor", true);
    Form_Load();
}

void SelectBettorLogic::cmdEdit_Click() {
    Hourglass busy;
    if (!lstBettors.HasSelection()) {
        Hourglass::Off();
        Beep();
        MsgBox("Select a Bettor to Edit");
        return;
    }
    G.CurrentBettor = static_cast<std::int16_t>(lstBettors.SelectedData());
    Hourglass::Off();
    Shell().ShowForm("frmEditBettor", true);
    Form_Load();
}

void SelectBettorLogic::cmdDelete_Click() {
    Hourglass busy;
    if (!lstBettors.HasSelection()) {
        Hourglass::Off();
        Beep();
        MsgBox("Select a Bettor to Delete");
        return;
    }
    Hourglass::Off();
    Beep();
    if (MsgBox("Are you sure you want to delete " + lstBettors.Text() + "?", Buttons::kYesNo) !=
        kYes)
        return;
    Shell().SetBusy(true);
    const std::int64_t slot = lstBettors.SelectedData();
    DeletedBettors += 1;
    // The slot stays, empty: tickets keep pointing at it.
    BettorRec& b = RF.Bettor(slot);
    b.BettorName.clear();
    b.BettorPhone.clear();
    b.BettorInfo.clear();
    b.BettorEmail.clear();
    b.TotalBet = Currency();
    b.TotalWon = Currency();
    lstBettors.RemoveItem(lstBettors.ListIndex());
    G.FileChanged = true;
}

}  // namespace tt
