#include "payouts/display_payouts_logic.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/common.h"
#include "model/number_text.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "payouts/settlement.h"

namespace tt {

DisplayPayoutsLogic::DisplayPayoutsLogic() {
    caption = "Display Payouts";
    fraResults.text = "Results";
    fraPayouts.text = "Payouts for a $2.00 Bet";
    fraAutoRun.text = "Auto Run Settings";
    chkDefault.text = "Set as default";
    cmdEditResults.text = "Record Results";
    cmdEditResults.toolTip = "Add or change the top finishers of the current race.";
    cmdCancel.text = "Close";
    optAutoOn.text = "On";
    optAutoOff.text = "Off";
    optAutoOff.value = -1;
    txtInterval.text = "5";
}

void DisplayPayoutsLogic::Form_Load() {
    MakeDefaultRaceValid();
    if (G.CurrentRace == 0) G.CurrentRace = RF.DefaultRace;
    comRaceName.Clear();
    for (int r = 1; r <= kMaxRace; ++r)
        if (RaceExists(r))
            comRaceName.AddItem(PadNumber(Str(r), 5) + " - " + RF.Race(r).RaceName, r);
    int race = G.CurrentRace;
    if (race == 0) race = RF.DefaultRace;
    if (race == 0) race = LastFinishedRace();
    SelectRace(race);
    GetFinishers(G.CurrentRace, Finishers);
    DisplayPayouts();
}

void DisplayPayoutsLogic::ShowSettledRace(int race) {
    G.CurrentRace = race;
    Form_Load();
}

void DisplayPayoutsLogic::SelectRace(int race) {
    int before = comRaceName.ListIndex();
    SelectByItemData(comRaceName, race);
    if (comRaceName.ListIndex() != before && comRaceName.HasSelection()) comRaceName_Click();
}

void DisplayPayoutsLogic::comRaceName_Click() {
    G.CurrentRace = static_cast<std::int16_t>(comRaceName.SelectedData());
    chkDefault.value = G.CurrentRace == RF.DefaultRace ? 1 : 0;
    DisplayPayouts();
}

void DisplayPayoutsLogic::chkDefault_Click() {
    // Clicked off it changes nothing.
    if (chkDefault.value == 1)
        RF.DefaultRace = static_cast<std::int16_t>(comRaceName.SelectedData());
}

void DisplayPayoutsLogic::cmdEditResults_Click() {
    G.CurrentRace = static_cast<std::int16_t>(comRaceName.SelectedData());
    Unload();
    Shell().ShowForm("frmEditResults", true);
}

void DisplayPayoutsLogic::txtInterval_KeyPress(int& key) {
    key = NumericKeyFilter(key, false);
}

void DisplayPayoutsLogic::Timer1_Timer() {
    if (optAutoOff.value) return;
    double ms = std::floor(Val(txtInterval.text) * 1000 + 0.5);
    if (!(ms > 0)) ms = 0;
    if (ms > std::numeric_limits<int>::max()) ms = std::numeric_limits<int>::max();
    Timer1Interval = static_cast<int>(ms);

    // One finished race per tick, in race order and round again after race 20. A card with
    // no finished race leaves the display as it is.
    int race = CurRace;
    bool found = false;
    for (int step = 0; step < kMaxRace && !found; ++step) {
        race = race >= kMaxRace || race < 0 ? 1 : race + 1;
        found = RaceFinished(race);
    }
    if (!found) return;
    CurRace = race;
    SelectRace(race);
    DisplayPayouts();
}

std::string DisplayPayoutsLogic::PayoutCellText(double payRatio, int race) {
    if (payRatio == kPayback) return "Payback";
    if (payRatio == kNoPay) return "No Pay";
    return MoneyText(RoundDownTo(2 * payRatio + 2, RF.Race(race).RoundTo));
}

void DisplayPayoutsLogic::DisplayPayouts() {
    if (!comRaceName.HasSelection()) {
        Beep();
        MsgBox("No races to display");
        return;
    }
    CurRace = static_cast<std::int16_t>(comRaceName.SelectedData());
    const RaceRec& rc = RF.Race(CurRace);
    for (int k = 1; k <= 5; ++k) {
        const RacerRec& r = RF.Racer(CurRace, rc.Result(k));
        txtRacerName(k).text = r.ProgramNbr + " - " + r.RacerName;
    }
    GetFinishers(CurRace, Finishers);

    flxWPS.SetCols(4);
    flxWPS.SetRows(4);
    flxWPS.Clear();
    const char* const kHeads[] = {"Bet #", "Win", "Place", "Show"};
    for (int c = 0; c < 4; ++c) {
        flxWPS.SetTextMatrix(0, c, kHeads[c]);
        flxWPS.SetColWidth(c, 805);
        flxWPS.SetColAlignment(c, CellAlign::kCenter);
    }
    CenterGridCells(flxWPS, 0, -1, 0, -1);
    for (int k = 1; k <= 3; ++k) flxWPS.SetTextMatrix(k, 0, NumText(Finishers(k).Value()));

    flxPayouts.SetCols(2);
    flxPayouts.SetRows(1);
    flxPayouts.Clear();
    flxPayouts.SetTextMatrix(0, 0, "Bet Type");
    flxPayouts.SetTextMatrix(0, 1, "Wins");

    FillGrids();
}

void DisplayPayoutsLogic::FillGrids() {
    const int race = CurRace;
    const RaceRec& rc = RF.Race(race);
    if (rc.Result(1) == 0) {
        for (int r = 1; r <= 3; ++r)
            for (int c = 1; c <= 3; ++c) flxWPS.SetTextMatrix(r, c, " ");
        ClearRaceWinnings(race, G.CurrentRace);
        return;
    }

    // A type not offered holds 0 and shows 2.00: there is no test for it here.
    for (int type = 1; type <= 3; ++type)
        for (int pos = 1; pos <= type; ++pos)
            flxWPS.SetTextMatrix(pos, type,
                                 PayoutCellText(RF.Payout(race, type, pos).PayRatio, race));

    for (int code = Code(BetType::kExacta); code <= kBetTypes; ++code) {
        const BetType t = BetTypeOf(code);
        std::string name;
        std::string wins;
        if (IsExotic(t)) {
            if (!rc.BetType(code)) continue;
            const int m = PicksToWin(t);
            name = Name(t) + " -" + Str(Finishers(1).Value()) + "," + Str(Finishers(2).Value());
            if (t == BetType::kTrifecta) name += "," + Str(Finishers(3).Value());
            const int paid = rc.CorrectPaid(code);
            if (paid < m) name += " (" + Str(paid) + " correct)";
            wins = PayoutCellText(RF.Payout(race, code, 1).PayRatio, race);
        } else {
            // Only the group that ends at this race is listed.
            const int k = race - LegCount(t) + 1;
            if (k <= 0 || !RF.Race(k).BetType(code)) continue;
            name = Name(t) + " -";
            for (int r = k; r <= race; ++r) {
                if (r > k) name += ",";
                name += Str(RF.Racer(r, RF.Race(r).Result(1)).BetNbr.Value());
            }
            const int paid = rc.CorrectPaid(code);
            if (paid < LegCount(t)) name += " (" + Str(paid) + " correct )";
            const double ratio = RF.Payout(race, code, 1).PayRatio;
            const double rounded = RoundPlaces(ratio, 0);
            if (rounded == -1)
                wins = "Payback";
            else if (rounded == -2)
                wins = "No Pay";
            else if (rounded == -3)
                wins = "Incomplt";
            else
                wins = MoneyText(RoundDownTo(2 * ratio + 2, rc.RoundTo));
        }
        flxPayouts.AddItem(name + "\t" + wins);
    }
}

}  // namespace tt
