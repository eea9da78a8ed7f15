#include "betting/bet_display_logic.h"

#include <array>

#include "betting/betting_state.h"
#include "model/common.h"
#include "model/race_file.h"

namespace tt {

BetDisplayLogic::BetDisplayLogic() {
    caption = "Display Bet Pick's";
    Label1.text = "Click on this table or press any key to close";
}

void BetDisplayLogic::Form_Load() {
    GridData& g = flxPicks;
    g.SetFixedCols(0);
    g.SetFixedRows(1);
    g.SetCols(5);
    g.SetRows(1);
    static const char* const kHeads[5] = {"Pick", "Bet#", "Name", "Pgm#", "PP"};
    const int widths[5] = {500, 500, 1300, RF.UseProgramNbr ? 500 : 0,
                           RF.UsePostPosition ? 500 : 0};
    for (int c = 0; c < 5; ++c) {
        g.SetTextMatrix(0, c, kHeads[c]);
        g.SetColWidth(c, widths[c]);
        g.SetCellAlignment(0, c, CellAlign::kCenter);
    }

    // The bet last loaded into the transaction wins over the bet named by CurrentBet, whichever
    // bet the caller had in mind.
    const std::int64_t race = G.CurrentRace;
    if (race == 0 || (Betting.LoadedTranBet == 0 && G.CurrentBet == 0)) return;
    std::int64_t type;
    std::array<std::int64_t, 7> picks{};
    if (Betting.LoadedTranBet != 0) {
        const TempBet& b = Betting.TranBets(Betting.LoadedTranBet);
        type = b.BetType;
        for (int i = 1; i <= 6; ++i) picks[static_cast<std::size_t>(i)] = b.Pick(i);
    } else {
        const BetRec& b = RF.Bet(race, G.CurrentBet);
        type = b.BetType;
        for (int i = 1; i <= 6; ++i) picks[static_cast<std::size_t>(i)] = b.Pick(i);
    }

    for (int i = 1; i <= 6; ++i) {
        const std::int64_t pick = picks[static_cast<std::size_t>(i)];
        if (pick == 0) continue;
        const int pickRace = PickRace(static_cast<int>(race), BetTypeOf(type), i);
        bool found = false;
        // The legs past the last race of the card have no racers.
        for (std::int64_t slot = 1; pickRace <= kSpareRace && slot <= RF.MaxRacers; ++slot) {
            const RacerRec& r = RF.Racer(pickRace, slot);
            if (r.BetNbr != pick) continue;
            g.AddItem(NumText(static_cast<std::int64_t>(i)) + "\t" + NumText(pick) + "\t" +
                      r.RacerName + "\t" + r.ProgramNbr + "\t" + r.PostPosition);
            found = true;
        }
        if (!found)
            g.AddItem(NumText(static_cast<std::int64_t>(i)) + "\t" + NumText(pick) +
                      "\tInvalid bet#");
    }
}

void BetDisplayLogic::Form_Click() {
    Unload();
}

}  // namespace tt
