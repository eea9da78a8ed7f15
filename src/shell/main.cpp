// Tamberlin Tally: the entry procedure.

#include <QApplication>
#include <cstdio>

#include "model/common.h"
#include "model/ports.h"
#include "model/qt_settings.h"
#include "payouts/forms/frm_display_odds.h"
#include "shell/command_line.h"
#include "shell/forms/form_registry.h"
#include "shell/forms/frm_initial_open.h"
#include "shell/forms/frm_main.h"
#include "shell/forms/frm_splash.h"
#include "shell/forms/gui_support.h"
#include "shell/startup.h"

namespace {

QStringList WordsOf(int argc, char** argv) {
    QStringList words;
    for (int i = 0; i < argc; ++i) words << QString::fromLocal8Bit(argv[i]);
    return words;
}

}  // namespace

int main(int argc, char** argv) {
    // --help and --version answer before any window system is needed. The toolkit's own
    // options (-platform, -style) are not known yet, so other complaints wait for it.
    const tt::ProgramArguments early = tt::ParseProgramArguments(WordsOf(argc, argv));
    if (early.help) {
        std::fputs(tt::ProgramHelpText().c_str(), stdout);
        return 0;
    }
    if (early.version) {
        std::printf("%s\n", tt::ProgramVersionText().c_str());
        return 0;
    }

    QApplication app(argc, argv);
    QApplication::setApplicationName("TamberlinTally");
    QApplication::setOrganizationName("TamberlinTally");
    QApplication::setApplicationVersion(QString::fromStdString(tt::ProgramVersionText()));
    QApplication::setDesktopFileName(tt::gui::kDesktopId);
    QApplication::setWindowIcon(tt::gui::AppIcon());
    const tt::ProgramArguments args = tt::ParseProgramArguments(QApplication::arguments());
    if (!args.error.empty()) {
        std::fprintf(stderr, "tamberlin-tally: %s\n\n%s", args.error.c_str(),
                     tt::ProgramHelpText().c_str());
        return 2;
    }

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
        if (args.board) tt::gui::ShowOddsBoardWhenReady(*main);
        // A card named on the command line (a double click on it in a file manager) opens at
        // once; when it cannot be read, the chooser follows its message.
        bool opened = false;
        if (!args.file.empty())
            tt::gui::Guard(main.get(), false, [&] { opened = tt::OpenFileArgument(args.file); });
        if (!opened) {
            auto* chooser = new tt::gui::frmInitialOpen(main.get());
            chooser->show();
        }
    } catch (const std::exception&) {
        tt::MsgBox("Unexpected error in initial load of program.");
    }
    int rc = QApplication::exec();
    tt::CurrentPorts().shell = nullptr;
    return rc;
}
