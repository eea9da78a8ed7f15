#include "reports/select_race_logic.h"

#include "model/common.h"
#include "model/race_file.h"
#include "reports/report_writer.h"

namespace tt {

SelectRaceAndBetTypeLogic::SelectRaceAndBetTypeLogic() {
    caption = "Select Race to Print";
    fraPrint.text = "Print Odds for:";
    lblRace.text = "Race:";
    lblBetType.text = "Bet Type:";
    cmdOK.text = "OK";
    cmdCancel.text = "Cancel";
    cmdHelp.text = "Help";
}

void SelectRaceAndBetTypeLogic::Form_Load() {
    G.CancelFlag = true;
    comRaceName.Clear();
    for (int r = 1; r <= kMaxRace; ++r)
        if (RaceExists(r))
            comRaceName.AddItem(PadNumber(Str(r), 5) + " - " + RF.Race(r).RaceName, r);
    SelectByItemData(comRaceName, G.CurrentRace);
    // With all races listed elsewhere the current race is none: the card's default race.
    if (!comRaceName.HasSelection()) {
        MakeDefaultRaceValid();
        SelectByItemData(comRaceName, RF.DefaultRace);
    }
    comRaceName_Click();
}

void SelectRaceAndBetTypeLogic::BuildBetTypeList(ListData& list, int race) {
    list.Clear();
    list.AddItem("All Bet Types", 0);
    list.AddItem("Betting Pools", 99);
    if (race >= 1 && race <= kMaxRace) {
        for (BetType t : {BetType::kWin, BetType::kPlace, BetType::kShow, BetType::kExacta,
                          BetType::kDailyDouble})
            if (RF.Race(race).BetType(Code(t))) list.AddItem(G.BetTypeName(Code(t)), Code(t));
        if (race > 1 && RF.Race(race - 1).BetType(Code(BetType::kDailyDouble)))
            list.AddItem("Daily Double (prior race)", 62);
    }
    list.SetListIndex(0);
}

void SelectRaceAndBetTypeLogic::comRaceName_Click() {
    BuildBetTypeList(comBetType, static_cast<int>(comRaceName.SelectedData()));
}

void SelectRaceAndBetTypeLogic::cmdOK_Click() {
    // Without a race there is nothing to print: as Cancel.
    if (comRaceName.HasSelection() && comBetType.HasSelection()) {
        G.CurrentRace = static_cast<std::int16_t>(comRaceName.SelectedData());
        OddsBetType = static_cast<std::int16_t>(comBetType.SelectedData());
        G.CancelFlag = false;
    }
    Unload();
}

}  // namespace tt
