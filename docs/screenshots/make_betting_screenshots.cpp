// Takes the pictures of the betting window: betting-window.png (the main window with a
// transaction of a few tickets in the summary), close-transaction.png (Finish Transaction for
// it) and ticket.pdf (its tickets as the printer gets them).
// Usage: make-betting-screenshots CARD.tly OUTDIR
//
// Run it on a display (scripts/screenshots-betting.sh runs it under Xvfb and turns the PDF into
// ticket.png). The tickets are put into the transaction as the ticket windows leave them.

#include <QApplication>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPixmap>
#include <QTimer>
#include <cstdio>
#include <initializer_list>
#include <vector>

#include "betting/betting_state.h"
#include "betting/forms/frm_close_transaction.h"
#include "betting/forms/frm_transaction.h"
#include "betting/ticket_printing.h"
#include "files/race_file_io.h"
#include "model/common.h"
#include "model/race_file.h"
#include "shell/forms/form_registry.h"
#include "shell/forms/frm_main.h"
#include "shell/forms/gui_support.h"
#include "shell/forms/qt_printer.h"
#include "shell/main_commands.h"
#include "shell/startup.h"

using namespace tt;

namespace {

// No box may wait for a click here: each is reported and answered with its default.
class Messages : public MessagePort {
  public:
    int Show(const MessageRequest& r) override {
        std::fprintf(stderr, "make-betting-screenshots: message: %s\n", r.text.c_str());
        return r.buttons == Buttons::kYesNo || r.buttons == Buttons::kYesNoCancel ? kYes : kOK;
    }
    void Beep() override {}
};

struct Bet {
    double amt;
    int type;
    std::vector<int> picks;
    bool boxed = false;
};

Currency CostOf(const Bet& b) {
    const auto n = static_cast<std::int64_t>(b.picks.size());
    std::int64_t combos = b.type == kAcrossTheBoard ? 3 : 1;
    if (b.boxed && b.type == 4) combos = n * (n - 1);
    return Currency::FromDouble(b.amt) * combos;
}

TranTicket& Append() {
    Betting.TranTicketCount = Betting.TranTicketCount + 1;
    Betting.TranTickets.ReDimPreserve(Betting.TranTicketCount);
    return Betting.TranTickets(Betting.TranTicketCount);
}

void AddBet(std::int32_t number, int race, const Bet& b) {
    Betting.TranBetCount = Betting.TranBetCount + 1;
    Betting.TranBets.ReDimPreserve(Betting.TranBetCount);
    TempBet& t = Betting.TranBets(Betting.TranBetCount);
    t.BetAmt = Currency::FromDouble(b.amt);
    t.BetType = b.type;
    t.Boxed = b.boxed;
    t.BetCost = CostOf(b);
    int k = 0;
    for (int p : b.picks) t.Pick(++k) = p;
    t.TicketNbr = number;
    t.Race = race;
}

// A new ticket after Accept Ticket.
void NewTicket(int race, int bettor, std::initializer_list<Bet> bets) {
    Betting.NewTicketCount = Betting.NewTicketCount + 1;
    const std::int32_t number = RF.TicketCount + Betting.NewTicketCount;
    Currency total;
    for (const Bet& b : bets) {
        AddBet(number, race, b);
        total += CostOf(b);
    }
    TranTicket& t = Append();
    t.Action = kNewTicket;
    t.TicketNbr = number;
    t.Race = race;
    t.Bettor = bettor;
    t.NewAmtBet = t.NewCollected = total;
}

// A ticket of the card brought in to be edited or cashed, its bets copied.
TranTicket& BringIn(std::int32_t number, const char* action) {
    const TicketRec& k = RF.Ticket(number);
    TranTicket& t = Append();
    t.TicketNbr = number;
    t.Race = k.TicketRace;
    t.Bettor = k.TicketBettor;
    t.OldCost = t.NewAmtBet = k.TicketCost;
    t.OldCollected = t.NewCollected = k.Collected;
    t.OldDistributed = t.NewDistributed = k.Distributed;
    t.Winnings = k.Winnings;
    t.Action = action;
    for (std::int64_t s = k.FirstBet; s >= 1 && s <= k.LastBet; ++s) {
        const BetRec& b = RF.Bet(k.TicketRace, s);
        if (b.TicketIdx != number || b.BetType == 0) continue;
        Betting.TranBetCount = Betting.TranBetCount + 1;
        Betting.TranBets.ReDimPreserve(Betting.TranBetCount);
        TempBet& e = Betting.TranBets(Betting.TranBetCount);
        e.BetAmt = b.BetAmt;
        e.BetType = b.BetType;
        e.Boxed = bool(b.Boxed);
        e.BetCost = b.BetCost;
        for (int p = 1; p <= 6; ++p) e.Pick(p) = b.Pick(p);
        e.PriorWinnings = b.BetWinnings;
        e.TicketNbr = number;
        e.Race = k.TicketRace;
        e.OrigBetIdx = s;
    }
    return t;
}

// The first ticket of the race that matches.
std::int32_t FindTicket(int race, bool winning) {
    for (std::int32_t n = 1; n <= RF.TicketCount; ++n) {
        const TicketRec& k = RF.Ticket(n);
        if (k.TicketRace == race && k.TicketBettor != 0 && (!winning || k.Winnings > k.Distributed))
            return n;
    }
    return 0;
}

bool Save(QWidget* w, const QString& path) {
    QApplication::processEvents();
    if (w->grab().save(path)) return true;
    std::fprintf(stderr, "make-betting-screenshots: cannot write %s\n", qPrintable(path));
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setWindowIcon(gui::AppIcon());
    if (argc != 3) {
        std::fprintf(stderr, "usage: make-betting-screenshots CARD.tly OUTDIR\n");
        return 2;
    }
    const QString out = QDir(argv[2]).absolutePath();
    QDir().mkpath(out);

    Messages messages;
    auto clock = MakeSystemClock();
    auto random = MakeSystemRandom();
    auto files = MakeRealFileSystem();
    gui::QtPrinter printer;
    printer.PrintToPdf(out + "/ticket.pdf");
    Ports ports;
    ports.message = &messages;
    ports.clock = clock.get();
    ports.random = random.get();
    ports.files = files.get();
    ports.printer = &printer;
    PortsScope scope(ports);
    gui::RegisterShellForms();
    gui::RegisterBettingForms();

    gui::frmMain main;
    CurrentPorts().shell = &main;
    main.MDIForm_Load();
    PrepareDocument();
    main.resize(1180, 700);
    main.show();
    G.FilePath = argv[1];
    OpenRaceFile();
    if (RF.FileName.empty()) return 1;
    main.UnloadForm("frmLogo");
    for (QMdiSubWindow* sub : main.MdiArea()->subWindowList()) sub->hide();

    // Tickets print at the window, and one transaction already waits in the printer.
    RF.PrintBets = true;
    RF.MaxTransInPrinter = 3;
    Betting.TransInPrinter = 1;
    mnuEditPlaceBets_Click();
    auto* sub = main.MdiArea()->activeSubWindow();
    auto* window = sub ? qobject_cast<gui::frmTransaction*>(sub->widget()) : nullptr;
    if (!window) return 1;
    sub->move(12, 12);

    // Grace boxes an Exacta and backs a winner in the Stakes; Jamal plays the Juvenile Dash;
    // a ticket of the Stakes gains a bet; a winning ticket of the Maiden Sprint is cashed.
    NewTicket(3, 7, {{1, 4, {1, 2, 4}, true}, {5, 1, {3}}});
    NewTicket(4, 10, {{2, 1, {1}}, {2, kAcrossTheBoard, {3}}, {2, 6, {2, 5}}});
    if (std::int32_t n = FindTicket(3, false)) {
        TranTicket& edit = BringIn(n, kEditTicket);
        AddBet(n, 3, {3, 2, {6}});
        edit.NewAmtBet = edit.NewCollected = edit.OldCost + Currency::FromDouble(3);
        edit.NewDistributed = edit.Winnings;
    }
    if (std::int32_t n = FindTicket(1, true)) {
        TranTicket& cash = BringIn(n, kCashTicket);
        cash.NewDistributed = cash.Winnings;
        cash.NewCollected = cash.OldCost;
    }
    window->logic.BuildSummary();
    window->Refresh();
    sub->resize(sub->sizeHint());
    if (!Save(&main, out + "/betting-window.png")) return 1;

    gui::frmCloseTransaction finish(&main);
    finish.show();
    if (!Save(&finish, out + "/close-transaction.png")) return 1;
    finish.hide();

    SetUpTicketPrinter();
    Betting.TransInPrinter = 0;
    TicketPage page;
    PrintTransaction(page, nullptr);
    ReleaseTickets();
    std::printf("%s\n%s\n%s\n", qPrintable(out + "/betting-window.png"),
                qPrintable(out + "/close-transaction.png"), qPrintable(printer.PdfFile()));

    // The transaction stays unfinished: the card on disk is not touched.
    Betting.TranTicketCount = 0;
    CurrentPorts().shell = nullptr;
    return 0;
}
