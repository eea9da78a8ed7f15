#pragma once
// "Display Odds": the pools and odds of a race before it is run, shown to the room. Auto Run
// turns the pages of the grid on a timer, then moves on bet type by bet type and race by race.
// The same state drives the window and its board, the full-screen view for a hall.

#include <cstdint>
#include <string>
#include <vector>

#include "model/checked_int.h"
#include "model/date_time.h"
#include "model/form_state.h"
#include "model/grid_data.h"
#include "model/list_data.h"

namespace tt {

class DisplayOddsLogic : public FormState {
  public:
    DisplayOddsLogic();

    // The window's placement is restored by the window itself.
    void Form_Load();
    // An option button clicked to on.
    void optRacesAll_Click();
    void optRacesUnfinished_Click();
    void comRaceName_Click();
    void comBetType_Click();
    void chkDefault_Click();
    void cmdCancel_Click() { Unload(); }
    void Timer1_Timer();
    void txtInterval_KeyPress(int& key);
    // Auto Run's option buttons: each clicked to on.
    void optAutoOn_Click();
    void optAutoOff_Click();
    void optAutoBetSelected_Click();
    void optAutoBetAll_Click();
    void optAutoRaceSelected_Click();
    void optAutoRaceAll_Click();

    // Fills comRaceName from optRacesAll / optRacesUnfinished and selects the race to show.
    void FillRaceList();
    // Fills comBetType for the selected race and selects the item with the item data shown
    // before when keepItem is set and the race has it, else the first item.
    void FillBetTypeList(bool keepItem = true);
    // Builds flxOdds for the selected race and bet type, from its top row. With no race to
    // show, "No races to display" and the window unloads.
    void DisplayOdds();

    // The first race from start up to 20, then from 1, with a name and no result; 0 if none.
    static int NextUnfinishedRace(int start);

    // The first row from TopRowShown on that the grid does not show whole, with VisibleRows
    // rows in view; 0 when every row down to the last is in view.
    int FirstRowNotVisible() const;

    // The window keeps its place and size in "OddsLeft", "OddsTop", "OddsWidth" and
    // "OddsHeight".
    static constexpr const char* kPlacementKeys = "Odds";

    // The board's title strip: the race as the race list shows it, what the grid shows, and
    // the time of the last refresh, "Updated hh:mm:ss".
    std::string BoardRaceText() const;
    std::string BoardGridText() const;
    std::string BoardTimeText() const;
    // The share of the live Win pool bet on the number of a racer row of the grid, 0 to 1; -1
    // for a row that is no racer's or a grid that shows no single racers.
    double RowWinShare(int row) const;

    ControlState fraRaces, optRacesAll, optRacesUnfinished;
    ListData comRaceName;
    ListData comBetType;
    ControlState chkDefault;
    GridData flxOdds;
    ControlState fraAutoRun, optAutoOff, optAutoOn;
    ControlState fraBetSetting, optAutoBetSelected, optAutoBetAll;
    ControlState fraRaceSetting, optAutoRaceSelected, optAutoRaceAll;
    ControlState txtInterval;
    ControlState cmdCancel;
    // Timer1: an interval of 0 stops it.
    int Timer1Interval = 5000;

    // Working fields of the display.
    Int16 CurRace;
    Int16 CurBetType;
    Int32 TopRowShown = 1;
    // The data rows the window (or the board) shows whole at once; the form keeps it up to
    // date as it is resized. At least one row turns each page.
    int VisibleRows = 1;
    // When the grid was last worked out, and how many times it has been.
    DateTime LastRefresh;
    std::uint64_t Refreshes = 0;

  private:
    // Steps a list to its next item, round to the first; true when it went round.
    static bool StepList(ListData& list);
    // Selects the race, the Click following when the selection moved.
    void SelectRace(int race);
    void RaceChanged();
    // Win shares of the race shown, by slot, for the racer rows.
    std::vector<double> winShares_;
};

}  // namespace tt
