#include "reports/forms/frm_list_bets.h"
#include "reports/forms/frm_print.h"
#include "reports/forms/frm_select_race.h"
#include "shell/forms/form_registry.h"

namespace tt::gui {

void RegisterReportForms() {
    RegisterForm("frmListBets", [](QWidget* parent) { return new frmListBets(parent); });
    RegisterForm("frmPrint", [](QWidget* parent) { return new frmPrint(parent); });
    RegisterForm("frmSelectRaceAndBetType",
                 [](QWidget* parent) { return new frmSelectRaceAndBetType(parent); });
}

}  // namespace tt::gui
