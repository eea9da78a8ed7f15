#include "shell/forms/form_registry.h"

namespace tt::gui {

void RegisterShellForms() {}

}  // namespace tt::gui
