#include "shell/forms/form_registry.h"

namespace tt::gui {

void RegisterPayoutForms() {}

}  // namespace tt::gui
