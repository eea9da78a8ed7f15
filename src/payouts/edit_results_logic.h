#pragma once
// "Edit Results": who finished where. Saving a changed result is what starts the payout
// calculation of the race.

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "model/form_state.h"
#include "model/list_data.h"
#include "payouts/settle_race.h"

namespace tt {

class EditResultsLogic : public FormState {
  public:
    EditResultsLogic();

    void Form_Load();
    void comRaceName_Click();
    // A finisher list changed by the user (index 1 to 5).
    void comRacerName_Click(int k);
    void cmdOK_Click();
    void cmdClear_Click();
    void cmdCancel_Click();
    // The window's own close control.
    void Form_QueryUnload(bool& cancel);

    void ListRaces();
    void ListRacers();

    struct RacerList {
        ListData list{true};
        std::uint32_t backColor = kColorWhite;
    };

    ListData comRaceName;
    std::array<RacerList, 6> comRacerName;  // 1st to 5th; [0] unused
    ControlState cmdClear, cmdOK, cmdCancel, cmdHelp;
    ControlState lblClear;
    bool ResultsChanged = false;
    // Called where saving hides the window, before the payouts are worked out and shown.
    std::function<void()> onHide;
    // Asked for each pool without winners when a saved result is settled.
    HandlingPolicy handling;

  private:
    // Selects a race in comRaceName; the list's Click follows when the selection moves.
    void SelectRace(int race);
    // Selects by item data in a finisher list; a moved selection counts as a change.
    void SelectFinisher(int k, std::int64_t slot);
    // The racer slot chosen in a list; none chosen counts as "Not Available".
    std::int64_t ChosenSlot(int k) const;
};

}  // namespace tt
