// The ticket windows at the keyboard: a ticket of several bets taken without the mouse, the
// keys of the ticket window in each mode, the read-only Place Bet of a race with results, and
// the picks pop-up that any key closes.

// The card helper first: it names a variable as Qt names its slots keyword.
#include "ticket_card.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "betting/forms/frm_bet_display.h"
#include "betting/forms/frm_place_bets.h"
#include "betting/forms/frm_ticket_header.h"
#include "betting/ticket_lists.h"

namespace tt::test {
namespace {

class TicketForms : public TicketCard {
  protected:
    void SetUp() override {
        TicketCard::SetUp();
        Ticket(1, 2, {{1, 2, {3}}, {4, 1, {1, 2}}});  // ticket 1, race 1
        Ticket(3, 3, {{1, 5, {2}}});                  // ticket 2, race 3 with results
        Ticket(2, 1, {{1, 2, {1}}});                  // ticket 3
        RF.Ticket(3).Collected = Currency();
        StartTransaction();
    }
    static bool Show(QDialog& d) {
        d.show();
        d.activateWindow();
        return QTest::qWaitForWindowActive(&d);
    }
    static QWidget* Focus() { return QApplication::focusWidget(); }
    static QString FocusName() { return Focus() ? Focus()->objectName() : QString("(none)"); }
    static void Key(Qt::Key k, Qt::KeyboardModifiers m = Qt::NoModifier) {
        QTest::keyClick(Focus(), k, m);
    }
    static void Type(const char* text) { QTest::keyClicks(Focus(), text); }
    template <class W>
    static W* Child(QWidget& form, const char* name) {
        W* w = form.findChild<W*>(name);
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
};

TEST_F(TicketForms, ATicketOfSeveralBetsIsTakenAtTheKeyboard) {
    NewTicket(1, 1);
    gui::frmPlaceBets f;
    ASSERT_TRUE(Show(f));
    EXPECT_EQ(f.windowTitle(), "Place Bet");
    EXPECT_EQ(FocusName(), "txtBetAmt");

    // A Win bet: amount, Enter, type letter, Enter, number, Enter, Enter on Accept Bet.
    Type("2x");
    EXPECT_EQ(Child<QLineEdit>(f, "txtBetAmt")->text(), "2") << "no letters in the amount";
    Key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "comBetType");
    Type("w");
    EXPECT_EQ(Child<QComboBox>(f, "comBetType")->currentText(), "Win");
    Key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "comPick(1)");
    Type("3");
    Key(Qt::Key_Return);
    EXPECT_EQ(Child<QComboBox>(f, "comPick(1)")->currentText(), "   3 - Paper Moon");
    EXPECT_EQ(FocusName(), "cmdAcceptBet");
    Key(Qt::Key_Return);
    EXPECT_EQ(Betting.TicketBetCount, 1);
    EXPECT_EQ(FocusName(), "txtBetAmt");

    // A boxed Exacta: Enter on the type goes to Boxed, Space ticks it, Enter goes to the picks;
    // F2 takes the number still being typed in the third list.
    Type("5");
    Key(Qt::Key_Return);
    Type("e");
    Key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "chkBoxed");
    Key(Qt::Key_Space);
    EXPECT_TRUE(Child<QCheckBox>(f, "chkBoxed")->isChecked());
    Key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "comPick(1)");
    for (const char* pick : {"1", "2"}) {
        Type(pick);
        Key(Qt::Key_Return);
    }
    EXPECT_EQ(FocusName(), "comPick(3)");
    Type("5");
    Key(Qt::Key_F2);
    EXPECT_TRUE(world.messages.shown.empty()) << world.messages.Texts()[0];
    ASSERT_EQ(Betting.TicketBetCount, 2);
    EXPECT_EQ(Betting.TicketBets(2).BetCost, C(30));
    auto* grid = Child<QTableView>(f, "flxBets");
    EXPECT_EQ(grid->model()->rowCount(), 2);
    EXPECT_EQ(grid->model()->index(1, 5).data().toString(), " 1,  2,  5");

    // Shift+Enter accepts too; Ctrl+Enter accepts the ticket.
    Type("2");
    Key(Qt::Key_Return);
    Type("s");
    Key(Qt::Key_Return);
    Type("10");
    Key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Betting.TicketBetCount, 3);
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(f.isVisible());
    ASSERT_EQ(Betting.TranTicketCount, 1);
    EXPECT_EQ(Betting.TranTickets(1).NewAmtBet, C(34));
    EXPECT_EQ(Betting.TranBetCount, 3);
}

TEST_F(TicketForms, AnEnterPressedInAnotherBoxDoesNotRunOnWhenItComesUp) {
    NewTicket(1, 1);
    gui::frmPlaceBets f;
    ASSERT_TRUE(Show(f));
    Type("2");
    Key(Qt::Key_Return);
    Type("w");
    Key(Qt::Key_Backtab);
    EXPECT_EQ(FocusName(), "txtBetAmt");
    // Enter goes down in the amount box, which sends the focus on, and comes up in the type
    // list: the type list stays, for the type to be checked.
    QTest::keyPress(Focus(), Qt::Key_Return);
    EXPECT_EQ(FocusName(), "comBetType");
    QTest::keyRelease(Focus(), Qt::Key_Return);
    EXPECT_EQ(FocusName(), "comBetType");
}

TEST_F(TicketForms, LeavingTheAmountBelowTheMinimumBringsTheFocusBack) {
    RF.Race(1).MinBet = C(2);
    NewTicket(1, 1);
    gui::frmPlaceBets f;
    ASSERT_TRUE(Show(f));
    Type("1");
    Key(Qt::Key_Return);
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Minimum bet for this race is 2."});
    EXPECT_EQ(FocusName(), "txtBetAmt");
    EXPECT_EQ(Child<QLineEdit>(f, "txtBetAmt")->text(), "1.00");
}

TEST_F(TicketForms, ARefusedBetKeepsItsPicksAndMarksTheRepeatedOnesRed) {
    NewTicket(1, 1);
    gui::frmPlaceBets f;
    ASSERT_TRUE(Show(f));
    Type("1");
    Key(Qt::Key_Return);
    Type("t");
    Key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "chkBoxed");
    Key(Qt::Key_Return);
    for (const char* pick : {"2", "3", "2"}) {
        Type(pick);
        Key(Qt::Key_Return);
    }
    Key(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(world.messages.Texts().size(), 3u);
    EXPECT_FALSE(Child<QComboBox>(f, "comPick(1)")->styleSheet().isEmpty());
    EXPECT_TRUE(Child<QComboBox>(f, "comPick(2)")->styleSheet().isEmpty());
    EXPECT_FALSE(Child<QComboBox>(f, "comPick(3)")->styleSheet().isEmpty());
    EXPECT_EQ(FocusName(), "comPick(1)");
    EXPECT_EQ(Betting.TicketBetCount, 0);
    // Ctrl+C empties the bet area.
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Child<QLineEdit>(f, "txtBetAmt")->text(), " ");
    EXPECT_EQ(Child<QComboBox>(f, "comPick(1)")->currentIndex(), -1);
    EXPECT_EQ(FocusName(), "txtBetAmt");
}

TEST_F(TicketForms, ABetOfTheListIsBroughtBackAndDeletedWithCtrlD) {
    NewTicket(1, 1);
    gui::frmPlaceBets f;
    ASSERT_TRUE(Show(f));
    for (const char* amount : {"2", "4"}) {
        Type(amount);
        Key(Qt::Key_Return);
        Type("p");
        Key(Qt::Key_Return);
        Type("5");
        Key(Qt::Key_F2);
    }
    auto* grid = Child<QTableView>(f, "flxBets");
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(1, 1));
    Key(Qt::Key_Return);
    EXPECT_EQ(Child<QLineEdit>(f, "txtBetAmt")->text(), "4.00");
    world.messages.Answer(kOK);
    Key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Are you sure you want to delete this bet?"});
    EXPECT_EQ(grid->model()->rowCount(), 1);
    EXPECT_EQ(Child<QLabel>(f, "lblAmtBet")->text(), "$2.00");
    // Esc after a change asks, and No keeps the ticket open.
    world.messages.Answer(kNo);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(f.isVisible());
    world.messages.Answer(kYes);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(Betting.TranTicketCount, 0);
}

TEST_F(TicketForms, ARaceWithResultsOpensReadOnlyAndItsTicketCanStillBeAccepted) {
    Betting.TicketMode = kEditAgain;
    G.CurrentTicket = 2;
    TicketHeaderLogic header;
    header.AddTicketToTransaction();
    gui::frmPlaceBets f;
    ASSERT_TRUE(Show(f));
    for (const char* name : {"txtBetAmt", "chkBoxed", "cmdDelete", "cmdAcceptBet"})
        EXPECT_FALSE(Child<QWidget>(f, name)->isEnabled()) << name;
    for (const char* name : {"comBetType", "comPick(1)"})
        EXPECT_FALSE(Child<QComboBox>(f, name)->isEnabled()) << name;
    EXPECT_TRUE(Child<QPushButton>(f, "cmdAcceptTicket")->isEnabled());
    auto* grid = Child<QTableView>(f, "flxBets");
    EXPECT_EQ(grid->focusPolicy(), Qt::ClickFocus);
    EXPECT_EQ(Child<QLabel>(f, "lblRaceName")->text(), "3 - Third");
    // A click on a bet still fills the bet area.
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                      grid->visualRect(grid->model()->index(0, 1)).center());
    EXPECT_EQ(Child<QLineEdit>(f, "txtBetAmt")->text(), "5.00");
    Key(Qt::Key_F2);
    EXPECT_TRUE(world.messages.shown.empty());
    Key(Qt::Key_F3);
    EXPECT_FALSE(f.isVisible());
}

TEST_F(TicketForms, StartANewTicketByBettorNameAndEnter) {
    Betting.TicketMode = kNewTicket;
    gui::frmTicketHeader h;
    ASSERT_TRUE(Show(h));
    EXPECT_EQ(h.windowTitle(), "Start a New Ticket");
    EXPECT_FALSE(Child<QTableView>(h, "flxBets")->isVisible());
    EXPECT_EQ(Child<QLineEdit>(h, "txtTicketNbr")->text(), "4");
    EXPECT_EQ(FocusName(), "comBettor");
    Type("Carmen Ortiz");
    EXPECT_EQ(G.CurrentBettor, 3);
    Key(Qt::Key_Return);
    EXPECT_EQ(world.shell.formsShown, std::vector<std::string>{"frmPlaceBets (modal)"});
    EXPECT_FALSE(h.isVisible());
    ASSERT_EQ(Betting.TranTicketCount, 1);
    EXPECT_EQ(Betting.TranTickets(1).Bettor, 3);
    EXPECT_EQ(Betting.TranTickets(1).TicketNbr, 4);
}

TEST_F(TicketForms, TheRaceBoxTakesANumberAndEnterMovesToTheBettor) {
    Betting.TicketMode = kNewTicket;
    gui::frmTicketHeader h;
    ASSERT_TRUE(Show(h));
    Child<QComboBox>(h, "comRaceName")->setFocus(Qt::TabFocusReason);
    Type("2x");
    EXPECT_EQ(world.messages.beeps, 1) << "a letter is refused";
    Key(Qt::Key_Return);
    EXPECT_EQ(G.CurrentRace, 2);
    EXPECT_EQ(Child<QComboBox>(h, "comRaceName")->currentText(), "   2 - Second");
    EXPECT_EQ(FocusName(), "comBettor");
    // Backspace clears the bettor; Enter without one names what is missing.
    Type("bob fenwick");
    Key(Qt::Key_Backspace);
    EXPECT_EQ(G.CurrentBettor, 0);
    EXPECT_EQ(Child<QComboBox>(h, "comBettor")->currentText(), "");
    Key(Qt::Key_Return);
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Please select a bettor for the ticket!"});
}

TEST_F(TicketForms, EscClosesANewTicketWindowAndGivesItsNumberBack) {
    Betting.TicketMode = kNewTicket;
    gui::frmTicketHeader h;
    ASSERT_TRUE(Show(h));
    EXPECT_EQ(Betting.NewTicketCount, 1);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(h.isVisible());
    EXPECT_EQ(Betting.NewTicketCount, 0);
}

TEST_F(TicketForms, ATypedTicketNumberAndEnterEditsTheTicket) {
    Betting.TicketMode = kEditTicket;
    gui::frmTicketHeader h;
    ASSERT_TRUE(Show(h));
    EXPECT_EQ(h.windowTitle(), "Select a Ticket to Edit");
    EXPECT_EQ(FocusName(), "txtTicketNbr");
    Type("1");
    Key(Qt::Key_Return);
    EXPECT_EQ(world.shell.formsShown, std::vector<std::string>{"frmPlaceBets (modal)"});
    EXPECT_EQ(Betting.TranTickets(1).Action, "Edit");
    EXPECT_FALSE(h.isVisible());
}

TEST_F(TicketForms, TheCashListIsWorkedWithTheArrowKeysAndEnter) {
    G.CurrentRace = 0;
    Betting.TicketMode = kCashTicket;
    gui::frmTicketHeader h;
    ASSERT_TRUE(Show(h));
    auto* grid = Child<QTableView>(h, "flxBets");
    EXPECT_EQ(grid->model()->rowCount(), 1);
    EXPECT_EQ(grid->model()->index(0, 0).data().toString(), "3");
    Key(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "flxBets");
    EXPECT_EQ(Child<QLineEdit>(h, "txtTicketNbr")->text(), "3");
    world.messages.Answer(kCancel);
    Key(Qt::Key_Return);
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"Collect $2.00 for ticket #3"});
    EXPECT_TRUE(h.isVisible());
    // Ctrl+C asks again; OK takes the ticket and closes the window.
    world.messages.Answer(kOK);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Betting.TranTicketCount, 1);
    EXPECT_EQ(Betting.TranTickets(1).Action, "Cash");
    EXPECT_FALSE(h.isVisible());
}

TEST_F(TicketForms, ThePicksPopUpClosesOnAnyKey) {
    G.CurrentRace = 1;
    G.CurrentBet = 2;
    gui::frmBetDisplay d;
    ASSERT_TRUE(Show(d));
    EXPECT_EQ(d.windowTitle(), "Display Bet Pick's");
    EXPECT_EQ(Child<QTableView>(d, "flxPicks")->model()->rowCount(), 3);
    Key(Qt::Key_X);
    EXPECT_FALSE(d.isVisible());
}

}  // namespace
}  // namespace tt::test
