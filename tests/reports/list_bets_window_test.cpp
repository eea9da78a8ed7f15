// The List Bets window on screen: the grid through its model, the thin rows between tickets, a
// click that shows the bet, and the rebuild when the window comes to the front again.

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

#include "model/common.h"
#include "report_card.h"
#include "reports/forms/frm_list_bets.h"

namespace tt::test {
namespace {

class ListBetsWindow : public ReportCard {
  protected:
    void SetUp() override {
        ReportCard::SetUp();
        WinnersOnly = false;
        Race(1, {1, 2}, {1, 2});
        ann = Bettor("Ann");
        const auto t1 = Ticket(1, ann, 4);
        Bet(t1, 1, 2, {1});
        Bet(t1, 2, 2, {2});
        Bet(Ticket(1, ann, 0), 1, 3, {2});
    }
    void Process() {
        for (int i = 0; i < 3; ++i) QApplication::processEvents();
    }
    int ann = 0;
};

TEST_F(ListBetsWindow, TheGridShowsTheListThroughItsModel) {
    gui::frmListBets window;
    window.show();
    Process();
    QTableView* view = window.Grid();
    QAbstractItemModelTester tester(view->model(),
                                    QAbstractItemModelTester::FailureReportingMode::Warning);
    ASSERT_EQ(view->model()->rowCount(), 5);
    EXPECT_EQ(view->model()->headerData(2, Qt::Horizontal).toString(), "Ticket");
    EXPECT_EQ(view->model()->index(0, 9).data().toString(), "2.00");
    for (int c : {0, 1, 13}) EXPECT_TRUE(view->isColumnHidden(c)) << c;
    EXPECT_FALSE(view->isColumnHidden(5));
    EXPECT_LE(view->rowHeight(2), 2);  // the row between the two tickets
    EXPECT_GT(view->rowHeight(1), 10);
    EXPECT_EQ(window.findChild<QLabel*>("lblTotal")->text(), "7.00");
    EXPECT_EQ(window.findChild<QLabel*>("lblDue")->text(),
              "A net of 3.00 is due in for listed bets.");
}

TEST_F(ListBetsWindow, ChoosingWinnersOnlyHidesTheTicketsMoney) {
    gui::frmListBets window;
    window.show();
    Process();
    RF.Bet(1, 2).BetWinnings = C(5);
    QTest::mouseClick(window.findChild<QRadioButton*>("optWinnersOnly"), Qt::LeftButton);
    EXPECT_TRUE(WinnersOnly);
    EXPECT_EQ(window.Grid()->model()->rowCount(), 2);
    EXPECT_TRUE(window.Grid()->isColumnHidden(5));
    EXPECT_FALSE(window.findChild<QLabel*>("lblCollected")->isVisible());
    EXPECT_TRUE(window.findChild<QRadioButton*>("optWinnersOnly")->isChecked());
    EXPECT_FALSE(window.findChild<QRadioButton*>("optAllBets")->isChecked());
}

TEST_F(ListBetsWindow, AClickShowsTheBetOfItsRow) {
    gui::frmListBets window;
    window.show();
    Process();
    QTableView* view = window.Grid();
    const QRect cell = view->visualRect(view->model()->index(3, 9));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(world.shell.formsShown, std::vector<std::string>{"frmBetDisplay (modal)"});
    EXPECT_EQ(G.CurrentRace, 1);
    EXPECT_EQ(G.CurrentBet, 3);
    // The cells were shown as selected only while the bet was on screen.
    EXPECT_FALSE(view->selectionModel()->hasSelection());
}

TEST_F(ListBetsWindow, ComingToTheFrontListsBetsTakenMeanwhile) {
    gui::frmListBets window;
    window.show();
    Process();
    ASSERT_EQ(window.Grid()->model()->rowCount(), 5);
    Bet(Ticket(1, ann), 1, 9, {1});
    Process();
    EXPECT_EQ(window.Grid()->model()->rowCount(), 5);
    QMetaObject::invokeMethod(&window, "RefreshContents");
    QMetaObject::invokeMethod(&window, "RefreshContents");
    Process();
    EXPECT_EQ(window.Grid()->model()->rowCount(), 7);
    EXPECT_EQ(window.findChild<QLabel*>("lblTotal")->text(), "16.00");
}

}  // namespace
}  // namespace tt::test
