// Takes the pictures of the bet listing and the reports: list-bets.png (List Bets on all races
// and bettors), list-bets-bet.png (a bet clicked in it, its picks by name over the list),
// list-bets-win.png (race 2 filtered to Win: Across the Board at a third, the
// tickets' money hidden), print.png (the Print window), and the print preview of each report
// as the Print window's Preview... shows it: preview-card.png, preview-bettors.png,
// preview-bets.png (what List Bets shows) and preview-odds.png (race 3, all its parts).
// Usage: make-report-screenshots CARD.tly OUTDIR
//
// Run it on a display (scripts/screenshots-reports.sh runs it under Xvfb).

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPainter>
#include <QPixmap>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <cstdio>
#include <functional>

#include "files/race_file_io.h"
#include "model/common.h"
#include "model/race_file.h"
#include "reports/forms/frm_list_bets.h"
#include "reports/forms/frm_print.h"
#include "reports/forms/frm_select_race.h"
#include "shell/forms/form_registry.h"
#include "shell/forms/frm_main.h"
#include "shell/forms/gui_support.h"
#include "shell/main_commands.h"
#include "shell/startup.h"

using namespace tt;

namespace {

// No box may wait for a click here: each is reported and answered with its default.
class Messages : public MessagePort {
  public:
    int Show(const MessageRequest& r) override {
        std::fprintf(stderr, "make-report-screenshots: message: %s\n", r.text.c_str());
        return r.buttons == Buttons::kYesNo || r.buttons == Buttons::kYesNoCancel ? kYes : kOK;
    }
    void Beep() override {}
};

void Settle() {
    for (int i = 0; i < 5; ++i) {
        QApplication::processEvents();
        QApplication::sendPostedEvents();
    }
}

bool Save(QWidget* w, const QString& path) {
    Settle();
    if (!w->grab().save(path)) {
        std::fprintf(stderr, "make-report-screenshots: cannot write %s\n", qPrintable(path));
        return false;
    }
    return true;
}

// Chooses an entry of a filter as a click does.
void Choose(QComboBox* box, std::int64_t data) {
    const int index = box->findData(QVariant::fromValue<qlonglong>(data));
    box->setCurrentIndex(index);
    emit box->activated(index);
}

// Runs `action` (which opens a modal window) while a timer answers the windows that come up:
// Select Race to Print with the race given, then the print preview, whose picture is saved.
bool PreviewShot(const std::function<void()>& action, int race, const QString& path) {
    bool saved = false;
    int shown = 0;
    QTimer driver;
    driver.setInterval(150);
    QObject::connect(&driver, &QTimer::timeout, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* select = qobject_cast<gui::frmSelectRaceAndBetType*>(modal)) {
            Choose(select->findChild<QComboBox*>("comRaceName"), race);
            select->findChild<QPushButton*>("cmdOK")->click();
        } else if (auto* preview = qobject_cast<QPrintPreviewDialog*>(modal)) {
            if (shown++ == 0) {
                preview->resize(1000, 860);
                if (auto* pages = preview->findChild<QPrintPreviewWidget*>())
                    pages->setZoomMode(QPrintPreviewWidget::FitToWidth);
                return;
            }
            saved = Save(preview, path);
            preview->reject();
        }
    });
    driver.start();
    action();
    driver.stop();
    return saved;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: make-report-screenshots CARD.tly OUTDIR\n");
        return 2;
    }
    const QString out = QString::fromLocal8Bit(argv[2]);
    QDir().mkpath(out);

    Messages messages;
    auto settings = MakeMemorySettings();
    auto clock = MakeSystemClock();
    auto random = MakeSystemRandom();
    auto files = MakeRealFileSystem();
    auto printer = gui::MakePrinter();
    Ports ports;
    ports.message = &messages;
    ports.settings = settings.get();
    ports.clock = clock.get();
    ports.random = random.get();
    ports.files = files.get();
    ports.printer = printer.get();
    PortsScope scope(ports);
    gui::RegisterShellForms();
    gui::RegisterBettingForms();
    gui::RegisterReportForms();

    gui::frmMain main;
    CurrentPorts().shell = &main;
    settings->Set("MainWidth", "19500");
    settings->Set("MainHeight", "12000");
    main.MDIForm_Load();
    PrepareDocument();
    main.show();
    main.MdiArea()->closeAllSubWindows();
    G.FilePath = argv[1];
    OpenRaceFile();
    if (RF.FileName.empty()) return 1;
    Settle();

    mnuViewListBets_Click();
    auto* list = main.findChild<gui::frmListBets*>();
    if (!list) return 1;
    if (auto* sub = qobject_cast<QMdiSubWindow*>(list->parentWidget())) sub->showMaximized();
    auto* race = list->findChild<QComboBox*>("comRaceName");
    auto* bettor = list->findChild<QComboBox*>("comBettor");
    auto* type = list->findChild<QComboBox*>("comBetType");
    Choose(race, 0);
    Choose(bettor, 0);
    if (!Save(&main, out + "/list-bets.png")) return 1;

    // A click on the boxed Exacta of ticket 4: its picks by name over the list, whose cells
    // from Tot Bet on show the bet as chosen.
    auto* view = list->Grid();
    bool shot = false;
    QTimer::singleShot(600, [&] {
        QWidget* shown = QApplication::activeModalWidget();
        if (!shown) return;
        Settle();
        QPixmap picture = main.grab();
        QPainter paint(&picture);
        paint.drawPixmap(shown->mapToGlobal(QPoint()) - main.mapToGlobal(QPoint()), shown->grab());
        paint.end();
        shot = picture.save(out + "/list-bets-bet.png");
        shown->close();
    });
    for (int row = 0; row < view->model()->rowCount(); ++row) {
        const QModelIndex index = view->model()->index(row, ListBetsLogic::kColBox);
        if (index.data().toString().trimmed() == "x") {
            emit view->clicked(index);
            break;
        }
    }
    if (!shot) return 1;
    Choose(race, 2);
    Choose(type, 1);
    if (!Save(&main, out + "/list-bets-win.png")) return 1;
    Choose(type, 0);
    Choose(race, 1);

    // The Print window, and each report in its preview.
    gui::frmPrint print(&main);
    print.show();
    if (!Save(&print, out + "/print.png")) return 1;
    auto* reports = print.findChild<QListWidget*>("lstReports");
    auto* preview = print.findChild<QPushButton*>("cmdPreview");
    const std::pair<int, const char*> shots[] = {
        {1, "preview-card"}, {2, "preview-bettors"}, {3, "preview-bets"}, {4, "preview-odds"}};
    for (const auto& [report, name] : shots) {
        reports->setCurrentRow(report - 1);
        if (!PreviewShot([&] { preview->click(); }, 3, out + "/" + name + ".png")) {
            std::fprintf(stderr, "make-report-screenshots: no preview of report %d\n", report);
            return 1;
        }
    }
    return 0;
}
