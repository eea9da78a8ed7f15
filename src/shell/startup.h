#pragma once
// Start of the process and its end: the tables set up before the main window shows, the
// per-user placement and recent files, the chooser of the first file, and shutdown.

#include <string>
#include <vector>

#include "model/window_placement.h"

namespace tt {

// Steps of the entry procedure after the main window is loaded: the dirty flag, the tables,
// the bet type names and the "Not Available" racers.
void PrepareDocument();

// Reads "MainLeft", "MainTop", "MainWidth", "MainHeight" (defaults 1000, 1000, 4000, 4000).
// A value that is not a number raises the type mismatch error.
Placement ReadMainPlacement();
// Reads "MRU0" to "MRU3" into the recent files.
void LoadRecentFiles();
// Keeps the main window's real placement for the centring of child windows.
void StoreMainPlacement(const Placement& p);
// Writes the four placement keys as text.
void SaveMainPlacement(const Placement& p);

// Where a form goes: centred on the screen, or in the main window's inner area.
Placement CenterOnScreen(Placement form, double screenWidth, double screenHeight);
Placement CenterInMain(Placement form);
// CenterInMain, then Left at most 1,500 and Top at most 1,000.
Placement PlaceLogo(Placement form);

// The chooser of the first file.
inline constexpr const char* kMoreFiles = "More Files...";
inline constexpr const char* kStartNewFile = "Start a new file";
std::vector<std::string> InitialOpenEntries();
// cmdOpen with the selected entry (empty: nothing selected). Returns whether the chooser
// unloads.
bool InitialOpenChoose(const std::string& entry, bool hasSelection);

// MDIForm_Unload: asks about unsaved changes and tidies up. Returns false when the process
// must stay alive. `normalState` is false while the window is minimised or maximised.
bool MainUnload(bool normalState, const Placement& current);

}  // namespace tt
