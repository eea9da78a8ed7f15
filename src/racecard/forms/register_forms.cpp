#include "shell/forms/form_registry.h"

namespace tt::gui {

void RegisterRaceCardForms() {}

}  // namespace tt::gui
