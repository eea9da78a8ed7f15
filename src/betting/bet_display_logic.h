#pragma once
// "Display Bet Pick's": the racers behind the picks of one bet, a row for each racer, so that
// coupled entries show each of their racers. Any click or key closes it.

#include "model/form_state.h"
#include "model/grid_data.h"

namespace tt {

class BetDisplayLogic : public FormState {
  public:
    BetDisplayLogic();

    void Form_Load();
    // A click anywhere or any key.
    void Form_Click();

    GridData flxPicks;
    ControlState Label1;
};

}  // namespace tt
