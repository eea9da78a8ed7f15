#pragma once
// "Copy Racers": fills the race card's current race, which has no racers, with the racers of
// another race.

#include "model/form_state.h"
#include "model/list_data.h"

namespace tt {

class RaceCardLogic;

class CopyRacersLogic : public FormState {
  public:
    explicit CopyRacersLogic(RaceCardLogic& card);

    void Form_Load();
    void cmdOK_Click();
    void cmdCancel_Click();

    ListData comRaceName;
    ControlState lblCopyFrom, cmdOK, cmdCancel, cmdHelp;

  private:
    RaceCardLogic& card_;
};

}  // namespace tt
