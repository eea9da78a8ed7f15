#pragma once
// The ports of the companion: message boxes printed to the error stream and answered by a
// policy, settings in memory unless given, no windows.

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

#include "model/ports.h"

namespace tt::cli {

// How questions are answered: OK or Yes, or Cancel or No.
enum class Policy { kYes, kCancel };

class ConsoleMessages : public MessagePort {
  public:
    ConsoleMessages(std::ostream& err, Policy policy) : err_(err), policy_(policy) {}
    int Show(const MessageRequest& request) override;
    void Beep() override {}

  private:
    std::ostream& err_;
    Policy policy_;
    bool first_ = true;
};

// A shell with no windows. A window that a command needs is run by the handler set for it.
class ConsoleShell : public ShellPort {
  public:
    void SetBusy(bool) override {}
    void DoEvents() override {}
    void SetTitle(const std::string&) override {}
    void ShowMru(const std::array<std::string, 4>&) override {}
    void EnableFileGroup(bool on) override { fileOpen = on; }
    void EnableRaceGroup(bool) override {}
    void CloseChildWindows() override;
    void ShowLogo() override {}
    void ShowForm(const std::string& name, bool modal) override;
    void UnloadForm(const std::string&) override {}
    bool IsFormLoaded(const std::string&) override { return false; }
    // The status bar's first panel as the program starts with it.
    std::string StatusText() override { return "Status"; }
    std::string ActiveChild() override { return activeChild; }
    void UnloadDisplays(bool) override {}

    std::function<void(const std::string&)> onShow;
    // The child window a command holds in front, such as the list of bets it prints.
    std::string activeChild;
    // The commands that need an open card were enabled: the last open went through.
    bool fileOpen = false;
};

// Installs the companion's ports over a fresh document for one command.
class ConsoleWorld {
  public:
    ConsoleWorld(std::ostream& err, Policy policy, SettingsPort* settings = nullptr);
    ~ConsoleWorld();
    ConsoleShell shell;

  private:
    ConsoleMessages messages_;
    std::unique_ptr<SettingsPort> memorySettings_;
    std::unique_ptr<ClockPort> clock_;
    std::unique_ptr<RandomPort> random_;
    std::unique_ptr<FileSystemPort> files_;
    std::unique_ptr<PortsScope> scope_;
};

}  // namespace tt::cli
