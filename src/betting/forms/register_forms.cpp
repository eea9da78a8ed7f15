#include "betting/forms/frm_close_transaction.h"
#include "betting/forms/frm_transaction.h"
#include "shell/forms/form_registry.h"

namespace tt::gui {

void RegisterBettingForms() {
    RegisterForm("frmTransaction", [](QWidget* parent) { return new frmTransaction(parent); });
    RegisterForm("frmCloseTransaction",
                 [](QWidget* parent) { return new frmCloseTransaction(parent); });
}

}  // namespace tt::gui
