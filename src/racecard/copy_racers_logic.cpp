#include "racecard/copy_racers_logic.h"

#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "racecard/race_card_logic.h"

namespace tt {

CopyRacersLogic::CopyRacersLogic(RaceCardLogic& card) : card_(card) {
    caption = "Copy Racers";
    lblCopyFrom.text = "Copy racers from:";
    cmdOK.text = "OK";
    cmdCancel.text = "Cancel";
    cmdHelp.text = "Help";
}

void CopyRacersLogic::Form_Load() {
    // The races of the document: a race named in this session and not yet saved is absent.
    comRaceName.Clear();
    for (int i = 1; i <= kMaxRace; ++i)
        if (RaceExists(i))
            comRaceName.AddItem(PadNumber(Str(i), 5) + " - " + RF.Race(i).RaceName, i);
    if (comRaceName.ListCount() > 0) comRaceName.SetListIndex(0);
    SelectByItemData(comRaceName, G.CurrentRace);
    G.CancelFlag = true;
}

void CopyRacersLogic::cmdOK_Click() {
    G.CancelFlag = true;
    if (!comRaceName.HasSelection()) {
        // Nothing to copy from until a race is chosen.
        Beep();
        return;
    }
    const int source = static_cast<int>(comRaceName.SelectedData());
    const int race = G.CurrentRace;
    if (source == race) {
        Beep();
        MsgBox("Cannot copy racers from the current race!");
        return;
    }
    const std::int64_t count = RF.MaxRacers;
    std::int64_t start = count;
    for (std::int64_t s = 1; s <= count; ++s)
        if (card_.WorkRacer(race, s).BetNbr == 0) {
            start = s - 1;
            break;
        }
    // The slots grow as far as the last one copied needs, for every race.
    if (start + count > RF.MaxRacers) {
        RF.MaxRacers = Int16::Narrow(start + count);
        card_.GrowRacers();
    }
    for (std::int64_t s = 1; s <= count; ++s) {
        const RacerRec& from = card_.WorkRacer(source, s);
        RacerRec& to = card_.WorkRacer(race, start + s);
        to.BetNbr = from.BetNbr;
        to.Odds = from.Odds;
        to.PostPosition = from.PostPosition;
        to.ProgramNbr = from.ProgramNbr;
        to.RacerName = from.RacerName;
        to.Scratched = from.Scratched;
    }
    G.CancelFlag = false;
    Unload();
}

void CopyRacersLogic::cmdCancel_Click() {
    G.CancelFlag = true;
    Unload();
}

}  // namespace tt
