// The three windows over their logic: the payout display follows a calculation made while it
// is open, keeps its place, stops its timer at an interval of 0; Payout Handling closed by its
// frame answers nothing; Edit Results is gone before the payouts are worked out.

// The card helper first: it names a variable as Qt names its slots keyword.
#include "payout_card.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include "model/number_text.h"
#include "payouts/forms/frm_display_payouts.h"
#include "payouts/forms/frm_edit_results.h"
#include "payouts/forms/frm_payout_handling.h"
#include "shell/forms/gui_support.h"

namespace tt::test {
namespace {

using gui::Twips;

class PayoutForms : public PayoutCard {
  protected:
    void SetUp() override {
        PayoutCard::SetUp();
        Race(1, {1}, {1, 2});
        Race(2, {1, 2}, {1, 2, 3});
        Bet(1, 1, 2, {1});
        Bet(2, 1, 2, {2});
        Bet(2, 2, 2, {3});
        Settle(1, {1, 2});
        RF.DefaultRace = 1;
        G.CurrentRace = 0;
    }
    template <class W>
    W* Child(QWidget& form, const char* name) {
        W* w = form.findChild<W*>(name);
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
};

TEST_F(PayoutForms, DisplayFollowsACalculationKeepsItsPlaceAndStopsAtIntervalZero) {
    world.settings.values = {{"PayLeft", "1500"}, {"PayTop", "750"}};
    auto* window = new gui::frmDisplayPayouts;
    window->show();
    EXPECT_EQ(window->windowTitle(), "Display Payouts");
    EXPECT_EQ(window->pos(), QPoint(Twips(1500), Twips(750)));
    auto* race = Child<QComboBox>(*window, "comRaceName");
    auto* first = Child<QLineEdit>(*window, "txtRacerName1");
    EXPECT_EQ(race->currentData().toLongLong(), 1);
    EXPECT_EQ(first->text(), "1 - Racer1-1");

    // Brought to the front after race 2 was settled elsewhere, it shows race 2.
    Settle(2, {3, 2});
    window->RefreshContents();
    EXPECT_EQ(race->currentData().toLongLong(), 2);
    EXPECT_EQ(first->text(), "3 - Racer2-3");
    race->setCurrentIndex(0);
    window->RefreshContents();
    EXPECT_EQ(race->currentData().toLongLong(), 1);

    // Auto Run: each tick takes its interval from the text box, and 0 stops the timer.
    auto* timer = Child<QTimer>(*window, "Timer1");
    EXPECT_EQ(timer->interval(), 5000);
    Child<QRadioButton>(*window, "optAutoOn")->click();
    window->logic.txtInterval.text = "0";
    timer->setInterval(1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !timer->isActive(); }));
    EXPECT_EQ(race->currentData().toLongLong(), 2);

    window->resize(700, 500);
    window->close();
    EXPECT_EQ(world.settings.writes,
              (std::vector<std::string>{"PayLeft", "PayTop", "PayWidth", "PayHeight"}));
    EXPECT_EQ(world.settings.values["PayWidth"], NumText(gui::ToTwips(700)));
    delete window;

    // Minimised, it keeps the place it had; with no size kept it has the size of its design.
    world.settings.writes.clear();
    world.settings.values.erase("PayWidth");
    gui::frmDisplayPayouts minimised;
    minimised.showMinimized();
    EXPECT_EQ(minimised.size(), minimised.sizeHint());
    minimised.close();
    EXPECT_TRUE(world.settings.writes.empty());
}

TEST_F(PayoutForms, PayoutHandlingAnswersOnlyByOk) {
    const HandlingQuestion win{2, BetType::kWin, 0};
    gui::frmPayoutHandling closed(win);
    closed.show();
    EXPECT_EQ(Child<QLabel>(closed, "lblBetType")->text(), "Win Bets");
    EXPECT_FALSE(Child<QRadioButton>(closed, "optMost")->isEnabled());
    EXPECT_TRUE(Child<QRadioButton>(closed, "optPayback")->isChecked());
    QTest::keyClick(&closed, Qt::Key_Escape);
    EXPECT_TRUE(closed.isVisible());
    closed.close();
    EXPECT_FALSE(closed.logic.answer.has_value());
    EXPECT_EQ(G.CurrentRace, 2);

    gui::frmPayoutHandling answered({1, BetType::kExacta, 1});
    answered.show();
    EXPECT_TRUE(Child<QRadioButton>(answered, "optMost")->isChecked());
    Child<QRadioButton>(answered, "optNoPay")->click();
    Child<QPushButton>(answered, "cmdOK")->click();
    EXPECT_EQ(answered.logic.answer, PoolHandling::kNoPay);
    EXPECT_FALSE(answered.isVisible());
}

TEST_F(PayoutForms, EditResultsPaintsTwiceChosenRacersAndHidesBeforeTheCalculation) {
    G.CurrentRace = 2;
    gui::frmEditResults form;
    form.logic.handling = policy;
    form.show();
    auto choose = [&](int k, std::int64_t slot) {
        auto* box = Child<QComboBox>(form, ("comRacerName" + std::to_string(k)).c_str());
        const int index = box->findData(QVariant::fromValue<qlonglong>(slot));
        box->setCurrentIndex(index);
        emit box->activated(index);
        return box;
    };
    QComboBox* a = choose(1, 3);
    QComboBox* b = choose(2, 3);
    Child<QPushButton>(form, "cmdOK")->click();
    EXPECT_EQ(world.messages.Texts(),
              std::vector<std::string>{"Same Racer cannot finish in two positions!"});
    EXPECT_FALSE(a->styleSheet().isEmpty());
    EXPECT_FALSE(b->styleSheet().isEmpty());
    choose(2, 1);
    EXPECT_TRUE(b->styleSheet().isEmpty());

    bool visibleAtDisplay = true;
    world.shell.onShow["frmDisplayPayouts"] = [&] { visibleAtDisplay = form.isVisible(); };
    Child<QPushButton>(form, "cmdOK")->click();
    EXPECT_FALSE(visibleAtDisplay);
    EXPECT_EQ(RF.Race(2).Result(1), 3);
    EXPECT_EQ(RF.Payout(2, 1, 1).PayRatio, kPayback);  // nobody bet number 3 to win
}

}  // namespace
}  // namespace tt::test
