// Takes the pictures of the ticket windows in the middle of a ticket: ticket-header.png (Cash or
// Collect with a ticket chosen from the list) and place-bets.png (a new ticket with two bets
// taken and a boxed Trifecta being typed). The keys are the host's: each window is worked with
// the keyboard as at the counter.
// Usage: make-ticket-screenshots CARD.tly OUTDIR
//
// Runs offscreen or on a display (scripts/screenshots-tickets.sh runs it under Xvfb).

#include <QApplication>
#include <QDir>
#include <QTest>
#include <cstdio>

#include "betting/betting_state.h"
#include "betting/forms/frm_place_bets.h"
#include "betting/forms/frm_ticket_header.h"
#include "betting/ticket_lists.h"
#include "files/race_file_io.h"
#include "model/ports.h"
#include "model/race_file.h"
#include "shell/forms/gui_support.h"

using namespace tt;

namespace {

// No box may wait for a click here: each is reported and answered with its default.
class Messages : public MessagePort {
  public:
    int Show(const MessageRequest& r) override {
        std::fprintf(stderr, "make-ticket-screenshots: message: %s\n", r.text.c_str());
        failed = true;
        return r.buttons == Buttons::kYesNo || r.buttons == Buttons::kYesNoCancel ? kNo : kCancel;
    }
    void Beep() override {}
    bool failed = false;
};

bool Show(QDialog& d) {
    d.show();
    d.activateWindow();
    return QTest::qWaitForWindowActive(&d);
}

void Keys(const char* text) {
    QTest::keyClicks(QApplication::focusWidget(), text);
}
void Key(Qt::Key key, Qt::KeyboardModifiers m = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, m);
}

bool Save(QWidget& w, const QString& path) {
    QApplication::processEvents();
    if (w.grab().save(path)) return true;
    std::fprintf(stderr, "make-ticket-screenshots: cannot write %s\n", qPrintable(path));
    return false;
}

// The bettor of this name, 0 when none.
int BettorNamed(const char* name) {
    for (std::int64_t b = 1; b <= RF.BettorCount; ++b)
        if (RF.Bettor(b).BettorName == name) return static_cast<int>(b);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setWindowIcon(gui::AppIcon());
    if (argc != 3) {
        std::fprintf(stderr, "usage: make-ticket-screenshots CARD.tly OUTDIR\n");
        return 2;
    }
    const QString out = QDir(argv[2]).absolutePath();
    QDir().mkpath(out);

    Messages messages;
    auto clock = MakeSystemClock();
    auto random = MakeSystemRandom();
    auto files = MakeRealFileSystem();
    Ports ports;
    ports.message = &messages;
    ports.clock = clock.get();
    ports.random = random.get();
    ports.files = files.get();
    PortsScope scope(ports);
    ResetProcessState();
    ResetBettingState();
    G.FilePath = argv[1];
    OpenRaceFile();
    if (RF.FileName.empty()) return 1;
    // As the betting window opens: the default race, no bettor chosen.
    G.CurrentRace = RF.DefaultRace;
    G.CurrentBettor = 0;

    // Cash/Collect over every race, the arrow keys on the second ticket of the list.
    {
        Betting.TicketMode = kCashTicket;
        G.CurrentRace = 0;
        gui::frmTicketHeader header;
        if (!Show(header)) return 1;
        Key(Qt::Key_Tab);
        Key(Qt::Key_Down);
        if (!Save(header, out + "/ticket-header.png")) return 1;
        header.hide();
    }

    // A new ticket for Grace Liu in the Tamberlin Stakes: a Win bet and an Across the Board
    // bet taken, a boxed Trifecta being typed.
    {
        G.CurrentRace = 3;
        G.CurrentBettor = BettorNamed("Grace Liu");
        Betting.TicketMode = kNewTicket;
        Betting.NewTicketCount = 1;
        TranTicket& t = AppendTranTicket();
        t.Action = kNewTicket;
        t.TicketNbr = RF.TicketCount + Betting.NewTicketCount;
        t.Race = G.CurrentRace;
        t.Bettor = G.CurrentBettor;
        G.CurrentTicket = 0;
        gui::frmPlaceBets bets;
        if (!Show(bets)) return 1;
        Keys("5");
        Key(Qt::Key_Return);
        Keys("w");
        Key(Qt::Key_Return);
        Keys("7");
        Key(Qt::Key_Return);
        Key(Qt::Key_Return);
        Keys("2");
        Key(Qt::Key_Return);
        Keys("a");
        Key(Qt::Key_Return);
        Keys("2");
        Key(Qt::Key_F2);
        Keys("2");
        Key(Qt::Key_Return);
        Keys("t");
        Key(Qt::Key_Return);
        Key(Qt::Key_Space);
        Key(Qt::Key_Return);
        for (const char* pick : {"2", "7", "1"}) {
            Keys(pick);
            Key(Qt::Key_Return);
        }
        if (!Save(bets, out + "/place-bets.png")) return 1;
        bets.hide();
    }
    if (messages.failed) return 1;
    std::printf("%s\n%s\n", qPrintable(out + "/ticket-header.png"),
                qPrintable(out + "/place-bets.png"));
    return 0;
}
