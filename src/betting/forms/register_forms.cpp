#include "shell/forms/form_registry.h"

namespace tt::gui {

void RegisterBettingForms() {}

}  // namespace tt::gui
