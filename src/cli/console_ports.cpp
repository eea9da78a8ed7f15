#include "cli/console_ports.h"

#include <ostream>

#include "model/race_file.h"

namespace tt::cli {

int ConsoleMessages::Show(const MessageRequest& r) {
    if (!first_) err_ << "\n";
    first_ = false;
    err_ << r.text << "\n";
    err_.flush();
    bool yes = policy_ == Policy::kYes;
    switch (r.buttons) {
        case Buttons::kOK:
            return kOK;
        case Buttons::kOKCancel:
            return yes ? kOK : kCancel;
        case Buttons::kYesNo:
            return yes ? kYes : kNo;
        case Buttons::kYesNoCancel:
            return yes ? kYes : kCancel;
    }
    return kOK;
}

void ConsoleShell::CloseChildWindows() {
    G.CancelFlag = false;
}

void ConsoleShell::ShowForm(const std::string& name, bool) {
    if (onShow) onShow(name);
}

ConsoleWorld::ConsoleWorld(std::ostream& err, Policy policy, SettingsPort* settings)
    : messages_(err, policy),
      memorySettings_(settings ? nullptr : MakeMemorySettings()),
      clock_(MakeSystemClock()),
      random_(MakeSystemRandom()),
      files_(MakeRealFileSystem()) {
    ResetProcessState();
    Ports p;
    p.message = &messages_;
    p.settings = settings ? settings : memorySettings_.get();
    p.clock = clock_.get();
    p.random = random_.get();
    p.files = files_.get();
    p.shell = &shell;
    scope_ = std::make_unique<PortsScope>(p);
}

ConsoleWorld::~ConsoleWorld() = default;

}  // namespace tt::cli
