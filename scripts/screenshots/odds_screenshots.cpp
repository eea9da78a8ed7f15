// Screenshots of Display Odds and its board on a card: each grid in the main window, then the
// board full screen. Run under Xvfb (scripts/screenshots-odds.sh):
//
//   odds-screenshots CARD OUTDIR
//
// writes odds-pools.png, odds-win.png, odds-place.png, odds-show.png, odds-exacta.png (race 3),
// odds-dd.png (race 1), odds-dd-prior.png (race 2), odds-board.png (race 3, Win, with the Win
// pool bars) and odds-board-pools.png. The settings stay in memory and the clock is fixed, so
// that the user's own settings are not touched and the pictures come out the same each time.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QMdiSubWindow>
#include <QThread>
#include <cstdio>
#include <string>

#include "files/race_file_io.h"
#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "payouts/forms/frm_display_odds.h"
#include "payouts/forms/odds_board.h"
#include "shell/forms/form_registry.h"
#include "shell/forms/frm_main.h"
#include "shell/forms/gui_support.h"
#include "shell/startup.h"

namespace {

// A message box would stop the run: each one is reported and answered with its default.
class Messages : public tt::MessagePort {
  public:
    int Show(const tt::MessageRequest& r) override {
        std::fprintf(stderr, "odds-screenshots: message: %s\n", r.text.c_str());
        return tt::kOK;
    }
    void Beep() override {}
};

class FixedClock : public tt::ClockPort {
  public:
    tt::DateTime Now() override { return {2026, 5, 2, 14, 30, 0}; }
    std::int64_t MonotonicMs() override { return real_->MonotonicMs(); }

  private:
    std::unique_ptr<tt::ClockPort> real_ = tt::MakeSystemClock();
};

void Settle() {
    for (int i = 0; i < 10; ++i) {
        QApplication::processEvents();
        QThread::msleep(20);
    }
}

bool Save(QWidget* w, const QString& dir, const char* name) {
    Settle();
    const QString path = dir + "/" + name;
    if (!w->grab().save(path)) {
        std::fprintf(stderr, "odds-screenshots: cannot write %s\n", qPrintable(path));
        return false;
    }
    std::printf("%s\n", qPrintable(path));
    return true;
}

void Choose(QComboBox* box, int data) {
    box->setCurrentIndex(box->findData(QVariant::fromValue<qlonglong>(data)));
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("TamberlinTally");
    QApplication::setWindowIcon(tt::gui::AppIcon());
    if (argc != 3) {
        std::fprintf(stderr, "usage: odds-screenshots CARD OUTDIR\n");
        return 2;
    }
    const QString dir = QDir(argv[2]).absolutePath();
    QDir().mkpath(dir);

    Messages messages;
    auto settings = tt::MakeMemorySettings();
    FixedClock clock;
    auto random = tt::MakeSystemRandom();
    auto files = tt::MakeRealFileSystem();
    auto dialogs = tt::gui::MakeFileDialogs();
    tt::Ports ports;
    ports.message = &messages;
    ports.fileDialog = dialogs.get();
    ports.settings = settings.get();
    ports.clock = &clock;
    ports.random = random.get();
    ports.files = files.get();
    tt::PortsScope scope(ports);
    // The window as a host would size it for a room: wide enough for the grid and its settings.
    settings->Set("OddsLeft", "300");
    settings->Set("OddsTop", "300");
    settings->Set("OddsWidth", "12000");
    settings->Set("OddsHeight", "8400");

    tt::gui::RegisterShellForms();
    tt::gui::RegisterFileForms();
    tt::gui::RegisterRaceCardForms();
    tt::gui::RegisterBettingForms();
    tt::gui::RegisterPayoutForms();
    tt::gui::RegisterReportForms();

    tt::gui::frmMain main;
    tt::CurrentPorts().shell = &main;
    main.MDIForm_Load();
    tt::PrepareDocument();
    main.setGeometry(0, 0, 1280, 900);
    main.show();
    tt::G.FilePath = QDir(argv[1]).absolutePath().toStdString();
    tt::OpenRaceFile();
    Settle();

    main.ShowForm("frmDisplayOdds", false);
    auto* odds = main.findChild<tt::gui::frmDisplayOdds*>();
    if (!odds) {
        std::fprintf(stderr, "odds-screenshots: Display Odds did not open\n");
        return 1;
    }
    // The launch pad stays behind the window.
    if (auto* sub = qobject_cast<QMdiSubWindow*>(odds->parentWidget())) sub->raise();
    auto* race = odds->findChild<QComboBox*>("comRaceName");
    auto* betType = odds->findChild<QComboBox*>("comBetType");

    struct Shot {
        int race, item;
        const char* file;
    };
    const Shot shots[] = {{3, 0, "odds-pools.png"},    {3, 1, "odds-win.png"},
                          {3, 2, "odds-place.png"},    {3, 3, "odds-show.png"},
                          {3, 4, "odds-exacta.png"},   {1, 61, "odds-dd.png"},
                          {2, 62, "odds-dd-prior.png"}};
    bool ok = true;
    for (const Shot& s : shots) {
        Choose(race, s.race);
        Choose(betType, s.item);
        ok = Save(&main, dir, s.file) && ok;
    }

    Choose(race, 3);
    Choose(betType, 1);
    odds->findChild<QCheckBox*>("chkBoardBars")->setChecked(true);
    odds->SetBoard(true);
    ok = Save(odds->Board(), dir, "odds-board.png") && ok;
    Choose(betType, 0);
    ok = Save(odds->Board(), dir, "odds-board-pools.png") && ok;
    odds->SetBoard(false);
    tt::CurrentPorts().shell = nullptr;
    return ok ? 0 : 1;
}
