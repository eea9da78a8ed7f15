#include "payouts/forms/frm_display_odds.h"
#include "payouts/forms/frm_display_payouts.h"
#include "payouts/forms/frm_edit_results.h"
#include "shell/forms/form_registry.h"

namespace tt::gui {

void RegisterPayoutForms() {
    RegisterForm("frmEditResults", [](QWidget* parent) { return new frmEditResults(parent); });
    RegisterForm("frmDisplayOdds", [](QWidget* parent) { return new frmDisplayOdds(parent); });
    RegisterForm("frmDisplayPayouts",
                 [](QWidget* parent) { return new frmDisplayPayouts(parent); });
}

}  // namespace tt::gui
