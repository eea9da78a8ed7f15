// The betting window's summary: a new transaction, the rows and totals, the row-index quirk of
// opening a row after a removal, Remove, Trash, Quit and the closing question, the print state,
// and the key letters. The ticket windows are stood in for by the shell's hooks.

#include "betting/close_transaction_logic.h"
#include "betting/transaction_logic.h"
#include "betting_card.h"

namespace tt::test {
namespace {

class TransactionWindow : public BettingCard {
  protected:
    void SetUp() override {
        BettingCard::SetUp();
        win.Form_Load();
    }
    std::vector<std::string> Row(int r) {
        std::vector<std::string> cells;
        for (int c = 0; c < win.flxTran.Cols(); ++c) cells.push_back(win.flxTran.TextMatrix(r, c));
        return cells;
    }
    // Finish Transaction answered with the amount due, or cancelled.
    void FinishWindowAnswers(bool finish) {
        world.shell.onShow["frmCloseTransaction"] = [finish] {
            CloseTransactionLogic close;
            close.Form_Load();
            if (finish)
                close.cmdOK_Click();
            else
                close.cmdCancel_Click();
        };
    }
    TransactionLogic win;
};

TEST_F(TransactionWindow, OpeningStartsAnEmptyTransactionOnTheDefaultRace) {
    NewTicket(1, 1, {{2, 1, {1}}});
    RF.DefaultRace = 0;
    G.CurrentRace = 3;
    win.Form_Load();
    EXPECT_EQ(Betting.TranTicketCount, 0);
    EXPECT_EQ(Betting.NewTicketCount, 0);
    EXPECT_EQ(Betting.TranBetCount, 0);
    EXPECT_EQ(G.CurrentRace, 1);
    EXPECT_EQ(win.caption, "Betting Window Transaction");
    for (const ControlState* l : {&win.lblBetAmt, &win.lblCashed, &win.lblCollected, &win.lblNet})
        EXPECT_EQ(l->text, "$0.00");
    EXPECT_EQ(win.flxTran.Rows(), 1);
    EXPECT_EQ(Row(0),
              (std::vector<std::string>{"Action", "Ticket#", "Bettor", "Race", "Trans Amt"}));
    EXPECT_EQ(win.flxTran.ColWidth(0), 1200);
    EXPECT_EQ(win.flxTran.ColWidth(1), 700);
    EXPECT_EQ(win.flxTran.ColWidth(4), 900);
    EXPECT_EQ(win.flxTran.CellAlignment(0, 2), CellAlign::kCenter);
}

TEST_F(TransactionWindow, TheSummaryRowsAndTotals) {
    const std::int32_t edited = FileTicket(1, 2, {{4, 1, {2}}});
    const std::int32_t owing = FileTicket(2, 3, {{5, 2, {1}}});
    RF.Ticket(owing).Collected = C(1);
    const std::int32_t winning = FileTicket(3, 1, {{2, 1, {4}}});
    RF.Ticket(winning).Winnings = C(30);
    NewTicket(1, 1, {{2, 1, {3}}, {1, 4, {1, 2, 4}, true}});
    TranTicket& edit = BringIn(edited, kEditTicket);
    edit.NewAmtBet = edit.NewCollected = C(6);
    Cash(owing);
    Cash(winning);
    NewTicket(2, 2, {});
    Tran(5).Action = kCancelled;
    win.BuildSummary();

    ASSERT_EQ(win.flxTran.Rows(), 5);
    EXPECT_EQ(Row(1), (std::vector<std::string>{"New ticket", "4", "Ann Archer",
                                                " 1 - Maiden Sprint", "$8.00"}));
    EXPECT_EQ(Row(2), (std::vector<std::string>{"Edit ticket", "1", "Bob Bellweather",
                                                " 1 - Maiden Sprint", "$2.00"}));
    EXPECT_EQ(Row(3), (std::vector<std::string>{"Collect ticket", "2", "Cy Coldwater",
                                                " 2 - Meadowlark Handicap", "$4.00"}));
    EXPECT_EQ(Row(4), (std::vector<std::string>{"Cash ticket", "3", "Ann Archer",
                                                " 3 - Tamberlin Stakes", "-$30.00"}));
    EXPECT_EQ(win.lblBetAmt.text, "$10.00");
    EXPECT_EQ(win.lblCollected.text, "$4.00");
    EXPECT_EQ(win.lblCashed.text, "$30.00");
    EXPECT_EQ(win.lblNet.text, "-$16.00");
    EXPECT_EQ(win.flxTran.Row(), 1);
    EXPECT_EQ(win.flxTran.CellAlignment(1, 1), CellAlign::kCenter);
    EXPECT_EQ(win.flxTran.CellAlignment(1, 4), CellAlign::kRight);
}

TEST_F(TransactionWindow, ARowBehindARemovalOpensTheTicketBeforeIt) {
    const std::int32_t a = NewTicket(1, 1, {{2, 1, {1}}});
    const std::int32_t b = NewTicket(1, 2, {{2, 1, {2}}});
    const std::int32_t c = NewTicket(2, 3, {{2, 1, {3}}});
    win.BuildSummary();
    win.flxTran.SetRow(2);
    world.messages.Answer(kYes);
    win.cmdDelete_Click();
    ASSERT_EQ(win.flxTran.Rows(), 3);
    EXPECT_EQ(Row(2)[1], std::to_string(c));

    // C's row is row 2, which is B's element: B was removed, so nothing opens.
    win.flxTran.SetRow(2);
    win.flxTran_DblClick();
    EXPECT_EQ(Betting.CurTranTicket, 2);
    EXPECT_EQ(G.CurrentTicket, 0);
    EXPECT_TRUE(world.shell.formsShown.empty());

    // With a fourth ticket, D's row opens C.
    const std::int32_t d = NewTicket(3, 1, {{2, 1, {4}}});
    win.BuildSummary();
    ASSERT_EQ(Row(3)[1], std::to_string(d));
    win.flxTran.SetRow(3);
    win.flxTran_DblClick();
    EXPECT_EQ(world.shell.formsShown, std::vector<std::string>{"frmPlaceBets (modal)"});
    EXPECT_EQ(G.CurrentTicket, c);
    EXPECT_EQ(Tran(3).Action, kNewAgain);
    EXPECT_EQ(Betting.TicketMode, kNewAgain);
    EXPECT_EQ(Tran(4).Action, kNewTicket);

    // Remove goes by number: removing D's row removes D.
    win.BuildSummary();
    win.flxTran.SetRow(3);
    world.messages.Answer(kYes);
    win.cmdDelete_Click();
    EXPECT_EQ(Tran(4).Action, kCancelled);
    EXPECT_EQ(Tran(3).Action, kNewAgain);
    (void)a;
    (void)b;
}

TEST_F(TransactionWindow, OpeningACashOrEditRowOfAFinishedRaceIsRefused) {
    const std::int32_t n = FileTicket(2, 1, {{2, 1, {1}}});
    Cash(n);
    win.BuildSummary();
    RF.Race(2).Result(1) = 1;
    win.flxTran_DblClick();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Race results are entered.  This bet cannot be edited!"});
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_TRUE(world.shell.formsShown.empty());
    EXPECT_EQ(Tran(1).Action, kCashTicket);

    // On an open race a cashed ticket opened from the summary becomes an edit.
    RF.Race(2).Result(1) = 0;
    win.flxTran_DblClick();
    EXPECT_EQ(Tran(1).Action, kEditAgain);
    EXPECT_EQ(Betting.TicketMode, kEditAgain);
    EXPECT_EQ(world.shell.formsShown, std::vector<std::string>{"frmPlaceBets (modal)"});
    EXPECT_EQ(Row(1)[0], "Edit ticket");

    // Backspace goes to the header row, where a double click does nothing.
    win.flxTran_Backspace();
    win.flxTran_DblClick();
    EXPECT_EQ(world.shell.formsShown.size(), 1u);
}

TEST_F(TransactionWindow, RemoveAsksByNumberAndKeepsTheNumberUsed) {
    win.cmdDelete_Click();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{
                  "Select a row in the transaction summary to remove\r\nfrom the transaction."});
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(world.messages.beeps, 1);

    world.messages.Clear();
    NewTicket(1, 1, {{2, 1, {1}}, {3, 2, {2}}});
    const std::int32_t n = NewTicket(2, 2, {{5, 3, {3}}});
    win.BuildSummary();
    win.flxTran.SetRow(2);
    world.messages.Answer(kNo);
    win.cmdDelete_Click();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Are you sure you want to remove the changes that you made "
                                       "to \r\nticket #2 from this transaction?"});
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kYesNo);
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(Tran(2).Action, kNewTicket);

    world.messages.Answer(kYes);
    win.cmdDelete_Click();
    EXPECT_EQ(Tran(2).Action, kCancelled);
    EXPECT_EQ(Tran(2).TicketNbr, 0);
    const TempBet& gone = Betting.TranBets(3);
    EXPECT_EQ(gone.TicketNbr, 0);
    EXPECT_EQ(gone.BetType, 0);
    EXPECT_EQ(gone.BetAmt, C(0));
    EXPECT_EQ(gone.BetCost, C(0));
    EXPECT_EQ(gone.Pick(1), 3);  // the picks stay
    EXPECT_EQ(Betting.TranBets(1).TicketNbr, 1);
    EXPECT_EQ(Betting.NewTicketCount, 2);
    EXPECT_EQ(win.flxTran.Rows(), 2);
    EXPECT_EQ(win.lblBetAmt.text, "$5.00");
    (void)n;
}

TEST_F(TransactionWindow, RemovingTheOnlyTicketStillFinishesATransactionOfNothing) {
    NewTicket(1, 1, {{2, 1, {1}}});
    win.BuildSummary();
    world.messages.Answer(kYes);
    win.cmdDelete_Click();
    EXPECT_EQ(win.flxTran.Rows(), 1);
    EXPECT_EQ(win.flxTran.Row(), 0);
    std::string shown;
    world.shell.onShow["frmCloseTransaction"] = [&] {
        CloseTransactionLogic close;
        close.Form_Load();
        shown = close.lblCollect.text;
    };
    win.cmdOK_Click();
    EXPECT_EQ(shown, "Nothing to Collect/Cash");
    // No question on the way out: only a removed ticket is left.
    world.messages.Clear();
    win.cmdClose_Click();
    EXPECT_TRUE(win.unloaded);
    EXPECT_TRUE(world.messages.shown.empty());
}

TEST_F(TransactionWindow, TrashAsksAndStartsANewTransaction) {
    win.cmdCancel_Click();
    EXPECT_TRUE(world.messages.shown.empty());

    NewTicket(1, 1, {{2, 1, {1}}});
    win.BuildSummary();
    world.messages.Answer(kNo);
    win.cmdCancel_Click();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Are you sure you want to trash this transaction?"});
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kYesNo);
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(Betting.TranTicketCount, 1);

    int reshown = 0;
    win.onReshow = [&] {
        ++reshown;
        win.Form_Load();
    };
    world.messages.Answer(kYes);
    win.cmdCancel_Click();
    EXPECT_EQ(reshown, 1);
    EXPECT_EQ(Betting.TranTicketCount, 0);
    EXPECT_EQ(Betting.NewTicketCount, 0);
    EXPECT_EQ(win.flxTran.Rows(), 1);
    EXPECT_EQ(win.lblBetAmt.text, "$0.00");
    EXPECT_FALSE(G.FileChanged);
}

TEST_F(TransactionWindow, QuitWithWorkOpenAsksToKeepTheChanges) {
    RF.PrintBets = true;
    NewTicket(1, 1, {{2, 1, {1}}});
    win.BuildSummary();
    Betting.TransInPrinter = 2;

    // Cancel keeps the window, but what waits in the printer goes out all the same.
    world.messages.Answer(kCancel);
    win.cmdClose_Click();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Do you wish to keep your changes?"});
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kYesNoCancel);
    EXPECT_EQ(world.messages.shown[0].title, "Betting Window Transaction");
    EXPECT_FALSE(win.unloaded);
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(world.printer.lines, std::vector<std::string>{"<end doc>"});
    EXPECT_EQ(Betting.TransInPrinter, 0);
    EXPECT_EQ(win.lblTransInPrinter.text, " 0 transactions waiting to print.");

    // Yes finishes first; a Finish window cancelled keeps the window.
    FinishWindowAnswers(false);
    world.messages.Answer(kYes);
    win.cmdClose_Click();
    EXPECT_FALSE(win.unloaded);
    EXPECT_EQ(Betting.TranTicketCount, 1);

    FinishWindowAnswers(true);
    world.messages.Answer(kYes);
    win.cmdClose_Click();
    EXPECT_TRUE(win.unloaded);
    EXPECT_EQ(RF.TicketCount, 1);
    EXPECT_EQ(Betting.TranTicketCount, 0);
}

TEST_F(TransactionWindow, ThePrintStateAndReleasePrint) {
    Betting.TransInPrinter = 3;
    win.ShowPrintState();
    EXPECT_FALSE(win.lblTransInPrinter.visible);
    EXPECT_FALSE(win.cmdRelease.visible);

    RF.PrintBets = true;
    win.ShowPrintState();
    EXPECT_TRUE(win.lblTransInPrinter.visible);
    EXPECT_TRUE(win.cmdRelease.visible);
    EXPECT_TRUE(win.cmdRelease.enabled);
    EXPECT_EQ(win.lblTransInPrinter.text, " 3 transactions waiting to print.");

    win.Form_KeyUp('P');
    EXPECT_EQ(world.printer.lines, std::vector<std::string>{"<end doc>"});
    EXPECT_EQ(Betting.TransInPrinter, 0);
    EXPECT_EQ(win.lblTransInPrinter.text, " 0 transactions waiting to print.");
    EXPECT_FALSE(win.cmdRelease.enabled);
    // A disabled button does not answer its key.
    win.Form_KeyUp('P');
    EXPECT_EQ(world.printer.lines.size(), 1u);
}

TEST_F(TransactionWindow, EachButtonOnItsKeyLetter) {
    std::vector<std::string> modes;
    world.shell.onShow["frmTicketHeader"] = [&] {
        modes.push_back(Betting.TicketMode);
        // The ticket windows leave a new ticket behind.
        NewTicket(1, 1, {{2, 1, {1}}});
    };
    win.Form_KeyUp('S');
    win.Form_KeyUp('E');
    win.Form_KeyUp('C');
    EXPECT_EQ(modes, (std::vector<std::string>{"New ", "Edit", "Cash"}));
    EXPECT_EQ(win.flxTran.Rows(), 4);  // the summary follows each window
    EXPECT_EQ(win.lblBetAmt.text, "$6.00");

    world.messages.Answer(kNo);
    win.Form_KeyUp('T');
    world.messages.Answer(kNo);
    win.Form_KeyUp('R');
    EXPECT_EQ(world.messages.Texts(),
              (std::vector<std::string>{"Are you sure you want to trash this transaction?",
                                        "Are you sure you want to remove the changes that you "
                                        "made to \r\nticket #1 from this transaction?"}));
    int help = 0;
    win.onHelp = [&] { ++help; };
    win.Form_KeyUp('H');
    EXPECT_EQ(help, 1);
    win.Form_KeyUp('X');  // no button

    FinishWindowAnswers(true);
    win.Form_KeyUp('F');
    EXPECT_EQ(RF.TicketCount, 3);
    EXPECT_EQ(Betting.TranTicketCount, 0);  // a new transaction
    EXPECT_EQ(win.flxTran.Rows(), 1);
    EXPECT_TRUE(G.FileChanged);

    win.Form_KeyUp('Q');
    EXPECT_TRUE(win.unloaded);
}

}  // namespace
}  // namespace tt::test
