#include "shell/forms/help.h"

#include "model/ports.h"

namespace tt::gui {

namespace {
void NoHelp(const std::string& title) {
    Beep();
    MsgBox("Unable to display Help Contents. There is no Help associated with this project.", Buttons::kOK,
           Icon::kInformation, title);
}
}  // namespace

const std::string& AppHelpFile() {
    static const std::string kNone;
    return kNone;
}

void DisplayHelp(QWidget*, int) { NoHelp({}); }
void HelpContents(QWidget*) { NoHelp({}); }
void HelpSearch(QWidget*) { NoHelp({}); }

void DisplayContextHelp(const std::string& helpFile, int, const std::string& title) {
    if (helpFile.empty()) NoHelp(title);
}

}  // namespace tt::gui
