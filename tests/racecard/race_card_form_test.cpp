// "Race Card Setup" as a window: the key filter, the reformatting when a box loses the focus,
// and a tab change refused by the validation, which live in the order of the widget events.

#include "race_card.h"

#include <QApplication>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

#include "racecard/forms/frm_race_card.h"

namespace tt::test {
namespace {

using RaceCardFormTest = RaceCardTest;

TEST_F(RaceCardFormTest, KeysFocusAndTabsFollowTheLogic) {
    gui::frmRaceCard form;
    form.show();
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_EQ(form.SSTab1->currentIndex(), 0);
    EXPECT_FALSE(form.logic.FormChanged);

    form.SSTab1->setCurrentIndex(1);
    auto* minBet = form.findChild<QLineEdit*>("txtMinBet");
    ASSERT_TRUE(minBet);
    minBet->setFocus(Qt::TabFocusReason);
    minBet->selectAll();
    QTest::keyClicks(minBet, "7x5");
    EXPECT_EQ(minBet->text(), "75");
    EXPECT_EQ(world.messages.beeps, 1);
    EXPECT_EQ(form.logic.txtMinBet.text, "75");
    EXPECT_TRUE(form.logic.FormChanged);
    form.findChild<QLineEdit*>("txtMinPayout")->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(minBet->text(), "75.00");

    // Leaving the tab: the minimum payout is below the minimum bet, so the tab stays.
    form.SSTab1->setCurrentIndex(3);
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{
                  "Minimum Payout must be at least as much\r\nas the Minimum Bet amount"});
    EXPECT_EQ(form.SSTab1->currentIndex(), 1);
    EXPECT_EQ(QApplication::focusWidget(), form.findChild<QLineEdit*>("txtMinPayout"));

    minBet->setText("1.00");
    form.logic.txtMinBet.text = "1.00";
    form.SSTab1->setCurrentIndex(3);
    EXPECT_EQ(form.SSTab1->currentIndex(), 3);
    EXPECT_EQ(form.flxRacers->model()->rowCount(), 3);
    EXPECT_EQ(form.flxRacers->model()->index(0, 4).data().toString(), " 5- 2");

    // The window frame asks first: Cancel keeps the window, No closes it without saving.
    world.messages.Answer(kCancel);
    form.reject();
    EXPECT_TRUE(form.isVisible());
    world.messages.Answer(kNo);
    form.reject();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(RF.Race(0).MinBet, C(1));
}

}  // namespace
}  // namespace tt::test
