#pragma once
// Per-user settings in the desktop's settings store: application "TamberlinTally", section
// "Settings".

#include <memory>

#include "model/ports.h"

namespace tt {

std::unique_ptr<SettingsPort> MakeUserSettings();

}  // namespace tt
