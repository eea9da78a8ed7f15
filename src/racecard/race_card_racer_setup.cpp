// The Racer Setup tab of "Race Card Setup": the racer grid of the current race, and the buttons
// that open the racer editor, copy racers from another race or remove them all.

#include "model/common.h"
#include "model/ports.h"
#include "racecard/race_card_logic.h"

namespace tt {

namespace {

const char* const kRaceNotEstablished = "Race not established!";
const char* const kEnterRaceName = "Please enter Race Name before copying racers.";

}  // namespace

void RaceCardLogic::GrowRacers() {
    RF.Racer.ReDimPreserve(RF.MaxRacers + 1);
    WorkRacer.ReDimPreserve(RF.MaxRacers + 1);
}

void RaceCardLogic::MoveRacerToWindow(int race) {
    GridData& g = flxRacers;
    g.Clear();
    lblRRRace.text = lblRace.text;
    SetText(txtRRRaceName, WorkRace(race).RaceName);
    SelectByItemData(comRRRaceName, race);
    if (comRRRaceName.HasSelection() && !loading_) comRRRaceName_Click();

    g.SetCols(6);
    g.SetFixedRows(1);
    g.SetFixedCols(0);
    g.SetRows(1);
    const char* headers[6] = {"Bet#", "Pgm#", "PP", "Name", "Hcap Odds", ""};
    const int widths[6] = {600,
                           IsChecked(chkUseProgramNbr) ? 600 : 0,
                           IsChecked(chkUsePostPosition) ? 600 : 0,
                           2000,
                           1000,
                           0};
    for (int c = 0; c < 6; ++c) {
        g.SetTextMatrix(0, c, headers[c]);
        g.SetColWidth(c, widths[c]);
    }
    int count = 0;
    for (std::int64_t n = 1; n <= RF.MaxRacers; ++n)
        if (WorkRacer(race, n).BetNbr != 0) ++count;
    g.SetRows(1 + count);
    int row = 1;
    for (std::int64_t n = 1; n <= RF.MaxRacers; ++n) {
        const RacerRec& r = WorkRacer(race, n);
        if (r.BetNbr == 0) continue;
        std::string odds = "Scratched";
        if (!r.Scratched) {
            auto [num, den] = OddsToFraction(r.Odds);
            odds = num + "-" + den;
        }
        g.SetTextMatrix(row, 0, NumText(r.BetNbr.Value()));
        g.SetTextMatrix(row, 1, r.ProgramNbr);
        g.SetTextMatrix(row, 2, r.PostPosition);
        g.SetTextMatrix(row, 3, r.RacerName);
        g.SetTextMatrix(row, 4, odds);
        g.SetTextMatrix(row, 5, NumText(n));
        ++row;
    }
    if (g.Rows() > 2) {
        const std::string& sort = comRacerSortText;
        if (sort == "Betting Number")
            g.SortAscending(1, g.Rows() - 1, 0, 1);
        else if (sort == "Name")
            g.SortAscending(1, g.Rows() - 1, 3, 3);
        else if (sort == "Program Number")
            g.SortAscending(1, g.Rows() - 1, 1, 1);
        else if (sort == "Post Position")
            g.SortAscending(1, g.Rows() - 1, 2, 2);
    }

    const bool results = RaceFinished(race);
    cmdNew.enabled = cmdClearRacers.enabled = txtRRRaceName.enabled = cmdCopyRacers.enabled =
        !results;
    lblRResultsMessage.visible = results;
    if (SavedGridRow >= g.FixedRows() && SavedGridRow < g.Rows()) g.SetRow(SavedGridRow);
}

void RaceCardLogic::flxRacers_DblClick() {
    if (RaceFinished(G.CurrentRace)) return;
    const int row = flxRacers.Row();
    G.CurrentRacer = RoundToInt16(Val(flxRacers.TextMatrix(row, 5)));
    SavedGridRow = row;
    Shell().ShowForm("frmEditRacer", true);
    if (!G.CancelFlag) {
        FormChanged = true;
        MoveRacerToWindow(G.CurrentRace);
    }
}

void RaceCardLogic::cmdNew_Click() {
    if (txtRRRaceName.text.empty()) {
        MsgBox(std::string(kRaceNotEstablished) + kCrLf + kEnterRaceName);
        return;
    }
    G.CurrentRacer = 0;
    Shell().ShowForm("frmEditRacer", true);
    if (G.CancelFlag) return;
    FormChanged = true;
    MoveRacerToWindow(G.CurrentRace);
    for (int r = flxRacers.FixedRows(); r < flxRacers.Rows(); ++r)
        if (Val(flxRacers.TextMatrix(r, 5)) == G.CurrentRacer) {
            flxRacers.SetRow(r);
            break;
        }
}

void RaceCardLogic::cmdClearRacers_Click() {
    for (std::int64_t n = 1; n <= RF.MaxRacers; ++n) FreeRacerSlot(WorkRacer(G.CurrentRace, n));
    FormChanged = true;
    MoveRacerToWindow(G.CurrentRace);
}

bool RaceCardLogic::CurrentRaceHasNamedRacer() const {
    for (std::int64_t n = 1; n <= RF.MaxRacers; ++n)
        if (!WorkRacer(G.CurrentRace, n).RacerName.empty()) return true;
    return false;
}

void RaceCardLogic::cmdCopyRacers_Click() {
    if (txtRRRaceName.text.empty()) {
        MsgBox(std::string(kRaceNotEstablished) + kCrLf + kEnterRaceName);
        return;
    }
    if (CurrentRaceHasNamedRacer()) {
        MsgBox(std::string("Copying racers from another race can only ") + kCrLf +
                   "be done for a race with no racers.",
               Buttons::kOK, Icon::kExclamation);
        return;
    }
    Shell().ShowForm("frmCopyRacers", true);
    if (G.CancelFlag) return;
    FormChanged = true;
    MoveRacerToWindow(G.CurrentRace);
}

}  // namespace tt
