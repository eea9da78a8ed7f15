#pragma once
// "Select Race to Print": the race and the part of its pools and odds that the odds report
// prints.

#include "model/form_state.h"
#include "model/list_data.h"

namespace tt {

class SelectRaceAndBetTypeLogic : public FormState {
  public:
    SelectRaceAndBetTypeLogic();

    void Form_Load();
    void comRaceName_Click();
    // Sets CurrentRace, OddsBetType and CancelFlag False.
    void cmdOK_Click();
    // CancelFlag stays True, as the load left it.
    void cmdCancel_Click() { Unload(); }

    // The parts of a race's report: all, the pools, each bet type with odds that the race
    // offers, and the Daily Double that ends at the race.
    static void BuildBetTypeList(ListData& list, int race);

    ControlState fraPrint, lblRace, lblBetType, cmdOK, cmdCancel, cmdHelp;
    ListData comRaceName;
    ListData comBetType;
};

}  // namespace tt
