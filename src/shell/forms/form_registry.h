#pragma once
// The windows the main window can open by name.

#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace tt::gui {

using FormMaker = std::function<QWidget*(QWidget* parent)>;

// A modal window is a QDialog run to its end; a child window goes into the main window's
// document area.
void RegisterForm(const std::string& name, FormMaker make);
bool IsFormRegistered(const std::string& name);
// Every registered name, in order.
std::vector<std::string> RegisteredForms();
QWidget* MakeForm(const std::string& name, QWidget* parent);

// Each subsystem registers its windows.
void RegisterShellForms();
void RegisterFileForms();
void RegisterBettingForms();
void RegisterPayoutForms();
void RegisterRaceCardForms();
void RegisterReportForms();

}  // namespace tt::gui
