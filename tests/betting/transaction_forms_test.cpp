// The two windows on screen, driven by their keys: the betting window's letters read on their
// release, Enter and Backspace in its summary, its place and its closing question in the main
// window; Finish Transaction's amount box with its filter and its Enter.

#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "betting/forms/frm_close_transaction.h"
#include "betting/forms/frm_transaction.h"
#include "betting_card.h"
#include "model/number_text.h"
#include "shell/forms/form_registry.h"
#include "shell/forms/frm_main.h"
#include "shell/forms/gui_support.h"
#include "shell/main_commands.h"

namespace tt::test {
namespace {

using gui::Twips;

class TransactionForms : public BettingCard {
  protected:
    template <class W>
    W* Child(QWidget& form, const char* name) {
        W* w = form.findChild<W*>(name);
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
    // A key pressed and let go on a control, as a person types it.
    static void Key(QWidget* w, Qt::Key key, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        QTest::keyClick(w, key, mods);
    }
    // Ticket Header stands in: each opening leaves a new ticket of two dollars on race 1.
    void TicketWindowAddsTickets() {
        world.shell.onShow["frmTicketHeader"] = [this] { NewTicket(1, 1, {{2, 1, {3}}}); };
    }
};

TEST_F(TransactionForms, TheLettersActOnTheirReleaseWhereverTheFocusIs) {
    TicketWindowAddsTickets();
    gui::frmTransaction window;
    window.show();
    EXPECT_EQ(window.windowTitle(), "Betting Window Transaction");
    auto* grid = Child<QTableView>(window, "flxTran");
    auto* quit = Child<QPushButton>(window, "cmdClose");
    EXPECT_EQ(quit->text(), "Quit");
    EXPECT_EQ(quit->toolTip(), "Leave the betting window. (Press Q)");
    EXPECT_FALSE(Child<QPushButton>(window, "cmdRelease")->isVisible());

    Key(grid, Qt::Key_S);
    Key(quit, Qt::Key_S, Qt::ShiftModifier);
    Key(grid, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(world.shell.formsShown.size(), 3u);
    EXPECT_EQ(grid->model()->rowCount(), 3);
    EXPECT_EQ(grid->model()->index(0, 0).data().toString(), "New ticket");
    EXPECT_EQ(Child<QLabel>(window, "lblBetAmt")->text(), "$6.00");

    // The release of a key pressed elsewhere, such as the key that closed another window,
    // does nothing here.
    QTest::keyRelease(grid, Qt::Key_S);
    EXPECT_EQ(world.shell.formsShown.size(), 3u);

    // Enter opens the selected row; Backspace goes to the header row, where Enter does nothing.
    grid->setCurrentIndex(grid->model()->index(1, 0));
    Key(grid, Qt::Key_Return);
    EXPECT_EQ(world.shell.formsShown.back(), "frmPlaceBets (modal)");
    EXPECT_EQ(G.CurrentTicket, 2);
    Key(grid, Qt::Key_Backspace);
    EXPECT_FALSE(grid->selectionModel()->hasSelection());
    Key(grid, Qt::Key_Return);
    EXPECT_EQ(world.shell.formsShown.size(), 4u);

    // R removes the selected row's ticket after the question.
    grid->setCurrentIndex(grid->model()->index(2, 0));
    world.messages.Answer(kYes);
    Key(grid, Qt::Key_R);
    EXPECT_EQ(world.messages.Texts().back(),
              "Are you sure you want to remove the changes that you made to \r\nticket #3 from "
              "this transaction?");
    EXPECT_EQ(grid->model()->rowCount(), 2);

    // Q asks about the open tickets; No closes the window.
    world.messages.Answer(kNo);
    Key(grid, Qt::Key_Q);
    EXPECT_EQ(world.messages.Texts().back(), "Do you wish to keep your changes?");
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(window.logic.unloaded);
}

TEST_F(TransactionForms, FinishTransactionFinishesOnTheReleaseOfEnterInItsAmountBox) {
    NewTicket(1, 1, {{2, 1, {3}}, {5, 2, {4}}});
    gui::frmCloseTransaction dialog;
    dialog.show();
    auto* amount = Child<QLineEdit>(dialog, "txtCollDist");
    EXPECT_EQ(Child<QLabel>(dialog, "lblCollect")->text(), "Collect $7.00");
    EXPECT_EQ(Child<QLabel>(dialog, "lblCollDist")->text(), "Collected:");
    EXPECT_EQ(amount->text(), "7.00");
    EXPECT_EQ(Child<QPushButton>(dialog, "cmdOK")->toolTip(),
              "Save transaction and allocate money collected/paid-out to bets.");

    amount->clear();
    QTest::keyClicks(amount, "6x.5");
    EXPECT_EQ(amount->text(), "6.5");
    EXPECT_EQ(world.messages.beeps, 1);
    QTest::keyRelease(amount, Qt::Key_Return);  // not pressed here: nothing
    EXPECT_TRUE(dialog.isVisible());
    Key(amount, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(G.CancelFlag);
    EXPECT_EQ(RF.Ticket(1).Collected, C(6.5));
}

TEST_F(TransactionForms, EscapeGoesBackToTheTransaction) {
    NewTicket(1, 1, {{2, 1, {3}}});
    gui::frmCloseTransaction dialog;
    dialog.show();
    Key(Child<QLineEdit>(dialog, "txtCollDist"), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_EQ(RF.TicketCount, 0);
    EXPECT_EQ(Betting.TranTicketCount, 1);
}

TEST_F(TransactionForms, TheBettingWindowInTheMainWindowKeepsItsPlaceAndAsksBeforeClosing) {
    gui::RegisterBettingForms();
    world.settings.values = {{"TranLeft", "1500"}, {"TranTop", "750"}};
    gui::frmMain main;
    Ports ports = CurrentPorts();
    ports.shell = &main;
    PortsScope scope(ports);
    main.resize(1200, 900);
    main.show();
    TicketWindowAddsTickets();
    world.shell.onShow.clear();

    mnuEditPlaceBets_Click();
    ASSERT_TRUE(main.IsFormLoaded("frmTransaction"));
    QMdiSubWindow* sub = main.MdiArea()->activeSubWindow();
    ASSERT_NE(sub, nullptr);
    EXPECT_EQ(sub->windowTitle(), "Betting Window Transaction");
    EXPECT_EQ(sub->pos(), QPoint(Twips(1500), Twips(750)));
    auto* window = qobject_cast<gui::frmTransaction*>(sub->widget());
    ASSERT_NE(window, nullptr);

    // A ticket in the summary: closing the children asks, and Cancel keeps the window.
    NewTicket(1, 1, {{2, 1, {3}}});
    window->RefreshContents();
    sub->move(Twips(3000), Twips(1500));
    world.messages.Answer(kCancel);
    main.CloseChildWindows();
    EXPECT_TRUE(G.CancelFlag);
    EXPECT_TRUE(main.IsFormLoaded("frmTransaction"));

    // Opened again it comes to the front as it is; No lets it go and its place is kept.
    mnuEditPlaceBets_Click();
    EXPECT_EQ(Betting.TranTicketCount, 1);
    world.messages.Answer(kNo);
    main.CloseChildWindows();
    EXPECT_FALSE(G.CancelFlag);
    EXPECT_FALSE(main.IsFormLoaded("frmTransaction"));
    EXPECT_EQ(world.settings.values["TranLeft"], NumText(gui::ToTwips(Twips(3000))));
    EXPECT_EQ(world.settings.values["TranTop"], NumText(gui::ToTwips(Twips(1500))));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    // Leaving the program asks about the open transaction first, while the card is still there.
    mnuEditPlaceBets_Click();
    NewTicket(1, 1, {{2, 1, {3}}});
    world.messages.Clear();
    world.messages.Answer(kCancel);
    main.close();
    EXPECT_TRUE(main.isVisible());
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Do you wish to keep your changes?"});
    EXPECT_EQ(RF.Race(1).RaceName, "Maiden Sprint");
    world.messages.Answer(kNo);
    main.close();
    EXPECT_FALSE(main.isVisible());
    EXPECT_FALSE(main.IsFormLoaded("frmTransaction"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace
}  // namespace tt::test
