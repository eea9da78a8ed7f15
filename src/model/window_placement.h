#pragma once
// Where a window stands, in twips, and the place a child window keeps in the per-user settings
// under its own keys ("PayLeft", "PayTop", "PayWidth", "PayHeight" for the payout display).

#include <string>

namespace tt {

struct Placement {
    double left = 0, top = 0, width = 0, height = 0;
};

// The kept place of a child window: left and top default to 1000; a width or height of 0 means
// none is kept, and the window keeps the size of its design. A value that is not a number
// counts as missing.
Placement RestoreWindowPlacement(const std::string& prefix);
// Writes left and top, and with withSize the width and height too.
void SaveWindowPlacement(const std::string& prefix, const Placement& p, bool withSize);

}  // namespace tt
