// The main window and what it opens besides the betting window, the odds and the reports: the
// splash, the chooser of the first file over the main window, the main window with its toolbar
// and launch pad, About, the help viewer, each tab of the race card, Edit Racer, Copy Racers,
// the bettors, Edit Results, Payout Handling, Display Payouts, a message box, and a tiled layout.
// Group "shell" of make-screenshots; the frames are the window manager's where one runs.

#include <QApplication>
#include <QComboBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QTabWidget>
#include <cstdio>
#include <memory>

#include "files/file_commands.h"
#include "files/race_file_io.h"
#include "model/help_ids.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "payouts/forms/frm_payout_handling.h"
#include "shell/forms/form_registry.h"
#include "shell/forms/frm_initial_open.h"
#include "shell/forms/frm_logo.h"
#include "shell/forms/frm_main.h"
#include "shell/forms/frm_splash.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/help.h"
#include "shell/forms/help_viewer.h"
#include "shell/main_commands.h"
#include "shell/startup.h"
#include "shots.h"

using namespace tt;

namespace {

// No box may wait for a click here: each is reported and answered with its default.
class Messages : public MessagePort {
  public:
    int Show(const MessageRequest& r) override {
        std::fprintf(stderr, "make-screenshots: message: %s\n", r.text.c_str());
        return r.buttons == Buttons::kYesNo || r.buttons == Buttons::kYesNoCancel ? kNo : kOK;
    }
    void Beep() override {}
};

class FixedClock : public ClockPort {
  public:
    DateTime Now() override { return {2026, 5, 2, 14, 30, 0}; }
    std::int64_t MonotonicMs() override { return real_->MonotonicMs(); }

  private:
    std::unique_ptr<ClockPort> real_ = MakeSystemClock();
};

void Choose(QComboBox* box, int data) {
    const int index = box->findData(QVariant::fromValue<qlonglong>(data));
    box->setCurrentIndex(index);
    emit box->activated(index);
}

// A window the main window would run modally, shown for its picture and closed again.
bool Dialog(gui::frmMain& main, const char* name, const QString& path,
            const std::function<void(QWidget*)>& before = {}) {
    std::unique_ptr<QWidget> w(gui::MakeForm(name, &main));
    if (!w) {
        std::fprintf(stderr, "make-screenshots: no window %s\n", name);
        return false;
    }
    w->show();
    if (before) before(w.get());
    // Some place themselves once shown; the window manager frames them again.
    shots::Settle(300);
    return shots::SaveFramed(w.get(), path);
}

}  // namespace

int ShellShots(const QString& card, const QString& out) {
    Messages messages;
    auto settings = MakeMemorySettings();
    FixedClock clock;
    auto random = MakeSystemRandom();
    auto files = MakeRealFileSystem();
    auto dialogs = gui::MakeFileDialogs();
    auto printer = gui::MakePrinter();
    Ports ports;
    ports.message = &messages;
    ports.fileDialog = dialogs.get();
    ports.settings = settings.get();
    ports.clock = &clock;
    ports.random = random.get();
    ports.files = files.get();
    ports.printer = printer.get();
    PortsScope scope(ports);
    gui::RegisterShellForms();
    gui::RegisterFileForms();
    gui::RegisterRaceCardForms();
    gui::RegisterBettingForms();
    gui::RegisterPayoutForms();
    gui::RegisterReportForms();
    // The host's window on a 1600 x 1000 screen, and two cards in the recent files.
    settings->Set("MainLeft", "600");
    settings->Set("MainTop", "600");
    settings->Set("MainWidth", "20400");
    settings->Set("MainHeight", "13200");
    settings->Set("MRU0", "/home/host/Race days/spring-meet.tly");
    settings->Set("MRU1", "/home/host/Race days/autumn-cup.tly");
    bool ok = true;

    {
        gui::frmSplash splash;
        splash.show();
        ok = shots::SaveFramed(&splash, out + "/splash.png") && ok;
    }

    gui::frmMain main;
    CurrentPorts().shell = &main;
    main.MDIForm_Load();
    PrepareDocument();
    main.show();
    {
        auto* chooser = new gui::frmInitialOpen(&main);
        chooser->show();
        shots::Settle(300);
        ok = shots::SaveScreen(shots::FramesOf({&main, chooser}), out + "/chooser.png") && ok;
        chooser->close();
    }

    G.LastFile = card.toStdString();
    InitialOpen();
    if (RF.FileName.empty()) return 1;
    ok = shots::SaveFramed(&main, out + "/main-window.png") && ok;

    ok = Dialog(main, "frmAbout", out + "/about.png") && ok;

    // The message a recent file that has gone gets.
    {
        MessageRequest r;
        r.text = "Unable to read file\n\r\nFile not found";
        std::unique_ptr<QMessageBox> box = gui::MakeMessageBox(r, &main);
        box->show();
        ok = shots::SaveFramed(box.get(), out + "/message-box.png") && ok;
    }

    // The race card, tab by tab; the racer windows over its Racer Setup.
    {
        G.CurrentRace = 1;
        std::unique_ptr<QWidget> raceCard(gui::MakeForm("frmRaceCard", &main));
        raceCard->show();
        auto* tabs = raceCard->findChild<QTabWidget*>("SSTab1");
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            ok = shots::SaveFramed(raceCard.get(), out + QString("/racecard-tab%1.png").arg(i)) &&
                 ok;
        }
        tabs->setCurrentIndex(3);
        G.CurrentRacer = 2;
        ok = Dialog(main, "frmEditRacer", out + "/racecard-edit-racer.png") && ok;
        ok = Dialog(main, "frmCopyRacers", out + "/racecard-copy-racers.png") && ok;
        raceCard->hide();
    }

    ok = Dialog(main, "frmSelectBettor", out + "/bettors.png") && ok;
    G.CurrentBettor = 3;
    ok = Dialog(main, "frmEditBettor", out + "/edit-bettor.png") && ok;
    G.CurrentRace = 2;
    ok = Dialog(main, "frmEditResults", out + "/edit-results.png") && ok;
    {
        gui::frmPayoutHandling handling({3, BetType::kTrifecta, 2}, &main);
        handling.show();
        ok = shots::SaveFramed(&handling, out + "/payout-handling.png") && ok;
    }

    // Display Payouts on the Maiden Sprint, over the launch pad.
    mnuViewDisplayPayouts_Click();
    shots::Settle();
    if (QMdiSubWindow* sub = main.MdiArea()->activeSubWindow()) {
        if (auto* race = sub->widget()->findChild<QComboBox*>("comRaceName")) Choose(race, 1);
        sub->move(40, 30);
    }
    ok = shots::SaveFramed(&main, out + "/display-payouts.png") && ok;

    // The help on the window in front.
    gui::DisplayHelp(&main, help::kDisplayPayouts);
    if (gui::HelpViewer* viewer = gui::CurrentHelpViewer()) {
        ok = shots::SaveFramed(viewer, out + "/help-viewer.png") && ok;
        viewer->close();
    }

    // Display Payouts and Display Odds tiled side by side, the launch pad closed: each keeps
    // the room its contents need.
    mnuViewDisplayOdds_Click();
    if (gui::frmLogo* logo = main.findChild<gui::frmLogo*>())
        if (auto* sub = qobject_cast<QMdiSubWindow*>(logo->parentWidget())) sub->close();
    main.Arrange(2);
    ok = shots::SaveFramed(&main, out + "/tiled.png") && ok;

    CurrentPorts().shell = nullptr;
    return ok ? 0 : 1;
}
