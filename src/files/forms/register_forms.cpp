#include "files/forms/frm_import_bettors.h"
#include "files/forms/frm_restore.h"
#include "shell/forms/form_registry.h"

namespace tt::gui {

void RegisterFileForms() {
    RegisterForm("frmRestore", [](QWidget* parent) { return new frmRestore(parent); });
    RegisterForm("frmImportBettors", [](QWidget* parent) { return new frmImportBettors(parent); });
}

}  // namespace tt::gui
