#include "shell/forms/form_registry.h"

namespace tt::gui {

void RegisterReportForms() {}

}  // namespace tt::gui
