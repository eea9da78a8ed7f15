// Tamberlin Tally: the entry procedure.

#include <QApplication>

#include "model/common.h"
#include "model/ports.h"
#include "model/qt_settings.h"
#include "payouts/forms/frm_display_odds.h"
#include "shell/forms/form_registry.h"
#include "shell/forms/frm_initial_open.h"
#include "shell/forms/frm_main.h"
#include "shell/forms/frm_splash.h"
#include "shell/forms/gui_support.h"
#include "shell/startup.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("TamberlinTally");
    QApplication::setOrganizationName("TamberlinTally");
    QApplication::setWindowIcon(tt::gui::AppIcon());

    auto messages = tt::gui::MakeMessageBoxes();
    auto dialogs = tt::gui::MakeFileDialogs();
    auto settings = tt::MakeUserSettings();
    auto clock = tt::MakeSystemClock();
    auto random = tt::MakeSystemRandom();
    auto files = tt::MakeRealFileSystem();
    auto printer = tt::gui::MakePrinter();
    tt::Ports ports;
    ports.message = messages.get();
    ports.fileDialog = dialogs.get();
    ports.settings = settings.get();
    ports.clock = clock.get();
    ports.random = random.get();
    ports.files = files.get();
    ports.printer = printer.get();
    tt::PortsScope scope(ports);

    tt::gui::RegisterShellForms();
    tt::gui::RegisterFileForms();
    tt::gui::RegisterRaceCardForms();
    tt::gui::RegisterBettingForms();
    tt::gui::RegisterPayoutForms();
    tt::gui::RegisterReportForms();

    std::unique_ptr<tt::gui::frmMain> main;
    try {
        auto* splash = new tt::gui::frmSplash;
        splash->show();
        QApplication::processEvents();
        tt::WaitSeconds(2);
        delete splash;

        main = std::make_unique<tt::gui::frmMain>();
        tt::CurrentPorts().shell = main.get();
        main->MDIForm_Load();
        tt::PrepareDocument();
        main->show();
        // --board: the odds board for the room, once a card with a race is open.
        if (QApplication::arguments().contains("--board")) tt::gui::ShowOddsBoardWhenReady(*main);
        auto* chooser = new tt::gui::frmInitialOpen(main.get());
        chooser->show();
    } catch (const std::exception&) {
        tt::MsgBox("Unexpected error in initial load of program.");
    }
    int rc = QApplication::exec();
    tt::CurrentPorts().shell = nullptr;
    return rc;
}
