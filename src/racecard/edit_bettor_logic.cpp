#include "racecard/edit_bettor_logic.h"

#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

EditBettorLogic::EditBettorLogic() {
    caption = "Edit Bettor";
    cmdOK.text = "OK";
    cmdCancel.text = "Cancel";
    cmdHelp.text = "Help";
}

void EditBettorLogic::Form_Load() {
    centerInMain = true;
    const std::int64_t slot = G.CurrentBettor;
    if (slot != 0) {
        const BettorRec& b = RF.Bettor(slot);
        txtBettorName.text = b.BettorName;
        txtBettorPhone.text = b.BettorPhone;
        txtBettorEmail.text = b.BettorEmail;
        txtBettorInfo.text = b.BettorInfo;
        // The amount is taken from the current race at the same slot, not from the race of the
        // bet whose ticket matched: the window has always shown it so.
        Currency total;
        for (int r = 1; r <= kMaxRace; ++r)
            for (std::int64_t n = 1; n <= RF.MaxBets; ++n)
                if (RF.Ticket(RF.Bet(r, n).TicketIdx).TicketBettor == slot)
                    total += RF.Bet(G.CurrentRace, n).BetAmt;
        lblBetAmt.text = PlainDecimal(total);
    }
    FormChanged = false;
}

void EditBettorLogic::Text_Change(const std::string&) {
    FormChanged = true;
}

void EditBettorLogic::Text_GotFocus(const std::string& name) {
    if (name == "txtBettorName" || name == "txtBettorPhone" || name == "txtBettorEmail")
        selectText = name;
}

void EditBettorLogic::cmdOK_Click() {
    G.CancelFlag = true;
    const std::string& name = txtBettorName.text;
    if (name.empty()) {
        Beep();
        MsgBox("Bettor Name is required.");
        return;
    }
    for (std::int64_t i = 1; i <= RF.BettorCount; ++i) {
        // Exact comparison: Smith and SMITH are two bettors.
        if (RF.Bettor(i).BettorName == name && i != G.CurrentBettor) {
            Beep();
            MsgBox("Bettor with this name already exists!", Buttons::kOK, Icon::kExclamation);
            SetFocus("txtBettorName");
            selectText = "txtBettorName";
            return;
        }
    }
    if (G.CurrentBettor == 0) {
        for (std::int64_t i = 1; i <= RF.BettorCount; ++i)
            if (RF.Bettor(i).BettorName.empty()) {
                G.CurrentBettor = static_cast<std::int16_t>(i);
                break;
            }
        if (G.CurrentBettor == 0) {
            const Int16 count = RF.BettorCount + 1;
            RF.Bettor.ReDimPreserve(count + 1);
            RF.BettorCount = count;
            G.CurrentBettor = count;
        }
    }
    BettorRec& b = RF.Bettor(G.CurrentBettor);
    b.BettorName = name;
    b.BettorPhone = txtBettorPhone.text;
    b.BettorEmail = txtBettorEmail.text;
    b.BettorInfo = txtBettorInfo.text;
    if (FormChanged) G.FileChanged = true;
    G.CancelFlag = false;
    Unload();
}

void EditBettorLogic::cmdCancel_Click() {
    FormChanged = false;
    Unload();
}

void EditBettorLogic::Form_QueryUnload(bool& cancel) {
    KeepChangesOnUnload(FormChanged, caption, cancel, [this] { cmdOK_Click(); });
}

}  // namespace tt
