// Display Odds and its board over the logic: the window keeps its place, turns its pages by
// the rows it shows, stops at an interval of 0 and goes when there is no race; the board takes
// over the paging, leaves on Esc, and opens by itself for --board once a card is open.

// The card helper first: it names a variable as Qt names its slots keyword.
#include "payout_card.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <optional>

#include "files/file_commands.h"
#include "model/number_text.h"
#include "payouts/forms/frm_display_odds.h"
#include "payouts/forms/odds_board.h"
#include "shell/forms/form_registry.h"
#include "shell/forms/frm_main.h"
#include "shell/forms/gui_support.h"
#include "shell/startup.h"

namespace tt::test {
namespace {

using gui::Twips;

// Race 1 with thirty racers and Win, race 2 with three.
class OddsForms : public PayoutCard {
  protected:
    void SetUp() override {
        PayoutCard::SetUp();
        Race(1, {1}, {});
        for (int n = 1; n <= 30; ++n) {
            RF.MaxRacers = std::max<int>(RF.MaxRacers, n);
            RF.Racer.ReDimPreserve(RF.MaxRacers + 1);
            RF.Racer(1, n).BetNbr = n;
            RF.Racer(1, n).RacerName = "Runner " + std::to_string(n);
        }
        Race(2, {1, 2}, {1, 2, 3});
        Bet(1, 1, 2, {1});
        RF.DefaultRace = 1;
    }
    template <class W>
    W* Child(QWidget& form, const char* name) {
        W* w = form.findChild<W*>(name);
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
};

TEST_F(OddsForms, WindowTurnsThePagesItShowsAndKeepsItsPlace) {
    world.settings.values = {{"OddsLeft", "1500"}, {"OddsTop", "750"}};
    gui::frmDisplayOdds window;
    window.show();
    EXPECT_EQ(window.windowTitle(), "Display Odds");
    EXPECT_EQ(window.pos(), QPoint(Twips(1500), Twips(750)));
    auto* betType = Child<QComboBox>(window, "comBetType");
    auto* grid = Child<QTableView>(window, "flxOdds");
    EXPECT_EQ(betType->currentText(), "Betting Pools");
    EXPECT_EQ(grid->model()->rowCount(), 31);  // thirty racers and the totals
    EXPECT_TRUE(grid->isColumnHidden(5));

    // The window tells the logic how many rows it shows whole.
    window.resize(window.width(), window.minimumSizeHint().height());
    QApplication::processEvents();
    const int shown = grid->viewport()->height() / grid->verticalHeader()->defaultSectionSize();
    ASSERT_GT(shown, 0);
    ASSERT_LT(shown, 31);
    EXPECT_EQ(window.logic.VisibleRows, shown);

    // Auto Run on: a tick turns the page, and the grid scrolls to it.
    Child<QRadioButton>(window, "optAutoOn")->click();
    Child<QRadioButton>(window, "optAutoBetSelected")->click();
    auto* timer = Child<QTimer>(window, "Timer1");
    timer->setInterval(1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.logic.TopRowShown == 1 + shown; }));
    EXPECT_EQ(timer->interval(), 5000);
    // The last page stands at the foot of the grid.
    EXPECT_EQ(grid->verticalScrollBar()->value(), std::min(shown, 31 - shown));

    // Bet types chosen by key.
    betType->setFocus();
    QTest::keyClick(betType, Qt::Key_Down);
    EXPECT_EQ(window.logic.CurBetType, 1);
    EXPECT_EQ(grid->model()->headerData(2, Qt::Horizontal).toString(), "Cur Odds");
    EXPECT_EQ(window.logic.TopRowShown, 1);

    // An interval of 0 stops the timer at the next tick.
    auto* interval = Child<QLineEdit>(window, "txtInterval");
    interval->setFocus();
    interval->selectAll();
    QTest::keyClicks(interval, "x0");  // the letter is refused
    EXPECT_EQ(interval->text(), "0");
    timer->setInterval(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !timer->isActive(); }));

    window.resize(700, 500);
    window.close();
    EXPECT_EQ(world.settings.writes,
              (std::vector<std::string>{"OddsLeft", "OddsTop", "OddsWidth", "OddsHeight"}));
    EXPECT_EQ(world.settings.values["OddsWidth"], NumText(gui::ToTwips(700)));
}

TEST_F(OddsForms, NoRaceToShowClosesTheWindow) {
    ClearRaceFile();
    auto* window = new gui::frmDisplayOdds;
    QPointer<gui::frmDisplayOdds> alive(window);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"No races to display"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return alive.isNull(); }));
}

TEST_F(OddsForms, TheBoardPagesByItsOwnRowsAndLeavesOnEsc) {
    gui::frmDisplayOdds window;
    window.show();
    auto* button = Child<QPushButton>(window, "cmdBoard");
    Child<QCheckBox>(window, "chkBoardBars")->setChecked(true);
    EXPECT_EQ(world.settings.values["OddsBoardBars"], "1");
    button->click();
    gui::OddsBoard* board = window.Board();
    ASSERT_NE(board, nullptr);
    EXPECT_TRUE(board->isVisible());
    EXPECT_TRUE(board->Bars());
    EXPECT_EQ(board->geometry(), board->screen()->geometry());
    EXPECT_EQ(window.logic.VisibleRows, board->RowsPerPage());
    EXPECT_LT(board->RowsPerPage(), 31);
    EXPECT_GE(board->RowsPerPage(), 8);  // a hall reads big type, but a page is worth turning

    Child<QRadioButton>(window, "optAutoOn")->click();
    Child<QTimer>(window, "Timer1")->setInterval(1);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return window.logic.TopRowShown == 1 + board->RowsPerPage(); }));

    QTest::keyClick(board, Qt::Key_Escape);
    EXPECT_FALSE(board->isVisible());
    EXPECT_FALSE(button->isChecked());
    EXPECT_FALSE(window.BoardShown());

    // Closing the window takes its board along.
    button->click();
    EXPECT_TRUE(board->isVisible());
    window.close();
    EXPECT_FALSE(board->isVisible());
}

TEST_F(OddsForms, BoardFromTheCommandLineOpensOnceACardWithARaceIsOpen) {
    gui::RegisterShellForms();
    gui::RegisterPayoutForms();
    ASSERT_TRUE(gui::IsFormRegistered("frmDisplayOdds"));
    world.files.files["/c/derby.tly"] = SavedCard("Derby Day", true);
    ClearRaceFile();
    std::optional<gui::frmMain> main;
    main.emplace();
    Ports ports = CurrentPorts();
    ports.shell = &*main;
    PortsScope scope(ports);
    main->MDIForm_Load();
    PrepareDocument();
    main->show();

    gui::ShowOddsBoardWhenReady(*main);
    QApplication::processEvents();
    EXPECT_FALSE(main->IsFormLoaded("frmDisplayOdds"));

    G.LastFile = "/c/derby.tly";
    InitialOpen();
    auto* odds = main->findChild<gui::frmDisplayOdds*>();
    ASSERT_TRUE(QTest::qWaitFor([&] {
        odds = main->findChild<gui::frmDisplayOdds*>();
        return odds != nullptr && odds->BoardShown();
    }));
    EXPECT_TRUE(main->IsFormLoaded("frmDisplayOdds"));
    EXPECT_EQ(odds->logic.optAutoOn.value, -1);
    EXPECT_EQ(odds->logic.CurRace, 1);
    main.reset();
}

}  // namespace
}  // namespace tt::test
