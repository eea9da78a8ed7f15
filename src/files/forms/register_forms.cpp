#include "shell/forms/form_registry.h"

namespace tt::gui {

void RegisterFileForms() {}

}  // namespace tt::gui
