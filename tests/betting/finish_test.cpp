// Finish Transaction as the operator sees it: what is due, the typed amount read by the
// leading-number rule, the recovery lines of the finished transaction, the periodic save
// question, and Cancel and Print Tickets before anything is written.

#include "betting/close_transaction_logic.h"
#include "betting/finish_transaction.h"
#include "betting_card.h"

namespace tt::test {
namespace {

class Finish : public BettingCard {
  protected:
    // The Finish window opened, the amount typed, OK.
    bool FinishWith(const std::string& typed) {
        CloseTransactionLogic close;
        close.Form_Load();
        close.txtCollDist.text = typed;
        close.cmdOK_Click();
        return close.unloaded;
    }
    std::string Log() { return world.files.files[RF.RecoveryFile]; }
};

TEST_F(Finish, WhatIsDueAsTheWindowOpens) {
    NewTicket(1, 1, {{12.5, 1, {1}}});
    CloseTransactionLogic collect;
    collect.Form_Load();
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(collect.caption, "Finish Transaction");
    EXPECT_EQ(collect.lblCollDist.text, "Collected:");
    EXPECT_EQ(collect.lblCollect.text, "Collect $12.50");
    EXPECT_EQ(collect.txtCollDist.text, "12.50");
    EXPECT_EQ(collect.focus, "txtCollDist");
    EXPECT_TRUE(collect.cmdPrintTickets.enabled);
    EXPECT_EQ(collect.TicketAmt, (std::vector<Currency>{C(0), C(12.5)}));

    const std::int32_t n = FileTicket(2, 2, {{2, 1, {1}}});
    RF.Ticket(n).Winnings = C(1042.5);
    Cash(n);
    RF.PrintBets = true;
    CloseTransactionLogic payout;
    payout.Form_Load();
    EXPECT_EQ(payout.lblCollDist.text, "Payout:");
    EXPECT_EQ(payout.lblCollect.text, "Payout $1,030.00");
    EXPECT_EQ(payout.txtCollDist.text, "1,030.00");
    EXPECT_FALSE(payout.cmdPrintTickets.enabled);

    Tran(1).Action = kCancelled;
    Tran(2).Action = kCancelled;
    RF.CollectZero = true;
    CloseTransactionLogic nothing;
    nothing.Form_Load();
    EXPECT_EQ(nothing.lblCollDist.text, "Collected:");
    EXPECT_EQ(nothing.lblCollect.text, "Nothing to Collect/Cash");
    EXPECT_EQ(nothing.txtCollDist.text, "");
    EXPECT_EQ(nothing.TicketAmt, (std::vector<Currency>{C(0), C(0), C(0)}));
}

TEST_F(Finish, AThousandWrittenWithItsCommaIsReadAsOne) {
    const std::int32_t n = NewTicket(1, 1, {{1200, 1, {1}}});
    ASSERT_TRUE(FinishWith("1,200.00"));
    EXPECT_EQ(RF.Ticket(n).TicketCost, C(1200));
    EXPECT_EQ(RF.Ticket(n).Collected, C(1));
}

TEST_F(Finish, TheAmountBoxAndItsEnter) {
    NewTicket(1, 1, {{2, 1, {1}}});
    CloseTransactionLogic close;
    close.Form_Load();
    int key = 'a';
    close.txtCollDist_KeyPress(key);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(world.messages.beeps, 1);
    key = '7';
    close.txtCollDist_KeyPress(key);
    EXPECT_EQ(key, '7');
    close.txtCollDist_KeyUp('7');
    EXPECT_FALSE(close.unloaded);
    close.txtCollDist_KeyUp('\r');
    EXPECT_TRUE(close.unloaded);
    EXPECT_FALSE(G.CancelFlag);
    EXPECT_EQ(RF.TicketCount, 1);
}

TEST_F(Finish, CancelAndPrintTicketsWriteNothing) {
    NewTicket(1, 1, {{2, 1, {3}}});
    CloseTransactionLogic close;
    close.Form_Load();
    close.cmdPrintTickets_Click();
    // Without the set-up of a finish: the printer's own font, and no line fits a page.
    EXPECT_EQ(world.printer.font, "");
    ASSERT_GE(world.printer.lines.size(), 3u);
    EXPECT_EQ(world.printer.lines[0], "<end doc>");
    EXPECT_EQ(world.printer.lines[3].substr(0, 13), "   Ticket#: 1");
    close.cmdCancel_Click();
    EXPECT_TRUE(close.unloaded);
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(RF.TicketCount, 0);
    EXPECT_EQ(Betting.TranTicketCount, 1);
    EXPECT_FALSE(G.FileChanged);
}

TEST_F(Finish, AFinishWritesEmptiesTheListsAndMarksTheFileChanged) {
    const std::int32_t n = NewTicket(3, 2, {{2, 1, {1}}});
    ASSERT_TRUE(FinishWith("2.00"));
    EXPECT_TRUE(G.FileChanged);
    EXPECT_FALSE(G.CancelFlag);
    EXPECT_EQ(RF.Ticket(n).TicketBettor, 2);
    EXPECT_EQ(Betting.TranTicketCount, 0);
    EXPECT_EQ(Betting.TranBetCount, 0);
    EXPECT_EQ(Betting.TranTickets.UBound(), 1);
    EXPECT_FALSE(world.shell.busy);
    EXPECT_EQ(G.TransSinceSave, 1);
}

TEST_F(Finish, TheRecoveryLinesOfAFinishedTransaction) {
    RF.RecoveryFlag = true;
    world.clock.now = {2026, 5, 2, 14, 30, 0};
    const std::int32_t edited = FileTicket(2, 2, {{2, 1, {3}}, {3, 2, {1}}});
    RF.Bet(2, 1).BetWinnings = C(4.6);
    // The edit drops the Place bet and adds a Show bet; the Win bet was shown in Place Bets.
    TranTicket& edit = BringIn(edited, kEditTicket);
    Betting.TranBets(1).WinningsWhole = 5;
    TempBet& dropped = Betting.TranBets(2);
    dropped.BetType = 0;
    dropped.TicketNbr = 0;
    dropped.BetAmt = dropped.BetCost = Currency();
    AddTranBet(edited, 2, {2.5, 3, {5}});
    edit.NewAmtBet = edit.NewCollected = C(4.5);
    NewTicket(1, 1, {{1, 4, {1, 2, 4}, true}});
    world.clock.now = {2026, 5, 2, 14, 31, 7};
    ASSERT_TRUE(FinishWith("5.50"));

    const std::string head = "\"%TTRecv`\",\"2.0\",#2026-05-02 14:31:07#,4172,";
    EXPECT_EQ(Log(), head + "\"Edit\",1,2,2,4.5,0,5,0,2,1,#FALSE#,2,4.6,5,1,3,0,0,0,0,0,\r\n" +
                         head +
                         "\"Edit\",1,2,2,4.5,0,5,0,2.5,3,#FALSE#,2.5,0,0,0,5,0,0,0,0,0,\r\n" +
                         head + "\"New \",2,1,1,6,0,0,0,1,4,#TRUE#,6,0,0,0,1,2,4,0,0,0,\r\n");

    // The next transaction, as the window starts it, is appended.
    Betting.NewTicketCount = 0;
    NewTicket(3, 3, {{2, 2, {4}}});
    ASSERT_TRUE(FinishWith("1"));
    EXPECT_EQ(Log().substr(Log().rfind(head)),
              head + "\"New \",3,3,3,1,0,0,0,2,2,#FALSE#,2,0,0,0,4,0,0,0,0,0,\r\n");
}

TEST_F(Finish, ARemovedTicketLogsTheFreeElementsOfTheList) {
    // A removed ticket has number 0, as the free elements have; a restore passes over "Canc".
    RF.RecoveryFlag = true;
    NewTicket(1, 1, {{2, 1, {3}}});
    Tran(1).Action = kCancelled;
    Tran(1).TicketNbr = 0;
    Betting.TranBets(1).TicketNbr = 0;
    Betting.TranBets(1).BetType = 0;
    Betting.TranBets(1).BetAmt = Betting.TranBets(1).BetCost = Currency();
    NewTicket(1, 2, {});
    Tran(2).Action = kCancelled;  // accepted with no bets: no lines
    ASSERT_TRUE(FinishWith("0"));
    EXPECT_EQ(Log(),
              "\"%TTRecv`\",\"2.0\",#2026-05-02 14:30:00#,4172,\"Canc\",0,1,1,2,0,0,0,0,0,#FALSE#,"
              "0,0,0,0,3,0,0,0,0,0,\r\n");
    EXPECT_EQ(RF.TicketCount, 0);
    EXPECT_TRUE(G.FileChanged);
}

TEST_F(Finish, AFailingLogTurnsItselfOffAndTheTransactionStands) {
    RF.RecoveryFlag = true;
    world.files.failWrite[RF.RecoveryFile] = kErrPermissionDenied;
    const std::int32_t n = NewTicket(1, 1, {{2, 1, {3}}});
    ASSERT_TRUE(FinishWith("2"));
    EXPECT_FALSE(RF.RecoveryFlag);
    ASSERT_EQ(world.messages.shown.size(), 1u);
    const std::string expected =
        "The system has detected an unexpected error\r\nopening the Recovery File!\n\r\n";
    EXPECT_EQ(world.messages.shown[0].text.substr(0, expected.size()), expected);
    EXPECT_EQ(RF.Ticket(n).TicketBettor, 1);
}

TEST_F(Finish, TheSaveQuestionAfterSaveAfterTransactions) {
    RF.SaveAfter = 2;
    G.FilePath = "/c/spring.tly";
    NewTicket(1, 1, {{2, 1, {3}}});
    ASSERT_TRUE(FinishWith("2"));
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(G.TransSinceSave, 1);

    NewTicket(2, 2, {{2, 1, {3}}});
    world.messages.Answer(kOK);
    ASSERT_TRUE(FinishWith("2"));
    EXPECT_EQ(
        world.messages.Texts(),
        std::vector<std::string>{
            " 2 transactions have been processed.\r\nDo you wish to save your file to disk?"});
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kOKCancel);
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kExclamation);
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(G.TransSinceSave, 0);
    EXPECT_TRUE(world.files.files.count("/c/spring.tly"));
    EXPECT_FALSE(G.FileChanged);

    world.files.files.clear();
    NewTicket(3, 3, {{2, 1, {3}}});
    ASSERT_TRUE(FinishWith("2"));
    NewTicket(3, 3, {{2, 1, {3}}});
    world.messages.Answer(kCancel);
    ASSERT_TRUE(FinishWith("2"));
    EXPECT_EQ(world.messages.shown.size(), 2u);
    EXPECT_EQ(G.TransSinceSave, 0);
    EXPECT_FALSE(world.files.files.count("/c/spring.tly"));
    EXPECT_TRUE(G.FileChanged);

    RF.SaveAfter = 0;
    for (int i = 0; i < 3; ++i) {
        NewTicket(1, 1, {{2, 1, {3}}});
        ASSERT_TRUE(FinishWith("2"));
    }
    EXPECT_EQ(world.messages.shown.size(), 2u);
}

}  // namespace
}  // namespace tt::test
