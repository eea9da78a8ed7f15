#include "shell/forms/form_registry.h"
#include "shell/forms/frm_about.h"
#include "shell/forms/frm_reset_max.h"

namespace tt::gui {

void RegisterShellForms() {
    RegisterForm("frmAbout", [](QWidget* parent) { return new frmAbout(parent); });
    RegisterForm("frmResetMax", [](QWidget* parent) { return new frmResetMax(parent); });
}

}  // namespace tt::gui
