#pragma once
// Help: the program's own help topics, shown in its help viewer.

#include <string>

class QWidget;

namespace tt::gui {

class HelpViewer;

// The help the windows name, "Tlyhelp"; empty when the program has no help.
const std::string& AppHelpFile();

// Window Help: the topic of the active child window (its help context, or `contextId` when
// that is not 0), or the contents when no child window is active.
void DisplayHelp(QWidget* mainWindow, int contextId);
// Help Contents and Search For Help On: the same steps, the one showing the contents and the
// other the search when no child window is active.
void HelpContents(QWidget* mainWindow);
void HelpSearch(QWidget* mainWindow);
// A window's Help button: the topic with this context.
void DisplayContextHelp(const std::string& helpFile, int contextId, const std::string& title);

// F1 anywhere shows the topic of the window that has the focus.
void InstallHelpKey();

// The viewer on screen, or nullptr.
HelpViewer* CurrentHelpViewer();

}  // namespace tt::gui
