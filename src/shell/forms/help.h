#pragma once
// Help: the program's own help topics, shown in its help viewer.

#include <string>

class QWidget;

namespace tt::gui {

// The help file the windows name; empty when the program has no help.
const std::string& AppHelpFile();

// The topic of the active child window (its help context), or the contents when none is
// active. `contextId` is used when the window has no context of its own.
void DisplayHelp(QWidget* mainWindow, int contextId);
void HelpContents(QWidget* mainWindow);
void HelpSearch(QWidget* mainWindow);
// A window's Help button: the topic with this context.
void DisplayContextHelp(const std::string& helpFile, int contextId, const std::string& title);

}  // namespace tt::gui
