#include "racecard/forms/frm_copy_racers.h"
#include "racecard/forms/frm_edit_bettor.h"
#include "racecard/forms/frm_edit_racer.h"
#include "racecard/forms/frm_race_card.h"
#include "racecard/forms/frm_select_bettor.h"
#include "shell/forms/form_registry.h"

namespace tt::gui {

void RegisterRaceCardForms() {
    RegisterForm("frmRaceCard", [](QWidget* parent) { return new frmRaceCard(parent); });
    // The racer windows work on the open race card's copies.
    RegisterForm("frmEditRacer", [](QWidget* parent) -> QWidget* {
        RaceCardLogic* card = RaceCardLogic::Active();
        return card ? new frmEditRacer(*card, parent) : nullptr;
    });
    RegisterForm("frmCopyRacers", [](QWidget* parent) -> QWidget* {
        RaceCardLogic* card = RaceCardLogic::Active();
        return card ? new frmCopyRacers(*card, parent) : nullptr;
    });
    RegisterForm("frmSelectBettor", [](QWidget* parent) { return new frmSelectBettor(parent); });
    RegisterForm("frmEditBettor", [](QWidget* parent) { return new frmEditBettor(parent); });
}

}  // namespace tt::gui
