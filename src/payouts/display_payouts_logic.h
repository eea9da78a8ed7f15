#pragma once
// "Display Payouts": the finishers of a race and what its pools paid for a $2.00 bet, shown to
// the room; Auto Run turns to the next finished race on each tick.

#include <cstdint>
#include <string>

#include "model/checked_int.h"
#include "model/form_state.h"
#include "model/grid_data.h"
#include "model/list_data.h"
#include "model/tables.h"

namespace tt {

class DisplayPayoutsLogic : public FormState {
  public:
    DisplayPayoutsLogic();

    // The window's placement is restored by the window itself.
    void Form_Load();
    void comRaceName_Click();
    void chkDefault_Click();
    void cmdEditResults_Click();
    void cmdCancel_Click() { Unload(); }
    void Timer1_Timer();
    void txtInterval_KeyPress(int& key);

    // Shows the race in comRaceName: its finishers and both grids. A race without results
    // has its winnings taken back here.
    void DisplayPayouts();

    // A race just settled, shown as if the window had just been opened on it.
    void ShowSettledRace(int race);

    // The window keeps its place and size in "PayLeft", "PayTop", "PayWidth" and
    // "PayHeight".
    static constexpr const char* kPlacementKeys = "Pay";

    // The text a grid cell shows for a payout ratio: "Payback", "No Pay", or the return on a
    // $2.00 bet rounded down by the race's code.
    static std::string PayoutCellText(double payRatio, int race);

    ControlState fraResults, fraPayouts, fraAutoRun, fraOnOff;
    ListData comRaceName;
    ControlState chkDefault;
    FixedArray<ControlState, 1, 5> txtRacerName;
    GridData flxWPS;
    GridData flxPayouts;
    ControlState cmdEditResults, cmdCancel;
    ControlState optAutoOn, optAutoOff, txtInterval;
    // Timer1: an interval of 0 stops it.
    int Timer1Interval = 5000;

    // Working fields of the display.
    Int16 CurRace;
    FixedArray<Int16, 1, 3> Finishers;

  private:
    void FillGrids();
    // Selects a race in comRaceName; the list's Click follows when the selection moves.
    void SelectRace(int race);
};

}  // namespace tt
