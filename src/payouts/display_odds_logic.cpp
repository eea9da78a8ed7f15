#include "payouts/display_odds_logic.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include "model/common.h"
#include "model/number_text.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "payouts/odds_grids.h"
#include "payouts/pools_odds.h"

namespace tt {

namespace {
void SetOption(ControlState& on, ControlState& off) {
    on.value = -1;
    off.value = 0;
}

bool Offered(int race, BetType t) {
    return bool(RF.Race(race).BetType(Code(t)));
}
}  // namespace

DisplayOddsLogic::DisplayOddsLogic() {
    caption = "Display Odds";
    fraRaces.text = "Display odds for:";
    optRacesAll.text = "All";
    optRacesUnfinished.text = "Unfinished";
    chkDefault.text = "Set as default";
    fraAutoRun.text = "Auto Run Settings";
    optAutoOff.text = "Off";
    optAutoOn.text = "On";
    optAutoOff.value = -1;
    fraBetSetting.text = "Show bets:";
    optAutoBetSelected.text = "Selected";
    optAutoBetAll.text = "All";
    // Out of the box Auto Run shows every pool and odds of the race chosen, in turn.
    optAutoBetAll.value = -1;
    fraRaceSetting.text = "Show races:";
    optAutoRaceSelected.text = "Selected";
    optAutoRaceAll.text = "All";
    optAutoRaceSelected.value = -1;
    txtInterval.text = "5";
    cmdCancel.text = "Close";
}

void DisplayOddsLogic::Form_Load() {
    const int def = RF.DefaultRace;
    if (def >= 1 && def <= kMaxRace && RaceFinished(def))
        SetOption(optRacesAll, optRacesUnfinished);
    else
        SetOption(optRacesUnfinished, optRacesAll);
    FillRaceList();
    chkDefault.value = comRaceName.HasSelection() && comRaceName.SelectedData() == RF.DefaultRace;
    FillBetTypeList();
    DisplayOdds();
}

int DisplayOddsLogic::NextUnfinishedRace(int start) {
    for (int r = std::max(start, 1); r <= kMaxRace; ++r)
        if (RaceExists(r) && !RaceFinished(r)) return r;
    for (int r = 1; r <= kMaxRace; ++r)
        if (RaceExists(r) && !RaceFinished(r)) return r;
    return 0;
}

void DisplayOddsLogic::FillRaceList() {
    const bool unfinished = optRacesUnfinished.value != 0;
    comRaceName.Clear();
    for (int r = 1; r <= kMaxRace; ++r)
        if (RaceExists(r) && !(unfinished && RaceFinished(r)))
            comRaceName.AddItem(PadNumber(Str(r), 5) + " - " + RF.Race(r).RaceName, r);
    const int def = RF.DefaultRace;
    if (!unfinished) {
        if (def != 0) SelectByItemData(comRaceName, def);
        if (!comRaceName.HasSelection() && comRaceName.ListCount() > 0) comRaceName.SetListIndex(0);
        return;
    }
    const bool defaultOpen = def >= 1 && def <= kMaxRace && RaceExists(def) && !RaceFinished(def);
    SelectByItemData(comRaceName, defaultOpen ? def : NextUnfinishedRace(def + 1));
}

void DisplayOddsLogic::FillBetTypeList(bool keepItem) {
    const std::int64_t before = comBetType.HasSelection() ? comBetType.SelectedData() : -1;
    comBetType.Clear();
    comBetType.AddItem("Betting Pools", kOddsPools);
    const int race = static_cast<int>(comRaceName.SelectedData());
    if (race >= 1 && race <= kMaxRace) {
        for (BetType t : {BetType::kWin, BetType::kPlace, BetType::kShow, BetType::kExacta})
            if (Offered(race, t)) comBetType.AddItem(Name(t), Code(t));
        const std::string dd = Name(BetType::kDailyDouble);
        if (Offered(race, BetType::kDailyDouble))
            comBetType.AddItem(dd + " (" + Str(race) + "," + Str(race + 1) + " )",
                               kOddsDoubleFromHere);
        if (race > 1 && Offered(race - 1, BetType::kDailyDouble))
            comBetType.AddItem(dd + " (" + Str(race - 1) + "," + Str(race) + " )",
                               kOddsDoubleIntoHere);
    }
    if (keepItem && before >= 0) SelectByItemData(comBetType, before);
    if (!comBetType.HasSelection()) comBetType.SetListIndex(0);
}

void DisplayOddsLogic::RaceChanged() {
    chkDefault.value = comRaceName.HasSelection() && comRaceName.SelectedData() == RF.DefaultRace;
    FillBetTypeList();
    DisplayOdds();
}

void DisplayOddsLogic::optRacesAll_Click() {
    SetOption(optRacesAll, optRacesUnfinished);
    FillRaceList();
    RaceChanged();
}

void DisplayOddsLogic::optRacesUnfinished_Click() {
    SetOption(optRacesUnfinished, optRacesAll);
    FillRaceList();
    RaceChanged();
}

void DisplayOddsLogic::comRaceName_Click() {
    RaceChanged();
}

void DisplayOddsLogic::comBetType_Click() {
    DisplayOdds();
}

void DisplayOddsLogic::chkDefault_Click() {
    // Clicked off it changes nothing.
    if (chkDefault.value == 1 && comRaceName.HasSelection())
        RF.DefaultRace = static_cast<std::int16_t>(comRaceName.SelectedData());
}

void DisplayOddsLogic::optAutoOn_Click() {
    SetOption(optAutoOn, optAutoOff);
}
void DisplayOddsLogic::optAutoOff_Click() {
    SetOption(optAutoOff, optAutoOn);
}
void DisplayOddsLogic::optAutoBetSelected_Click() {
    SetOption(optAutoBetSelected, optAutoBetAll);
}
void DisplayOddsLogic::optAutoBetAll_Click() {
    SetOption(optAutoBetAll, optAutoBetSelected);
}
void DisplayOddsLogic::optAutoRaceSelected_Click() {
    SetOption(optAutoRaceSelected, optAutoRaceAll);
}
void DisplayOddsLogic::optAutoRaceAll_Click() {
    SetOption(optAutoRaceAll, optAutoRaceSelected);
}

void DisplayOddsLogic::txtInterval_KeyPress(int& key) {
    key = NumericKeyFilter(key, false);
}

void DisplayOddsLogic::DisplayOdds() {
    if (!comRaceName.HasSelection()) {
        SetOption(optRacesAll, optRacesUnfinished);
        FillRaceList();
        chkDefault.value =
            comRaceName.HasSelection() && comRaceName.SelectedData() == RF.DefaultRace;
        FillBetTypeList();
    }
    if (!comRaceName.HasSelection()) {
        MsgBox("No races to display");
        Unload();
        return;
    }
    CurRace = static_cast<std::int16_t>(comRaceName.SelectedData());
    CurBetType = static_cast<std::int16_t>(comBetType.SelectedData());
    FillOddsGrid(CurRace, CurBetType, flxOdds);
    TopRowShown = 1;
    flxOdds.SetTopRow(1);
    LastRefresh = Clock().Now();
    ++Refreshes;

    winShares_.clear();
    if (CurBetType >= kOddsPools && CurBetType <= Code(BetType::kShow)) {
        RacerOdds shares;
        CalcWinShares(CurRace, shares);
        for (int n = 0; n <= shares.MaxRacers(); ++n) winShares_.push_back(shares(n));
    }
}

int DisplayOddsLogic::FirstRowNotVisible() const {
    const std::int64_t next = std::int64_t{TopRowShown} + std::max(VisibleRows, 1);
    return next < flxOdds.Rows() ? static_cast<int>(next) : 0;
}

bool DisplayOddsLogic::StepList(ListData& list) {
    if (list.ListCount() == 0) return true;
    int next = list.ListIndex() + 1;
    const bool wrapped = next >= list.ListCount();
    list.SetListIndex(wrapped ? 0 : next);
    return wrapped;
}

void DisplayOddsLogic::Timer1_Timer() {
    if (optAutoOff.value) return;
    double ms = std::floor(Val(txtInterval.text) * 1000 + 0.5);
    if (!(ms > 0)) ms = 0;
    if (ms > std::numeric_limits<int>::max()) ms = std::numeric_limits<int>::max();
    Timer1Interval = static_cast<int>(ms);

    if (const int next = FirstRowNotVisible(); next != 0) {
        // The grid turns a page.
        TopRowShown = next;
    } else {
        // The page is finished: on to the next bet type, and after the last to the next race.
        const bool wrapped = optAutoBetAll.value ? StepList(comBetType) : true;
        if (optAutoRaceAll.value && wrapped) {
            StepList(comRaceName);
            chkDefault.value =
                comRaceName.HasSelection() && comRaceName.SelectedData() == RF.DefaultRace;
            FillBetTypeList(optAutoBetSelected.value != 0);
        }
        DisplayOdds();
        if (unloaded) return;
    }
    flxOdds.SetTopRow(TopRowShown);
}

std::string DisplayOddsLogic::BoardRaceText() const {
    if (CurRace < 1 || CurRace > kMaxRace) return std::string();
    return "Race " + NumText(CurRace.Value()) + ": " + RF.Race(CurRace).RaceName;
}

std::string DisplayOddsLogic::BoardGridText() const {
    return comBetType.Text();
}

std::string DisplayOddsLogic::BoardTimeText() const {
    char text[32];
    std::snprintf(text, sizeof text, "Updated %02d:%02d:%02d", LastRefresh.hour, LastRefresh.minute,
                  LastRefresh.second);
    return text;
}

double DisplayOddsLogic::RowWinShare(int row) const {
    if (winShares_.empty() || row < flxOdds.FixedRows() || row >= flxOdds.Rows()) return -1;
    const std::int64_t slot = flxOdds.RowData(row);
    if (slot < 1 || slot >= static_cast<std::int64_t>(winShares_.size())) return -1;
    if (RF.Racer(CurRace, slot).Scratched) return -1;
    return winShares_[static_cast<std::size_t>(slot)];
}

}  // namespace tt
